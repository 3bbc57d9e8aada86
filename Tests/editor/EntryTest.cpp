// SPDX-License-Identifier: MIT
#include "editor/EditorDriver.h"

#include <gtest/gtest.h>

namespace {

using namespace zarn;
using test::EditorDriver;

TEST(EntryTest, digitsWriteFretsAndTwoOfThemOne)
{
    EditorDriver driver;
    const std::string before = driver.text();
    driver.type(QStringLiteral("3 Right 1 2 Right Down 0 Right"));
    EXPECT_EQ(driver.bars(0, 0), "1.3q 1.12q 2.0q");
    // Two digits are one step.
    driver.type(QStringLiteral("Ctrl+Z Ctrl+Z"));
    EXPECT_EQ(driver.bars(0, 0), "1.3q");
    driver.type(QStringLiteral("Ctrl+Shift+Z Ctrl+Shift+Z"));
    EXPECT_EQ(driver.bars(0, 0), "1.3q 1.12q 2.0q");
    driver.type(QStringLiteral("Ctrl+Z Ctrl+Z Ctrl+Z"));
    EXPECT_EQ(driver.text(), before);
    EXPECT_FALSE(driver.document().isModified());
}

TEST(EntryTest, rhythmsHoldForWhatComesNext)
{
    EditorDriver driver;
    driver.type(QStringLiteral("+ 5 Right 7 Right . 8 Right + 5 Right R Right / 3"));
    EXPECT_EQ(driver.bars(0, 0), "1.5e 1.7e 1.8e. 1.5s. rs. 1.3s./3");
    driver.type(QStringLiteral("Home -"));
    EXPECT_EQ(driver.bars(0, 0).substr(0, 5), "1.5q ");
}

TEST(EntryTest, goingOnBehindTheLastBarAddsOne)
{
    EditorDriver driver;
    const unsigned bars = driver.model().masterTrack()->masterBarCount();
    driver.type(QStringLiteral("Ctrl+End Ctrl+Alt+1 2 Right 3"));
    EXPECT_EQ(driver.model().masterTrack()->masterBarCount(), bars + 1);
    EXPECT_EQ(driver.bars(bars - 1, bars), "1.2w | 1.3w");
}

TEST(EntryTest, copiedBeatsArePasted)
{
    EditorDriver driver;
    driver.type(QStringLiteral("+ 5 Right 7 Right 8 Shift+Left Shift+Left Ctrl+C Ctrl+Right"));
    driver.type(QStringLiteral("Ctrl+V"));
    EXPECT_EQ(driver.bars(0, 1), "1.5e 1.7e 1.8e | 1.5e 1.7e 1.8e");
    driver.type(QStringLiteral("Ctrl+Z"));
    EXPECT_EQ(driver.bars(0, 1), "1.5e 1.7e 1.8e | ");
}

TEST(EntryTest, aClickPutsTheCursorOnItsNote)
{
    EditorDriver driver(QStringLiteral(ZARN_SOURCE_DIR "/Samples/romance-guitar-study.musicxml"));
    const auto &score = driver.document().score();
    ScoreModelIndex place(score.scoreModel().get(), 0, 2, 4, 0, 0);
    place.setNoteString(static_cast<std::uint32_t>(place.beat()->note(0)->string()));
    QTest::mouseClick(driver.view().viewport(), Qt::LeftButton, Qt::NoModifier,
                      driver.pointOf(place));
    EXPECT_EQ(driver.document().cursor(), place);
    driver.type(QStringLiteral("7"));
    EXPECT_EQ(place.note()->fret(), 7);
    ScoreModelIndex end = place;
    end.setBeatIndex(6);
    QTest::mouseClick(driver.view().viewport(), Qt::LeftButton, Qt::ShiftModifier,
                      driver.pointOf(end));
    EXPECT_EQ(driver.document().selection().beats(score).beatCount(), 3u);
}

} // namespace
