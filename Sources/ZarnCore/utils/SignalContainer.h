// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/utils/Signal.h>

#include <array>
#include <cstddef>
#include <map>
#include <memory>

namespace utils {

/// What signal containers of all sizes have in common.
class ZARNCORE_EXPORT SignalContainerBase {
public:
    /// The priorities of the listener kinds, shared by every container of the process. The key is a
    /// number that the application gives to a kind of listener (its player, its views, its
    /// plug-ins); lower priorities are served first. Fill it at start-up: it is not locked.
    static std::map<unsigned, int> &priorityMap();

    /// The priority of a listener kind, to connect with; 0 for a kind that has no entry.
    static int priorityOf(unsigned listenerKind);

protected:
    SignalContainerBase() = default;
    ~SignalContainerBase() = default;
    [[noreturn]] static void raiseSharedNumber(std::size_t number);
};

/// One signal per event type, found by `E::TypeNumber`, each created by the first connection.
/// Not thread-safe: one thread at a time.
template <std::size_t Count>
class SignalContainer : public SignalContainerBase {
public:
    static constexpr std::size_t size() noexcept { return Count; }

    SignalContainer() = default;
    ~SignalContainer() { close(); }
    SignalContainer(const SignalContainer &) = delete;
    SignalContainer &operator=(const SignalContainer &) = delete;

    /// Ends all connections, and makes none any more; see `SignalBase::close`.
    void close() noexcept
    {
        _isClosed = true;
        for (const auto &signal : _signals) {
            if (signal != nullptr)
                signal->close();
        }
    }

    /// The signal of an event type, created now if there is none yet. Raises when another event
    /// type has the same number.
    template <class E>
    Signal<E> &signal()
    {
        static_assert(E::TypeNumber < Count, "the event's number is too large for the table");
        auto &entry = _signals[E::TypeNumber];
        if (entry == nullptr) {
            entry = std::make_unique<Signal<E>>();
            if (_isClosed)
                entry->close();
        } else if (entry->eventType() != typeid(E)) {
            raiseSharedNumber(E::TypeNumber);
        }
        return static_cast<Signal<E> &>(*entry);
    }

    /// The signal of an event type, or null while nobody has connected to it.
    template <class E>
    Signal<E> *find() const noexcept
    {
        static_assert(E::TypeNumber < Count, "the event's number is too large for the table");
        return static_cast<Signal<E> *>(_signals[E::TypeNumber].get());
    }

    template <class E>
    void notify(const void *sender, const E &event) const
    {
        if (Signal<E> *const signal = find<E>())
            signal->notify(sender, event);
    }

private:
    std::array<std::unique_ptr<SignalBase>, Count> _signals;
    bool _isClosed = false;
};

} // namespace utils
