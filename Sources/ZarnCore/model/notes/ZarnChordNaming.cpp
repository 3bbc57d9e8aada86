// SPDX-License-Identifier: MIT
#include <ZarnCore/model/notes/ZarnChordNaming.h>

#include <ZarnCore/chords/ZarnChordSuggester.h>
#include <ZarnCore/instruments/sets/ZarnInstrumentSet.h>
#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/model/notes/ZarnWrittenPitch.h>

#include <algorithm>
#include <array>
#include <utility>
#include <vector>

namespace zarn {

namespace {

using chord::WeightedTones;
using utils::rational;

/// Tones that begin on the beat are meant more than those between.
constexpr double onsetEmphasis = 1.5;
/// The harmony stands on its bass, and a melody moves over it with tones of its own.
constexpr double bassEmphasis = 1.25;
constexpr double melodyShare = 0.5;

rational stepLength(const MasterBar &bar, NamingStep step)
{
    const TimeSignature &meter = bar.timeSignature();
    const unsigned units = meter.getNumerator();
    const bool isCompound = units > 3 && units % 3 == 0 && meter.getDenominator() >= 8;
    const rational beat = meter.timeUnit() * rational(isCompound ? 3 : 1);
    const unsigned beats = isCompound ? units / 3 : units;
    if (step == NamingStep::Beat)
        return beat;
    const bool hasHalf = step == NamingStep::HalfBar && beats % 2 == 0;
    return hasHalf ? beat * rational(beats / 2) : std::max(bar.length(), beat);
}

constexpr int noPitch = 1000;

struct HeardNote {
    int midi;
    rational from;
    rational to;
};

/// A stretch of a bar and what is heard in it.
class Stretch {
public:
    Stretch(rational begin, rational end) : _begin(std::move(begin)), _end(std::move(end)) { }

    const rational &begin() const noexcept { return _begin; }
    const rational &end() const noexcept { return _end; }

    void hear(int midi, const rational &from, const rational &to)
    {
        if (from < _end && to > _begin)
            _notes.push_back({midi, from, to});
    }

    /// Each tone by how long it is heard: in how many octaves it is doubled does not count.
    WeightedTones tones() const
    {
        std::vector<rational> times = {_begin, _end};
        for (const HeardNote &note : _notes)
            for (const rational &time : {note.from, note.to})
                if (time > _begin && time < _end)
                    times.push_back(time);
        std::sort(times.begin(), times.end());
        WeightedTones result;
        const Tone lowest = bass();
        for (std::size_t i = 1; i < times.size(); ++i)
            if (times[i - 1] < times[i])
                weigh(times[i - 1], times[i], lowest, result);
        // A melody alone has no bass.
        const auto &weights = result.weights;
        if (std::count_if(weights.begin(), weights.end(), [](double each) { return each > 0; }) > 2)
            result.bass = lowest;
        return result;
    }

private:
    /// Adds what sounds from one time to another, between which nothing begins or ends.
    void weigh(const rational &from, const rational &to, Tone lowest, WeightedTones &result) const
    {
        std::array<double, 12> emphases = {};
        int highest = -1;
        for (const HeardNote &note : _notes) {
            if (note.from > from || note.to < to)
                continue;
            highest = std::max(highest, note.midi);
            double &emphasis = emphases[static_cast<std::size_t>(Tone(note.midi).value())];
            emphasis = std::max(emphasis, note.from == _begin ? onsetEmphasis : 1);
        }
        if (highest < 0)
            return;
        emphases[static_cast<std::size_t>(lowest.value())] *= bassEmphasis;
        if (const Tone melody(highest); melody != lowest)
            emphases[static_cast<std::size_t>(melody.value())] = melodyShare;
        const double length = (to - from).toDouble();
        for (int tone = 0; tone < 12; ++tone)
            result.add(Tone(tone), length * emphases[static_cast<std::size_t>(tone)]);
    }

    /// The lowest tone that the stretch begins with, unless what follows is far below: a bass line
    /// moves on, but its first tone counts.
    Tone bass() const noexcept
    {
        int lowest = noPitch;
        int lowestAtBegin = noPitch;
        for (const HeardNote &note : _notes) {
            lowest = std::min(lowest, note.midi);
            if (note.from <= _begin)
                lowestAtBegin = std::min(lowestAtBegin, note.midi);
        }
        return Tone(lowestAtBegin > lowest + 12 ? lowest : lowestAtBegin);
    }

    rational _begin;
    rational _end;
    std::vector<HeardNote> _notes;
};

void hearVoice(const Voice &voice, int transposition, std::vector<Stretch> &stretches)
{
    for (const auto &beat : voice.beats()) {
        if (beat->isGrace() || beat->notes().empty())
            continue;
        const rational from = voice.beatDrawingOffset(*beat);
        const rational to = from + beat->length();
        for (const auto &note : beat->notes()) {
            const int written = writtenMidi(*note);
            if (written == Note::Unset)
                continue;
            // Stretches are of one length: those that the beat touches are known.
            const rational &length = stretches.front().end();
            auto at = static_cast<std::size_t>(std::max<std::int64_t>((from / length).floor(), 0));
            for (; at < stretches.size() && stretches[at].begin() < to; ++at)
                stretches[at].hear(written + transposition, from, to);
        }
    }
}

void hearTrack(const Track &track, unsigned bar, std::vector<Stretch> &stretches)
{
    if (InstrumentSet::isUnpitched(track.type()))
        return;
    for (const auto &staff : track.staves()) {
        const auto own = staff->bar(bar);
        if (!own)
            continue;
        for (const auto &voice : own->voices())
            if (voice)
                hearVoice(*voice, track.transpositionOffset(), stretches);
    }
}

std::vector<Stretch> stretchesOf(const ScoreModel &model, unsigned bar, NamingStep step)
{
    const auto master = model.masterTrack()->masterBar(bar);
    const rational length = stepLength(*master, step);
    const rational end = master->length();
    std::vector<Stretch> stretches;
    for (rational begin; begin < end; begin += length)
        stretches.emplace_back(begin, begin + length);
    for (const auto &track : model.tracks())
        hearTrack(*track, bar, stretches);
    return stretches;
}

} // namespace

std::vector<NamedPlace> nameChords(const ScoreModel &model, unsigned first, unsigned last,
                                   NamingStep step)
{
    std::vector<NamedPlace> places;
    const auto &bars = model.masterTrack()->masterBars();
    last = std::min(last, static_cast<unsigned>(bars.size()) - 1);
    // Passages of one key, each named at once.
    for (unsigned begin = first; !bars.empty() && begin <= last;) {
        const KeySignature key = bars[begin]->concertKeySignature();
        std::vector<NamedPlace> passage;
        std::vector<WeightedTones> tones;
        unsigned bar = begin;
        for (; bar <= last && bars[bar]->concertKeySignature() == key; ++bar)
            for (const Stretch &stretch : stretchesOf(model, bar, step)) {
                passage.push_back({bar, stretch.begin(), {}});
                tones.push_back(stretch.tones());
            }
        const auto chords = chord::ChordSuggester(key).passage(tones);
        for (std::size_t i = 0; i < passage.size(); ++i) {
            passage[i].chord = chords[i];
            if (places.empty() || places.back().chord != chords[i])
                places.push_back(passage[i]);
        }
        begin = bar;
    }
    return places;
}

} // namespace zarn
