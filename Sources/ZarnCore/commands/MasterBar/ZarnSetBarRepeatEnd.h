// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/MasterBar/ZarnSetPlayOrder.h>

namespace zarn::cmd {

/// Sets how often the repeat that ends with a bar is played. Brings the play list up to date.
class ZARNCORE_EXPORT SetBarRepeatEnd final
    : public SetPlayOrder<&MasterBar::repeatCount, &MasterBar::setRepeatCount,
                          evt::MasterBarRepeat> {
public:
    SetBarRepeatEnd();
    ~SetBarRepeatEnd() override;

    /// Played `count` times in all, 2 to 255; 0 for no repeat. False for any other count, and for a
    /// bar that is not there.
    bool init(Score *score, unsigned bar, unsigned count);

private:
    static constexpr unsigned mostPasses = 255;
};

} // namespace zarn::cmd
