// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/Beat/ZarnKeptLinks.h>
#include <ZarnCore/commands/ZarnScoreCommand.h>
#include <ZarnCore/commands/ZarnTouchedBars.h>
#include <ZarnCore/model/ZarnLinkMode.h>
#include <ZarnCore/model/places/ZarnBeatSpan.h>
#include <ZarnCore/model/places/ZarnScoreModelRange.h>

#include <memory>
#include <optional>
#include <vector>

namespace zarn {

/// Base of commands that put other beats in the place of stretches of voices. The beats before and
/// after are kept and exchanged, and what leads over the ends of a stretch is mended: see
/// `KeptLinks`. A voice that a bar lacks is made. Sends `ModifyBarRange` for the bars, or
/// `ModifyBarRangeAllTracks` for a range over all tracks, and `ModifyBarRange` for others that a
/// tie or the like led to.
class ZARNCORE_EXPORT ReplaceBeats : public ScoreCommand {
protected:
    using Beats = std::vector<std::shared_ptr<Beat>>;

    /// New beats for `count` of a voice, those from `place.firstBeat` on.
    struct Replacement {
        BeatSpan place;
        unsigned count = 0;
        Beats beats; ///< detached

        /// Whether ties of the first new beat hold the notes of the beat in front of it.
        bool holdsOn = false;

        /// Whether the new beats come with ties of their own, which stay as they are: what was tied
        /// to the old ones is let go before. Slurs and hairpins go on over beats that have none.
        bool bringsTies = false;
    };
    using Replacements = std::vector<Replacement>;

    explicit ReplaceBeats(const QString &name);
    ~ReplaceBeats() override;

    /// False when nothing of the range, or at the index, can be replaced.
    bool prepare(Score *score, const ScoreModelRange &range);
    bool prepare(Score *score, const ScoreModelIndex &index);

    /// For a command that knows its places by itself.
    bool prepare(Score *score);

    const ScoreModelRange &range() const noexcept { return _range; }

    /// Whether there is something to replace.
    virtual bool isPossible() const = 0;

    /// In the order of the tree; stretches of one voice do not overlap. Called once, when the
    /// command runs first.
    virtual Replacements replacements() const = 0;

private:
    /// A stretch, and what is out of the voice.
    struct Exchange {
        Replacement out;
        unsigned inFirst; ///< where the beats start that are in the voice
        unsigned inCount;
        Beats taken;                  ///< until others are in their place
        std::shared_ptr<Voice> voice; ///< for a bar that needs it, while it is out of the bar
        bool needsVoice = false;
    };

    void apply() override;
    void revert() override;
    void announceApplied() override;
    void announceReverted() override;
    void make();
    void takeOut(LinkMode mode);
    void putIn();
    void link(const Exchange &exchange) const;

    ScoreModelRange _range;
    bool _isRange = false;
    std::vector<Exchange> _exchanges; ///< made when the command runs first
    std::vector<KeptLinks> _links;
    TouchedBars _touched;
};

} // namespace zarn
