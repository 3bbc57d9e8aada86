// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/ZarnReplaceBeats.h>

namespace zarn::cmd {

/// Slaps the dead strings: fretted beats lose their notes, rests become beats that sound. Without
/// `checked`, slapped beats become rests.
class ZARNCORE_EXPORT SetBeatDeadSlapped final : public ReplaceBeats {
public:
    SetBeatDeadSlapped();
    ~SetBeatDeadSlapped() override;

    /// The beats of the range on fretted staves; the others are passed over. False when there is
    /// none.
    bool init(Score *score, const ScoreModelRange &range, bool checked);

private:
    bool isPossible() const override;
    Replacements replacements() const override;
    Beats beatsFor(const Beat &beat) const;

    bool _checked = false;
};

} // namespace zarn::cmd
