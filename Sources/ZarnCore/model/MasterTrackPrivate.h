// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/instruments/effects/ZarnMastering.h>
#include <ZarnCore/model/ZarnLazy.h>
#include <ZarnCore/model/ZarnMasterTrack.h>

namespace zarn {

/// State of a master track beside its master bars and automations.
struct MasterTrack::Private {
    Mastering mastering = Mastering::makeDefault();
    TempoSettings tempo;
    DirectionSlots directions = unsetDirections();
    Lazy<PlayList> playList;
    bool anacrusis = false;

    static DirectionSlots unsetDirections() noexcept
    {
        DirectionSlots unset;
        unset.fill(-1);
        return unset;
    }
};

} // namespace zarn
