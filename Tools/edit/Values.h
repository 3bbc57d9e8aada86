// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/music/ZarnKeySignature.h>
#include <ZarnCore/music/ZarnPitchClass.h>
#include <ZarnCore/music/ZarnRhythmValue.h>
#include <ZarnCore/music/ZarnTimeSignature.h>

#include <QString>

#include <optional>
#include <variant>
#include <vector>

namespace zarn::tool {

/// Bars counted from 0, both ends included.
struct BarRange {
    unsigned first = 0;
    unsigned last = 0;
};

/// A beat of a bar, both counted from 0.
struct BeatPlace {
    unsigned bar = 0;
    unsigned beat = 0;
};

/// Beats from one place to another, both included.
struct BeatRange {
    BeatPlace first;
    BeatPlace last;
};

/// A MIDI key, with its spelling when it was given as a note name.
struct PitchValue {
    int midi = 0;
    std::optional<PitchClass> spelling;
};

/// Track, staff and voice that a command works in, counted from 0.
struct Where {
    unsigned track = 0;
    unsigned staff = 0;
    unsigned voice = 0;
};

using Value =
    std::variant<std::monostate, int, double, bool, QString, BarRange, BeatPlace, BeatRange,
                 RhythmValue, TimeSignature, KeySignature, PitchValue, std::vector<int>>;

/// What a line gave for the parameters of its command.
class Values {
public:
    explicit Values(const Where &where) : _where(where) { }

    /// `column` is where the parameter stands in its line, counted from 1.
    void add(Value value, int column)
    {
        _values.push_back(std::move(value));
        _columns.push_back(column);
    }

    int column(std::size_t parameter) const { return _columns.at(parameter); }

    /// Whether an optional parameter was given.
    bool has(std::size_t parameter) const
    {
        return parameter < _values.size()
            && !std::holds_alternative<std::monostate>(_values[parameter]);
    }

    template <class T>
    const T &get(std::size_t parameter) const
    {
        return std::get<T>(_values.at(parameter));
    }

    template <class T>
    T get(std::size_t parameter, const T &otherwise) const
    {
        return has(parameter) ? std::get<T>(_values[parameter]) : otherwise;
    }

    std::string text(std::size_t parameter) const
    {
        return get<QString>(parameter, QString()).toStdString();
    }

    const Where &where() const noexcept { return _where; }
    Where &where() noexcept { return _where; }

private:
    std::vector<Value> _values;
    std::vector<int> _columns;
    Where _where;
};

} // namespace zarn::tool
