// SPDX-License-Identifier: MIT
#include <ZarnCore/io/lilypond/VoiceWriter.h>

#include <ZarnCore/io/ZarnExportReport.h>
#include <ZarnCore/io/lilypond/BeatWords.h>
#include <ZarnCore/io/lilypond/DrumTable.h>
#include <ZarnCore/io/lilypond/Frame.h>
#include <ZarnCore/io/lilypond/VoiceMarks.h>
#include <ZarnCore/io/lilypond/Words.h>
#include <ZarnCore/io/sheet/SimileBars.h>
#include <ZarnCore/model/ZarnMasterBar.h>
#include <ZarnCore/model/ZarnTrack.h>
#include <ZarnCore/music/ZarnMusic.h>

#include <algorithm>
#include <array>
#include <cstdlib>

namespace zarn::lilypond {

namespace {

constexpr std::array<const char *, Bar::MaxVoices> voiceCommands = {"\\voiceOne", "\\voiceTwo",
                                                                    "\\voiceThree", "\\voiceFour"};

/// By `Fermata`.
constexpr std::array<const char *, 3> fermataTexts = {"\\shortfermata", "\\fermata",
                                                      "\\longfermata"};

/// Whether a slot holds more than time that is kept free.
bool isSeen(const Bar &bar, unsigned voice)
{
    const auto &held = bar.voices().at(voice);
    return held && std::any_of(held->beats().begin(), held->beats().end(), [](const auto &beat) {
               return !beat->isPlaceHolder();
           });
}

/// The voices that are seen above a slot.
unsigned rankOf(const Bar &bar, unsigned slot)
{
    unsigned rank = 0;
    for (unsigned voice = 0; voice < slot; ++voice)
        rank += isSeen(bar, voice) ? 1 : 0;
    return rank;
}

/// 8 for eighths.
constexpr int valueOf(unsigned doublings)
{
    return 4 << doublings;
}

} // namespace

VoiceWriter::VoiceWriter(const StaffContext &context, unsigned voice)
    : _context(context), _voice(voice), _beats(context.staff, voice), _tones(context, _beats),
      _dynamics(context, _beats, voice), _marks(voiceMarksOf(_beats, context))
{
}

std::string VoiceWriter::write()
{
    std::vector<std::string> texts;
    for (unsigned bar = 0; bar < _context.frame.bars.size(); ++bar)
        texts.push_back(barText(bar));
    foldSimiles(texts);
    std::string text;
    for (unsigned bar = 0; bar < texts.size(); ++bar) {
        const auto &words = _context.frame.repeats.bars[bar];
        const bool isLast = bar + 1 == texts.size();
        text += "  " + words.before + texts[bar] + '|';
        if (isLast && !_pending.empty())
            text += " <>" + takePending();
        text += words.after + " % " + std::to_string(bar + 1) + '\n';
    }
    return text;
}

/// Bars that repeat the one before become its percent signs, unless the form parts them.
void VoiceWriter::foldSimiles(std::vector<std::string> &texts) const
{
    const auto &frame = _context.frame;
    for (unsigned bar = 0; bar + 1 < texts.size(); ++bar) {
        unsigned count = 1;
        while (bar + count < texts.size() && bar + count < _context.staff.barCount()) {
            const unsigned next = bar + count;
            const Bar &repeated = *_context.staff.bars()[next];
            if (repeated.simileMark() != SimileMark::Simple || !sheet::isDrawnAsSimile(repeated)
                || !frame.repeats.bars[next].before.empty()
                || !frame.repeats.bars[next - 1].after.empty()
                || frame.bars[next].length != frame.bars[bar].length
                || !frame.bars[next].grace.isZero())
                break;
            texts[next].clear();
            ++count;
        }
        if (count == 1)
            continue;
        const bool isEmpty = _beats.begin(bar) == _beats.end(bar);
        if (isEmpty)
            for (unsigned i = 1; i < count; ++i)
                texts[bar + i] = gapText(Gap::Skip, frame.bars[bar].length) + ' ';
        else
            texts[bar] = "\\repeat percent " + std::to_string(count) + " { " + texts[bar] + "} ";
        bar += count - 1;
    }
}

/// The voices that are seen in a bar, whatever their slots, have their directions in turn.
std::string VoiceWriter::voiceCommand(const Bar &bar) const
{
    unsigned seen = 0;
    for (unsigned voice = 0; voice < Bar::MaxVoices; ++voice)
        seen += isSeen(bar, voice) ? 1 : 0;
    return seen > 1 ? voiceCommands.at(rankOf(bar, _voice)) : "\\oneVoice";
}

std::string VoiceWriter::barText(unsigned bar)
{
    const FrameBar &frame = _context.frame.bars[bar];
    const std::size_t begin = bar < _context.staff.barCount() ? _beats.begin(bar) : 0;
    const std::size_t end = bar < _context.staff.barCount() ? _beats.end(bar) : 0;
    utils::rational length;
    utils::rational grace;
    std::string text;
    if (begin != end) {
        const Bar &held = *_beats[begin].bar;
        if (isSeen(held, _voice))
            if (const std::string command = voiceCommand(held); command != _command) {
                text += command + ' ';
                _command = command;
                _stem.clear();
            }
        const Voice &voice = *held.voices().at(_voice);
        grace = leadingGrace(voice);
        length = voice.length();
    }
    const bool hasMain = length.sign() > 0;
    if (grace < frame.grace)
        text += graceGap(frame.grace - grace);
    for (std::size_t i = begin; i < end;) {
        std::size_t behind = i;
        while (behind < end && _beats[behind].beat->isGrace())
            ++behind;
        if (behind != i && (behind < end || !hasMain)) {
            text += graceText(i, behind);
            i = behind;
            continue;
        }
        const bool isPair = isTremoloPair(_beats, i);
        const std::size_t next = i + (isPair ? 2 : 1);
        std::size_t after = next;
        while (after < end && _beats[after].beat->isGrace())
            ++after;
        const bool hasGraceBehind = after == end && after != next;
        text += _marks[i].before + (hasGraceBehind ? "\\afterGrace { " : "");
        text += isPair ? tremoloText(i) : beatText(i);
        if (hasGraceBehind) {
            text += "} { ";
            for (std::size_t j = next; j < end; ++j)
                text += beatText(j);
            text += "} ";
        }
        text += _marks[i].after + (isPair ? _marks[i + 1].after : "");
        i = hasGraceBehind ? end : next;
    }
    if (length < frame.length)
        text += gapText(Gap::Skip, frame.length - length) + takePending() + ' ';
    return text;
}

std::string VoiceWriter::graceText(std::size_t first, std::size_t end)
{
    const bool isSlashed = _beats[first].beat->isSlashedGrace() && end == first + 1;
    std::string text = isSlashed ? "\\slashedGrace { " : "\\grace { ";
    for (std::size_t i = first; i < end; ++i)
        text += beatText(i);
    return text + "} ";
}

/// Beams of stems that point both ways are drawn well by nobody: notes with flags keep their
/// direction where all of the bar have the same, those of tremolos have none.
bool VoiceWriter::hasStemOfItsOwn(const VoiceBeat &place) const
{
    const auto index = static_cast<std::size_t>(&place - _beats.all().data());
    if (isTremoloPair(_beats, index) || (index > 0 && isTremoloPair(_beats, index - 1)))
        return false;
    const auto isBeamable = [](const Beat &beat) {
        return !beat.isGrace() && beat.hasNotes()
            && beat.rhythmValue().getNoteValue() >= RhythmValue::NoteValue::Eighth;
    };
    if (!isBeamable(*place.beat))
        return true;
    const auto &beats = place.bar->voices().at(_voice)->beats();
    return std::all_of(beats.begin(), beats.end(), [&](const auto &other) {
        return !isBeamable(*other) || other->stemOrientation() == place.beat->stemOrientation();
    });
}

/// What changes from a beat on: stems, sizes.
std::string VoiceWriter::commands(const VoiceBeat &place)
{
    std::string text;
    const auto orientation = place.beat->stemOrientation();
    std::string stem;
    if (place.beat->hasNotes() && !place.beat->isGrace() && hasStemOfItsOwn(place))
        stem = orientation == ZarnStemOrientation::Upward  ? "\\stemUp "
            : orientation == ZarnStemOrientation::Downward ? "\\stemDown "
                                                           : "";
    else
        stem = _stem;
    // The usual direction comes with the command of the voice.
    if (stem != _stem)
        text += stem.empty() ? (_command.empty() ? "\\stemNeutral " : _command + ' ') : stem;
    _stem = stem;
    if (place.beat->hasNotes() && orientation == ZarnStemOrientation::None)
        text += "\\once \\omit Stem \\once \\omit Flag ";
    const std::string size = place.beat->isCue() ? "\\tiny " : "\\normalsize ";
    if (size != (_size.empty() ? "\\normalsize " : _size))
        text += size;
    _size = size;
    return text;
}

/// The notes or the rest of a beat with all that hangs on it.
std::string VoiceWriter::coreText(std::size_t index, const std::string &duration)
{
    const VoiceBeat &place = _beats[index];
    const auto tones = _tones.of(place);
    if (tones.empty())
        return restText(index) + takePending();
    std::string text;
    std::string behind;
    bool isChord = tones.size() > 1;
    std::string inside;
    const int strings = static_cast<int>(_context.staff.tuning().stringCount());
    for (const VoiceTones::Tone &tone : tones) {
        const bool hasString = _tones.isOnItsString(*tone.note);
        const NoteWords words = _context.drums != nullptr
            ? NoteWords{tone.note->isGhost() ? "\\parenthesize " : "", "", false}
            : wordsOf(*tone.note, _context.track, hasString ? strings - tone.note->string() : 0);
        std::string before = words.before;
        if (hasString)
            before += _tones.fretText(*tone.note, place);
        if (place.beat->isSlashed())
            before += "\\tweak NoteHead.style #'slash ";
        if (tone.note->accidentalDisplay() == AccidentalDisplay::Hidden)
            before += "\\tweak Accidental.stencil ##f ";
        isChord = isChord || words.needsChord;
        inside += (inside.empty() ? "" : " ") + before + tone.text;
        behind = words.after + _tones.tieText(index, tone);
        if (tones.size() > 1)
            inside += behind;
    }
    if (isChord && tones.size() == 1)
        inside += behind;
    text = isChord ? '<' + inside + '>' : inside;
    text += duration;
    if (!isChord)
        text += behind;
    return text + takePending();
}

/// Whether a voice above whose stems point the same way rests there too: there is no room for both.
bool VoiceWriter::isRestOfOthers(const VoiceBeat &place) const
{
    const unsigned rank = rankOf(*place.bar, _voice);
    for (unsigned voice = 0; voice < _voice && !place.beat->isGrace(); ++voice) {
        const auto &held = place.bar->voices().at(voice);
        const auto other = held && isSeen(*place.bar, voice) ? held->beatAt(place.onset) : nullptr;
        if (other && other->isRest() && rankOf(*place.bar, voice) % 2 == rank % 2)
            return true;
    }
    return false;
}

std::string VoiceWriter::restText(std::size_t index) const
{
    const VoiceBeat &place = _beats[index];
    const Beat &beat = *place.beat;
    if (beat.isWholeBarRest() && !beat.isGrace()) {
        const auto &frame = _context.frame.bars[place.bar->index()];
        return gapText(isRestOfOthers(place) ? Gap::Skip : Gap::BarRest, frame.length);
    }
    const bool isShown = !beat.isPlaceHolder() && !isRestOfOthers(place);
    return (isShown ? "r" : "s") + valueText(beat.rhythmValue());
}

std::vector<std::string> VoiceWriter::fermatasOf(const VoiceBeat &place) const
{
    std::vector<std::string> texts;
    const auto master = place.bar->masterBar();
    if (!master || place.beat->isGrace() || place.beat->isPlaceHolder())
        return texts;
    const utils::rational end = place.onset + place.beat->length();
    for (const FermataMark &mark : master->fermatas())
        if (!(mark.position < place.onset) && mark.position < end)
            texts.emplace_back(fermataTexts.at(static_cast<std::size_t>(mark.kind)));
    return texts;
}

std::string VoiceWriter::beatText(std::size_t index, const std::string &value)
{
    const VoiceBeat &place = _beats[index];
    const Beat &beat = *place.beat;
    std::string command = commands(place);
    std::string behind = _marks[index].events;
    command += _marks[index].commands;
    std::string pending = takePending();
    behind += _dynamics.events(index, _pending);
    behind += _tones.strumText(place, command);
    behind += _tones.slideText(index, command);
    behind += signsOf(beat);
    for (const std::string &fermata : fermatasOf(place))
        behind += fermata;
    if (std::any_of(beat.notes().begin(), beat.notes().end(),
                    [](const auto &note) { return note->slideIn() != SlideIn::None; }))
        lose(_context, "slide into a note from nowhere", place);
    if (beat.hasTimer())
        lose(_context, "timer", place);
    std::swap(pending, _pending); // what comes of this beat waits for the next one
    _pending += behind;
    std::string duration = value.empty() ? valueText(beat.rhythmValue()) : value;
    if (beat.tremolo() != 0) {
        const int speed = valueOf(beat.tremolo());
        const auto note = static_cast<int>(beat.rhythmValue().getNoteValue());
        const int flags = note - static_cast<int>(RhythmValue::NoteValue::Quarter);
        if (flags <= 0 || speed > valueOf(static_cast<unsigned>(flags)))
            duration += ':' + std::to_string(speed);
        else
            lose(_context, "tremolo as slow as its note", place);
    }
    std::string text;
    if (beat.isWholeBarRest() && !_pending.empty())
        text = command + "<>" + takePending() + ' ' + coreText(index, duration);
    else
        text = command + coreText(index, duration);
    _pending = pending;
    if (beat.breath() == BreathSign::Breath)
        text += " \\breathe";
    else if (beat.breath() == BreathSign::Caesura)
        text += " \\caesura";
    return text + ' ';
}

std::string VoiceWriter::tremoloText(std::size_t index)
{
    using NoteValue = RhythmValue::NoteValue;
    const Beat &beat = *_beats[index].beat;
    const RhythmValue &rhythm = beat.rhythmValue();
    const int flags =
        std::max(0, static_cast<int>(rhythm.getNoteValue()) - static_cast<int>(NoteValue::Quarter));
    const unsigned strokes = static_cast<unsigned>(flags) + beat.tremoloToNext();
    const utils::rational single(1, 1 << strokes);
    const utils::rational count = rhythm.getLength() / single;
    const std::string value = std::to_string(valueOf(strokes));
    const bool hasWord = count.isInteger();
    if (!hasWord)
        lose(_context, "tremolo between two notes", _beats[index]);
    // Signs of the second beat depend on what the first has opened.
    std::string parts = beatText(index, hasWord ? value : std::string());
    parts += beatText(index + 1, hasWord ? value : std::string());
    return hasWord ? "\\repeat tremolo " + std::to_string(count.numerator()) + " { " + parts + "} "
                   : parts;
}

} // namespace zarn::lilypond
