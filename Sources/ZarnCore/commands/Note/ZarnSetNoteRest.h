// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/ZarnReplaceBeats.h>

namespace zarn::cmd {

/// Makes rests of beats, which keep their length and how they are marked; place holders and slapped
/// beats become rests too.
class ZARNCORE_EXPORT SetNoteRest final : public ReplaceBeats {
public:
    SetNoteRest();
    ~SetNoteRest() override;

    /// Every beat of the range. False when it holds none.
    bool init(Score *score, const ScoreModelRange &range);

private:
    bool isPossible() const override;
    Replacements replacements() const override;
};

} // namespace zarn::cmd
