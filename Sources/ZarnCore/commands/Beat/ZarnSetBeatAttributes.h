// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/ZarnSetByTable.h>

#include <map>

namespace zarn::cmd {

/// Gives beats several attributes of the table in one step.
class ZARNCORE_EXPORT SetBeatAttributes final : public SetByTable<Beat> {
public:
    SetBeatAttributes();
    ~SetBeatAttributes() override;

    /// Each of the attributes goes to the beats of the range that take it. False when no beat takes
    /// any, for no attributes, for values outside their ranges, and for attributes that exclude
    /// each other.
    bool init(Score *score, const ScoreModelRange &range,
              const std::map<BeatAttribute, AttributeValue> &values);
};

} // namespace zarn::cmd
