// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/Score/ZarnModifyProperties.h>

namespace zarn::cmd {

/// Sets the title, an author or another text property. Sends `PropertyChanged`.
class ZARNCORE_EXPORT ChangeProperty final : public ModifyProperties {
public:
    ChangeProperty();
    ~ChangeProperty() override;

    /// False for an unknown property.
    bool init(Score *score, ScoreProperty property, const QString &text);

private:
    void announceApplied() override;
    void announceReverted() override;

    ScoreProperty _property = ScoreProperty::Title;
};

} // namespace zarn::cmd
