// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/ZarnSetAttribute.h>

namespace zarn::cmd {

/// Sets or removes the section mark of a bar. Sends `SetBarSection` when the bar has one
/// afterwards, `UnsetBarSection` when it has none.
class ZARNCORE_EXPORT SetMasterBarSection final
    : public SetOnMasterBars<&MasterBar::section, &MasterBar::setSection, evt::SetBarSection> {
public:
    SetMasterBarSection();
    ~SetMasterBarSection() override;

    /// An empty section removes the mark. False for a bar that is not there.
    bool init(Score *score, unsigned bar, const Section &section);

private:
    void announce() override;
};

} // namespace zarn::cmd
