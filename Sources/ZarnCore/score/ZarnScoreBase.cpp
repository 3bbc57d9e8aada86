// SPDX-License-Identifier: MIT
#include <ZarnCore/score/ZarnScoreBase.h>

#include <ZarnCore/ZarnLog.h>
#include <ZarnCore/events/ZarnEvent.h>
#include <ZarnCore/model/ZarnMasterTrack.h>
#include <ZarnCore/model/ZarnTrack.h>

#include <exception>

namespace zarn {

ScoreBase::ScoreBase() : _model(std::make_shared<ScoreModel>()), _eventsLog(log::events()) { }
ScoreBase::~ScoreBase() = default;

std::shared_ptr<MasterTrack> ScoreBase::masterTrack() const
{
    return _model->masterTrack();
}

std::shared_ptr<Track> ScoreBase::track(unsigned index) const
{
    return _model->track(index);
}

std::vector<std::shared_ptr<Track>> ScoreBase::tracks() const
{
    return _model->tracks();
}

unsigned ScoreBase::trackCount() const
{
    return _model->trackCount();
}

bool ScoreBase::hasSlash(unsigned track) const
{
    return _model->hasTrackIndex(track) && _model->tracks()[track]->notations().slash;
}

bool ScoreBase::hasStdNotation(unsigned track) const
{
    return _model->hasTrackIndex(track) && _model->tracks()[track]->notations().standard;
}

bool ScoreBase::hasTablature(unsigned track) const
{
    return _model->hasTrackIndex(track) && _model->tracks()[track]->notations().tablature;
}

QStringList ScoreBase::tracksName() const
{
    QStringList names;
    for (const auto &track : _model->tracks())
        names.append(QString::fromStdString(track->name()));
    return names;
}

void ScoreBase::notifyUnstopped(const std::function<void()> &notify) noexcept
{
    try {
        notify();
    } catch (const std::exception &error) {
        qCWarning(log::events) << "A listener fails while a change is taken back:" << error.what();
    } catch (...) {
        qCWarning(log::events) << "A listener fails while a change is taken back";
    }
}

void ScoreBase::logNotify(const evt::Event &event)
{
    qCDebug(log::events) << "Notify" << event.typeName();
}

} // namespace zarn
