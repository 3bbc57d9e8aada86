// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/utils/SignalBase.h>

#include <functional>
#include <memory>
#include <type_traits>
#include <typeinfo>
#include <utility>

namespace utils {

/// Delivers events of one type to the objects that are connected to it: synchronously, on the
/// thread that notifies, in ascending priority; connections of equal priority in the order in which
/// they were made.
///
/// A listener may notify, connect and disconnect, on this signal too, and it may throw. What is
/// connected or disconnected during an emission takes effect when the outermost emission ends: all
/// disconnections first, then the connections in the order in which they were asked for. So an
/// object that is disconnected in the middle of an emission may still be called by it; a listener
/// that dies there holds a `ScopedConnection` instead, which silences it at once.
///
/// A listener that throws keeps the event from nobody: those behind it are called, then the
/// exception reaches the notifier, the first one where several throw. Not thread-safe: one thread
/// at a time.
template <class E>
class Signal final : public SignalBase {
public:
    /// One connection's callable, whatever its type.
    class AbstractSlot : public ErasedSlot {
    public:
        virtual void call(const E &event) = 0;
        virtual const std::type_info &eventType() const noexcept = 0;
    };

    /// A listening object and what is called for it.
    template <class Object, class Callable>
    class Slot;

    Signal() noexcept : SignalBase(typeid(E), &deliver) { }

    /// Calls `callable(event)`, or a member function of `object`, for each event. The object is the
    /// identity to disconnect by; it is not owned and need not be connected only once, but a second
    /// connection is reported on the standard error stream. Raises nothing but what copying the
    /// callable raises.
    template <class Object, class Callable>
    void connect(Object *object, Callable &&callable, int priority = 0)
    {
        add(object, makeSlot(object, std::forward<Callable>(callable)), priority);
    }

    /// The same, for as long as the answer lives.
    template <class Object, class Callable>
    [[nodiscard]] ScopedConnection connectScoped(Object *object, Callable &&callable,
                                                 int priority = 0)
    {
        return addScoped(object, makeSlot(object, std::forward<Callable>(callable)), priority);
    }

    /// Delivers the event; nothing is delivered while the signal is blocked.
    void notify(const void *sender, const E &event)
    {
        if (connectionCount() > 0)
            emitEvent(sender, &event);
    }

private:
    static void deliver(ErasedSlot &slot, const void *event)
    {
        static_cast<AbstractSlot &>(slot).call(*static_cast<const E *>(event));
    }

    template <class Object, class Callable>
    static std::unique_ptr<ErasedSlot> makeSlot(Object *object, Callable &&callable)
    {
        using SlotType = Slot<Object, std::decay_t<Callable>>;
        return std::make_unique<SlotType>(object, std::forward<Callable>(callable));
    }
};

template <class E>
template <class Object, class Callable>
class Signal<E>::Slot final : public Signal<E>::AbstractSlot {
public:
    template <class C>
    Slot(Object *object, C &&callable) : _object(object), _callable(std::forward<C>(callable))
    {
    }

    void call(const E &event) override
    {
        if constexpr (std::is_invocable_v<Callable &, const E &>)
            std::invoke(_callable, event);
        else
            std::invoke(_callable, _object, event);
    }

    const std::type_info &eventType() const noexcept override { return typeid(E); }

private:
    Object *_object;
    Callable _callable;
};

} // namespace utils
