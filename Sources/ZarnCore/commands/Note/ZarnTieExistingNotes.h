// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/ZarnSetByTable.h>

namespace zarn {

/// Base of the older forms of the commands that tie: sets both ends of ties between notes of the
/// same pitch and place, and writes nothing.
class ZARNCORE_EXPORT TieExistingNotes : public SetByTable<Note> {
protected:
    explicit TieExistingNotes(const QString &name);
    ~TieExistingNotes() override;

    /// False when no note has a partner in the beat in front, or without `checked` none is tied.
    bool prepare(Score *score, const ScoreModelRange &range, bool checked);

private:
    bool takes(const MarkedPlace &place, const Beat &beat, const Note &note) const override;
};

} // namespace zarn
