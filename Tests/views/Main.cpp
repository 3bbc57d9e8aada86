// SPDX-License-Identifier: MIT
#include <QApplication>

#include <gtest/gtest.h>

/// Views need an application, but no display.
int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
