// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace zarn::io::native {

/// A value of a parsed JSON text. The values of a text lie one behind the other in the order in
/// which they stand there: an array in front of its elements, an object in front of its members,
/// each a text in front of its value. So reading walks forwards through memory.
class Json {
public:
    struct Member {
        std::string_view key;
        const Json &value;
    };

    /// Walks over the elements of an array, for range loops.
    class ElementIterator {
    public:
        explicit ElementIterator(const Json *at) noexcept : _at(at) { }
        const Json &operator*() const noexcept { return *_at; }
        ElementIterator &operator++() noexcept
        {
            _at = _at->behind();
            return *this;
        }
        bool operator!=(const ElementIterator &other) const noexcept { return _at != other._at; }

    private:
        const Json *_at;
    };

    /// The same over the members of an object.
    class MemberIterator {
    public:
        explicit MemberIterator(const Json *at) noexcept : _at(at) { }
        Member operator*() const noexcept { return {_at->text(), _at[1]}; }
        MemberIterator &operator++() noexcept
        {
            _at = _at[1].behind();
            return *this;
        }
        bool operator!=(const MemberIterator &other) const noexcept { return _at != other._at; }

    private:
        const Json *_at;
    };

    template <class Iterator>
    struct Range {
        Iterator first;
        Iterator last;
        Iterator begin() const noexcept { return first; }
        Iterator end() const noexcept { return last; }
    };

    bool isNull() const noexcept { return _kind == Kind::Null; }
    bool isBool() const noexcept { return _kind == Kind::Bool; }

    /// A number without fraction and exponent that fits in 64 bits with sign.
    bool isWhole() const noexcept { return _kind == Kind::Whole; }
    bool isNumber() const noexcept { return isWhole() || _kind == Kind::Real; }
    bool isText() const noexcept { return _kind == Kind::Text; }
    bool isArray() const noexcept { return _kind == Kind::Array; }
    bool isObject() const noexcept { return _kind == Kind::Object; }

    /// An array whose elements a `JsonStream` has taken.
    bool isStreamed() const noexcept { return _kind == Kind::Streamed; }

    /// The number that the stream gave a streamed array.
    std::size_t streamNumber() const noexcept { return static_cast<std::size_t>(_span); }

    // Each for values of its kind alone.

    bool boolean() const noexcept { return _whole != 0; }
    std::int64_t whole() const noexcept { return _whole; }

    /// The nearest double; infinite when that is too large.
    double number() const noexcept;

    /// UTF-8; lives as long as the parsed bytes.
    std::string_view text() const noexcept { return {_text, _size}; }

    /// Number of elements or members, of a streamed array too.
    std::uint32_t size() const noexcept { return _size; }
    Range<ElementIterator> elements() const noexcept
    {
        return {ElementIterator(this + 1), ElementIterator(behind())};
    }
    Range<MemberIterator> members() const noexcept
    {
        return {MemberIterator(this + 1), MemberIterator(behind())};
    }

    /// Of an object that is not empty; also while its end has not come.
    Member firstMember() const noexcept { return {this[1].text(), this[2]}; }

    /// The first member of a name; null when there is none.
    const Json *find(std::string_view key) const noexcept;

    /// What the value is, for messages: "an array", "the text "abc"", "17", "0.5".
    std::string description() const;

private:
    friend class JsonBuilder;
    enum class Kind : std::uint8_t { Null, Bool, Whole, Real, Text, Array, Object, Streamed };

    /// What stands behind this value with all that it holds.
    const Json *behind() const noexcept
    {
        return isArray() || isObject() ? this + _span : this + 1;
    }

    Kind _kind = Kind::Null;
    std::uint32_t _size = 0;
    union {
        std::int64_t _whole = 0;
        const char *_text;  ///< of a text, and of a number that is not whole
        std::int64_t _span; ///< number of values from this one to the last that it holds
    };
};

/// Takes the elements of long arrays while the text is parsed, so that they need not all be held
/// at once. May raise, which ends the parsing.
class JsonStream {
public:
    JsonStream() = default;
    JsonStream(const JsonStream &) = delete;
    JsonStream &operator=(const JsonStream &) = delete;
    virtual ~JsonStream();

    /// A JSON pointer, made when it is asked for.
    using Pointer = std::function<std::string()>;

    /// Whether to take the elements of an array that begins. It is the member `key` of an object
    /// that stands at `pointer`, the last of `depth` arrays and objects; `root` is the first of
    /// them, of which only the members before this one are known.
    virtual bool takesArray(std::string_view key, std::size_t depth, const Pointer &pointer,
                            const Json &root) = 0;

    /// One element; it is gone afterwards.
    virtual void takeElement(const Json &element, const Pointer &pointer) = 0;

    /// Returns the number by which the array is known afterwards.
    virtual std::size_t endArray() = 0;
};

/// Where and why a text is no JSON.
struct JsonError {
    std::size_t offset = 0;
    std::string reason; ///< empty when it is
};

/// Arrays and objects may be nested so deep.
constexpr std::size_t maximumJsonDepth = 64;

/// Parses a text without zero bytes from `start`, in place: the texts of the values stay there, and
/// what was written around them is overwritten. The first value is the root. Offsets of errors are
/// counted from `start`.
JsonError parseJson(std::string &text, std::size_t start, std::vector<Json> &values,
                    JsonStream &stream);

/// A text in quotes, shortened when it is long.
std::string quoted(std::string_view text);

} // namespace zarn::io::native
