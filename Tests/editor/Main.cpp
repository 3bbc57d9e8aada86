// SPDX-License-Identifier: MIT
#include "EditorHome.h"

#include <gtest/gtest.h>

int main(int argc, char **argv)
{
    const test::EditorHome home(argc, argv);
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
