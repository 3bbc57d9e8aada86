// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/Score/ZarnModifyProperties.h>

namespace zarn::cmd {

/// Sets several text properties at once; the others stay. Sends `PropertiesChanged`.
class ZARNCORE_EXPORT ChangeProperties final : public ModifyProperties {
public:
    ChangeProperties();
    ~ChangeProperties() override;

    /// False for no properties, and for one that is unknown.
    bool init(Score *score, const std::map<ScoreProperty, QString> &texts);

private:
    void announceApplied() override;
    void announceReverted() override;
};

} // namespace zarn::cmd
