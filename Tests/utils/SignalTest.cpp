// SPDX-License-Identifier: MIT
#include <ZarnCore/ZarnException.h>
#include <ZarnCore/utils/SignalContainer.h>

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

struct Ping {
    static constexpr std::uint32_t TypeNumber = 3;
    int value = 0;
};

struct Twin {
    static constexpr std::uint32_t TypeNumber = 3;
};

struct Pong {
    static constexpr std::uint32_t TypeNumber = 5;
};

using utils::ScopedConnection;
using utils::Signal;

/// A signal, three objects to connect, and what was called in which order.
struct SignalTest : testing::Test {
    Signal<Ping> signal;
    std::string calls;
    int a = 0;
    int b = 0;
    int c = 0;

    void connect(int &object, char name, int priority = 0)
    {
        signal.connect(
            &object, [this, name](const Ping &) { calls += name; }, priority);
    }

    std::string emission()
    {
        calls.clear();
        signal.notify(this, Ping());
        return calls;
    }
};

TEST_F(SignalTest, deliversByPriorityThenInOrderOfConnection)
{
    connect(a, 'a', 5);
    connect(b, 'b', -1);
    connect(c, 'c', 5);
    connect(a, 'A', -1);
    connect(b, 'B', 5);
    EXPECT_EQ(emission(), "bAacB");
    signal.disconnect(&a);
    EXPECT_EQ(emission(), "bcB");
    signal.disconnect(this);
    EXPECT_EQ(emission(), "bcB");
}

TEST_F(SignalTest, secondConnectionOfAnObjectWarnsOnceAndIsDeliveredTwice)
{
    testing::internal::CaptureStderr();
    connect(a, 'a');
    connect(b, 'b');
    connect(a, 'A');
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "[WARNING] Object allreacty connected to score\n");
    EXPECT_EQ(emission(), "abA");
    signal.disconnect(&a);
    EXPECT_EQ(emission(), "b");
}

TEST_F(SignalTest, acceptsMemberFunctions)
{
    struct Listener {
        int sum = 0;
        void take(const Ping &ping) { sum += ping.value; }
    } listener;
    signal.connect(&listener, &Listener::take);
    signal.notify(nullptr, Ping{7});
    EXPECT_EQ(listener.sum, 7);
}

TEST_F(SignalTest, requestsOfAnEmissionWaitForItsEndDisconnectionsFirst)
{
    signal.connect(&a, [this](const Ping &) {
        calls += 'a';
        connect(c, 'c');
        signal.disconnect(&b); // called below all the same
        signal.disconnect(&c); // comes before the connection above when both are applied
        connect(b, 'B', -1);
        connect(b, 'D', -1);
    });
    connect(b, 'b');
    testing::internal::CaptureStderr();
    EXPECT_EQ(emission(), "ab");
    EXPECT_EQ(signal.connectionCount(), 4u);
    signal.disconnect(&a);
    EXPECT_EQ(emission(), "BDc");
    EXPECT_NE(testing::internal::GetCapturedStderr(), "");
}

TEST_F(SignalTest, nestedEmissionKeepsTheOuterOneSafe)
{
    std::vector<const void *> senders;
    signal.connect(&a, [&](const Ping &ping) {
        calls += 'a';
        senders.push_back(signal.currentSender());
        if (ping.value == 0) {
            connect(c, 'c', -5);
            signal.disconnect(&b);
            signal.notify(&b, Ping{1});
            EXPECT_TRUE(signal.isEmitting());
            senders.push_back(signal.currentSender());
        }
    });
    connect(b, 'b');
    EXPECT_EQ(emission(), "aabb") << "the inner end must not apply the requests";
    EXPECT_EQ(senders, (std::vector<const void *>{this, &b, this}));
    EXPECT_EQ(signal.currentSender(), nullptr);
    EXPECT_FALSE(signal.isEmitting());
    calls.clear();
    signal.notify(&c, Ping{1});
    EXPECT_EQ(calls, "ca");
}

TEST_F(SignalTest, throwingSlotLeavesTheSignalUsable)
{
    connect(a, 'a');
    signal.connect(&b, [this](const Ping &) {
        connect(c, 'c');
        signal.disconnect(&b);
        throw std::runtime_error("slot");
    });
    EXPECT_THROW(emission(), std::runtime_error);
    EXPECT_FALSE(signal.isEmitting());
    EXPECT_EQ(signal.currentSender(), nullptr);
    EXPECT_EQ(emission(), "ac");
}

/// A view does not miss what happens because another one fails.
TEST_F(SignalTest, throwingSlotKeepsTheEventFromNobody)
{
    connect(a, 'a');
    for (const char *reason : {"first", "second"}) {
        signal.connect(&b, [reason](const Ping &) { throw std::runtime_error(reason); });
        connect(c, 'c');
    }
    try {
        emission();
        ADD_FAILURE() << "nothing reached the notifier";
    } catch (const std::runtime_error &failure) {
        EXPECT_STREQ(failure.what(), "first");
    }
    EXPECT_EQ(calls, "acc");
}

TEST_F(SignalTest, blockedSignalDeliversNothingAndStillConnects)
{
    connect(a, 'a');
    signal.setBlocked(true);
    EXPECT_EQ(emission(), "");
    EXPECT_FALSE(signal.isEmitting());
    connect(b, 'b');
    signal.setBlocked(false);
    EXPECT_EQ(emission(), "ab");
}

TEST_F(SignalTest, scopedConnectionSilencesAtOnce)
{
    std::optional<ScopedConnection> later;
    std::optional<ScopedConnection> own;
    std::optional<ScopedConnection> pending;
    const auto witness = std::make_shared<int>(0);
    own = signal.connectScoped(&a, [&, witness](const Ping &) {
        calls += 'a';
        pending = signal.connectScoped(&c, [&](const Ping &) { calls += 'c'; });
        pending.reset();
        later.reset();
        own.reset(); // its own callable is running
        EXPECT_EQ(*witness, 0);
    });
    later = signal.connectScoped(&b, [&](const Ping &) { calls += 'b'; });
    EXPECT_TRUE(later->isConnected());
    EXPECT_EQ(emission(), "a");
    EXPECT_EQ(witness.use_count(), 1) << "the callable must go with its connection";
    EXPECT_EQ(emission(), "");
    EXPECT_EQ(signal.connectionCount(), 0u);
}

TEST_F(SignalTest, scopedConnectionMayOutliveTheSignalAndMoves)
{
    ScopedConnection connection;
    {
        Signal<Ping> shortLived;
        connection = shortLived.connectScoped(&a, [&](const Ping &) { calls += 'x'; });
        ScopedConnection moved = std::move(connection);
        EXPECT_FALSE(connection.isConnected());
        shortLived.notify(this, Ping());
        connection = std::move(moved);
    }
    EXPECT_EQ(calls, "x");
    EXPECT_FALSE(connection.isConnected());
}

TEST_F(SignalTest, callableThatDisconnectsOthersWhileItDiesIsSafe)
{
    // Each callable owns the connection of the next one: a chain that falls in one sweep.
    struct Owner {
        ScopedConnection next;
    };
    auto tail = std::make_shared<Owner>();
    for (int i = 0; i < 20; ++i) {
        auto owner = std::make_shared<Owner>();
        owner->next = signal.connectScoped(
            &a, [tail](const Ping &) {}, i % 3);
        tail = std::move(owner);
    }
    connect(b, 'b');
    EXPECT_EQ(signal.connectionCount(), 21u);
    tail.reset();
    EXPECT_EQ(signal.connectionCount(), 1u);
    EXPECT_EQ(emission(), "b");
}

/// What a callable owns dies with the signal, and may ask for things then.
struct Owner {
    explicit Owner(std::function<void()> end) : atEnd(std::move(end)) { }
    ~Owner() { atEnd(); }
    std::function<void()> atEnd;
};

TEST(SignalLifeTest, aScopeThatIsDisconnectedByItsObjectKnowsThatTheSignalIsGone)
{
    ScopedConnection emitted;
    ScopedConnection kept;
    ScopedConnection reused;
    int object = 0;
    int other = 0;
    {
        Signal<Ping> signal;
        kept = signal.connectScoped(&object, [](const Ping &) {});
        reused = signal.connectScoped(&other, [](const Ping &) {});
        emitted = signal.connectScoped(&other, [&](const Ping &) { signal.disconnect(&other); });
        signal.disconnect(&object);
        EXPECT_FALSE(kept.isConnected());
        EXPECT_TRUE(reused.isConnected());
        signal.notify(nullptr, Ping());
        EXPECT_FALSE(emitted.isConnected());
        EXPECT_FALSE(reused.isConnected());
        reused = signal.connectScoped(&object, [](const Ping &) {});
        EXPECT_EQ(signal.connectionCount(), 1u);
    }
    EXPECT_FALSE(reused.isConnected());
}

TEST(SignalLifeTest, callablesThatDieWithTheSignalMayAskItForAnything)
{
    int object = 0;
    int listeners[20] = {};
    int deaths = 0;
    ScopedConnection late;
    ScopedConnection later;
    {
        utils::SignalContainer<8> container;
        auto &signal = container.signal<Ping>();
        auto self = std::make_shared<ScopedConnection>();
        const auto other = std::make_shared<ScopedConnection>();
        const auto owner = std::make_shared<Owner>([&, other] {
            ++deaths;
            container.signal<Ping>().disconnect(&object);
            other->reset();
            container.signal<Pong>().disconnect(&object);
            late = container.signal<Ping>().connectScoped(&object, [](const Ping &) {});
            later = container.signal<Pong>().connectScoped(&object, [](const Pong &) {});
            container.notify(nullptr, Ping());
        });
        *other = signal.connectScoped(other.get(), [](const Ping &) {});
        signal.connect(owner.get(), [owner](const Ping &) {});
        *self = signal.connectScoped(self.get(), [self](const Ping &) {});
        for (int &listener : listeners)
            signal.connect(&listener, [](const Ping &) {});
    }
    EXPECT_EQ(deaths, 1);
    EXPECT_FALSE(late.isConnected());
    EXPECT_FALSE(later.isConnected());
}

TEST(SignalContainer, createsSignalsLazilyAndRefusesASharedNumber)
{
    utils::SignalContainer<8> container;
    int calls = 0;
    EXPECT_EQ(container.find<Ping>(), nullptr);
    container.notify(nullptr, Ping());
    EXPECT_EQ(container.find<Ping>(), nullptr);
    container.signal<Ping>().connect(&calls, [&](const Ping &) { ++calls; });
    container.notify(nullptr, Ping());
    EXPECT_EQ(calls, 1);
    EXPECT_THROW(container.signal<Twin>(), zarn::CoreException);
}

TEST(SignalContainer, listenerKindsShareOnePriorityTable)
{
    auto &priorities = utils::SignalContainerBase::priorityMap();
    EXPECT_EQ(utils::SignalContainer<149>::priorityOf(77), 0);
    EXPECT_EQ(priorities.count(77), 0u) << "asking must not add a kind";
    priorities[77] = -3;
    EXPECT_EQ(utils::SignalContainer<8>::priorityOf(77), -3);
    priorities.erase(77);
}

} // namespace
