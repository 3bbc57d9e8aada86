// SPDX-License-Identifier: MIT
#include <ZarnCore/score/ZarnScore.h>

#include <ZarnCore/ZarnAssert.h>
#include <ZarnCore/ZarnLog.h>
#include <ZarnCore/events/ZarnScoreEvents.h>
#include <ZarnCore/model/ZarnMasterTrack.h>
#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/model/ZarnTrack.h>

#include <exception>
#include <utility>

namespace zarn {

Score::Score() : Score(std::shared_ptr<IZarnRendererStyleSheet>()) { }

Score::Score(std::shared_ptr<IZarnRendererStyleSheet> styleSheet)
    : _model(std::make_shared<ScoreModel>()), _styleSheet(std::move(styleSheet)),
      _eventsLog(log::events()), _cursor(this), _commands(this)
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

std::shared_ptr<MasterTrack> Score::masterTrack() const
{
    return _model->masterTrack();
}

std::shared_ptr<Track> Score::track(unsigned index) const
{
    return _model->track(index);
}

std::vector<std::shared_ptr<Track>> Score::tracks() const
{
    return _model->tracks();
}

unsigned Score::trackCount() const
{
    return _model->trackCount();
}

bool Score::hasSlash(unsigned track) const
{
    return _model->hasTrackIndex(track) && _model->tracks()[track]->notations().slash;
}

bool Score::hasStdNotation(unsigned track) const
{
    return _model->hasTrackIndex(track) && _model->tracks()[track]->notations().standard;
}

bool Score::hasTablature(unsigned track) const
{
    return _model->hasTrackIndex(track) && _model->tracks()[track]->notations().tablature;
}

QStringList Score::tracksName() const
{
    QStringList names;
    for (const auto &track : _model->tracks())
        names.append(QString::fromStdString(track->name()));
    return names;
}

void Score::notifyUnstopped(const std::function<void()> &notify) noexcept
{
    try {
        notify();
    } catch (const std::exception &error) {
        qCWarning(log::events) << "A listener fails while a change is taken back:" << error.what();
    } catch (...) {
        qCWarning(log::events) << "A listener fails while a change is taken back";
    }
}

void Score::logNotify(const evt::Event &event)
{
    qCDebug(log::events) << "Notify" << event.typeName();
}

} // namespace zarn
