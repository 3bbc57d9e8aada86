// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <initializer_list>
#include <iterator>
#include <utility>
#include <vector>

namespace zarn::engraving {

/// Values that are mostly so many at most: these are kept in place, with no memory of their own;
/// where there are more, all of them are in a vector.
template <class T, std::size_t usualCount>
class Few {
public:
    using value_type = T;

    Few() = default;
    Few(std::initializer_list<T> values) { assign(values.begin(), values.end()); }
    Few(const std::vector<T> &values) { assign(values.begin(), values.end()); }

    template <class Iterator>
    void assign(Iterator first, Iterator last)
    {
        clear();
        for (; first != last; ++first)
            push_back(*first);
    }

    void push_back(T value)
    {
        if (_count < usualCount) {
            _few[_count] = std::move(value);
        } else {
            if (_count == usualCount) {
                _many.reserve(2 * usualCount);
                for (T &few : _few)
                    _many.push_back(std::move(few));
            }
            _many.push_back(std::move(value));
        }
        ++_count;
    }

    void clear() noexcept
    {
        _many.clear();
        _count = 0;
    }

    std::size_t size() const noexcept { return _count; }
    bool empty() const noexcept { return _count == 0; }

    const T *data() const noexcept { return isInPlace() ? _few.data() : _many.data(); }
    T *data() noexcept { return isInPlace() ? _few.data() : _many.data(); }
    const T *begin() const noexcept { return data(); }
    const T *end() const noexcept { return data() + _count; }
    T *begin() noexcept { return data(); }
    T *end() noexcept { return data() + _count; }

    auto rbegin() const noexcept { return std::make_reverse_iterator(end()); }
    auto rend() const noexcept { return std::make_reverse_iterator(begin()); }

    const T &operator[](std::size_t number) const noexcept { return data()[number]; }
    T &operator[](std::size_t number) noexcept { return data()[number]; }
    const T &front() const noexcept { return *data(); }
    T &front() noexcept { return *data(); }
    const T &back() const noexcept { return data()[_count - 1]; }
    T &back() noexcept { return data()[_count - 1]; }

private:
    bool isInPlace() const noexcept { return _count <= usualCount; }

    std::array<T, usualCount> _few{};
    std::vector<T> _many; ///< all, where they are more
    std::size_t _count = 0;
};

/// Sorts a handful of values and leaves equal ones in their order. Needs no memory, as
/// `std::stable_sort` does.
template <class Iterator, class Less>
void sortFew(Iterator first, Iterator last, const Less &less)
{
    for (Iterator next = first; next != last; ++next)
        std::rotate(std::upper_bound(first, next, *next, less), next, std::next(next));
}

} // namespace zarn::engraving
