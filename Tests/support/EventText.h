// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/events/ZarnEvents.h>

#include <string>
#include <type_traits>

/// An event as tests write it: its name, and in brackets the numbers that it carries, places
/// counted from 0. "ModifyBarRange(0,0,2,3)" is about bars 2 to 3 of the first staff.
class EventText {
public:
    template <class E>
    static std::string of(const E &event)
    {
        EventText text;
        // clang-format off
        text.add(event, [](const auto &e) -> decltype(e.trackIndex()) { return e.trackIndex(); });
        text.add(event, [](const auto &e) -> decltype(e.staffIndex()) { return e.staffIndex(); });
        text.add(event, [](const auto &e) -> decltype(e.soundIndex()) { return e.soundIndex(); });
        text.add(event, [](const auto &e) -> decltype(e.slot()) { return e.slot(); });
        text.add(event, [](const auto &e) -> decltype(e.first()) { return e.first(); });
        text.add(event, [](const auto &e) -> decltype(e.second()) { return e.second(); });
        text.add(event, [](const auto &e) -> decltype(e.oldIndex()) { return e.oldIndex(); });
        text.add(event, [](const auto &e) -> decltype(e.newIndex()) { return e.newIndex(); });
        text.add(event, [](const auto &e) -> decltype(e.isEnabled()) { return e.isEnabled(); });
        text.add(event, [](const auto &e) -> decltype(e.property()) { return e.property(); });
        text.add(event, [](const auto &e) -> decltype(e.part()) { return e.part(); });
        text.add(event, [](const auto &e) -> decltype(e.mark()) { return e.mark(); });
        text.add(event, [](const auto &e) -> decltype(e.automationType()) { return e.automationType(); });
        text.add(event, [](const auto &e) -> decltype(e.isBypassed()) { return e.isBypassed(); });
        text.add(event, [](const auto &e) -> decltype(e.index()) { return e.index(); });
        text.add(event, [](const auto &e) -> decltype(e.count()) { return e.count(); });
        text.add(event, [](const auto &e) -> decltype(e.oldBar()) { return e.oldBar(); });
        text.add(event, [](const auto &e) -> decltype(e.newBar()) { return e.newBar(); });
        text.add(event, [](const auto &e) -> decltype(e.firstBar()) { return e.firstBar(); });
        text.add(event, [](const auto &e) -> decltype(e.lastBar()) { return e.lastBar(); });
        text.add(event, [](const auto &e) -> decltype(e.oldValue()) { return e.oldValue(); });
        text.add(event, [](const auto &e) -> decltype(e.newValue()) { return e.newValue(); });
        // clang-format on
        return text._numbers.empty() ? event.typeName()
                                     : std::string(event.typeName()) + "(" + text._numbers + ")";
    }

private:
    template <class E, class Read>
    void add(const E &event, Read read)
    {
        if constexpr (std::is_invocable_v<Read, const E &>)
            add(read(event));
    }
    template <class Number>
    void add(const Number &number)
    {
        if (!_numbers.empty())
            _numbers += ',';
        if constexpr (std::is_same_v<Number, zarn::Automation::Type>)
            _numbers += zarn::Automation::typeToString(number);
        else if constexpr (std::is_enum_v<Number>)
            _numbers += std::to_string(static_cast<int>(number));
        else if constexpr (std::is_same_v<Number, zarn::ScoreModelIndex>)
            _numbers += number.toQString().toStdString();
        else if constexpr (std::is_floating_point_v<Number>)
            _numbers += QString::number(number).toStdString();
        else
            _numbers += std::to_string(number);
    }

    std::string _numbers;
};
