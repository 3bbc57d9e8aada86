// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnTypes.h>
#include <ZarnCore/commands/ZarnCompoundCommand.h>
#include <ZarnCore/model/clip/ZarnClip.h>
#include <ZarnCore/model/places/ZarnScoreModelIndex.h>

namespace zarn {
class ContentSwap;
}

namespace zarn::cmd {

/// Pastes copied beats, any number of times in a row. What sounds stays the same in another
/// instrument as far as it can; where strings sound otherwise, it is fingered anew, and when it is
/// merged with other notes, put on the free strings with the lowest frets. A single voice goes to
/// the voice of the place, several go to those with their numbers, at the same time.
///
/// Inserted, the beats stand in front of the one at the place and the bar grows. Otherwise they go
/// on over bar lines, where they are cut, and columns are appended at the end: in the place of what
/// is there, a beat that is covered in part being cut, or merged with it, beat by beat, a note at
/// the place of another one taking that. Simile bars that are replaced show what they stand for.
///
/// Sends what `CreateBars` does for new columns, then `ModifyBarRange` for the bars and for those
/// beside them where a link ended, and `SimileMarkBarChanged`.
class ZARNCORE_EXPORT PasteBeatRange final : public CompoundCommand {
public:
    static constexpr unsigned MostTimes = 99;

    PasteBeatRange();
    ~PasteBeatRange() override;

    /// At a beat, or behind the last of a voice. False for a clip of bars or an empty one, for 0
    /// times or more than `MostTimes`, for a place that is not there, for a clip with more tracks
    /// or staves than there are, for merging into simile bars, and for too many bars in all.
    bool init(Score *score, const Clip &clip, const ScoreModelIndex &place, unsigned times,
              PasteMode mode);

private:
    void plan() override;
    bool isPossible() const;

    Score *_target = nullptr;
    Clip _clip;
    ScoreModelIndex _place;
    unsigned _times = 0;
    PasteMode _mode = PasteMode::Insert;
};

} // namespace zarn::cmd
