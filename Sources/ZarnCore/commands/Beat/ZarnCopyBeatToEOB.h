// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/ZarnReplaceBeats.h>

namespace zarn::cmd {

/// Repeats a beat up to the end of its bar, over what stands behind it in its voice; time that is
/// left when no whole copy fits any more becomes rests. The copies are struck anew: they have no
/// ties, and no text, chord, lyrics, dynamic, pedal or slur of their own.
class ZARNCORE_EXPORT CopyBeatToEOB final : public ReplaceBeats {
public:
    static constexpr int MostCopies = 1024;

    CopyBeatToEOB();
    ~CopyBeatToEOB() override;

    /// False where there is no beat, for a grace beat, in a bar of free time, and where the bar has
    /// no room for a copy, or for more than `MostCopies`.
    bool init(Score *score, const ScoreModelIndex &index);

private:
    bool isPossible() const override;
    Replacements replacements() const override;
};

} // namespace zarn::cmd
