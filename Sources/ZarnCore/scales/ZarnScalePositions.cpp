// SPDX-License-Identifier: MIT
#include <ZarnCore/scales/ZarnScalePositions.h>

#include <ZarnCore/instruments/tunings/ZarnGuitarTuning.h>

#include <algorithm>
#include <set>

namespace zarn::scale {

namespace {

int lowestFret(const GuitarTuning &tuning, unsigned string) noexcept
{
    return tuning.hasShortDroneString() && string == 0 ? GuitarTuning::droneFret : 0;
}

/// Whether the pitches hold every tone of the scale from the lowest to the highest.
bool hasNoGap(const ToneSet &tones, const std::set<int> &pitches)
{
    if (pitches.empty())
        return false;
    for (int pitch = *pitches.begin(); pitch <= *pitches.rbegin(); ++pitch)
        if (tones.contains(Tone(pitch)) && pitches.count(pitch) == 0)
            return false;
    return true;
}

ScalePosition positionAt(const ToneSet &tones, const GuitarTuning &tuning, int first, int last)
{
    ScalePosition position;
    position.firstFret = first;
    position.lastFret = last;
    std::set<int> pitches;
    for (unsigned string = 0; string < tuning.stringCount(); ++string) {
        std::vector<int> frets;
        for (int fret = std::max(first, lowestFret(tuning, string)); fret <= last; ++fret)
            if (tones.contains(tuning.tone(string, fret))) {
                frets.push_back(fret);
                pitches.insert(tuning.midi(string, fret));
            }
        position.frets.push_back(std::move(frets));
    }
    position.isComplete = hasNoGap(tones, pitches);
    return position;
}

} // namespace

std::vector<ScalePosition> positions(const Scale &scale, const GuitarTuning &tuning,
                                     const PositionLimits &limits)
{
    std::vector<ScalePosition> result;
    if (tuning.stringCount() == 0 || limits.lastFret < 0 || limits.width < 1)
        return result;
    const ToneSet tones = scale.toneSet();
    // A short drone says nothing about where the hand is.
    const unsigned lowest = tuning.hasShortDroneString() && tuning.stringCount() > 1 ? 1 : 0;
    for (int first = 0; first <= std::min(limits.lastFret, 11); ++first) {
        if (first != 0 && !tones.contains(tuning.tone(lowest, first)))
            continue;
        // In the open position the hand covers the frets behind the open strings.
        const int last = first + limits.width - (first == 0 ? 0 : 1);
        auto position = positionAt(tones, tuning, first, std::min(last, limits.lastFret));
        if (!position.isComplete && last < limits.lastFret) {
            auto wider = positionAt(tones, tuning, first, last + 1);
            if (wider.isComplete)
                position = std::move(wider);
        }
        result.push_back(std::move(position));
    }
    return result;
}

} // namespace zarn::scale
