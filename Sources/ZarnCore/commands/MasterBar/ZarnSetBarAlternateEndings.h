// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/MasterBar/ZarnSetPlayOrder.h>
#include <cstdint>

namespace zarn::cmd {

/// Sets in which passes of a repeat bars are played. Brings the play list up to date.
class ZARNCORE_EXPORT SetBarAlternateEndings final
    : public SetPlayOrder<&MasterBar::alternateEndings, &MasterBar::setAlternateEndings,
                          evt::MasterBarAlternateEnding> {
public:
    SetBarAlternateEndings();
    ~SetBarAlternateEndings() override;

    /// The bars `first` to `last` under one bracket; bit 0 of `passes` is the first pass, no bit
    /// means every pass. False for bars that are not there.
    bool init(Score *score, unsigned first, unsigned last, std::uint32_t passes);
};

} // namespace zarn::cmd
