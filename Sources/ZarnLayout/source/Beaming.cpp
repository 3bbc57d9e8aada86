// SPDX-License-Identifier: MIT
#include <ZarnLayout/source/Beaming.h>

#include <ZarnCore/model/form/ZarnUsualBeams.h>
#include <ZarnLayout/source/BarSource.h>

namespace zarn::engraving {

namespace {

bool canBeam(const BeatSource &beat)
{
    return beat.flagCount() > 0 && !beat.isPlaceHolder && !beat.isWholeBarRest;
}

} // namespace

void setBeams(std::vector<BeatSource> &beats, const TimeSignature &meter, const BeamGroups &groups)
{
    const UsualBeams usual(meter, groups);
    BeatSource *last = nullptr;
    bool isNext = false;    ///< nothing but grace notes since the last note
    bool wantsJoin = true;  ///< every beat since the last note asks for a beam
    bool areEighths = true; ///< nothing shorter in the group so far
    for (BeatSource &beat : beats) {
        if (beat.isGrace())
            continue;
        if (!canBeam(beat)) {
            last = nullptr;
            continue;
        }
        if (beat.isRest) {
            isNext = false;
            if (last)
                wantsJoin = wantsJoin && beat.marks.beamMode() == BeamMode::Join;
            if (last && !wantsJoin)
                last = nullptr;
            continue;
        }
        bool joined = false;
        if (last) {
            const BeamMode mode = last->marks.beamMode();
            const bool eighths = areEighths && beat.flagCount() == 1;
            joined = mode == BeamMode::Join ? (isNext || wantsJoin)
                                            : mode == BeamMode::Auto && isNext
                    && usual.join(last->onset, beat.onset, beat.rhythm, eighths);
        }
        if (joined) {
            for (BeatSource *inner = last; inner != &beat; ++inner)
                inner->isBeamedOn = !inner->isGrace();
        }
        areEighths = (!joined || areEighths) && beat.flagCount() == 1;
        last = &beat;
        isNext = true;
        wantsJoin = beat.marks.beamMode() == BeamMode::Join;
    }

    // Grace notes of one main note share a beam.
    for (std::size_t i = 0; i + 1 < beats.size(); ++i)
        if (beats[i].isGrace() && beats[i + 1].isGrace()
            && beats[i].graceRank == beats[i + 1].graceRank + 1 && beats[i].flagCount() > 0
            && beats[i + 1].flagCount() > 0 && beats[i].noteCount > 0 && beats[i + 1].noteCount > 0
            && beats[i].marks.beamMode() != BeamMode::Break)
            beats[i].isBeamedOn = true;
}

} // namespace zarn::engraving
