// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnLayout/engrave/InkTypes.h>

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

namespace zarn::engraving {

/// What could not be drawn as it should, with its place.
class Problems {
public:
    struct Problem {
        MarkPlace place;
        std::string text;
    };

    void add(const MarkPlace &place, std::string text)
    {
        _list.push_back({place, std::move(text)});
    }
    /// Those of others, so many bars further on.
    void add(const Problems &others, std::int32_t bar = 0)
    {
        for (Problem problem : others._list) {
            if (problem.place.bar >= 0)
                problem.place.bar += bar;
            _list.push_back(std::move(problem));
        }
    }
    const std::vector<Problem> &list() const noexcept { return _list; }

private:
    std::vector<Problem> _list;
};

} // namespace zarn::engraving
