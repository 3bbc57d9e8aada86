// SPDX-License-Identifier: MIT
#include <ZarnCore/io/ZarnScoreText.h>

#include <ZarnCore/io/text/BarColumnsText.h>
#include <ZarnCore/io/text/NoteText.h>
#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/music/ZarnDrumKeys.h>

#include <QString>

#include <algorithm>
#include <array>
#include <cstdint>
#include <vector>

namespace zarn::io {

namespace {

using text::TextScanner;

struct InstrumentWord {
    std::string_view word;
    InstrumentSet::Type type;
    std::array<std::uint8_t, 7> strings = {}; ///< lowest first; none: those of the type
};

/// Words beside the names of the categories themselves.
constexpr std::array<InstrumentWord, 9> instrumentWords = {{
    {"guitar", InstrumentSet::steelGuitar},
    {"guitar7", InstrumentSet::electricGuitar, {35, 40, 45, 50, 55, 59, 64}},
    {"nylon", InstrumentSet::nylonGuitar},
    {"electric", InstrumentSet::electricGuitar},
    {"bass", InstrumentSet::electricBass},
    {"bass5", InstrumentSet::electricBass, {23, 28, 33, 38, 43}},
    {"piano", InstrumentSet::acousticPiano},
    {"drums", InstrumentSet::drumKit},
    {"voice", InstrumentSet::voice},
}};

void setStrings(Staff &staff, const std::vector<int> &strings)
{
    GuitarTuning tuning = staff.tuning();
    tuning.setMidiNumbers(strings);
    tuning.setName({});
    staff.setTuning(tuning);
}

/// Reads the text by recursive descent; every function stands for a rule of the notation.
class ScoreTextReader {
public:
    ScoreTextReader(const std::string &source, ScoreModel &model) : _scanner(source), _model(model)
    {
    }

    void readScore()
    {
        for (_scanner.skipBlanks(); !_scanner.isAtEnd(); _scanner.skipBlanks())
            if (!_scanner.take(';'))
                readTrack();
        _columns.fill(_model);
    }

    /// Bars of music alone, for a staff without bars.
    void readBars(const std::shared_ptr<Track> &track, const std::shared_ptr<Staff> &staff)
    {
        Line line;
        line.track = track;
        line.staff = staff;
        _hasSettings = false;
        _scanner.skipBlanks();
        readStaff(line);
        if (!_scanner.isAtEnd())
            _scanner.failExpecting("a bar line |, or the end: this is the music of one staff");
    }

private:
    /// The place in the track that is being read.
    struct Line {
        std::shared_ptr<Track> track;
        std::shared_ptr<Staff> staff;
        unsigned bar = 0;
        unsigned voice = 0;
        std::array<std::shared_ptr<Beat>, Bar::MaxVoices> tied; ///< beat that waits for its tie
        std::array<RhythmValue, Bar::MaxVoices> rhythm;
    };

    void readTrack();
    std::shared_ptr<Track> readInstrument();
    void readTuning(Staff &staff);
    void readSetting(Track &track);
    void readStaff(Line &line);
    void readVoices(Line &line);
    void readBeat(Line &line);
    std::shared_ptr<Note> readNote(const Line &line);
    std::shared_ptr<Note> readStringedNote(const Line &line);
    void endTie(Line &line, const Beat &beat, std::size_t place);
    static bool isUnpitched(const Line &line)
    {
        return InstrumentSet::isUnpitched(line.track->type());
    }

    bool isStaffEnd() const noexcept
    {
        return _scanner.isAtEnd() || _scanner.peek() == '+' || _scanner.peek() == ';';
    }
    bool isBarEnd() const noexcept
    {
        return isStaffEnd() || _scanner.peek() == '|' || _scanner.peek() == '&'
            || _scanner.startsWith(":|");
    }

    TextScanner _scanner;
    ScoreModel &_model;
    text::BarColumnsText _columns;
    bool _hasSettings = true; ///< whether meter, key and repeats may stand among the music
};

void ScoreTextReader::readTrack()
{
    Line line;
    line.track = readInstrument();
    _model.addTrack(line.track);
    for (_scanner.skipBlanks(); !_scanner.take(':'); _scanner.skipBlanks())
        readSetting(*line.track);
    unsigned staff = 0;
    do {
        if (staff == line.track->staffCount())
            line.track->setStaffCount(staff + 1);
        line.staff = line.track->staff(staff++);
        readStaff(line);
    } while (_scanner.take('+'));
}

std::shared_ptr<Track> ScoreTextReader::readInstrument()
{
    const std::size_t place = _scanner.place();
    const std::string word(_scanner.takeWord());
    const auto found = std::find_if(instrumentWords.begin(), instrumentWords.end(),
                                    [&](const auto &entry) { return entry.word == word; });
    const bool isWord = found != instrumentWords.end();
    const auto type = isWord ? found->type : InstrumentSet::typeFromString(word);
    if (type == InstrumentSet::unknown)
        _scanner.failAt(place,
                        "expected an instrument such as guitar, bass, piano, drums or "
                        "violin, found \""
                            + word + "\"");
    auto track = ScoreModel::createTrack(type);
    if (isWord && found->strings[0] != 0)
        setStrings(
            *track->staff(0),
            {found->strings.begin(), std::find(found->strings.begin(), found->strings.end(), 0)});
    if (_scanner.take('('))
        readTuning(*track->staff(0));
    return track;
}

void ScoreTextReader::readTuning(Staff &staff)
{
    std::vector<int> strings;
    for (_scanner.skipBlanks(); !_scanner.take(')'); _scanner.skipBlanks())
        strings.push_back(text::takeNamedPitch(_scanner).midi);
    setStrings(staff, strings);
}

void ScoreTextReader::readSetting(Track &track)
{
    if (_columns.readSetting(_scanner, 0))
        return;
    if (_scanner.take("capo=")) {
        const auto fret = static_cast<std::uint8_t>(_scanner.takeNumber("a fret", 0, 24));
        for (const auto &staff : track.staves())
            staff->setCapoFret(fret);
    } else if (_scanner.take("tempo=")) {
        _model.masterTrack()->setTempoValue(_scanner.takeNumber("a tempo", 1, 999));
    } else {
        _scanner.failExpecting("a time such as 3/4, key=, capo=, tempo=, or : before the music");
    }
}

void ScoreTextReader::readStaff(Line &line)
{
    line.bar = 0;
    line.tied = {};
    line.rhythm = {};
    if (_hasSettings)
        _columns.readFrontLine(_scanner);
    for (_scanner.skipBlanks(); !isStaffEnd(); _scanner.skipBlanks(), ++line.bar) {
        line.staff->addEmptyBars(1);
        readVoices(line);
        if (!(_hasSettings ? _columns.readLineBehind(_scanner, line.bar) : _scanner.take('|')))
            break;
    }
    if (!isStaffEnd())
        _scanner.failExpecting("a bar line |, + before the next staff or ; before the next track");
    for (const auto &beat : line.tied)
        if (beat)
            _scanner.failExpecting("the note that the tie leads to");
    _columns.reachBarCount(line.staff->barCount());
}

void ScoreTextReader::readVoices(Line &line)
{
    for (_scanner.skipBlanks(); _hasSettings && _columns.readSetting(_scanner, line.bar);)
        _scanner.skipBlanks();
    for (line.voice = 0;; ++line.voice) {
        if (line.voice == Bar::MaxVoices)
            _scanner.failAt(_scanner.place(), "a bar has at most four voices");
        for (_scanner.skipBlanks(); !isBarEnd(); _scanner.skipBlanks())
            readBeat(line);
        if (!_scanner.take('&'))
            break;
    }
}

void ScoreTextReader::readBeat(Line &line)
{
    const std::size_t place = _scanner.place();
    const auto beat = std::make_shared<Beat>();
    if (_scanner.take('"')) {
        std::string symbol;
        for (; _scanner.peek() != '"'; _scanner.take(_scanner.peek())) {
            if (_scanner.isAtEnd())
                _scanner.failExpecting("a \" behind the chord symbol");
            symbol += _scanner.peek();
        }
        if (QString::fromStdString(symbol).toStdString() != symbol)
            _scanner.failAt(place, "the chord symbol is not in UTF-8");
        _scanner.take('"');
        beat->setChordSymbol(symbol);
    }
    if (_scanner.take('[')) {
        for (_scanner.skipBlanks(); !_scanner.take(']'); _scanner.skipBlanks())
            beat->addNote(readNote(line));
    } else if (_scanner.peek() != 'r' || (isUnpitched(line) && drumWordAt(_scanner.rest()))) {
        beat->addNote(readNote(line));
    } else {
        _scanner.take('r');
    }
    text::takeLength(_scanner, line.rhythm[line.voice]);
    beat->setRhythmValue(line.rhythm[line.voice]);
    endTie(line, *beat, place);
    if (_scanner.take('~')) {
        for (const auto &note : beat->notes())
            note->setTieOrigin(true);
        line.tied[line.voice] = beat;
    }
    line.staff->bar(line.bar)->ensureVoice(line.voice)->addBeat(beat);
}

/// Ties the notes of a beat to those of the beat before that ask for it.
void ScoreTextReader::endTie(Line &line, const Beat &beat, std::size_t place)
{
    const std::shared_ptr<Beat> origin = std::move(line.tied[line.voice]);
    line.tied[line.voice] = nullptr;
    if (!origin)
        return;
    bool isTied = false;
    for (const auto &from : origin->notes()) {
        const auto to = from->string() != Note::Unset ? beat.noteOnString(from->string())
                                                      : beat.noteWithMidi(from->midi());
        const bool isSame = to && to->midi() == from->midi();
        from->setTieOrigin(isSame);
        if (isSame)
            to->setTied(true);
        isTied = isTied || isSame;
    }
    if (!isTied)
        _scanner.failAt(place, "expected a note of the beat before, which is tied");
}

std::shared_ptr<Note> ScoreTextReader::readNote(const Line &line)
{
    if (_scanner.isDigit())
        return readStringedNote(line);
    if (isUnpitched(line)) {
        const int key = text::takeDrum(_scanner);
        if (key < 0)
            _scanner.failExpecting("a drum such as kick, snare, hat, ride or tom1, or r");
        return std::make_shared<Note>(key);
    }
    if (!text::isNamedPitch(_scanner))
        _scanner.failExpecting(line.staff->isFretted()
                                   ? "a note such as 6:3 (string:fret) or c4, a [chord] or r"
                                   : "a note such as c4 or f#5, a [chord] or r");
    const text::NamedPitch pitch = text::takeNamedPitch(_scanner);
    const auto note = std::make_shared<Note>(pitch.midi);
    note->setSpelling(pitch.spelling);
    return note;
}

std::shared_ptr<Note> ScoreTextReader::readStringedNote(const Line &line)
{
    const std::size_t place = _scanner.place();
    const GuitarTuning &tuning = line.staff->tuning();
    const auto stringCount = static_cast<unsigned>(tuning.stringCount());
    if (stringCount == 0)
        _scanner.failExpecting("a note name such as c4, as the staff has no strings");
    const unsigned string =
        stringCount - _scanner.takeNumber("a string", 1, stringCount); // players count from above
    if (!_scanner.take(':'))
        _scanner.failExpecting(": and a fret behind the string");
    const bool isDead = _scanner.take('x');
    const int fret = isDead ? 0 : static_cast<int>(_scanner.takeNumber("a fret", 0, 36));
    const int midi = tuning.midi(string, fret) + static_cast<int>(line.staff->capoFret())
        - line.track->transpositionOffset();
    if (midi < 0 || midi > 127)
        _scanner.failAt(place, "the note lies outside the MIDI keys 0 to 127");
    const auto note = std::make_shared<Note>(midi);
    note->setString(static_cast<int>(string));
    note->setFret(fret);
    note->setDead(isDead);
    return note;
}

} // namespace

void readScoreText(const std::string &text, ScoreModel &model)
{
    ScoreTextReader(text, model).readScore();
}

std::vector<std::shared_ptr<Bar>> readBarsText(const std::string &text, const Staff &like)
{
    ScoreModel scratch;
    const auto original = like.track();
    const auto track = original ? original->cloneWithoutBars() : std::make_shared<Track>();
    const auto staff = original ? track->staff(like.index()) : like.cloneWithoutBars();
    ScoreTextReader(text, scratch).readBars(track, staff);
    return staff->barCount() == 0 ? Staff::Bars() : staff->takeBars(0, staff->barCount() - 1);
}

} // namespace zarn::io
