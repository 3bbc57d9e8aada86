// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/ZarnScoreCommand.h>

#include <memory>

namespace zarn {
class ScoreCursor;
}

namespace zarn::cmd {

/// Puts another whole document into the score, which keeps its listeners and its commands: undo
/// puts the very document back that was there. Sends `ScoreChanged`, and the cursor goes to its
/// place in the other document, or to the nearest one.
class ZARNCORE_EXPORT ReplaceScore final : public ScoreCommand {
public:
    ReplaceScore();
    ~ReplaceScore() override;

    /// Takes the model over. False for none, for the model of a score, and for one that breaks a
    /// rule of the tree (`checkModel`).
    bool init(Score *score, std::shared_ptr<ScoreModel> model);

private:
    void apply() override;
    void revert() override;
    void announceApplied() override;
    void announceReverted() override;

    Score *_target = nullptr;
    std::shared_ptr<ScoreModel> _out;     ///< the document that is not in the score
    std::unique_ptr<ScoreCursor> _cursor; ///< where it stood
};

} // namespace zarn::cmd
