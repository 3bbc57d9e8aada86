// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

namespace zarn {

/// Base of the marks of a kind of node as a value of eight bytes, which a node holds as a number:
/// `class Marks final : public PackedMarks<Marks, MarkAccessors>`.
template <class Marks, template <class> class Accessors>
class PackedMarks : public Accessors<Marks> {
public:
    /// Nothing is at other than its default.
    constexpr bool isPlain() const noexcept { return _marks == 0; }

    friend constexpr bool operator==(const Marks &left, const Marks &right) noexcept
    {
        return left._marks == right._marks;
    }
    friend constexpr bool operator!=(const Marks &left, const Marks &right) noexcept
    {
        return !(left == right);
    }

protected:
    constexpr PackedMarks() noexcept = default;
    constexpr explicit PackedMarks(std::uint64_t marks) noexcept : _marks(marks) { }
    ~PackedMarks() = default;

    std::uint64_t _marks = 0;

private:
    friend Accessors<Marks>;
};

} // namespace zarn
