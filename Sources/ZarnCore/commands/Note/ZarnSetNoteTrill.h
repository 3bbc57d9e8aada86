// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/ZarnSetByTable.h>

namespace zarn::cmd {

/// Trills notes with a note above; what is kept is the interval. Takes ornaments and tremolo off.
class ZARNCORE_EXPORT SetNoteTrill final : public SetByTable<Note> {
public:
    SetNoteTrill();
    ~SetNoteTrill() override;

    /// `key` is the MIDI key of the upper note, 1 to 12 semitones above the first note of the
    /// range, whose interval is taken for all; 0 takes trills off. Grace notes, dead notes and
    /// those whose string ends below the upper note are passed over. False when no note is left.
    bool init(Score *score, const ScoreModelRange &range, int key,
              Trill::Speed speed = Trill::Speed::ThirtySecond);

private:
    void begin(ScoreModel &model) override;
    bool takes(const MarkedPlace &place, const Beat &beat, const Note &note) const override;

    int _key = 0;
    Trill::Speed _speed = Trill::Speed::ThirtySecond;
    bool _isInReach = true; ///< whether the upper note is above the first one
};

} // namespace zarn::cmd
