// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <vector>

namespace zarn {

/// Values in a row of which neighbours are often equal: each run of equal ones is held once, and
/// one bit for each value. They are read from front to back.
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
    bool isEmpty() const noexcept { return _begins.empty(); }
    std::size_t size() const noexcept { return _begins.size(); }

    void add(const T &value)
    {
        const bool begins = _values.empty() || !(_values.back() == value);
        if (begins)
            _values.push_back(value);
        _begins.push_back(begins);
    }

    /// Behind the last value.
    Cursor end() const noexcept { return Cursor(_begins.size(), _values.size()); }

private:
    std::vector<T> _values;
    std::vector<bool> _begins; ///< per value, whether a run begins with it
};

} // namespace zarn
