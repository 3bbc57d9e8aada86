// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnTypes.h>
#include <ZarnCore/events/ZarnEventShapes.h>
#include <ZarnCore/model/layout/ZarnHeaderAndFooter.h>
#include <ZarnCore/model/places/ZarnScoreModelIndex.h>

/// Events of the score as a whole.
namespace zarn::evt {

/// Names a property of the score.
template <class Self>
class PropertyEvent : public EventOf<Self> {
public:
    explicit PropertyEvent(ScoreProperty property) : _property(property) { }

    ScoreProperty property() const noexcept { return _property; }

private:
    ScoreProperty _property;
};

/// Names a header or a footer.
template <class Self>
class HeaderEvent : public EventOf<Self> {
public:
    explicit HeaderEvent(HeaderAndFooter part) : _part(part) { }

    HeaderAndFooter part() const noexcept { return _part; }

private:
    HeaderAndFooter _part;
};

/// The pitch of the reference A changed; in hertz.
class ConcertToneChanged final : public ChangeEvent<ConcertToneChanged, double> {
    using ChangeEvent::ChangeEvent;
};

/// The bar counts of the systems of the full score changed; they are read from the model. Bars that
/// come or go in the middle of a system change its count: the event follows theirs.
class FullScoreSystemsLayoutChanged final : public EventOf<FullScoreSystemsLayoutChanged> { };

/// The score was protected against changes, or set free. Nothing sends it yet.
class ScoreLockTypeChanged final : public ChangeEvent<ScoreLockTypeChanged, bool> {
    using ChangeEvent::ChangeEvent;
};

/// Playing times shown at beats of these bars were added or removed.
class RequestTimerChanged final : public StaffBarsEvent<RequestTimerChanged> {
    using StaffBarsEvent::StaffBarsEvent;
};

/// The score's cursor moved. Undo moves it back to where it was before the command.
class ScoreCursorMoved final : public ChangeEvent<ScoreCursorMoved, ScoreModelIndex> {
    using ChangeEvent::ChangeEvent;
};

/// What is displayed is to be drawn anew; the music is the same. Nothing sends it yet.
class RequestDisplayUpdate final : public EventOf<RequestDisplayUpdate> { };

/// A title, an author or another text property of the score changed.
class PropertyChanged final : public PropertyEvent<PropertyChanged> {
    using PropertyEvent::PropertyEvent;
};

/// Several properties of the score changed at once.
class PropertiesChanged final : public EventOf<PropertiesChanged> { };

/// A header or footer text changed.
class HeaderAndFooterChanged final : public HeaderEvent<HeaderAndFooterChanged> {
    using HeaderEvent::HeaderEvent;
};

/// The reverb of the master track was changed, added or removed.
class MasteringReverbChanged final : public EventOf<MasteringReverbChanged> { };

/// The tempo that the score starts with changed; in quarter notes per minute.
class GlobalTempoChanged final : public ChangeEvent<GlobalTempoChanged, double> {
    using ChangeEvent::ChangeEvent;
};

/// The first bar became a pickup bar, or stopped being one.
class AnacrusisChanged final : public ChangeEvent<AnacrusisChanged, bool> {
    using ChangeEvent::ChangeEvent;
};

/// Chords over the beats of a staff changed, whose bars `ModifyBarRange` has named, or the working
/// sets of its chords and diagrams.
class ChordsChanged final : public StaffEvent<ChordsChanged> {
    using StaffEvent::StaffEvent;
};

/// A setting shared by all scores changed, such as a catalogue; everything taken from it is stale.
/// Nothing sends it yet.
class CoreAttributeChanged final : public EventOf<CoreAttributeChanged> { };

/// The whole content of the score was replaced; nothing known about it holds.
class ScoreChanged final : public EventOf<ScoreChanged> { };

} // namespace zarn::evt
