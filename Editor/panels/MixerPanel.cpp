// SPDX-License-Identifier: MIT
#include "panels/MixerPanel.h"

#include "document/Document.h"

#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/score/ZarnScore.h>

#include <QHBoxLayout>
#include <QLabel>
#include <QScopedValueRollback>
#include <QScrollArea>
#include <QSlider>
#include <QToolButton>
#include <QVBoxLayout>

#include <cmath>

namespace zarn::editor {
namespace {

/// The master's number for commands.
constexpr int master = -1;
constexpr int percent = 100;

} // namespace

MixerPanel::MixerPanel(const ActionContext &context) : Panel(context)
{
    auto *const all = new QVBoxLayout(this);
    all->setContentsMargins(0, 0, 0, 0);
    auto *const area = new QScrollArea;
    area->setAccessibleName(tr("Mixer"));
    auto *const strips = new QWidget;
    _row = new QHBoxLayout(strips);
    _row->setSizeConstraint(QLayout::SetMinAndMaxSize);
    area->setWidget(strips);
    area->setWidgetResizable(true);
    all->addWidget(area);
}

MixerPanel::~MixerPanel() = default;

MixerPanel::Strip MixerPanel::makeStrip(int track)
{
    Strip strip;
    strip.widget = new QWidget;
    auto *const column = new QVBoxLayout(strip.widget);
    strip.name = new QLabel;
    strip.name->setAlignment(Qt::AlignCenter);
    strip.volume = new QSlider(Qt::Vertical);
    strip.volume->setRange(0, percent);
    strip.volume->setMinimumHeight(60);
    strip.pan = new QSlider(Qt::Horizontal);
    strip.pan->setRange(-percent, percent);
    strip.pan->setMaximumWidth(70);
    // One step when the slider comes to rest, however far it went.
    strip.volume->setTracking(false);
    strip.pan->setTracking(false);
    strip.mute = new QToolButton;
    strip.mute->setText(tr("M", "button that mutes a track"));
    strip.mute->setToolTip(tr("Mute"));
    strip.solo = new QToolButton;
    strip.solo->setText(tr("S", "button that lets a track be heard alone"));
    strip.solo->setToolTip(tr("Solo"));
    auto *const buttons = new QHBoxLayout;
    for (QToolButton *const button : {strip.mute, strip.solo}) {
        button->setCheckable(true);
        button->setVisible(track != master);
        buttons->addWidget(button);
        const TrackPlayback wanted =
            button == strip.mute ? TrackPlayback::Mute : TrackPlayback::Solo;
        connect(button, &QToolButton::clicked, this, [this, track, wanted](bool isOn) {
            document().edit(
                wanted == TrackPlayback::Mute ? tr("Mute") : tr("Solo"), [&](Score &score) {
                    return score.setTrackPlayback(static_cast<unsigned>(track),
                                                  isOn ? wanted : TrackPlayback::Normal);
                });
        });
    }
    column->addWidget(strip.name);
    column->addWidget(strip.volume, 1, Qt::AlignHCenter);
    column->addWidget(strip.pan, 0, Qt::AlignHCenter);
    column->addLayout(buttons);
    connect(strip.volume, &QSlider::valueChanged, this,
            [this, track](int value) { setLevel(track, false, value); });
    connect(strip.pan, &QSlider::valueChanged, this,
            [this, track](int value) { setLevel(track, true, value); });
    _row->addWidget(strip.widget);
    return strip;
}

void MixerPanel::follow()
{
    const QScopedValueRollback<bool> following(_isFollowing, true);
    const std::size_t count = document().model().trackCount() + 1;
    while (_strips.size() > count) {
        delete _strips.back().widget;
        _strips.pop_back();
    }
    while (_strips.size() < count)
        _strips.push_back(makeStrip(static_cast<int>(_strips.size()) - 1));
    for (std::size_t i = 0; i < count; ++i)
        show(_strips[i], static_cast<int>(i) - 1);
}

void MixerPanel::show(const Strip &strip, int track)
{
    const ScoreModel &model = document().model();
    const auto shown = track == master ? nullptr : model.track(static_cast<unsigned>(track));
    const QString name =
        shown == nullptr ? tr("Master") : QString::fromStdString(shown->shortName());
    const ZarnVolumePan &level =
        shown == nullptr ? model.masterTrack()->volumePan() : shown->volumePan();
    strip.name->setText(name);
    strip.volume->setValue(static_cast<int>(std::lround(level.volume() * percent)));
    strip.volume->setAccessibleName(tr("Volume of %1").arg(name));
    strip.pan->setValue(static_cast<int>(std::lround(level.pan() * percent)));
    strip.pan->setAccessibleName(tr("Panning of %1").arg(name));
    if (shown == nullptr)
        return;
    strip.mute->setChecked(shown->playback() == TrackPlayback::Mute);
    strip.solo->setChecked(shown->playback() == TrackPlayback::Solo);
}

void MixerPanel::setLevel(int track, bool isPan, int value)
{
    if (_isFollowing)
        return;
    document().edit(isPan ? tr("Panning") : tr("Volume"), [&](Score &score) {
        return score.setChannelStripParameter(
            track, isPan ? ChannelStripParameter::Pan : ChannelStripParameter::Volume,
            static_cast<float>(value) / percent);
    });
}

} // namespace zarn::editor
