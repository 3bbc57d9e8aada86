// SPDX-License-Identifier: MIT
#pragma once

#include "common/BarRange.h"
#include "common/MusicReader.h"

#include <ZarnCore/score/ZarnScoreCursor.h>

#include <QString>

#include <map>
#include <optional>
#include <utility>
#include <variant>
#include <vector>

namespace zarn::tool {

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

/// What "select" takes.
struct SelectionValue {
    /// A number from 0, or all of them; at a column of the line.
    struct Part {
        std::optional<unsigned> number;
        int column = 1;
    };
    bool isNone = false;
    bool isAll = false; ///< "all" was said in place of bars
    std::variant<BarRange, BeatRange> places;
    std::optional<Part> track;
    std::optional<Part> staff;
    std::optional<Part> voice;
};

/// One thing that "cursor" is to do: "track 2", "first bar".
struct CursorMove {
    enum class To { Number, First, Last };
    CursorStep step = CursorStep::Beat;
    To to = To::Number;
    int number = 1; ///< as players count, from 1
    int column = 1;
};

/// One of the names that a parameter takes, by its number, and the word behind it.
struct NamedValue {
    int number = 0;
    QString text;
    int column = 1; ///< of the word
};

/// Track, staff and voice that a command works in, counted from 0.
struct Where {
    unsigned track = 0;
    unsigned staff = 0;
    unsigned voice = 0;
};

using Value =
    std::variant<std::monostate, int, double, bool, QString, BarRange, BeatPlace, BeatRange,
                 SelectionValue, std::vector<CursorMove>, RhythmValue, TimeSignature, KeySignature,
                 PitchValue, std::vector<int>, std::vector<NamedValue>>;

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

    /// Whether a parameter was given that may be left out.
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

    /// What was given by name, as in "--strings 7"; a null pointer when it was not. Options go by
    /// their names in small letters, in a line and here, however their parameters are shown.
    template <class T>
    const T *option(const QString &name) const
    {
        const auto found = _options.find(name.toLower());
        return found != _options.end() ? &std::get<T>(found->second.first) : nullptr;
    }

    int optionColumn(const QString &name) const { return _options.at(name.toLower()).second; }

    void addOption(const QString &name, Value value, int column)
    {
        _options[name.toLower()] = {std::move(value), column};
    }

    /// A number that counts something, a track or a place of a list.
    unsigned index(std::size_t parameter) const
    {
        return static_cast<unsigned>(get<int>(parameter));
    }

    std::string text(std::size_t parameter) const
    {
        return get<QString>(parameter, QString()).toStdString();
    }

    const Where &where() const noexcept { return _where; }

    /// Whether the line itself names a track, staff or voice.
    bool namesWhere() const noexcept { return _namesWhere; }
    void setNamesWhere(bool names) noexcept { _namesWhere = names; }

private:
    bool _namesWhere = false;
    std::vector<Value> _values;
    std::vector<int> _columns;
    std::map<QString, std::pair<Value, int>> _options;
    Where _where;
};

} // namespace zarn::tool
