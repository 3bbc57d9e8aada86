// SPDX-License-Identifier: MIT
#include <ZarnCore/io/lilypond/VoiceMarks.h>

#include <ZarnCore/io/ZarnExportReport.h>
#include <ZarnCore/io/lilypond/BeatWords.h>
#include <ZarnCore/io/lilypond/StaffContext.h>
#include <ZarnCore/io/lilypond/VoiceBeats.h>
#include <ZarnCore/io/lilypond/Words.h>
#include <ZarnCore/io/sheet/TupletSpans.h>
#include <ZarnCore/model/ZarnMasterBar.h>
#include <ZarnCore/model/ZarnTrack.h>

#include <algorithm>
#include <map>

namespace zarn::lilypond {

namespace {

using sheet::ColumnKey;

class Marker {
public:
    Marker(const VoiceBeats &beats, const StaffContext &context)
        : _beats(beats), _context(context), _words(beats.size())
    {
    }

    std::vector<PlacedWords> run()
    {
        for (unsigned bar = 0; bar < _context.staff.barCount(); ++bar) {
            markTuplets(_beats.begin(bar), _beats.end(bar), TupletLevel::Outer);
            markBeams(_beats.begin(bar), _beats.end(bar));
        }
        markSlurs();
        markNumberedSlurs();
        markHammerOns();
        markLines();
        return std::move(_words);
    }

private:
    void markTuplets(std::size_t begin, std::size_t end, TupletLevel level);
    void markBeams(std::size_t begin, std::size_t end);
    void beam(std::size_t first, std::size_t last);
    void markSlurs();
    void markNumberedSlurs();
    void markHammerOns();
    void markLines();
    const Beat &beat(std::size_t index) const { return *_beats[index].beat; }

    const VoiceBeats &_beats;
    const StaffContext &_context;
    std::vector<PlacedWords> _words;
};

void Marker::markTuplets(std::size_t begin, std::size_t end, TupletLevel level)
{
    std::vector<sheet::TimedBeat> timed;
    std::map<ColumnKey, std::size_t> places;
    for (std::size_t i = begin; i < end; ++i) {
        const bool isOfPair =
            isTremoloPair(_beats, i) || (i > begin && isTremoloPair(_beats, i - 1));
        if (!beat(i).isGrace() && !beat(i).isWholeBarRest() && !isOfPair) {
            const ColumnKey column{_beats[i].onset};
            timed.push_back({column, &beat(i).rhythmValue()});
            places.emplace(column, i);
        }
    }
    std::vector<sheet::Span> spans;
    sheet::addTupletSpans(timed, level, 0, spans);
    for (const sheet::Span &span : spans) {
        const std::size_t first = places.at(span.first);
        const std::size_t last = places.at(span.last);
        const auto ratio = TupletGroup::ratioOf(beat(first).rhythmValue(), level).value();
        bool isSeen = false;
        for (std::size_t i = first; i <= last; ++i)
            isSeen = isSeen || !beat(i).isPlaceHolder();
        // Time that is kept free has no bracket.
        _words[first].before += isSeen
            ? "\\tuplet " + std::to_string(ratio.first) + '/' + std::to_string(ratio.second) + " { "
            : "\\scaleDurations " + std::to_string(ratio.second) + '/' + std::to_string(ratio.first)
                + " { ";
        if (level == TupletLevel::Outer)
            markTuplets(first, last + 1, TupletLevel::Inner);
        _words[last].after += "} ";
    }
}

bool isFlagged(const Beat &beat)
{
    return beat.rhythmValue().getNoteValue() >= RhythmValue::NoteValue::Eighth;
}

void Marker::beam(std::size_t first, std::size_t last)
{
    if (first == last)
        return;
    _words[first].events += '[';
    _words[last].events += ']';
}

/// The length inside of which the meter beams by itself; 0 where it says nothing.
utils::rational beamedLength(const Bar &bar)
{
    const auto master = bar.masterBar();
    if (!master)
        return 0;
    const TimeSignature &meter = master->timeSignature();
    const bool isCompound =
        meter.getNumerator() % 3 == 0 && meter.getNumerator() > 3 && meter.getDenominator() >= 8;
    if (isCompound)
        return meter.timeUnit() * utils::rational(3);
    return meter.getDenominator() <= 4 ? 1 : 0;
}

/// Whether a beam leads from a note to the next one: as marked, else inside of a beat alone.
bool isBeamedTo(const VoiceBeat &left, const VoiceBeat &right, const utils::rational &length)
{
    if (left.beat->beamMode() != BeamMode::Auto)
        return left.beat->beamMode() == BeamMode::Join;
    return !length.isZero()
        && utils::floorDivide(left.onset, length) == utils::floorDivide(right.onset, length);
}

bool isBeamable(const Beat &beat)
{
    return isFlagged(beat) && beat.hasNotes() && beat.stemOrientation() != ZarnStemOrientation::None
        && beat.tremoloToNext() == 0;
}

/// The language beams by the meter; where beams are marked, all of the bar are written. Grace notes
/// have none by themselves.
void Marker::markBeams(std::size_t begin, std::size_t end)
{
    std::vector<std::size_t> main;
    bool isMarked = false;
    for (std::size_t i = begin; i < end;) {
        if (!beat(i).isGrace()) {
            main.push_back(i);
            isMarked = isMarked || (isFlagged(beat(i)) && beat(i).beamMode() != BeamMode::Auto);
            ++i;
            continue;
        }
        std::size_t last = i;
        while (last + 1 < end && beat(last + 1).isGrace() && isBeamable(beat(last))
               && isBeamable(beat(last + 1)) && beat(last).beamMode() != BeamMode::Break)
            ++last;
        beam(i, last);
        i = last + 1;
    }
    for (const std::size_t i : main)
        if (isFlagged(beat(i)) && beat(i).hasNotes()
            && beat(i).stemOrientation() == ZarnStemOrientation::None)
            _words[i].events += "\\noBeam";
    if (!isMarked)
        return;
    const utils::rational length = beamedLength(*_beats[begin].bar);
    for (std::size_t i = 0; i < main.size();) {
        std::size_t last = i;
        while (last + 1 < main.size() && isBeamable(beat(main[last]))
               && isBeamable(beat(main[last + 1]))
               && isBeamedTo(_beats[main[last]], _beats[main[last + 1]], length))
            ++last;
        if (last != i)
            beam(main[i], main[last]);
        else if (isBeamable(beat(main[i])))
            _words[main[i]].events += "\\noBeam";
        i = last + 1;
    }
}

/// The parenthesis that begins a slur, with its look in front of it and the id between them; the
/// numbers are those of \slurDashed and \slurDotted in ly/property-init.ly of LilyPond 2.24.
std::string slurBegin(SlurLine line, SlurSide side, const std::string &id = {})
{
    const char *const dashes = line == SlurLine::Dashed ? "0.4 0.75"
        : line == SlurLine::Dotted                      ? "0.1 0.75"
                                                        : nullptr;
    const char *const parenthesis = side == SlurSide::Above ? "^("
        : side == SlurSide::Below                           ? "_("
                                                            : "(";
    return (dashes ? "-\\tweak dash-definition #'((0 1 " + std::string(dashes) + ")) "
                   : std::string())
        + id + parenthesis;
}

void Marker::markSlurs()
{
    bool isOpen = false;
    for (std::size_t i = 0; i < _beats.size(); ++i) {
        const bool goesOn = beat(i).isSlurredToNext() && _beats.behind(i) != nullptr;
        if (isOpen && (!goesOn || beat(i).beginsSlur())) {
            _words[i].events += ')';
            isOpen = false;
        }
        if (goesOn && !isOpen) {
            _words[i].events += slurBegin(beat(i).slurLine(), beat(i).slurSide());
            isOpen = true;
        }
    }
}

/// Slurs inside of others, by number; the language joins notes of one voice alone.
void Marker::markNumberedSlurs()
{
    std::map<unsigned, std::vector<std::pair<std::size_t, SlurEnd>>> open;
    const auto lose = [&](std::size_t index) {
        _context.report.addUnheld("slur between two voices",
                                  {static_cast<int>(_context.track.index()),
                                   static_cast<int>(_beats[index].bar->index())});
    };
    for (std::size_t i = 0; i < _beats.size(); ++i)
        for (const SlurEnd &end : beat(i).slurEnds()) {
            auto &begins = open[end.number];
            if (end.isBegin) {
                begins.push_back({i, end});
            } else if (begins.empty()) {
                lose(i);
            } else {
                const auto depth = static_cast<unsigned>(begins.size()) - 1;
                const std::string id =
                    "\\=" + std::to_string(end.number + depth * SlurEnd::HighestNumber);
                if (const auto &[begin, slur] = begins.back(); begin != i) {
                    _words[begin].events += slurBegin(slur.line, slur.side, id);
                    _words[i].events += id + ')';
                }
                begins.pop_back();
            }
        }
    for (const auto &[number, begins] : open)
        for (const auto &[begin, slur] : begins)
            lose(begin);
}

/// Hammer-ons, pull-offs and slides that are not struck again stand under slurs, unless there is
/// one, the first two with their letters.
void Marker::markHammerOns()
{
    constexpr const char *id = "\\=90";
    bool isOpen = false;
    for (std::size_t i = 0; i < _beats.size(); ++i) {
        const VoiceBeat *const next = _beats.behind(i);
        bool isJoined = false;
        if (next != nullptr)
            for (const auto &note : beat(i).notes()) {
                const bool isLegato = note->slideOut() == SlideOut::Legato;
                isJoined = isJoined || note->isHopo() || isLegato;
                const auto aim =
                    note->isHopo() ? next->beat->noteOnString(note->string()) : nullptr;
                if (aim)
                    _words[i].events += aim->fret() >= note->fret() ? "^\"H\"" : "^\"P\"";
            }
        const bool goesOn = isJoined && !beat(i).isSlurredToNext();
        if (isOpen && !goesOn)
            _words[i].events += std::string(id) + ')';
        if (goesOn && !isOpen)
            _words[i].events += std::string(id) + '(';
        isOpen = goesOn;
    }
}

struct Line {
    std::size_t first;
    std::size_t last;
    std::string words;
    char side = '^';
};

/// The language draws one line at a time over a voice; a second one stands as words alone.
void Marker::markLines()
{
    std::vector<Line> lines;
    std::map<std::size_t, std::size_t> open; // by kind: number of the line
    std::size_t textLine = 0;
    bool isTextOpen = false;
    for (std::size_t i = 0; i < _beats.size(); ++i) {
        const bool isParted = i > 0 && _beats.behind(i - 1) == nullptr;
        if (isParted)
            open.clear();
        const auto words = lineWordsOf(beat(i));
        for (std::size_t kind = 0; kind < words.size(); ++kind) {
            const auto known = open.find(kind);
            if (words[kind].empty()) {
                if (known != open.end() && !beat(i).isRest())
                    open.erase(known);
            } else if (known != open.end() && lines[known->second].words == words[kind]) {
                lines[known->second].last = i;
            } else {
                open[kind] = lines.size();
                lines.push_back({i, i, words[kind]});
            }
        }
        if (beat(i).textSpan() == TextSpan::End && isTextOpen)
            lines[textLine].last = i;
        if (beat(i).textSpan() == TextSpan::End)
            isTextOpen = false;
        const bool isBelow = beat(i).textSpan() == TextSpan::BeginBelow;
        const std::string &text = isBelow ? beat(i).textBelow() : beat(i).text();
        if (begins(beat(i).textSpan()) && !text.empty()) {
            isTextOpen = true;
            textLine = lines.size();
            lines.push_back({i, i, text, isBelow ? '_' : '^'});
        }
    }
    std::stable_sort(lines.begin(), lines.end(),
                     [](const Line &left, const Line &right) { return left.first < right.first; });
    std::size_t busyUntil = 0;
    for (const Line &line : lines) {
        if (line.first == line.last || line.first < busyUntil) {
            _words[line.first].events += line.side + quoted(line.words);
            continue;
        }
        busyUntil = line.last;
        _words[line.first].commands += "\\once \\override TextSpanner.bound-details.left.text = "
            + quoted(line.words + ' ') + ' ';
        _words[line.first].events += line.side == '_' ? "_\\startTextSpan" : "\\startTextSpan";
        _words[line.last].events += "\\stopTextSpan";
    }
}

} // namespace

std::vector<PlacedWords> voiceMarksOf(const VoiceBeats &beats, const StaffContext &context)
{
    return Marker(beats, context).run();
}

} // namespace zarn::lilypond
