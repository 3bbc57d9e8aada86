// SPDX-License-Identifier: MIT
#include <ZarnCore/score/ZarnScore.h>

#include <ZarnCore/ZarnAssert.h>
#include <ZarnCore/events/ZarnScoreEvents.h>
#include <ZarnCore/model/ZarnScoreModel.h>

#include <utility>

namespace zarn {

Score::Score() : Score(std::shared_ptr<IZarnRendererStyleSheet>()) { }

Score::Score(std::shared_ptr<IZarnRendererStyleSheet> styleSheet)
    : _styleSheet(std::move(styleSheet)), _cursor(this), _commands(this)
{
    _model->setParentScore(this);
}

Score::Score(const Score &other) : Score(other._styleSheet)
{
    auto model = other._model->clone();
    exchangeModel(model);
    _cursor.moveToCursor(other._cursor);
}

Score &Score::operator=(const Score &other)
{
    if (this == &other)
        return *this;
    replaceDocument(other._model->clone(), other._styleSheet, other._cursor);
    return *this;
}

Score::~Score()
{
    // Commands may own nodes of the tree: all of them go first, those too that a wrapped ring
    // keeps out of reach of clear().
    _commands.reset();
    // Callables that die may own listeners, which still find a whole score to disconnect from.
    _signals.close();
    _model->setParentScore(nullptr);
}

void Score::setScoreModel(std::shared_ptr<ScoreModel> model)
{
    ZARN_ASSERT_IN("zarn::Score::setScoreModel", model != nullptr);
    ZARN_ASSERT_IN("zarn::Score::setScoreModel", model->parentScore() == nullptr);
    replaceDocument(std::move(model), _styleSheet, _cursor);
}

/// Puts the cursor at the same place as another, or the nearest one, in the new model.
void Score::replaceDocument(std::shared_ptr<ScoreModel> model,
                            std::shared_ptr<IZarnRendererStyleSheet> styleSheet,
                            const ScoreCursor &cursor)
{
    _commands.replaceDocument([&] {
        exchangeModel(model);
        _styleSheet.swap(styleSheet);
    });
    try {
        _cursor.moveToCursor(cursor);
    } catch (...) {
        // A listener of the cursor's move failed: the others must hear of the document all the
        // same.
        notify(this, evt::ScoreChanged());
        throw;
    }
    notify(this, evt::ScoreChanged());
}

/// Leaves the old model in `model`.
void Score::exchangeModel(std::shared_ptr<ScoreModel> &model) noexcept
{
    _model->setParentScore(nullptr);
    _model.swap(model);
    _model->setParentScore(this);
}

} // namespace zarn
