// SPDX-License-Identifier: MIT
#include <ZarnCore/io/midi/NotatedBarWriter.h>

#include <ZarnCore/io/midi/NotatedBar.h>
#include <ZarnCore/io/midi/PitchSpeller.h>
#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/playback/PlayedVoice.h>
#include <ZarnCore/playback/SoundingKey.h>

#include <algorithm>
#include <cmath>
#include <utility>

namespace zarn::io {

namespace {

using playback::PlannedNote;
using utils::rational;

MidiTime inMidiTime(const rational &quarters)
{
    constexpr std::int64_t small = std::int64_t(1) << 46;
    const std::int64_t numerator = quarters.numerator();
    if (numerator < 0 || numerator > small || quarters.denominator() > small)
        return (quarters * midiQuarter).round();
    return (2 * numerator * midiQuarter + quarters.denominator()) / (2 * quarters.denominator());
}

MidiTime inMidiTime(double quarters)
{
    return std::llround(quarters * midiQuarter);
}

/// Where a note of a voice is written, and how it is played.
struct Place {
    std::uint64_t at;
    double start; ///< in quarters of playing
    double end;
    std::uint8_t key;

    static std::uint64_t of(std::uint32_t playedBar, std::uint32_t beat, unsigned note)
    {
        constexpr int beatBits = 24;
        constexpr int noteBits = 12;
        return (static_cast<std::uint64_t>(playedBar) << (beatBits + noteBits))
            | (static_cast<std::uint64_t>(beat) << noteBits) | note;
    }
    bool operator<(const Place &other) const { return at < other.at; }
};

/// The notes of a voice in the order in which they are written.
struct Line {
    std::vector<Place> places;
    std::size_t next = 0;

    /// Those of a place.
    std::pair<const Place *, const Place *> take(std::uint64_t at)
    {
        while (next < places.size() && places[next].at < at)
            ++next;
        const std::size_t first = next;
        while (next < places.size() && places[next].at == at)
            ++next;
        return {places.data() + first, places.data() + next};
    }
};

/// A note that is held on: what it is known by, and the key that it was struck with.
struct Held {
    unsigned staff;
    unsigned voice;
    int midi;
    int string;
    std::uint8_t key;
};

class BarWriter {
public:
    BarWriter(const Track &track, const playback::PlaybackPlan &plan, std::vector<Line> &lines,
              const TickMap &ticks, MidiTrack &midi)
        : _track(track), _plan(plan), _lines(lines), _ticks(ticks), _midi(midi),
          _fifths(fifthsOfTransposition(track.transpositionOffset()))
    {
        for (Line &line : _lines)
            if (!std::is_sorted(line.places.begin(), line.places.end()))
                std::stable_sort(line.places.begin(), line.places.end());
        for (const auto &staff : track.staves())
            _sources.push_back(playback::sourceBars(*staff));
    }

    void write()
    {
        const auto &bars = _plan.bars().bars();
        NotatedBar bar;
        for (std::uint32_t number = 0; number < bars.size(); ++number) {
            bar.notes.clear();
            bar.length = inMidiTime(bars[number].length);
            _stillHeld.clear();
            for (unsigned staff = 0; staff < _track.staffCount(); ++staff) {
                const auto &from =
                    _track.staves()[staff]->bars()[_sources[staff][bars[number].bar]];
                for (unsigned voice = 0; voice < Bar::MaxVoices; ++voice)
                    if (const auto &content = from->voices()[voice])
                        addVoice(number, staff, voice, *content, bar);
            }
            _held.swap(_stillHeld);
            if (!bar.notes.empty())
                _midi.addMeta(_ticks.tickOf(bars[number].start), MidiMeta::SequencerSpecific,
                              payloadOf(bar));
        }
    }

private:
    void addVoice(std::uint32_t playedBar, unsigned staff, unsigned voice, const Voice &content,
                  NotatedBar &bar);
    void addNote(const Note &note, std::uint64_t place, Line &line, NotatedNote written,
                 NotatedBar &bar);
    const Held *heldBefore(const Note &note, const NotatedNote &written) const;

    const Track &_track;
    const playback::PlaybackPlan &_plan;
    std::vector<Line> &_lines; ///< by staff and voice
    const TickMap &_ticks;
    MidiTrack &_midi;
    int _fifths;
    std::vector<std::vector<unsigned>> _sources;
    std::vector<Held> _held;      ///< from the bar before, and from beats of this one
    std::vector<Held> _stillHeld; ///< into the next bar, or a later beat
    double _barStart = 0;         ///< in quarters of playing
};

void BarWriter::addVoice(std::uint32_t playedBar, unsigned staff, unsigned voice,
                         const Voice &content, NotatedBar &bar)
{
    _barStart = _plan.bars().bars()[playedBar].start.toDouble();
    Line &line = _lines[staff * Bar::MaxVoices + voice];
    NotatedNote written;
    written.staff = static_cast<std::uint8_t>(staff);
    written.voice = static_cast<std::uint8_t>(voice);
    rational offset = 0;
    MidiTime end = 0;
    std::uint32_t beatNumber = 0;
    for (const auto &beat : content.beats()) {
        written.isGrace = beat->isGrace();
        written.onset = end;
        if (!written.isGrace) {
            offset += playback::lengthOf(*beat);
            end = inMidiTime(offset);
        }
        written.length = end - written.onset;
        unsigned noteNumber = 0;
        for (const auto &note : beat->notes())
            addNote(*note, Place::of(playedBar, beatNumber, noteNumber++), line, written, bar);
        ++beatNumber;
    }
}

/// In its voice, or in another one that the tie comes from.
const Held *BarWriter::heldBefore(const Note &note, const NotatedNote &written) const
{
    const Held *ofOther = nullptr;
    for (const auto *list : {&_stillHeld, &_held})
        for (auto held = list->rbegin(); held != list->rend(); ++held) {
            if (held->midi != note.midi() || held->string != note.string())
                continue;
            if (held->staff == written.staff && held->voice == written.voice)
                return &*held;
            ofOther = ofOther == nullptr ? &*held : ofOther;
        }
    return ofOther;
}

void BarWriter::addNote(const Note &note, std::uint64_t place, Line &line, NotatedNote written,
                        NotatedBar &bar)
{
    const auto [first, last] = line.take(place);
    if (const auto spelling = note.spelling())
        written.fifth = static_cast<std::int8_t>(fifthOf(*spelling) - _fifths);
    if (first == last) {
        const Held *const held = note.isTied() ? heldBefore(note, written) : nullptr;
        const auto sounding = playback::soundingKey(note, _track);
        if (held == nullptr && (!sounding || sounding->isGuessed))
            return;
        written.kind = held != nullptr ? NotatedNote::Kind::Held : NotatedNote::Kind::Silent;
        written.key = held != nullptr ? held->key : static_cast<std::uint8_t>(sounding->key);
        bar.notes.push_back(written);
    }
    if (last - first > 1)
        written.kind = NotatedNote::Kind::Stroke;
    for (const Place *each = first; each != last; ++each) {
        written.key = each->key;
        written.startLate = inMidiTime(each->start - _barStart) - written.onset;
        written.endLate = inMidiTime(each->end - _barStart) - written.onset - written.length;
        bar.notes.push_back(written);
    }
    if (note.isTieOrigin())
        _stillHeld.push_back(
            {written.staff, written.voice, note.midi(), note.string(), written.key});
}

} // namespace

void addNotatedBars(const ScoreModel &model, const playback::PlaybackPlan &plan,
                    const TickMap &ticks, const std::vector<MidiTrack *> &tracks)
{
    std::vector<std::vector<Line>> lines(model.trackCount());
    for (unsigned track = 0; track < model.trackCount(); ++track)
        lines[track].resize(model.tracks()[track]->staffCount() * Bar::MaxVoices);
    for (const PlannedNote &note : plan.notes())
        if (tracks[note.track] != nullptr)
            lines[note.track][note.staff * Bar::MaxVoices + note.voice].places.push_back(
                {Place::of(note.playedBar, note.beat, note.note), note.start.toDouble(),
                 note.end.toDouble(), note.key});
    for (unsigned track = 0; track < model.trackCount(); ++track)
        if (tracks[track] != nullptr
            && model.tracks()[track]->staffCount() <= NotatedBar::mostStaves)
            BarWriter(*model.tracks()[track], plan, lines[track], ticks, *tracks[track]).write();
}

void addWrittenMeters(const ScoreModel &model, const playback::PlaybackPlan &plan,
                      const TickMap &ticks, MidiTrack &midi)
{
    const auto &bars = model.masterTrack()->masterBars();
    for (const playback::PlayedBar &played : plan.bars().bars()) {
        const TimeSignature meter = bars[played.bar]->timeSignature();
        if (meter.barLength() != played.length)
            midi.addMeta(ticks.tickOf(played.start), MidiMeta::SequencerSpecific,
                         payloadOf(WrittenMeter{meter.getNumerator(), meter.getDenominator()}));
    }
    midi.addMeta(ticks.tickOf(plan.bars().length()), MidiMeta::SequencerSpecific,
                 payloadOf(WrittenMeter()));
}

} // namespace zarn::io
