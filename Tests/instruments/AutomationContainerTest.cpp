// SPDX-License-Identifier: MIT
#include <ZarnCore/ZarnException.h>
#include <ZarnCore/instruments/automations/ZarnAutomationContainer.h>
#include <ZarnCore/instruments/automations/ZarnTempoAutomation.h>

#include <gtest/gtest.h>

#include <random>
#include <sstream>

namespace {

using namespace zarn;

constexpr auto tempo = Automation::Tempo;

std::unique_ptr<Automation> make(Automation::Type type, std::uint32_t index, float position,
                                 float value)
{
    auto automation = Automation::create(type);
    automation->setIndex(index);
    automation->setPosition(position);
    automation->setValue(value);
    return automation;
}

Automation *add(AutomationContainer &container, std::uint32_t index, float position, float value,
                Automation::Type type = tempo)
{
    auto automation = make(type, index, position, value);
    auto *inserted = automation.get();
    return container.insertAutomation(automation.release()) ? inserted : nullptr;
}

/// "bar:position=value" for each, and whether all invariants hold.
std::string dump(const AutomationContainer &container, Automation::Type type = tempo)
{
    std::ostringstream text;
    const Automation *last = nullptr;
    for (const auto *automation : container.automations(type)) {
        if (automation->parent() != &container || (last != nullptr && *automation < *last))
            text << "BROKEN ";
        text << automation->index() << ':' << automation->position() << '=' << automation->value()
             << ' ';
        last = automation;
    }
    return text.str();
}

TEST(AutomationContainer, insertionSortsReplacesAndLeavesOut)
{
    const int before = Automation::AutomationInstanceCount;
    {
        AutomationContainer container;
        EXPECT_FALSE(container.insertAutomation(nullptr));
        add(container, 4, 0, 100);
        auto *first = add(container, 0, 0, 120);
        add(container, 4, -0.0f, 90);
        add(container, 2, 1.5f, 80);
        EXPECT_EQ(dump(container), "0:0=120 2:1.5=80 4:0=90 ");
        EXPECT_EQ(add(container, 3, 0, 80), nullptr) << "it would change nothing";
        EXPECT_NE(add(container, 1, 0, 90), nullptr) << "only the one before counts";
        EXPECT_EQ(add(container, 0, 0, 130, Automation::DSPParam_00)->idType(), 1u);
        EXPECT_TRUE(container.insertAutomation(first)) << "it is there already";
        EXPECT_EQ(dump(container), "0:0=120 1:0=90 2:1.5=80 4:0=90 ");
        EXPECT_EQ(container.automationCount(), 5u);
        EXPECT_EQ(container.automationCount(tempo), 4u);
        EXPECT_TRUE(container.hasMoreThanOneAutomation(tempo));
        EXPECT_FALSE(container.hasMoreThanOneAutomation(Automation::DSPParam_00));
        EXPECT_FALSE(container.hasAutomations(Automation::Sound));

        auto linear = make(tempo, 5, 0, 90);
        linear->setLinear(true);
        EXPECT_TRUE(container.insertAutomation(linear.release())) << "sliding differs from steps";
        EXPECT_EQ(Automation::AutomationInstanceCount, before + 6);
    }
    EXPECT_EQ(Automation::AutomationInstanceCount, before);
}

TEST(AutomationContainer, lookUpsAtBetweenAndBeyond)
{
    AutomationContainer container;
    EXPECT_EQ(container.automation(tempo, 0, 0), nullptr);
    EXPECT_EQ(container.nextAutomation(tempo, 0, 0), nullptr);
    EXPECT_EQ(container.previousAutomation(tempo, 9, 9), nullptr);
    auto *a = add(container, 1, 0, 1);
    auto *b = add(container, 1, 0.5f, 2);
    auto *c = add(container, 3, 0, 3);
    EXPECT_EQ(container.automation(tempo, 1, 0.5f), b);
    EXPECT_EQ(container.automation(tempo, 1, 0.25f), nullptr);
    EXPECT_EQ(container.nextAutomation(tempo, 0, 0), a);
    EXPECT_EQ(container.nextAutomation(tempo, 1, 0), b);
    EXPECT_EQ(container.nextAutomation(tempo, 3, 0), nullptr);
    EXPECT_EQ(container.previousAutomation(tempo, 3, 0), b) << "not the one at the place";
    EXPECT_EQ(container.previousAutomation(tempo, 9, 0), c);
    EXPECT_EQ(container.previousAutomation(tempo, 1, 0), nullptr);
    EXPECT_EQ(a->nextAutomation(), b);
    EXPECT_EQ(c->previousAutomation(), b);
    EXPECT_EQ(Automation(tempo).nextAutomation(), nullptr);
    EXPECT_EQ(container.automations(tempo, 1, 2).size(), 2u);
    EXPECT_EQ(container.automations(tempo, 2, 0xFFFFFFFF).front(), c);
    EXPECT_TRUE(container.automations(tempo, 3, 1).empty());
}

TEST(AutomationContainer, movingKeepsTheOrderAndInsertingAgainReplaces)
{
    AutomationContainer container;
    auto *a = add(container, 0, 0, 1);
    auto *b = add(container, 2, 0, 2);
    add(container, 4, 0, 3);
    a->setIndex(4);
    EXPECT_EQ(dump(container), "2:0=2 4:0=3 4:0=1 ");
    EXPECT_TRUE(container.insertAutomation(a));
    EXPECT_EQ(dump(container), "2:0=2 4:0=1 ");
    b->setPosition(3);
    b->setIndex(7);
    EXPECT_TRUE(container.insertAutomation(b));
    EXPECT_EQ(dump(container), "4:0=1 7:3=2 ");
    EXPECT_EQ(container.automation(tempo, 7, 3), b);

    AutomationContainer other;
    add(other, 7, 3, 9);
    EXPECT_TRUE(other.insertAutomation(b));
    EXPECT_EQ(dump(container), "4:0=1 ");
    EXPECT_EQ(dump(other), "7:3=2 ");
    EXPECT_FALSE(container.eraseAutomation(b)) << "it is not this container's";

    const auto taken = other.takeAutomation(b);
    EXPECT_EQ(taken.get(), b);
    EXPECT_EQ(taken->parent(), nullptr);
    EXPECT_FALSE(other.hasAutomations());
}

TEST(AutomationContainer, restoringBringsBackWhatInsertingWouldLeaveOut)
{
    AutomationContainer container;
    add(container, 0, 0, 100);
    auto *middle = add(container, 2, 0, 140);
    auto *end = add(container, 4, 0, 100);
    container.eraseAutomation(middle);
    auto taken = container.takeAutomation(end);
    container.restoreAutomation(std::move(taken));
    EXPECT_EQ(container.automation(tempo, 4, 0), end);
}

TEST(AutomationContainer, erasingBarsKeepsTheStart)
{
    AutomationContainer container;
    add(container, 0, 0, 120);
    container.eraseBlocks(0, 3);
    EXPECT_EQ(dump(container), "0:0=120 ");

    add(container, 2, 1, 1);
    add(container, 3, 0, 2);
    add(container, 5, 0, 3);
    container.eraseBlocks(2, 3);
    EXPECT_EQ(dump(container), "0:0=120 3:0=3 ");
    container.eraseBlocks(0, 2);
    EXPECT_EQ(dump(container), "0:0=3 ") << "the next bar has a start of its own";

    container.clearAutomations(tempo);
    add(container, 1, 0, 5);
    add(container, 9, 0, 6);
    container.eraseBlocks(0, 3);
    EXPECT_EQ(dump(container), "0:0=5 5:0=6 ");
    container.clearAutomations();
    add(container, 8, 0, 7);
    container.eraseBlocks(0, 3);
    EXPECT_EQ(dump(container), "4:0=7 ") << "what lies behind the gap is no start";
    container.eraseBlocks(0, 0xFFFFFFFF);
    EXPECT_EQ(dump(container), "0:0=7 ");
    EXPECT_THROW(container.eraseBlocks(3, 2), CoreException);
}

TEST(AutomationContainer, insertingBarsMovesTheMusicButNotTheStart)
{
    AutomationContainer container;
    add(container, 0, 0, 1);
    add(container, 0, 2, 2);
    add(container, 3, 0, 3);
    container.insertBlocks(0, 2);
    EXPECT_EQ(dump(container), "0:0=1 2:2=2 5:0=3 ");
    container.insertBlocks(5, 1);
    EXPECT_EQ(dump(container), "0:0=1 2:2=2 6:0=3 ");
    EXPECT_THROW(container.insertBlocks(6, 0xFFFFFFFF), CoreException);
    container.insertBlocks(7, 0xFFFFFFFF);
    EXPECT_EQ(dump(container), "0:0=1 2:2=2 6:0=3 ");
}

TEST(AutomationContainer, copiesAreDeepAndKeepTheOriginalsApart)
{
    AutomationContainer original;
    add(original, 0, 0, 1);
    add(original, 2, 0, 2, Automation::DSPParam_31);
    original.bypassType(tempo, true);
    AutomationContainer copy(original);
    EXPECT_EQ(copy, original);
    EXPECT_EQ(dump(copy), "0:0=1 ");
    EXPECT_TRUE(copy.isTypeBypassed(tempo));
    copy.automation(tempo, 0, 0)->setValue(5);
    EXPECT_NE(copy, original);
    EXPECT_EQ(dump(original), "0:0=1 ");

    AutomationContainer other;
    other.copyAutomations(original);
    EXPECT_FALSE(other.isTypeBypassed(tempo));
    EXPECT_NE(other, original) << "bypassing counts";
    const auto &self = copy;
    copy = self;
    EXPECT_EQ(dump(copy), "0:0=5 ");
    copy.clearAutomationsIf([](const Automation &automation) { return automation.value() > 4; });
    EXPECT_EQ(copy.automationCount(), 1u);
    EXPECT_THROW(copy.clearAutomationsIf([](const Automation &) -> bool { throw 1; }), int);
    EXPECT_EQ(copy.automationCount(), 1u);
}

/// The same rules, one automation at a time on a plain list of tempo values.
class NaiveContainer {
public:
    struct Entry {
        std::uint32_t index;
        float position;
        float value;
    };

    void insert(const Entry &entry)
    {
        std::vector<Entry> before;
        std::vector<Entry> after;
        for (const auto &other : _entries) {
            if (std::tie(other.index, other.position) < std::tie(entry.index, entry.position))
                before.push_back(other);
            else if (other.index != entry.index || other.position != entry.position)
                after.push_back(other);
        }
        if (before.empty() || before.back().value != entry.value)
            before.push_back(entry);
        before.insert(before.end(), after.begin(), after.end());
        _entries = before;
    }

    void insertBlocks(std::uint32_t at, std::uint32_t count)
    {
        for (auto &entry : _entries) {
            if (entry.index >= at && !(at == 0 && entry.index == 0 && entry.position == 0))
                entry.index += count;
        }
    }

    void eraseBlocks(std::uint32_t from, std::uint32_t to)
    {
        bool hasNext = false;
        for (const auto &entry : _entries)
            hasNext = hasNext || (entry.index == to + 1 && entry.position == 0);
        std::vector<Entry> left;
        for (std::size_t i = 0; i < _entries.size(); ++i) {
            auto entry = _entries[i];
            const bool stays = i == 0 && from == 0 && entry.index <= to && entry.position <= 0;
            if (stays && !hasNext)
                entry.index = to + 1;
            if (entry.index >= from && entry.index <= to)
                continue;
            if (entry.index > to)
                entry.index -= to - from + 1;
            left.push_back(entry);
        }
        _entries = left;
    }

    std::string dump() const
    {
        std::ostringstream text;
        for (const auto &entry : _entries)
            text << entry.index << ':' << entry.position << '=' << entry.value << ' ';
        return text.str();
    }

private:
    std::vector<Entry> _entries;
};

TEST(AutomationContainer, behavesAsAPlainListUnderRandomEdits)
{
    std::mt19937 random(20);
    const auto below = [&random](unsigned limit) {
        return static_cast<std::uint32_t>(random() % limit);
    };
    for (int round = 0; round < 40; ++round) {
        AutomationContainer container;
        NaiveContainer naive;
        for (int step = 0; step < 200; ++step) {
            const auto bar = below(12);
            const auto count = 1 + below(3);
            switch (below(8)) {
            case 0:
                container.insertBlocks(bar, count);
                naive.insertBlocks(bar, count);
                break;
            case 1: {
                // There and back first: undo gives the very same automations.
                const auto before = dump(container);
                auto *front =
                    container.hasAutomations() ? container.automations(tempo)[0] : nullptr;
                container.restoreBlocks(container.eraseBlocks(bar, bar + count));
                ASSERT_EQ(dump(container), before);
                if (front != nullptr) {
                    ASSERT_EQ(container.automations(tempo)[0], front);
                }
                container.eraseBlocks(bar, bar + count);
                naive.eraseBlocks(bar, bar + count);
                break;
            }
            case 2: {
                const auto before = dump(container);
                container.insertBlocks(bar, count);
                container.eraseBlocks(bar, bar + count - 1);
                ASSERT_EQ(dump(container), before) << "erasing new bars undoes their insertion";
                break;
            }
            default: {
                const auto position = static_cast<float>(below(3)) / 2;
                const auto value = static_cast<float>(below(4));
                add(container, bar, position, value);
                naive.insert({bar, position, value});
            }
            }
            ASSERT_EQ(dump(container), naive.dump()) << "round " << round << " step " << step;
        }
    }
}

} // namespace
