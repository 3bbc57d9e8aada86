// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/ZarnReplaceBeats.h>

namespace zarn::cmd {

/// Makes plain rests of beats, which keep their length and nothing else; place holders and slapped
/// beats become rests too. Grace beats are taken out.
class ZARNCORE_EXPORT ClearBeats final : public ReplaceBeats {
public:
    ClearBeats();
    ~ClearBeats() override;

    /// Every beat of the range. False when it holds none.
    bool init(Score *score, const ScoreModelRange &range);

private:
    bool isPossible() const override;
    Replacements replacements() const override;
};

} // namespace zarn::cmd
