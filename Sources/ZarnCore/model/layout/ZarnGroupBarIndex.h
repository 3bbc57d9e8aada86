// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>

#include <cstdint>
#include <utility>

namespace zarn {

/// Neighbouring bars that belong together in the layout, by their numbers; both ends belong to
/// the group. A small value, in lists that are in order of bars.
class ZARNCORE_EXPORT GroupBarIndex {
public:
    /// Why the bars are together.
    enum class Type : std::uint8_t {
        Bars,         ///< drawn one by one
        MultiRest,    ///< bars of rest under one sign, with their number over it
        DoubleSimile, ///< two bars under one sign that repeats the two before
    };

    /// The numbers may come in either order; a negative one makes an empty group.
    GroupBarIndex(int bar, int otherBar, Type type = Type::Bars) noexcept;

    Type type() const noexcept { return _type; }
    void setType(Type type) noexcept { _type = type; }

    /// 0 for an empty group.
    unsigned barCount() const noexcept;
    bool containsBar(int bar) const noexcept;

    /// The first and the last bar.
    std::pair<int, int> barsIndexes() const noexcept { return {_first, _last}; }

    friend bool operator==(const GroupBarIndex &left, const GroupBarIndex &right) noexcept
    {
        return left._first == right._first && left._last == right._last
            && left._type == right._type;
    }
    friend bool operator!=(const GroupBarIndex &left, const GroupBarIndex &right) noexcept
    {
        return !(left == right);
    }

private:
    int _first;
    int _last;
    Type _type;
};

} // namespace zarn
