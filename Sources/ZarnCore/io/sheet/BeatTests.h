// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/model/ZarnBeat.h>

#include <algorithm>

/// Functions for the rows of tables that say what a sign stands for.
namespace zarn::sheet {

/// Whether a note of the beat is so.
template <bool (*IsOn)(const Note &)>
bool any(const Beat &beat)
{
    return std::any_of(beat.notes().begin(), beat.notes().end(),
                       [](const auto &note) { return IsOn(*note); });
}

template <AccentFlag Flag>
bool hasAccent(const Note &note)
{
    return note.accents().has(Flag);
}
template <auto Get>
bool noteHas(const Note &note)
{
    return (note.*Get)();
}
template <auto Get, auto Value>
bool noteIs(const Note &note)
{
    return (note.*Get)() == Value;
}
template <auto Get, auto Value>
bool is(const Beat &beat)
{
    return (beat.*Get)() == Value;
}
template <auto Get>
bool is(const Beat &beat)
{
    return (beat.*Get)();
}

} // namespace zarn::sheet
