// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/ZarnReplaceBeats.h>

#include <memory>
#include <vector>

namespace zarn {

/// A stretch of a voice, and the beats that are to stand there instead; they are detached.
struct WrittenStretch {
    unsigned bar = 0;
    unsigned voice = 0;
    unsigned firstBeat = 0;
    unsigned replacedCount = 0; ///< 0 to insert in front of `firstBeat`, or behind the last beat
    std::vector<std::shared_ptr<Beat>> beats;
};

namespace cmd {

/// Writes music into a staff, over what is there or between it, in any number of bars and voices at
/// once. Voices that are missing are made. Ties between what is replaced or parted and its
/// surroundings are undone, and so are hammer-ons and slides; the new beats keep their own, over
/// bar lines too. Slurs and hairpins go on over new beats that have none. Sends `ModifyBarRange`
/// for the bars, and for those around them where ties and the like end.
class ZARNCORE_EXPORT WriteBeats final : public ReplaceBeats {
public:
    WriteBeats();
    ~WriteBeats() override;

    /// Takes the beats over. False for a staff, a bar or beats that are not there, for two
    /// stretches of one voice, for none, for a beat that is null or belongs to a voice, and for a
    /// rhythm that is not written.
    bool init(Score *score, unsigned track, unsigned staff, std::vector<WrittenStretch> stretches);

private:
    bool isPossible() const override;
    Replacements replacements() const override;
    bool isPossible(const Replacement &stretch) const;

    Replacements _stretches;
};

} // namespace cmd
} // namespace zarn
