// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>
#include <ZarnCore/commands/ZarnCommandStack.h>
#include <ZarnCore/model/places/ZarnScoreModelRange.h>
#include <ZarnCore/score/ZarnScoreBarOperations.h>
#include <ZarnCore/score/ZarnScoreBase.h>
#include <ZarnCore/score/ZarnScoreBeatOperations.h>
#include <ZarnCore/score/ZarnScoreCursor.h>
#include <ZarnCore/score/ZarnScoreDocumentOperations.h>
#include <ZarnCore/score/ZarnScoreFormOperations.h>
#include <ZarnCore/score/ZarnScoreLayoutOperations.h>
#include <ZarnCore/score/ZarnScoreLinkOperations.h>
#include <ZarnCore/score/ZarnScoreNoteOperations.h>
#include <ZarnCore/score/ZarnScorePlaybackOperations.h>
#include <ZarnCore/score/ZarnScoreSoundOperations.h>
#include <ZarnCore/score/ZarnScoreStructureOperations.h>
#include <ZarnCore/score/ZarnScoreTrackOperations.h>

#include <memory>

namespace zarn {

namespace cmd {
class ReplaceScore;
}

class IZarnRendererStyleSheet;

/// A document: the tree of the music, the commands that change it, the cursor, and the events that
/// announce every change.
///
/// A score is edited on one thread and changed only by its operations. Each builds a command and
/// has it executed; it answers whether that was done. What cannot be done is logged and changes
/// nothing. Indexes are counted from 0.
class ZARNCORE_EXPORT Score : public ScoreBase,
                              public ScoreBarOperations,
                              public ScoreFormOperations,
                              public ScoreTrackOperations,
                              public ScoreSoundOperations,
                              public ScorePlaybackOperations,
                              public ScoreDocumentOperations,
                              public ScoreLayoutOperations,
                              public ScoreBeatOperations,
                              public ScoreLinkOperations,
                              public ScoreNoteOperations,
                              public ScoreStructureOperations {
public:
    /// A score with a master track, no tracks and no bars.
    Score();

    /// Keeps a style sheet for the renderer of the application and hands it back; it may be empty.
    explicit Score(std::shared_ptr<IZarnRendererStyleSheet> styleSheet);

    /// A deep copy of the music, with the cursor at the same place. Commands and listeners stay
    /// with the original.
    Score(const Score &other);

    /// Replaces the music by a deep copy and moves the cursor, as `setScoreModel` does. The
    /// listeners stay.
    Score &operator=(const Score &other);

    ~Score();

    /// Takes over a model that no score has, as importers make them, forgets all commands, those
    /// of open macros too, and sends `ScoreChanged`. The old model lives on for those who hold it,
    /// without a score. Waits for a reader who holds the command stack's lock to end.
    /// Raises for none and for the model of a score, and from inside a step of the stack.
    void setScoreModel(std::shared_ptr<ScoreModel> model);

    CommandStack &commandStack() noexcept { return _commands; }
    const CommandStack &commandStack() const noexcept { return _commands; }

    ScoreCursor &scoreCursor() noexcept { return _cursor; }
    const ScoreCursor &scoreCursor() const noexcept { return _cursor; }

    const std::shared_ptr<IZarnRendererStyleSheet> &rendererStyleSheet() const noexcept
    {
        return _styleSheet;
    }

private:
    friend class cmd::ReplaceScore;

    void replaceDocument(std::shared_ptr<ScoreModel> model,
                         std::shared_ptr<IZarnRendererStyleSheet> styleSheet,
                         const ScoreCursor &cursor);
    void exchangeModel(std::shared_ptr<ScoreModel> &model) noexcept;

    std::shared_ptr<IZarnRendererStyleSheet> _styleSheet;
    ScoreCursor _cursor;
    CommandStack _commands;
};

} // namespace zarn
