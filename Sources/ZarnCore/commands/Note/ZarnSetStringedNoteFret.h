// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/ZarnMoveNotes.h>

namespace zarn::cmd {

/// Puts notes on another fret of their strings; the pitches follow. What they are tied to goes
/// along.
class ZARNCORE_EXPORT SetStringedNoteFret final : public MoveNotes {
public:
    SetStringedNoteFret();
    ~SetStringedNoteFret() override;

    /// The notes of the range that have a string. False when none has, and when one of the strings
    /// has no such fret.
    bool init(Score *score, const ScoreModelRange &range, int fret);

private:
    bool takes(const MarkedPlace &place, const Note &note) const override;
    std::optional<NoteMove> moved(const MarkedPlace &place, const Note &note,
                                  const NotePosition &from) const override;

    int _fret = 0;
};

} // namespace zarn::cmd
