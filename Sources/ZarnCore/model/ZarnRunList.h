// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <utility>
#include <vector>

namespace zarn {

/// Values in a row of which neighbours are often equal: each run of equal ones is held once, and
/// one bit for each value. They are read from front to back. Once shrunk they take no more than the
/// values one by one would.
template <class T>
class RunList {
public:
    /// Where one reads; stays right while values are added behind it.
    class Cursor {
    public:
        /// At the first value.
        Cursor() noexcept = default;

        /// The value here; goes on to the next one.
        const T &next(const RunList &list)
        {
            if (list.isSpread())
                return list._values[_number++];
            _begun += list._begins[_number++] ? 1 : 0;
            return list._values[_begun - 1];
        }
        std::size_t number() const noexcept { return _number; }

    private:
        friend class RunList;

        Cursor(std::size_t number, std::size_t begun) noexcept : _number(number), _begun(begun) { }

        std::size_t _number = 0;
        std::size_t _begun = 0; ///< runs up to here
    };

    void clear() noexcept
    {
        _values.clear();
        _begins.clear();
    }
    bool isEmpty() const noexcept { return _values.empty(); }
    std::size_t size() const noexcept { return isSpread() ? _values.size() : _begins.size(); }

    void add(const T &value)
    {
        if (isSpread())
            _begins.assign(_values.size(), true);
        const bool begins = _values.empty() || !(_values.back() == value);
        if (begins)
            _values.push_back(value);
        _begins.push_back(begins);
    }

    /// Behind the last value.
    Cursor end() const noexcept { return Cursor(size(), _values.size()); }

    /// To be called when all values are there: gives back memory that was taken for more of them.
    void shrink()
    {
        const std::size_t bytes = _values.size() * sizeof(T) + size() / 8;
        if (bytes >= size() * sizeof(T))
            spread();
        _values.shrink_to_fit();
        _begins.shrink_to_fit();
    }

private:
    /// Whether each value is held by itself, without bits.
    bool isSpread() const noexcept { return _begins.empty() && !_values.empty(); }

    void spread()
    {
        std::vector<T> all;
        all.reserve(size());
        for (Cursor cursor; cursor.number() < size();)
            all.push_back(cursor.next(*this));
        _values = std::move(all);
        _begins.clear();
    }

    std::vector<T> _values;
    std::vector<bool> _begins; ///< per value, whether a run begins with it; empty when spread
};

} // namespace zarn
