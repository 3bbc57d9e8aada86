// SPDX-License-Identifier: MIT
#pragma once

#include "support/LaidOut.h"

#include <ZarnLayout/draw/ZarnPolygons.h>

#include <algorithm>
#include <memory>
#include <vector>

namespace test {

/// A beat with one note on a string.
inline std::shared_ptr<zarn::Beat> beat(zarn::RhythmValue::NoteValue value, int string, int fret)
{
    auto made = std::make_shared<zarn::Beat>(zarn::RhythmValue(value));
    auto note = std::make_shared<zarn::Note>(60 + fret);
    note->setString(string);
    note->setFret(fret);
    made->addNote(note);
    return made;
}

/// Whether the boxes of two marks meet.
inline bool meet(const LaidOut::Mark &a, const LaidOut::Mark &b)
{
    return a.left < b.right && b.left < a.right && a.top < b.bottom && b.top < a.bottom;
}

/// The marks of a kind in the first bar of the guitar.
inline std::vector<LaidOut::Mark> inFirstBar(const LaidOut &laid, zarn::layout::MarkKind kind)
{
    std::vector<LaidOut::Mark> marks = laid.of(kind);
    marks.erase(std::remove_if(marks.begin(), marks.end(),
                               [](const LaidOut::Mark &mark) {
                                   return mark.place.bar != 0 || mark.place.track != 0;
                               }),
                marks.end());
    return marks;
}

/// Of the points along an edge, those that lie in a box.
inline int pointsBetween(const zarn::layout::Point &from, const zarn::layout::Point &to,
                         const LaidOut::Mark &box)
{
    using zarn::layout::toSpaces;
    constexpr int steps = 16;
    int count = 0;
    for (int i = 0; i < steps; ++i) {
        const double part = static_cast<double>(i) / steps;
        const double x = toSpaces(from.x) + (toSpaces(to.x) - toSpaces(from.x)) * part;
        const double y = toSpaces(from.y) + (toSpaces(to.y) - toSpaces(from.y)) * part;
        count += x > box.left && x < box.right && y > box.top && y < box.bottom ? 1 : 0;
    }
    return count;
}

/// Of the outlines of marks of a kind, the points that lie in a box.
inline int pointsInside(const LaidOut &laid, zarn::layout::MarkKind kind, const LaidOut::Mark &box)
{
    int count = 0;
    for (const auto &system : laid.layout->pages().at(0).systems) {
        const auto &list = system.drawing->marks;
        for (const auto &mark : list.marks())
            if (mark.kind == kind)
                for (const auto &polygon : zarn::layout::polygonsOf(list, mark, 64))
                    for (std::size_t i = 0; i < polygon.size(); ++i)
                        count += pointsBetween(polygon[i], polygon[(i + 1) % polygon.size()], box);
    }
    return count;
}

} // namespace test
