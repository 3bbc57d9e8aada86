// SPDX-License-Identifier: MIT
#include <ZarnCore/io/musicxml/signs/Beams.h>

#include <ZarnCore/model/form/ZarnUsualBeams.h>

#include <algorithm>
#include <utility>

namespace zarn::io {

int flagsOf(const Beat &beat)
{
    if (beat.stemOrientation() == ZarnStemOrientation::None && beat.hasNotes())
        return 0;
    return std::max(static_cast<int>(beat.rhythmValue().getNoteValue())
                        - static_cast<int>(RhythmValue::NoteValue::Quarter),
                    0);
}

void setBeams(std::vector<PlacedBeat> &beats, const TimeSignature &meter, const BeamGroups &groups)
{
    const UsualBeams usual(meter, groups);
    PlacedBeat *left = nullptr;
    bool areEighths = true;
    for (auto &placed : beats) {
        if (placed.beat->isGrace() || !placed.beat->hasNotes())
            continue;
        auto *const before = std::exchange(left, placed.isBeamedAcross ? nullptr : &placed);
        if (placed.isBeamedAcross)
            placed.beat->setBeamMode(BeamMode::Join);
        const int flags = flagsOf(*placed.beat);
        const bool haveFlags = before && flags > 0 && flagsOf(*before->beat) > 0;
        const bool joined = haveFlags && before->isBeamedOn;
        const bool wereEighths = std::exchange(areEighths, (!joined || areEighths) && flags == 1);
        if (!haveFlags)
            continue;
        const bool isNext = std::all_of(
            before + 1, &placed, [](const PlacedBeat &between) { return between.beat->isGrace(); });
        if (isNext ? joined
                    == usual.join(before->onset, placed.onset, placed.beat->rhythmValue(),
                                  wereEighths && flags == 1)
                   : !joined)
            continue;
        // Over rests, they are joined too.
        for (auto *beat = before; beat != &placed; ++beat)
            if (!beat->beat->isGrace())
                beat->beat->setBeamMode(joined ? BeamMode::Join : BeamMode::Break);
    }
}

void findBeams(std::vector<BeamedBeat> &beats, const TimeSignature &meter, const BeamGroups &groups)
{
    const UsualBeams usual(meter, groups);
    BeamedBeat *left = nullptr;
    bool wantsJoin = true; // every beat since the last note asks for a beam
    bool areEighths = true;
    for (auto &placed : beats) {
        const auto &beat = *placed.beat;
        if (beat.isGrace())
            continue;
        if (!beat.hasNotes()) {
            wantsJoin = wantsJoin && beat.beamMode() == BeamMode::Join;
            continue;
        }
        const int flags = flagsOf(beat);
        bool joined = false;
        if (left && flags > 0 && flagsOf(*left->beat) > 0) {
            const bool isNext = std::all_of(left + 1, &placed, [](const BeamedBeat &between) {
                return between.beat->isGrace();
            });
            const auto mode = left->beat->beamMode();
            const bool isUsual = isNext
                && usual.join(left->onset, placed.onset, beat.rhythmValue(),
                              areEighths && flags == 1);
            joined =
                mode == BeamMode::Join ? isNext || wantsJoin : mode == BeamMode::Auto && isUsual;
            if (mode != BeamMode::Auto && joined != isUsual)
                for (auto *said = left; said != &placed; ++said)
                    said->isSaid = true;
        }
        if (joined)
            left->isBeamedOn = true;
        areEighths = (!joined || areEighths) && flags == 1;
        wantsJoin = beat.beamMode() == BeamMode::Join;
        left = &placed;
    }
}

} // namespace zarn::io
