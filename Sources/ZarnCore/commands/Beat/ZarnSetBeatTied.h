// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/ZarnTieBeats.h>

namespace zarn::cmd {

/// Ties beats to the ones in front of them: notes of the same place are tied, and beats without
/// notes take copies of what is held. See `TieBeats`.
class ZARNCORE_EXPORT SetBeatTied final : public TieBeats {
public:
    SetBeatTied();
    ~SetBeatTied() override;

    /// Without `checked` the notes of the beats are struck anew. False when nothing can be tied, or
    /// nothing is.
    bool init(Score *score, const ScoreModelRange &range, bool checked);

private:
    bool isMeant(const MarkedPlace &place, const Note &note) const override;
    bool isCopied(const MarkedPlace &place, const Beat &beat, const Note &held) const override;
};

} // namespace zarn::cmd
