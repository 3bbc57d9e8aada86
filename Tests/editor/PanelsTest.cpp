// SPDX-License-Identifier: MIT
#include "actions/ActionSet.h"
#include "actions/ActionTable.h"
#include "dialogs/FormDialog.h"
#include "dialogs/NewScoreDialog.h"
#include "dialogs/PageSetupDialog.h"
#include "dialogs/ShortcutsDialog.h"
#include "editor/EditorDriver.h"
#include "panels/PanelTable.h"

#include <ZarnCore/model/ZarnScoreModel.h>

#include <QAccessible>
#include <QComboBox>
#include <QDockWidget>
#include <QSettings>
#include <QSlider>
#include <QSpinBox>
#include <QTableWidget>
#include <QTreeWidget>

#include <gtest/gtest.h>

namespace {

using namespace zarn;
using namespace zarn::editor;
using test::EditorDriver;

const QString band = QStringLiteral(ZARN_SOURCE_DIR "/Samples/saints-band.musicxml");

template <class Widget>
Widget *inPanel(EditorDriver &driver, const char *id)
{
    auto *const dock = driver.window().findChild<QDockWidget *>(QLatin1String(id));
    dock->show();
    driver.settle();
    return dock->widget()->findChild<Widget *>();
}

TEST(PanelsTest, tracksAreNamedShownAndMuted)
{
    EditorDriver driver(band);
    auto *const table = inPanel<QTableWidget>(driver, "tracks");
    ASSERT_EQ(table->rowCount(), 4);
    table->item(1, 0)->setText(QStringLiteral("Banjo"));
    driver.settle();
    EXPECT_EQ(driver.model().track(1)->name(), "Banjo");
    EXPECT_EQ(driver.document().undoTitle(), QStringLiteral("Rename track"));
    table->item(1, 3)->setCheckState(Qt::Unchecked); // notation
    driver.settle();
    EXPECT_FALSE(driver.model().track(1)->notations().standard);
    EXPECT_TRUE(driver.model().track(1)->notations().tablature);
    table->item(1, 4)->setCheckState(Qt::Unchecked); // the last one stays
    driver.settle();
    EXPECT_TRUE(driver.model().track(1)->notations().tablature);
    EXPECT_EQ(table->item(1, 4)->checkState(), Qt::Checked);
    table->item(2, 6)->setCheckState(Qt::Checked);
    driver.settle();
    EXPECT_EQ(driver.model().track(2)->playback(), TrackPlayback::Mute);
    driver.document().undo();
    driver.settle();
    EXPECT_EQ(table->item(2, 6)->checkState(), Qt::Unchecked);
}

TEST(PanelsTest, propertiesOfTheCursorAreShownAndSet)
{
    EditorDriver driver;
    driver.type(QStringLiteral("5"));
    auto *const tree = inPanel<QTreeWidget>(driver, "properties");
    const auto find = [tree](const QString &name) {
        const auto found = tree->findItems(name, Qt::MatchExactly | Qt::MatchRecursive);
        return found.isEmpty() ? nullptr : found.front();
    };
    QTreeWidgetItem *const muted = find(QStringLiteral("Palm mute"));
    ASSERT_NE(muted, nullptr);
    EXPECT_EQ(muted->checkState(1), Qt::Unchecked);
    muted->setCheckState(1, Qt::Checked);
    driver.settle();
    EXPECT_TRUE(driver.document().cursor().note()->isPalmMuted());
    QTreeWidgetItem *const speed = find(QStringLiteral("Velocity"));
    ASSERT_NE(speed, nullptr);
    speed->setText(1, QStringLiteral("200"));
    driver.settle();
    EXPECT_NE(speed->text(1), QStringLiteral("200")) << "what is not possible does not stay";

    QTreeWidgetItem *const barre = find(QStringLiteral("Barre"));
    ASSERT_NE(barre, nullptr);
    driver.answers().fields = {{QStringLiteral("fret"), 5}, {QStringLiteral("last"), 3}};
    Q_EMIT tree->itemActivated(barre, 1);
    driver.settle();
    EXPECT_EQ(barre->text(1), QStringLiteral("½ 5"));
}

TEST(PanelsTest, aSliderOfTheMixerIsOneStep)
{
    EditorDriver driver(band);
    auto *const dock = driver.window().findChild<QDockWidget *>(QStringLiteral("mixer"));
    dock->show();
    driver.settle();
    const auto sliders = dock->widget()->findChildren<QSlider *>();
    ASSERT_EQ(sliders.size(), 10) << "two for the master and for each track";
    sliders[2]->setValue(50);
    driver.settle();
    EXPECT_FLOAT_EQ(driver.model().track(0)->volumePan().volume(), 0.5F);
    driver.document().undo();
    EXPECT_FALSE(driver.document().isModified());
}

TEST(PanelsTest, everyPanelFollowsTheWildestChanges)
{
    EditorDriver driver(band);
    for (const PanelRow &row : panelTable())
        driver.window().findChild<QDockWidget *>(row.id)->show();
    driver.settle();
    for (int i = 0; i < 4; ++i) {
        driver.trigger(QStringLiteral("track.remove"));
        driver.type(QStringLiteral("Right Down"));
    }
    EXPECT_EQ(driver.model().trackCount(), 0u);
    EXPECT_TRUE(driver.document().edit(QStringLiteral("bars"), [&](Score &score) {
        return score.removeBarRange(0, score.masterTrack()->masterBarCount() - 1);
    }));
    driver.settle();
    while (driver.document().canUndo())
        driver.document().undo();
    driver.settle();
    EXPECT_EQ(driver.model().trackCount(), 4u);
}

/// What can have the focus has a name for those who hear it.
TEST(PanelsTest, screenReadersFindNames)
{
    EditorDriver driver(band);
    for (const PanelRow &row : panelTable())
        driver.window().findChild<QDockWidget *>(row.id)->show();
    driver.settle();
    for (const QWidget *const widget : driver.window().findChildren<QWidget *>()) {
        if (!widget->isVisible() || (widget->focusPolicy() & Qt::TabFocus) == 0
            || widget->objectName().startsWith(QLatin1String("qt_")))
            continue;
        QAccessibleInterface *const shown =
            QAccessible::queryAccessibleInterface(const_cast<QWidget *>(widget));
        ASSERT_NE(shown, nullptr);
        EXPECT_FALSE(shown->text(QAccessible::Name).isEmpty())
            << widget->metaObject()->className() << " in "
            << widget->parentWidget()->metaObject()->className();
    }
}

TEST(DialogsTest, aFormGivesWhatItShows)
{
    Form form(QStringLiteral("All kinds"));
    form.text("text", QStringLiteral("&Text"), QStringLiteral("a"))
        .longText("long", QStringLiteral("&Long"), QStringLiteral("b\nc"))
        .number("number", QStringLiteral("&Number"), 3, 1, 9)
        .decimal("decimal", QStringLiteral("&Decimal"), 0.25, 0, 1)
        .choice("choice", QStringLiteral("&Choice"), {QStringLiteral("one"), QStringLiteral("two")},
                1)
        .turn("turn", QStringLiteral("&Switch"), true);
    FormDialog dialog(form, nullptr);
    EXPECT_EQ(dialog.values(), form.values());
    dialog.findChild<QSpinBox *>(QStringLiteral("number"))->setValue(100);
    EXPECT_EQ(dialog.values().value(QStringLiteral("number")), 9);
    for (const FormField &field : form.fields()) {
        auto *const widget = dialog.findChild<QWidget *>(field.id);
        ASSERT_NE(widget, nullptr) << field.id.toStdString();
        EXPECT_FALSE(
            QAccessible::queryAccessibleInterface(widget)->text(QAccessible::Name).isEmpty())
            << field.id.toStdString();
    }
}

TEST(DialogsTest, aShortcutIsOneActionsAlone)
{
    EditorDriver driver;
    ShortcutsDialog dialog(&driver.window());
    const QString slur = QStringLiteral("beat.slur");
    EXPECT_FALSE(dialog.assign(slur, QKeySequence(QStringLiteral("Ctrl+Z"))));
    EXPECT_FALSE(dialog.assign(QStringLiteral("no.such"), QKeySequence(QStringLiteral("F12"))));
    EXPECT_TRUE(dialog.assign(slur, QKeySequence(QStringLiteral("F12"))));
    dialog.accept();
    driver.window().actions().applyShortcuts();
    driver.type(QStringLiteral("5 Right 7 Shift+Left F12"));
    EXPECT_TRUE(driver.model().track(0)->bar(0)->voice(0)->beat(0)->isSlurredToNext());
    ShortcutsDialog again(&driver.window());
    EXPECT_TRUE(again.assign(slur, QKeySequence(QStringLiteral("Shift+S"))));
    again.accept();
    EXPECT_TRUE(QSettings().value(QStringLiteral("shortcuts/beat.slur")).isNull());
}

TEST(DialogsTest, theSheetOfThePageSetupIsTheScores)
{
    EditorDriver driver;
    PageSetup setup;
    setup.width = 148000;
    setup.height = 210000;
    setup.orientation = PageSetup::Orientation::Landscape;
    setup.staffSpace = 1500;
    EXPECT_EQ(PageSetupDialog(setup, nullptr).setup(), setup);
    ASSERT_TRUE(driver.document().edit(QStringLiteral("page"),
                                       [&](Score &score) { return score.setPageSetup(setup); }));
    driver.settle();
    EXPECT_EQ(driver.view().layout()->pages().front().width, 210000);
    driver.document().undo();
    driver.settle();
    EXPECT_EQ(driver.view().layout()->pages().front().height, 297000);
}

TEST(DialogsTest, aNewScoreHasItsTracks)
{
    NewScoreDialog dialog(nullptr);
    EXPECT_EQ(dialog.score()->trackCount(), 1u);
    auto *const tuning = dialog.findChild<QComboBox *>(QStringLiteral("tuning"));
    const int dropD = tuning->findText(QStringLiteral("Drop D:"), Qt::MatchStartsWith);
    ASSERT_GT(dropD, 0);
    tuning->setCurrentIndex(dropD);
    dialog.findChild<QSpinBox *>(QStringLiteral("capo"))->setValue(2);
    const auto guitar = dialog.score(); // of what is chosen and not in the list
    EXPECT_EQ(guitar->track(0)->staff(0)->tuning().tuning(0), 38);
    EXPECT_EQ(guitar->track(0)->staff(0)->capoFret(), 2u);
    dialog.chooseInstrument(33);
    dialog.addTrack();
    dialog.chooseInstrument(128);
    EXPECT_FALSE(tuning->isEnabled());
    dialog.addTrack();
    const auto score = dialog.score();
    ASSERT_EQ(score->trackCount(), 2u);
    EXPECT_TRUE(InstrumentSet::isUnpitched(score->track(1)->type()));
    EXPECT_EQ(score->masterTrack()->masterBarCount(), 16u);
}

} // namespace
