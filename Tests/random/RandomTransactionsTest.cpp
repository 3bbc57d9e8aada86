// SPDX-License-Identifier: MIT
#include "support/NativeDocument.h"
#include "support/RandomOperations.h"
#include "support/SmallScore.h"

#include <ZarnCore/commands/ZarnTransaction.h>
#include <ZarnCore/events/ZarnEvents.h>
#include <ZarnCore/model/ZarnModelCheck.h>

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <vector>

namespace {

using namespace zarn;

/// Operations by chance in transactions and macros, inside of each other; some are abandoned, some
/// fail on the way, and now and then a listener throws. What does not stay leaves no trace.
class TransactionRun {
public:
    TransactionRun(Score &score, std::uint64_t seed)
        : _score(score), _random(seed), _edited(score, _random)
    {
        failAt<evt::ModifyBarRange, evt::AddBars, evt::RemoveBars, evt::AutomationChanged,
               evt::BeginMacro, evt::EndMacro, evt::CommandPushed>();
    }

    unsigned committed = 0;
    unsigned abandoned = 0;
    unsigned raised = 0;

    std::string document() const { return test::writeNative(*_score.scoreModel()); }

    /// A transaction: one step more, or nothing.
    void step()
    {
        const std::string before = document();
        const unsigned count = _score.commandStack().undoCount();
        _isFailing = _random.percent(20);
        try {
            transaction(1);
        } catch (const std::exception &) {
            ++raised;
        }
        _isFailing = false;
        ASSERT_FALSE(_score.commandStack().isTransactionOpen());
        ASSERT_EQ(checkModel(*_score.scoreModel()), std::vector<std::string>());
        if (_score.commandStack().undoCount() == count)
            ASSERT_EQ(document(), before);
        else
            documents.push_back(before);
    }

    std::vector<std::string> documents; ///< before each step

private:
    template <class... Events>
    void failAt()
    {
        (_score.connect<Events>(this, [this](const Events &) { fail(); }), ...);
    }

    void fail()
    {
        if (_isFailing && _random.percent(10)) {
            _isFailing = false;
            throw std::runtime_error("a listener fails");
        }
    }

    void operate()
    {
        const auto &operations = randomOperations();
        operations[_random.below(operations.size())].act(_edited);
    }

    /// What raises in it is borne, or ends it.
    void transaction(unsigned depth)
    {
        Transaction transaction(&_score, QStringLiteral("random"));
        const bool bears = _random.coin();
        for (unsigned left = _random.below(6); left > 0; --left) {
            const std::string before = document();
            try {
                if (depth < 3 && _random.percent(20))
                    _random.coin() ? this->transaction(depth + 1) : macro();
                else
                    operate();
            } catch (const std::exception &) {
                ++raised;
                EXPECT_EQ(document(), before) << "what raised has left a trace";
                if (!bears)
                    throw;
            }
        }
        if (_random.percent(70)) {
            transaction.commit();
            ++committed;
        } else {
            ++abandoned;
        }
    }

    void macro()
    {
        _score.commandStack().beginMacroCommand();
        for (unsigned left = _random.below(4); left > 0; --left)
            operate();
        _score.commandStack().endMacroCommand(_random.percent(80));
    }

    Score &_score;
    Random _random;
    EditedScore _edited;
    bool _isFailing = false;
};

TEST(RandomTransactionsTest, leaveOneStepOrNoTrace)
{
    unsigned committed = 0;
    unsigned abandoned = 0;
    unsigned raised = 0;
    for (std::uint64_t seed = 1; seed <= 6; ++seed) {
        SCOPED_TRACE(seed);
        SmallScore small;
        CommandStack &stack = small.score.commandStack();
        stack.setMaximumUndo(1000);
        TransactionRun run(small.score, seed);
        for (int i = 0; i < 120 && !testing::Test::HasFailure(); ++i)
            run.step();
        const std::string after = run.document();
        for (auto before = run.documents.rbegin(); before != run.documents.rend(); ++before) {
            stack.undo();
            ASSERT_EQ(run.document(), *before);
        }
        EXPECT_TRUE(stack.isClean());
        for (std::size_t i = 0; i < run.documents.size(); ++i)
            stack.redo();
        ASSERT_EQ(run.document(), after);
        committed += run.committed;
        abandoned += run.abandoned;
        raised += run.raised;
    }
    EXPECT_GT(committed, 200u);
    EXPECT_GT(abandoned, 50u);
    EXPECT_GT(raised, 50u);
}

} // namespace
