// SPDX-License-Identifier: MIT
#include <ZarnCore/model/ZarnRunList.h>

#include <gtest/gtest.h>

#include <cstdint>
#include <random>
#include <vector>

using zarn::RunList;

namespace {

using Values = std::vector<std::uint64_t>;

void expectReads(const RunList<std::uint64_t> &list, RunList<std::uint64_t>::Cursor from,
                 const Values &values)
{
    ASSERT_EQ(list.size(), values.size());
    while (from.number() < values.size()) {
        const std::size_t number = from.number();
        ASSERT_EQ(from.next(list), values[number]) << "value " << number;
    }
}

} // namespace

TEST(RunListTest, valuesComeBackHoweverManyDifferAndWheneverItIsShrunk)
{
    std::mt19937 random(4);
    for (int round = 0; round < 500; ++round) {
        const unsigned kinds = round % 3 == 0 ? 100'000 : 1 + random() % 100;
        RunList<std::uint64_t> list;
        Values values;
        for (int part = 0; part < 3; ++part) {
            const auto behind = list.end();
            for (unsigned left = random() % 150; left > 0; --left) {
                values.push_back(random() % kinds);
                list.add(values.back());
            }
            expectReads(list, behind, values);
            list.shrink();
            expectReads(list, {}, values);
        }
        list.clear();
        EXPECT_TRUE(list.isEmpty());
    }
}
