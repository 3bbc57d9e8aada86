// SPDX-License-Identifier: MIT
#pragma once

#include <atomic>
#include <memory>

namespace zarn {

/// A value that is made when it is asked for first, and kept until it is forgotten. Any number of
/// threads may ask at once; only one may forget, while nobody asks. A copy starts without a value.
template <class T>
class Lazy {
public:
    Lazy() noexcept = default;
    Lazy(const Lazy &) noexcept { }
    Lazy &operator=(const Lazy &) noexcept
    {
        forget();
        return *this;
    }
    ~Lazy() { forget(); }

    template <class Make>
    const T &get(Make make) const
    {
        if (const T *const value = _value.load(std::memory_order_acquire))
            return *value;
        auto made = std::make_unique<const T>(make());
        const T *first = nullptr;
        if (_value.compare_exchange_strong(first, made.get(), std::memory_order_acq_rel))
            return *made.release();
        return *first; // of a thread that was faster
    }

    void forget() noexcept
    {
        const std::unique_ptr<const T> old(_value.load(std::memory_order_relaxed));
        if (old)
            _value.store(nullptr, std::memory_order_relaxed);
    }

private:
    mutable std::atomic<const T *> _value = nullptr; // owned
};

} // namespace zarn
