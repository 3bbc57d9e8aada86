// SPDX-License-Identifier: MIT
#include "actions/ActionSet.h"
#include "editor/EditorDriver.h"

#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/model/attributes/ZarnBend.h>

#include <QAction>
#include <QLineEdit>
#include <QScrollBar>

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

TEST(EntryTest, whatIsPastedAgainGoesBehind)
{
    EditorDriver driver;
    driver.type(QStringLiteral("+ 5 Right 7 Shift+Left Ctrl+C Right Right Ctrl+V Ctrl+V Ctrl+V"));
    EXPECT_EQ(driver.bars(0, 0), "1.5e 1.7e 1.5e 1.7e 1.5e 1.7e 1.5e 1.7e");
    driver.type(QStringLiteral("Ctrl+Home Ctrl+B Ctrl+C Ctrl+Right Ctrl+V Ctrl+V"));
    EXPECT_EQ(driver.bars(2, 2), driver.bars(0, 0));
    driver.answers().numbers = {3};
    ASSERT_TRUE(driver.trigger(QStringLiteral("edit.pasteTimes")));
    EXPECT_EQ(driver.bars(5, 5), driver.bars(0, 0));
    EXPECT_EQ(driver.document().cursor().barIndex(), 6);
}

TEST(EntryTest, whoWritesFromLeftToRightLinksBeforeTheNextNoteIsThere)
{
    EditorDriver driver;
    driver.type(QStringLiteral("+ 5 H Right 1 2 S Right 9 Right 7 S Right Down 7 Right X"));
    const auto &beats = driver.model().track(0)->bar(0)->voice(0)->beats();
    ASSERT_EQ(beats.size(), 6u);
    EXPECT_TRUE(beats[0]->note(0)->isHopo());
    EXPECT_EQ(beats[1]->note(0)->fret(), 12);
    EXPECT_EQ(beats[1]->note(0)->slideOut(), SlideOut::Shift);
    EXPECT_EQ(beats[3]->note(0)->slideOut(), SlideOut::None)
        << "the next note is on another string";
    EXPECT_TRUE(beats[5]->note(0)->isDead());
    driver.type(QStringLiteral("Ctrl+Z Ctrl+Z Ctrl+Z Ctrl+Z Ctrl+Z"));
    EXPECT_EQ(driver.bars(0, 0), "1.5e") << "a link is undone with its note";
    EXPECT_FALSE(driver.model().track(0)->bar(0)->voice(0)->beat(0)->note(0)->isHopo());
}

TEST(EntryTest, theCursorShowsWhatIsUndoneAndRedone)
{
    EditorDriver driver;
    driver.type(QStringLiteral("5 Ctrl+Right 7 Ctrl+Right Down 8 Ctrl+Home Ctrl+Z Ctrl+Z"));
    EXPECT_EQ(driver.document().cursor().barIndex(), 1);
    driver.type(QStringLiteral("Ctrl+Home Ctrl+Shift+Z"));
    EXPECT_EQ(driver.document().cursor().barIndex(), 1);
    driver.type(QStringLiteral("Ctrl+Shift+Z"));
    EXPECT_EQ(driver.document().cursor().barIndex(), 2);
    EXPECT_EQ(driver.document().cursor().noteString(), 4u);
}

TEST(EntryTest, playingDoesNotMoveWhatIsSeenAlready)
{
    EditorDriver driver;
    driver.type(QStringLiteral("5 Ctrl+Home"));
    const QScrollBar &bar = *driver.view().verticalScrollBar();
    const int before = bar.value();
    driver.view().showPlayback(std::pair<std::int32_t, utils::rational>(0, utils::rational(1)));
    EXPECT_EQ(bar.value(), before);
}

TEST(EntryTest, whatStandsAboveTheStaffOfTheCursorIsSeenToo)
{
    EditorDriver driver(QStringLiteral(ZARN_SOURCE_DIR "/Samples/saints-band.musicxml"));
    const QScrollBar &bar = *driver.view().verticalScrollBar();
    driver.type(QStringLiteral("Ctrl+End"));
    EXPECT_GT(bar.value(), 0);
    driver.type(QStringLiteral("Ctrl+Home"));
    EXPECT_EQ(bar.value(), 0) << "the title and the tempo";
}

TEST(EntryTest, aLineFollowsWhatSoundsUntilTheUserScrolls)
{
    EditorDriver driver(QStringLiteral(ZARN_SOURCE_DIR "/Samples/saints-band.musicxml"));
    ASSERT_TRUE(driver.trigger(QStringLiteral("view.singleLine")));
    const auto play = [&driver](int bar) {
        driver.view().showPlayback(
            std::pair<std::int32_t, utils::rational>(bar, utils::rational(1)));
    };
    QScrollBar &line = *driver.view().horizontalScrollBar();
    play(0);
    EXPECT_EQ(line.value(), 0);
    const int last = static_cast<int>(driver.model().masterTrack()->masterBarCount()) - 1;
    play(last / 2);
    const int half = line.value();
    EXPECT_GT(half, 0);
    line.setValue(0);
    play(last);
    EXPECT_EQ(line.value(), 0) << "the user looks at something else";
    line.setValue(half);
    play(last / 2);
    play(last);
    EXPECT_GT(line.value(), half) << "it was seen again";
}

TEST(EntryTest, theStaffThatWasChosenComesBackBehindTracksWithoutIt)
{
    EditorDriver driver;
    const auto kind = [&driver] { return driver.document().entry().staffKind; };
    driver.answers().choice = 128; // the drum kit
    ASSERT_TRUE(driver.trigger(QStringLiteral("track.add")));
    EXPECT_EQ(kind(), layout::StaffKind::Percussion);
    driver.type(QStringLiteral("Ctrl+Up"));
    EXPECT_EQ(kind(), layout::StaffKind::Tablature);
    driver.type(QStringLiteral("Ctrl+Tab Ctrl+Down Ctrl+Up"));
    EXPECT_EQ(kind(), layout::StaffKind::Notation);
}

TEST(EntryTest, chordsAreWrittenFromTheKeyboard)
{
    EditorDriver driver;
    driver.type(QStringLiteral("0 K"));
    auto *const symbol = qobject_cast<QLineEdit *>(driver.window().focusWidget());
    ASSERT_NE(symbol, nullptr);
    QTest::keyClicks(symbol, QStringLiteral("Am"));
    QTest::keyClick(symbol, Qt::Key_Return);
    driver.settle();
    EXPECT_EQ(driver.document().cursor().beat()->chord().symbol, "Am");
    EXPECT_TRUE(driver.view().hasFocus()) << "the next key writes music";
}

TEST(EntryTest, whatIsCopiedGoesIntoAnotherDocument)
{
    EditorDriver driver;
    driver.type(QStringLiteral("+ 5 Right 7 Shift+Left Ctrl+C"));
    auto *const other = driver.editor().showNew();
    driver.settle();
    other->actions().find(QStringLiteral("edit.paste"))->trigger();
    driver.settle();
    const auto voice = other->document().model().track(0)->bar(0)->voice(0);
    ASSERT_EQ(voice->beatCount(), 2u);
    EXPECT_EQ(voice->beat(1)->note(0)->fret(), 7);
    EXPECT_EQ(driver.bars(0, 0), "1.5e 1.7e");
}

TEST(EntryTest, aBarIsFilledWithRests)
{
    EditorDriver driver;
    driver.type(QStringLiteral("5 Right 7 Ctrl+R"));
    EXPECT_EQ(driver.bars(0, 0), "1.5q 1.7q rh");
    EXPECT_EQ(driver.document().undoTitle(), QStringLiteral("Fill with rests"));
}

TEST(EntryTest, aNoteValueComesWithoutDots)
{
    EditorDriver driver;
    driver.type(QStringLiteral(". 5 Ctrl+Alt+2"));
    EXPECT_EQ(driver.bars(0, 0), "1.5h");
    driver.type(QStringLiteral("Right 7"));
    EXPECT_EQ(driver.bars(0, 0), "1.5h 1.7h");
}

TEST(EntryTest, anotherTrackIsWrittenFromItsFirstVoiceOn)
{
    EditorDriver driver;
    driver.type(QStringLiteral("5 Home Alt+2 Ctrl+Alt+1 . 3"));
    driver.answers().choice = 128; // the drum kit
    ASSERT_TRUE(driver.trigger(QStringLiteral("track.add")));
    EXPECT_EQ(driver.document().cursor().trackIndex(), 1);
    EXPECT_EQ(driver.document().cursor().voiceIndex(), 0u);
    driver.type(QStringLiteral("PgUp Alt+2 PgDown 1 Right 2"));
    const auto voice = driver.model().track(1)->bar(0)->voice(0);
    ASSERT_NE(voice, nullptr);
    ASSERT_EQ(voice->beatCount(), 2u);
    EXPECT_EQ(voice->beat(1)->rhythmValue(), RhythmValue(RhythmValue::NoteValue::Quarter));
}

TEST(EntryTest, bendsAreOfOneKeyOrOfAForm)
{
    EditorDriver driver;
    driver.type(QStringLiteral("7 Ctrl+D"));
    const auto note = driver.document().cursor().note();
    EXPECT_EQ(note->bend(), Bend::of(BendType::Bend, 4));
    driver.type(QStringLiteral("Ctrl+D"));
    EXPECT_EQ(note->bend(), Bend());
    driver.answers().fields = {{QStringLiteral("kind"), static_cast<int>(BendType::BendNRelease)},
                               {QStringLiteral("height"), 5}};
    driver.trigger(QStringLiteral("note.bend"));
    EXPECT_EQ(note->bend(), Bend::of(BendType::BendNRelease, 6));
    EXPECT_EQ(driver.document().undoTitle(), QStringLiteral("Bend"));
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

TEST(EntryTest, lettersWriteNotesInTheKeyAndGoOn)
{
    EditorDriver driver;
    driver.type(QStringLiteral("F7")); // no tablature
    ASSERT_EQ(driver.document().entry().staffKind, layout::StaffKind::Notation);
    driver.answers().fields = {{QStringLiteral("key"), 8}}; // G major
    driver.trigger(QStringLiteral("bar.key"));
    driver.type(QStringLiteral("+ G F Shift+A ' E"));
    const auto voice = driver.model().track(0)->staff(0)->bar(0)->voice(0);
    ASSERT_EQ(voice->beatCount(), 3u);
    EXPECT_EQ(voice->beat(0)->note(0)->midi(), 67);
    ASSERT_EQ(voice->beat(1)->noteCount(), 2u);
    EXPECT_EQ(voice->beat(1)->note(0)->midi(), 78) << "F sharp, an octave higher";
    EXPECT_EQ(voice->beat(1)->note(1)->midi(), 81);
    EXPECT_EQ(voice->beat(2)->note(0)->midi(), 76);
    EXPECT_EQ(voice->beat(2)->rhythmValue().getNoteValue(), RhythmValue::NoteValue::Eighth);
}

TEST(EntryTest, deleteTakesTheNoteOfTheCursorAlone)
{
    EditorDriver driver;
    driver.type(QStringLiteral("3 Down 5 Down 5"));
    EXPECT_EQ(driver.bars(0, 0), "1.3+2.5+3.5q");
    driver.type(QStringLiteral("Up Del"));
    EXPECT_EQ(driver.bars(0, 0), "1.3+3.5q");
    driver.type(QStringLiteral("Down Del Up Up Del"));
    EXPECT_EQ(driver.bars(0, 0), "rq");
    driver.type(QStringLiteral("Ctrl+Z Ctrl+Z"));
    EXPECT_EQ(driver.bars(0, 0), "1.3+3.5q");
}

TEST(EntryTest, aPassageIsPlayedAsItsKeysSay)
{
    EditorDriver driver;
    driver.type(QStringLiteral("+ 5 Right 7 H Right 8 P Right 7 L Right Down 5 X"));
    const auto voice = driver.model().track(0)->staff(0)->bar(0)->voice(0);
    ASSERT_EQ(voice->beatCount(), 5u);
    EXPECT_TRUE(voice->beat(2)->note(0)->isPalmMuted());
    EXPECT_TRUE(voice->beat(4)->note(0)->isDead());
    EXPECT_EQ(driver.document().undoTitle(), QStringLiteral("Dead note"));
}

TEST(EntryTest, digitsStrikeDrums)
{
    EditorDriver driver(QStringLiteral(ZARN_SOURCE_DIR "/Samples/saints-band.musicxml"));
    driver.type(QStringLiteral("Ctrl+End PgDown PgDown PgDown"));
    driver.trigger(QStringLiteral("bar.append"));
    driver.type(QStringLiteral("Ctrl+End Ctrl+Alt+4 1 3 Right 3 Right 2 3 Right 1 3 1"));
    const unsigned bar = driver.model().masterTrack()->masterBarCount() - 1;
    const auto voice = driver.model().track(3)->staff(0)->bar(bar)->voice(0);
    ASSERT_EQ(voice->beatCount(), 4u);
    EXPECT_EQ(voice->beat(0)->noteCount(), 2u);
    EXPECT_EQ(voice->beat(1)->noteCount(), 1u);
    EXPECT_EQ(voice->beat(2)->noteCount(), 2u);
    EXPECT_EQ(voice->beat(3)->noteCount(), 1u) << "the same digit takes the drum off";
    EXPECT_EQ(voice->beat(0)->note(0)->midi(), 36);
}

} // namespace
