// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/events/ZarnEventOf.h>

#include <utility>

/// The shapes that many events share: which places and values an event carries.
namespace zarn::evt {

/// Names one of a list's entries by its index.
template <Number N>
class IndexEvent : public EventOf<N> {
public:
    explicit IndexEvent(int index) : _index(index) { }

    int index() const noexcept { return _index; }

private:
    int _index;
};

/// Names one of a list's entries and the new state of a switch of it.
template <Number N>
class IndexToggleEvent : public EventOf<N> {
public:
    IndexToggleEvent(int index, bool isEnabled) : _index(index), _isEnabled(isEnabled) { }

    int index() const noexcept { return _index; }
    bool isEnabled() const noexcept { return _isEnabled; }

private:
    int _index;
    bool _isEnabled;
};

/// Names neighbouring entries of a list: the first one's index, and how many.
template <Number N>
class SpanEvent : public EventOf<N> {
public:
    SpanEvent(int index, int count) : _index(index), _count(count) { }

    int index() const noexcept { return _index; }
    int count() const noexcept { return _count; }

private:
    int _index;
    int _count;
};

/// Names two entries of a list by their indexes.
template <Number N>
class SwapEvent : public EventOf<N> {
public:
    SwapEvent(int first, int second) : _first(first), _second(second) { }

    int first() const noexcept { return _first; }
    int second() const noexcept { return _second; }

private:
    int _first;
    int _second;
};

/// Carries a value before and after the change. Undo exchanges them.
template <Number N, class Value>
class ChangeEvent : public EventOf<N> {
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
template <Number N>
class TrackEvent : public EventOf<N> {
public:
    explicit TrackEvent(int trackIndex) : _trackIndex(trackIndex) { }

    int trackIndex() const noexcept { return _trackIndex; }

private:
    int _trackIndex;
};

/// Names a track and the new state of a switch of it.
template <Number N>
class TrackToggleEvent : public EventOf<N> {
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
template <Number N>
class TrackChangeEvent : public EventOf<N> {
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
template <Number N>
class TrackSwapEvent : public EventOf<N> {
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

/// Names a staff.
template <Number N>
class StaffEvent : public EventOf<N> {
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
template <Number N>
class BarsEvent : public EventOf<N> {
public:
    BarsEvent(int firstBar, int lastBar) : _firstBar(firstBar), _lastBar(lastBar) { }

    int firstBar() const noexcept { return _firstBar; }
    int lastBar() const noexcept { return _lastBar; }

private:
    int _firstBar;
    int _lastBar;
};

/// Names bars of one staff; both ends belong to them.
template <Number N>
class StaffBarsEvent : public EventOf<N> {
public:
    StaffBarsEvent(int trackIndex, int staffIndex, int firstBar, int lastBar)
        : _trackIndex(trackIndex), _staffIndex(staffIndex), _firstBar(firstBar), _lastBar(lastBar)
    {
    }

    int trackIndex() const noexcept { return _trackIndex; }
    int staffIndex() const noexcept { return _staffIndex; }
    int firstBar() const noexcept { return _firstBar; }
    int lastBar() const noexcept { return _lastBar; }

private:
    int _trackIndex;
    int _staffIndex;
    int _firstBar;
    int _lastBar;
};

} // namespace zarn::evt
