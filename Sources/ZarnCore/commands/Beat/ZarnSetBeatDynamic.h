// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/ZarnSetAttribute.h>

namespace zarn::cmd {

/// Sets how loud beats are played.
class ZARNCORE_EXPORT SetBeatDynamic final
    : public SetOnRange<Beat, &Beat::dynamic, &Beat::setDynamic> {
public:
    SetBeatDynamic();
    ~SetBeatDynamic() override;

    /// Every beat of the range. False when the range holds no beat, and for an unknown dynamic.
    bool init(Score *score, const ScoreModelRange &range, NoteDynamic dynamic);
};

} // namespace zarn::cmd
