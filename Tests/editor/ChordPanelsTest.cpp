// SPDX-License-Identifier: MIT
// The panels of chords, fretboard and tuning, as hands use them.
#include "editor/EditorDriver.h"

#include "panels/NeckView.h"
#include "panels/PitchText.h"

#include <ZarnCore/model/ZarnScoreModel.h>

#include <QAbstractSpinBox>
#include <QComboBox>
#include <QDockWidget>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>

#include <gtest/gtest.h>

namespace {

using namespace zarn;
using namespace zarn::editor;
using test::EditorDriver;

class ChordPanels : public testing::Test {
protected:
    /// The panel of an id, in view.
    QWidget &panel(const char *id)
    {
        auto *const dock = driver.window().findChild<QDockWidget *>(QLatin1String(id));
        dock->show();
        driver.settle();
        return *dock->widget();
    }

    template <class Kind>
    static Kind &field(QWidget &panel, const char *accessibleName)
    {
        for (Kind *const child : panel.findChildren<Kind *>())
            if (child->accessibleName() == QLatin1String(accessibleName))
                return *child;
        throw std::runtime_error(std::string("there is no ") + accessibleName);
    }

    static QPushButton &button(QWidget &panel, const char *text)
    {
        for (QPushButton *const child : panel.findChildren<QPushButton *>())
            if (child->text() == QLatin1String(text))
                return *child;
        throw std::runtime_error(std::string("there is no button ") + text);
    }

    void click(NeckView &neck, int string, int fret)
    {
        QTest::mouseClick(&neck, Qt::LeftButton, {}, neck.cellOf(string, fret).center().toPoint());
        driver.settle();
    }

    const Beat &beat(unsigned number)
    {
        return *driver.model().track(0)->staff(0)->bar(0)->voice(0)->beat(number);
    }

    EditorDriver driver;
};

TEST_F(ChordPanels, aTypedChordIsWrittenWithTheDiagramThatIsChosen)
{
    driver.type(QStringLiteral("3 Right 5 Home"));
    const std::string before = driver.text();
    QWidget &chords = panel("chords");
    auto &symbol = field<QLineEdit>(chords, "Chord symbol");
    auto &shapes = field<QListView>(chords, "Ways to play the chord");
    symbol.setFocus();
    QTest::keyClicks(&symbol, QStringLiteral("Am7"));
    ASSERT_GT(shapes.model()->rowCount(), 20);
    EXPECT_EQ(shapes.currentIndex().data().toString(), QStringLiteral("x02010"));
    QTest::keyClick(&symbol, Qt::Key_Return);
    driver.settle();
    EXPECT_EQ(beat(0).chordSymbol(), "Am7");
    ASSERT_NE(beat(0).chord().diagram, nullptr);
    EXPECT_EQ(beat(0).chord().diagram->frets, (std::vector<std::int8_t>{-1, 0, 2, 0, 1, 0}));

    shapes.setFocus();
    QTest::keyClick(&shapes, Qt::Key_Down);
    const QString second = shapes.currentIndex().data().toString();
    QTest::mouseClick(&button(chords, "&Write"), Qt::LeftButton);
    driver.settle();
    EXPECT_NE(second, QStringLiteral("x02010"));
    EXPECT_NE(beat(0).chord().diagram->frets, (std::vector<std::int8_t>{-1, 0, 2, 0, 1, 0}));

    // What nobody knows is kept as it is written.
    symbol.setFocus();
    symbol.setText(QStringLiteral("like the sea"));
    EXPECT_EQ(shapes.model()->rowCount(), 0);
    EXPECT_FALSE(button(chords, "&Write").isEnabled());
    QTest::keyClick(&symbol, Qt::Key_Return);
    driver.settle();
    EXPECT_EQ(beat(0).chordSymbol(), "like the sea");
    EXPECT_EQ(beat(0).chord().diagram, nullptr);

    // The field goes along with the cursor, and keeps its text where there is no chord.
    driver.view().setFocus();
    driver.type(QStringLiteral("Right"));
    EXPECT_FALSE(button(chords, "&Remove").isEnabled());
    symbol.setText(QStringLiteral("G"));
    driver.type(QStringLiteral("Left"));
    EXPECT_EQ(symbol.text(), QStringLiteral("like the sea"));
    QTest::mouseClick(&button(chords, "&Remove"), Qt::LeftButton);
    driver.settle();
    EXPECT_TRUE(beat(0).chord().isEmpty());
    driver.type(QStringLiteral("Ctrl+Z Ctrl+Z Ctrl+Z Ctrl+Z"));
    EXPECT_EQ(driver.text(), before);
}

TEST_F(ChordPanels, theNotesOfTheBeatAreNamed)
{
    QWidget &chords = panel("chords");
    auto &names = field<QComboBox>(chords, "Names of the notes of the beat");
    EXPECT_FALSE(names.isEnabled());
    // From the highest string down: 0 1 0 2 3.
    driver.type(QStringLiteral("0 Down 1 Down 0 Down 2 Down 3"));
    ASSERT_EQ(driver.bars(0, 0), "1.0+2.1+3.0+4.2+5.3q");
    ASSERT_TRUE(names.isEnabled());
    EXPECT_EQ(names.itemText(0), QStringLiteral("C"));
    Q_EMIT names.activated(0);
    EXPECT_EQ(field<QLineEdit>(chords, "Chord symbol").text(), QStringLiteral("C"));
}

TEST_F(ChordPanels, shapesOfTheUsersOwnComeFirstUntilTheyAreForgotten)
{
    QWidget &chords = panel("chords");
    auto &symbol = field<QLineEdit>(chords, "Chord symbol");
    auto &shapes = field<QListView>(chords, "Ways to play the chord");
    symbol.setText(QStringLiteral("E"));
    const QString usual = shapes.model()->index(0, 0).data().toString();
    const QString own = shapes.model()->index(5, 0).data().toString();
    shapes.setCurrentIndex(shapes.model()->index(5, 0));
    QTest::mouseClick(&button(chords, "&Keep shape"), Qt::LeftButton);
    EXPECT_EQ(shapes.currentIndex().data().toString(), own);
    EXPECT_EQ(shapes.currentIndex().row(), 0);
    QTest::mouseClick(&button(chords, "&Forget shape"), Qt::LeftButton);
    EXPECT_EQ(shapes.currentIndex().data().toString(), usual);
}

TEST_F(ChordPanels, placesOnTheFretboardBecomeNotes)
{
    const std::string before = driver.text();
    auto &neck = field<NeckView>(panel("fretboard"), "Fretboard");
    click(neck, 1, 3);
    EXPECT_EQ(driver.bars(0, 0), "5.3q");
    click(neck, 2, 2);
    click(neck, 1, 2);
    EXPECT_EQ(driver.bars(0, 0), "5.2+4.2q");
    // Keys: a string up, two frets on.
    neck.setFocus();
    QTest::keyClick(&neck, Qt::Key_Up);
    QTest::keyClick(&neck, Qt::Key_Right);
    QTest::keyClick(&neck, Qt::Key_Right);
    EXPECT_TRUE(neck.accessibleDescription().contains(QStringLiteral("fret 4")))
        << neck.accessibleDescription().toStdString();
    QTest::keyClick(&neck, Qt::Key_Return);
    driver.settle();
    EXPECT_EQ(driver.bars(0, 0), "5.2+4.4q");
    driver.type(QStringLiteral("Ctrl+Z Ctrl+Z Ctrl+Z"));
    EXPECT_EQ(driver.bars(0, 0), "5.3q");
    // The only note once more: it goes.
    click(neck, 1, 3);
    EXPECT_EQ(driver.bars(0, 0), "rq");
    driver.type(QStringLiteral("Ctrl+Z Ctrl+Z"));
    EXPECT_EQ(driver.text(), before);
}

TEST_F(ChordPanels, tuningAnewKeepsPitchesOrFrets)
{
    driver.type(QStringLiteral("Down Down Down Down Down 3"));
    ASSERT_EQ(driver.bars(0, 0), "6.3q");
    const std::string before = driver.text();
    QWidget &tuning = panel("tuning");
    auto &list = field<QListWidget>(tuning, "Tunings");
    QPushButton &tune = button(tuning, "&Tune");
    EXPECT_FALSE(tune.isEnabled());
    const auto choose = [&](const char *words) {
        const auto found = list.findItems(QLatin1String(words), Qt::MatchEndsWith);
        ASSERT_FALSE(found.isEmpty()) << words;
        list.setCurrentItem(found.front());
        ASSERT_TRUE(tune.isEnabled());
        QTest::mouseClick(&tune, Qt::LeftButton);
        driver.settle();
    };
    choose(": D2 A2 D3 G3 B3 E4");
    EXPECT_EQ(driver.bars(0, 0), "6.5q");
    EXPECT_FALSE(tune.isEnabled());
    driver.type(QStringLiteral("Ctrl+Z"));
    EXPECT_EQ(driver.text(), before);

    for (QRadioButton *const keep : tuning.findChildren<QRadioButton *>())
        if (keep->text() == QStringLiteral("Keep their &frets"))
            keep->click();
    // String by string: the lowest one a tone down.
    auto &lowest = field<QAbstractSpinBox>(tuning, "String 6");
    lowest.stepBy(-2);
    EXPECT_EQ(lowest.text(), QStringLiteral("D2"));
    QTest::mouseClick(&tune, Qt::LeftButton);
    driver.settle();
    EXPECT_EQ(driver.bars(0, 0), "6.3q");
    EXPECT_EQ(driver.model().track(0)->staff(0)->tuning().tuning(0), 38);
}

TEST_F(ChordPanels, everyFieldHasAName)
{
    for (const char *const id : {"chords", "fretboard", "tuning"}) {
        QWidget &shown = panel(id);
        for (QWidget *const child : shown.findChildren<QWidget *>()) {
            if ((child->focusPolicy() & Qt::TabFocus) == 0 || !child->isVisibleTo(&shown)
                || child->focusProxy() != nullptr)
                continue;
            bool isNamed = !child->accessibleName().isEmpty();
            if (const auto *const text = qobject_cast<QAbstractButton *>(child))
                isNamed = isNamed || !text->text().isEmpty();
            for (const QLabel *const label : shown.findChildren<QLabel *>())
                isNamed = isNamed || label->buddy() == child;
            // Parts of fields, such as the line of a box with steps.
            isNamed = isNamed || qobject_cast<QAbstractSpinBox *>(child->parentWidget()) != nullptr
                || qobject_cast<QComboBox *>(child->parentWidget()) != nullptr;
            EXPECT_TRUE(isNamed) << id << ": " << child->metaObject()->className();
        }
    }
}

TEST(PitchTextTest, keysAreReadAsTheyAreWritten)
{
    for (int midi = 12; midi < 120; ++midi)
        for (const bool hasFlats : {false, true})
            EXPECT_EQ(pitchOfText(pitchText(midi, hasFlats)), midi);
    EXPECT_EQ(pitchOfText(QStringLiteral(" eb3 ")), 51);
    EXPECT_EQ(pitchOfText(QStringLiteral("Cb4")), 59);
    for (const char *const text : {"", "H2", "E", "E22", "E#b2", "2"})
        EXPECT_FALSE(pitchOfText(QLatin1String(text))) << text;
}

} // namespace
