// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/events/ZarnEventOf.h>

#include <utility>

/// The shapes that many events share: which places and values an event carries.
namespace zarn::evt {

/// Names one of a list's entries by its index.
template <class Self>
class IndexEvent : public EventOf<Self> {
public:
    explicit IndexEvent(int index) : _index(index) { }

    int index() const noexcept { return _index; }

private:
    int _index;
};

/// Names one of a list's entries and the new state of a switch of it.
template <class Self>
class IndexToggleEvent : public EventOf<Self> {
public:
    IndexToggleEvent(int index, bool isEnabled) : _index(index), _isEnabled(isEnabled) { }

    int index() const noexcept { return _index; }
    bool isEnabled() const noexcept { return _isEnabled; }

private:
    int _index;
    bool _isEnabled;
};

/// Names neighbouring entries of a list: the first one's index, and how many.
template <class Self>
class SpanEvent : public EventOf<Self> {
public:
    SpanEvent(int index, int count) : _index(index), _count(count) { }

    int index() const noexcept { return _index; }
    int count() const noexcept { return _count; }

private:
    int _index;
    int _count;
};

/// Names two entries of a list by their indexes.
template <class Self>
class SwapEvent : public EventOf<Self> {
public:
    SwapEvent(int first, int second) : _first(first), _second(second) { }

    int first() const noexcept { return _first; }
    int second() const noexcept { return _second; }

private:
    int _first;
    int _second;
};

/// Carries a value before and after the change. Undo exchanges them.
template <class Self, class Value>
class ChangeEvent : public EventOf<Self> {
public:
    ChangeEvent(Value oldValue, Value newValue)
        : _oldValue(std::move(oldValue)), _newValue(std::move(newValue))
    {
    }

    const Value &oldValue() const noexcept { return _oldValue; }
    const Value &newValue() const noexcept { return _newValue; }

private:
    Value _oldValue;
    Value _newValue;
};

/// Names a track.
template <class Self>
class TrackEvent : public EventOf<Self> {
public:
    explicit TrackEvent(int trackIndex) : _trackIndex(trackIndex) { }

    int trackIndex() const noexcept { return _trackIndex; }

private:
    int _trackIndex;
};

/// Names a track and the new state of a switch of it.
template <class Self>
class TrackToggleEvent : public EventOf<Self> {
public:
    TrackToggleEvent(int trackIndex, bool isEnabled)
        : _trackIndex(trackIndex), _isEnabled(isEnabled)
    {
    }

    int trackIndex() const noexcept { return _trackIndex; }
    bool isEnabled() const noexcept { return _isEnabled; }

private:
    int _trackIndex;
    bool _isEnabled;
};

/// Names a track and an index of it before and after the change. Undo exchanges them.
template <class Self>
class TrackChangeEvent : public EventOf<Self> {
public:
    TrackChangeEvent(int trackIndex, int oldIndex, int newIndex)
        : _trackIndex(trackIndex), _oldIndex(oldIndex), _newIndex(newIndex)
    {
    }

    int trackIndex() const noexcept { return _trackIndex; }
    int oldIndex() const noexcept { return _oldIndex; }
    int newIndex() const noexcept { return _newIndex; }

private:
    int _trackIndex;
    int _oldIndex;
    int _newIndex;
};

/// Names two entries of a list of one track by their indexes.
template <class Self>
class TrackSwapEvent : public EventOf<Self> {
public:
    TrackSwapEvent(int trackIndex, int first, int second)
        : _trackIndex(trackIndex), _first(first), _second(second)
    {
    }

    int trackIndex() const noexcept { return _trackIndex; }
    int first() const noexcept { return _first; }
    int second() const noexcept { return _second; }

private:
    int _trackIndex;
    int _first;
    int _second;
};

/// Names a sound of a track.
template <class Self>
class TrackSoundEvent : public EventOf<Self> {
public:
    TrackSoundEvent(int trackIndex, int soundIndex)
        : _trackIndex(trackIndex), _soundIndex(soundIndex)
    {
    }

    int trackIndex() const noexcept { return _trackIndex; }
    int soundIndex() const noexcept { return _soundIndex; }

private:
    int _trackIndex;
    int _soundIndex;
};

/// Names a staff.
template <class Self>
class StaffEvent : public EventOf<Self> {
public:
    StaffEvent(int trackIndex, int staffIndex)
        : _trackIndex(trackIndex), _staffIndex(staffIndex) { }

    int trackIndex() const noexcept { return _trackIndex; }
    int staffIndex() const noexcept { return _staffIndex; }

private:
    int _trackIndex;
    int _staffIndex;
};

/// Names bar columns; both ends belong to them.
template <class Self>
class BarsEvent : public EventOf<Self> {
public:
    BarsEvent(int firstBar, int lastBar) : _firstBar(firstBar), _lastBar(lastBar) { }

    int firstBar() const noexcept { return _firstBar; }
    int lastBar() const noexcept { return _lastBar; }

private:
    int _firstBar;
    int _lastBar;
};

/// Names bars of one track; both ends belong to them.
template <class Self>
class TrackBarsEvent : public BarsEvent<Self> {
public:
    TrackBarsEvent(int trackIndex, int firstBar, int lastBar)
        : BarsEvent<Self>(firstBar, lastBar), _trackIndex(trackIndex)
    {
    }

    int trackIndex() const noexcept { return _trackIndex; }

private:
    int _trackIndex;
};

/// Names bars of one staff; both ends belong to them.
template <class Self>
class StaffBarsEvent : public TrackBarsEvent<Self> {
public:
    StaffBarsEvent(int trackIndex, int staffIndex, int firstBar, int lastBar)
        : TrackBarsEvent<Self>(trackIndex, firstBar, lastBar), _staffIndex(staffIndex)
    {
    }

    int staffIndex() const noexcept { return _staffIndex; }

private:
    int _staffIndex;
};

} // namespace zarn::evt
