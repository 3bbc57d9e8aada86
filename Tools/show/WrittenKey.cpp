// SPDX-License-Identifier: MIT
#include "show/WrittenKey.h"

#include <ZarnCore/model/ZarnBar.h>
#include <ZarnCore/model/ZarnMasterBar.h>
#include <ZarnCore/model/ZarnStaff.h>
#include <ZarnCore/model/ZarnTrack.h>

namespace zarn::tool {

KeySignature writtenKey(const Bar &bar)
{
    const auto master = bar.masterBar();
    const auto staff = bar.parentStaff();
    const auto track = staff ? staff->track() : nullptr;
    if (!master || !track)
        return KeySignature(0, true, true);
    const KeySignature &concert = master->concertKeySignature();
    // A semitone is seven fifths; the signature reduces itself to seven accidentals or fewer.
    int fifths = concert.accidentalCount() - 7 * (track->transpositionOffset() % 12);
    fifths = ((fifths % 12) + 12) % 12;
    return KeySignature(fifths > 6 ? fifths - 12 : fifths, concert.isMajor(),
                        concert.transposeAsSharps());
}

} // namespace zarn::tool
