// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/Beat/ZarnKeptLinks.h>
#include <ZarnCore/commands/ZarnPlacingCommand.h>
#include <ZarnCore/commands/ZarnTouchedBars.h>
#include <ZarnCore/model/places/ZarnBeatSpan.h>

#include <memory>
#include <optional>

namespace zarn {
class RhythmValue;
class ScoreModelIndex;
} // namespace zarn

namespace zarn::cmd {

/// Inserts a rest into a voice, which is made when the bar has none. Ties, hammer-ons and slides
/// that it parts are undone; slurs and hairpins go on over it. Sends `ModifyBarRange` for the bar,
/// and for a neighbour that a tie or the like led to.
class ZARNCORE_EXPORT CreateBeat final : public PlacingCommand {
public:
    CreateBeat();
    ~CreateBeat() override;

    /// In front of the beat that the index names, or behind the last one. False for a bar or a
    /// place that is not there, and for a rhythm that is not written.
    bool init(Score *score, const ScoreModelIndex &index, const RhythmValue &rhythm);

private:
    void putIn() override;
    void takeOut() override;
    void announceIn() override;
    void announceOut() override;
    bool isPossible() const;

    BeatSpan _place;
    std::shared_ptr<Beat> _beat;   ///< while it is out of the voice
    std::shared_ptr<Voice> _voice; ///< for a bar that needs it, while it is out of the bar
    bool _needsVoice = false;
    std::optional<KeptLinks> _links;
    TouchedBars _touched;
};

} // namespace zarn::cmd
