// SPDX-License-Identifier: MIT
#include "CommandRows.h"

#include <gtest/gtest.h>

namespace {

using namespace rich;

/// Arguments that cannot be: each operation is refused, and leaves no trace.
TEST(RefusedCommandTest, leavesNoTrace)
{
    RichScore rich;
    for (const CommandRowsOfArea &area : commandAreas())
        area.expectRefused(rich);
    EXPECT_TRUE(rich.score.removeMasterReverb());
    EXPECT_FALSE(rich.score.removeMasterReverb());
}

} // namespace
