// SPDX-License-Identifier: MIT
#include <ZarnCore/io/musicxml/TwinNotes.h>

#include <ZarnCore/model/ZarnBeat.h>
#include <ZarnCore/model/ZarnNote.h>
#include <ZarnCore/model/ZarnVoice.h>

#include <algorithm>
#include <map>

namespace zarn::io {

using utils::rational;

namespace {

std::vector<Beat *> beatsWithNotes(const Bar &bar, unsigned slot)
{
    std::vector<Beat *> beats;
    if (const auto &voice = bar.voices()[slot])
        for (const auto &beat : voice->beats())
            if (beat->hasNotes())
                beats.push_back(beat.get());
    return beats;
}

std::vector<int> pitchesOf(const Beat &beat, int octave)
{
    std::vector<int> pitches;
    for (const auto &note : beat.notes())
        pitches.push_back(note->midi() + octave);
    std::sort(pitches.begin(), pitches.end());
    return pitches;
}

/// By the beats of the tablature, those of the notes that are the same one after another.
std::map<const Beat *, const Beat *> beatsInOrder(const Bar &bar, const Bar &twin, int octave)
{
    std::map<const Beat *, const Beat *> beats;
    for (unsigned slot = 0; slot < Bar::MaxVoices; ++slot) {
        const auto left = beatsWithNotes(bar, slot);
        const auto right = beatsWithNotes(twin, slot);
        const bool areSame = std::equal(left.begin(), left.end(), right.begin(), right.end(),
                                        [octave](const Beat *beat, const Beat *other) {
                                            return beat->isGrace() == other->isGrace()
                                                && pitchesOf(*beat, 0) == pitchesOf(*other, octave);
                                        });
        for (std::size_t i = 0; areSame && i < left.size(); ++i)
            beats[right[i]] = left[i];
    }
    return beats;
}

} // namespace

PlacedNotes notesOf(const Bar &bar, int octave)
{
    PlacedNotes notes;
    for (const auto &voice : bar.voices()) {
        if (!voice)
            continue;
        rational onset = 0;
        for (const auto &beat : voice->beats()) {
            for (const auto &note : beat->notes())
                notes.push_back({onset, beat->isGrace(), note->midi() + octave, note, beat});
            onset += beat->length();
        }
    }
    std::stable_sort(
        notes.begin(), notes.end(),
        [](const PlacedNote &left, const PlacedNote &right) { return left.key() < right.key(); });
    return notes;
}

const PlacedNote *nearest(const PlacedNotes &notes, const PlacedNote &placed)
{
    if (notes.empty())
        return nullptr;
    const auto after = std::upper_bound(notes.begin(), notes.end(), placed,
                                        [](const PlacedNote &left, const PlacedNote &right) {
                                            return std::make_tuple(left.onset, !left.isGrace)
                                                < std::make_tuple(right.onset, !right.isGrace);
                                        });
    return after == notes.begin() ? &notes.front() : &after[-1];
}

TwinNotes pairedByTime(const Bar &bar, const Bar &twin, int octave)
{
    TwinNotes notes;
    notes.own = notesOf(bar, 0);
    auto next = notes.own.begin();
    for (auto &other : notesOf(twin, octave)) {
        for (; next != notes.own.end() && next->key() < other.key(); ++next)
            notes.ownAlone.push_back(*next);
        if (next != notes.own.end() && next->key() == other.key())
            notes.pairs.emplace_back(*next++, std::move(other));
        else
            notes.twinAlone.push_back(std::move(other));
    }
    notes.ownAlone.insert(notes.ownAlone.end(), next, notes.own.end());
    return notes;
}

void pairByOrder(const Bar &bar, const Bar &twin, int octave, TwinNotes &notes)
{
    const auto beats = beatsInOrder(bar, twin, octave);
    std::multimap<std::pair<const Beat *, int>, std::size_t> open; // the numbers in `ownAlone`
    for (std::size_t i = 0; i < notes.ownAlone.size(); ++i)
        open.insert({{notes.ownAlone[i].beat.get(), notes.ownAlone[i].pitch}, i});
    std::vector<bool> isPaired(notes.ownAlone.size());
    PlacedNotes twinAlone;
    for (auto &other : notes.twinAlone) {
        const auto beat = beats.find(other.beat.get());
        const auto found =
            beat == beats.end() ? open.end() : open.find({beat->second, other.pitch});
        if (found == open.end()) {
            twinAlone.push_back(std::move(other));
            continue;
        }
        isPaired[found->second] = true;
        notes.pairs.emplace_back(notes.ownAlone[found->second], std::move(other));
        open.erase(found);
    }
    notes.twinAlone = std::move(twinAlone);
    PlacedNotes ownAlone;
    for (std::size_t i = 0; i < notes.ownAlone.size(); ++i)
        if (!isPaired[i])
            ownAlone.push_back(std::move(notes.ownAlone[i]));
    notes.ownAlone = std::move(ownAlone);
}

} // namespace zarn::io
