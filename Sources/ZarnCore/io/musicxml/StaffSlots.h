// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/model/ZarnBar.h>
#include <ZarnCore/utils/rational.h>

#include <array>
#include <memory>
#include <vector>

namespace zarn::io {

/// A beat at its place, in quarters from the start of the bar.
struct PlacedBeat {
    utils::rational onset;
    std::shared_ptr<Beat> beat;
    bool isBeamedOn = false;     ///< the document leads a beam on to the next one
    bool isBeamedAcross = false; ///< that stands on another staff
};

/// What gathers in one voice slot of a bar.
struct VoiceSlot {
    static constexpr int Nobody = -1;

    int voice = Nobody; ///< of the part
    utils::rational end;
    std::vector<PlacedBeat> beats; ///< in order
};

/// The voice slots of a staff while a bar of it is built.
struct StaffSlots {
    std::array<VoiceSlot, Bar::MaxVoices> voiceSlots;
    std::vector<int> preferred; ///< slot of each voice of the part; `Nobody` for none yet
    std::array<bool, Bar::MaxVoices> claimed = {};
};

} // namespace zarn::io
