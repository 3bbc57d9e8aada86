// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/ZarnSetByTable.h>

namespace zarn::cmd {

/// Writes words over the first beat of a range; an empty text takes them off.
class ZARNCORE_EXPORT SetBeatFreeText final : public SetByTable<Beat> {
public:
    SetBeatFreeText();
    ~SetBeatFreeText() override;

    /// At most 1000 characters. False when the range holds no beat.
    bool init(Score *score, const ScoreModelRange &range, const QString &text);

private:
    bool isForFirstOnly() const override { return true; }
};

} // namespace zarn::cmd
