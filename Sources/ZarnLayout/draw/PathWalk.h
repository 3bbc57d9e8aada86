// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnLayout/draw/ZarnDrawList.h>

#include <cstddef>

namespace zarn::layout {

/// Calls `begin`, `line`, `curve` and `close` of a pen for the verbs of a path; `at(number)`
/// answers its points.
template <class Pen, class At>
void walkPath(const PathVerb *verbs, std::size_t count, At at, Pen &pen)
{
    std::size_t next = 0;
    for (std::size_t i = 0; i < count; ++i) {
        switch (verbs[i]) {
        case PathVerb::Move:
            pen.begin(at(next++));
            break;
        case PathVerb::Line:
            pen.line(at(next++));
            break;
        case PathVerb::Cubic:
            pen.curve(at(next), at(next + 1), at(next + 2));
            next += 3;
            break;
        case PathVerb::Close:
            pen.close();
            break;
        }
    }
}

} // namespace zarn::layout
