// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/ZarnChangeLinks.h>

namespace zarn::cmd {

/// Draws a slur over the beats of a range, one for each voice, from its first note to its last; a
/// range with one beat of notes is joined to the next. Slurs inside become part of it, those that
/// reach into the range end where it begins, or begin where it ends.
class ZARNCORE_EXPORT SetBeatLegato final : public ChangeLinks {
public:
    SetBeatLegato();
    ~SetBeatLegato() override;

    /// Without `checked` the beats are under no slur any more; what is left of one in front of the
    /// range and behind it stays. False where no voice has two beats with notes to join.
    bool init(Score *score, const ScoreModelRange &range, bool checked);

private:
    bool takes(const Line &line) const override;
    void change(const Line &line) override;

    bool _checked = false;
};

} // namespace zarn::cmd
