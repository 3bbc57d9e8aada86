// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnLayout/engrave/InkTypes.h>

#include <string>
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
    const std::vector<Problem> &list() const noexcept { return _list; }

private:
    std::vector<Problem> _list;
};

} // namespace zarn::engraving
