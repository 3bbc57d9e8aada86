// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Sounds/ForcedSound.h>

#include <ZarnCore/events/ZarnSoundEvents.h>
#include <ZarnCore/score/ZarnScoreBase.h>

namespace zarn {

void announceForcedSound(ScoreBase &score, const void *sender, unsigned track, int before,
                         int after)
{
    if (before != after)
        score.notify(sender,
                     evt::RequestForcedSoundIndexChange(static_cast<int>(track), before, after));
}

} // namespace zarn
