// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/ZarnSetByTable.h>

#include <set>

namespace zarn::cmd {

/// Hammers notes on, or pulls them off, to the next note of their string; a legato slide there
/// goes.
class ZARNCORE_EXPORT SetStringedNoteHopo final : public SetByTable<Note> {
public:
    SetStringedNoteHopo();
    ~SetStringedNoteHopo() override;

    /// In a selection the last note of each string stays without, as it would lead out of it; where
    /// there is one note of each string, it does. False when no note of the range is fretted and
    /// has a next one with another fret.
    bool init(Score *score, const ScoreModelRange &range, bool checked);

private:
    void begin(ScoreModel &model) override;
    bool takes(const MarkedPlace &place, const Beat &beat, const Note &note) const override;
    void change(const MarkedPlace &place, Beat &beat, Note &note) override;

    std::set<const Note *> _lastOnString; ///< while the range is walked
};

} // namespace zarn::cmd
