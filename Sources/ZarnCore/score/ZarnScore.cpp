// SPDX-License-Identifier: MIT
#include <ZarnCore/score/ZarnScore.h>

#include <ZarnCore/ZarnAssert.h>
#include <ZarnCore/ZarnLog.h>
#include <ZarnCore/events/ZarnScoreEvents.h>
#include <ZarnCore/model/ZarnMasterTrack.h>
#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/model/ZarnTrack.h>

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
    adoptModel(other._model->clone());
    _cursor.moveToCursor(other._cursor);
}

Score &Score::operator=(const Score &other)
{
    if (this == &other)
        return *this;
    std::shared_ptr<ScoreModel> model = other._model->clone();
    _commands.setMaximumUndo(_commands.maximumUndo());
    adoptModel(std::move(model));
    _styleSheet = other._styleSheet;
    notify(this, evt::ScoreChanged());
    _cursor.moveToCursor(other._cursor);
    return *this;
}

Score::~Score()
{
    // Commands may own nodes of the tree: all of them go first, those too that a wrapped ring
    // keeps out of reach of clear().
    _commands.setMaximumUndo(0);
    _commands.clear();
    _model->setParentScore(nullptr);
}

void Score::setScoreModel(std::shared_ptr<ScoreModel> model)
{
    ZARN_ASSERT_IN("zarn::Score::setScoreModel", model != nullptr);
    ZARN_ASSERT_IN("zarn::Score::setScoreModel", model->parentScore() == nullptr);
    _commands.setMaximumUndo(_commands.maximumUndo());
    _commands.clear();
    adoptModel(std::move(model));
    notify(this, evt::ScoreChanged());
}

void Score::adoptModel(std::shared_ptr<ScoreModel> model)
{
    _model->setParentScore(nullptr);
    _model = std::move(model);
    _model->setParentScore(this);
    _cursor.moveToCursor(_cursor); // the same place, or the nearest one, in the new model
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

void Score::logNotify(const evt::Event &event)
{
    qCDebug(log::events) << "Notify" << event.typeName();
}

} // namespace zarn
