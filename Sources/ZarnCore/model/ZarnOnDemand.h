// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <utility>

namespace zarn {

/// A value that most nodes leave at its default: one pointer, and memory only once it differs.
template <class T>
class OnDemand {
public:
    OnDemand() noexcept = default;
    OnDemand(const OnDemand &other)
        : _value(other._value ? std::make_unique<T>(*other._value) : nullptr)
    {
    }
    OnDemand &operator=(const OnDemand &other)
    {
        if (this != &other)
            _value = other._value ? std::make_unique<T>(*other._value) : nullptr;
        return *this;
    }
    ~OnDemand() = default;

    const T &get() const noexcept { return _value ? *_value : defaultValue(); }

    /// Whether it has memory of its own: never while it is at its default.
    bool isHeld() const noexcept { return _value != nullptr; }

    void set(T value)
    {
        if (value == defaultValue())
            _value.reset();
        else if (_value)
            *_value = std::move(value);
        else
            _value = std::make_unique<T>(std::move(value));
    }

    /// Has `change(T &)` change the value in place.
    template <class Change>
    void change(Change change)
    {
        if (!_value) {
            T value{};
            change(value);
            set(std::move(value));
            return;
        }
        change(*_value);
        if (*_value == defaultValue())
            _value.reset();
    }

    friend bool operator==(const OnDemand &left, const OnDemand &right)
    {
        return (!left._value && !right._value) || left.get() == right.get();
    }

private:
    static const T &defaultValue() noexcept
    {
        static const T value = {};
        return value;
    }

    std::unique_ptr<T> _value;
};

} // namespace zarn
