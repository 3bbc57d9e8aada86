// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/ZarnSetAttribute.h>

namespace zarn::cmd {

/// Sets how pairs of equal notes are played in bars.
class ZARNCORE_EXPORT SetMasterTripletFeel final
    : public SetOnMasterBars<&MasterBar::tripletFeel, &MasterBar::setTripletFeel,
                             evt::MasterBarTripletFeel> {
public:
    SetMasterTripletFeel();
    ~SetMasterTripletFeel() override;

    /// The bars `first` to `last`. False for bars that are not there, and for an unknown feel.
    bool init(Score *score, unsigned first, unsigned last, TripletFeel feel);
};

} // namespace zarn::cmd
