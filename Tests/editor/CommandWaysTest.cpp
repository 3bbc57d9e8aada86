// SPDX-License-Identifier: MIT
#include "editor/EditorDriver.h"

#include "actions/ActionSet.h"
#include "actions/ActionTable.h"

#include <ZarnCore/ZarnLog.h>
#include <ZarnCore/instruments/automations/ZarnAutomationContainer.h>
#include <ZarnCore/instruments/effects/ZarnMastering.h>
#include <ZarnCore/instruments/sounds/ZarnSound.h>
#include <ZarnCore/model/ZarnAudioTrack.h>
#include <ZarnCore/model/ZarnScoreModel.h>

#include <QAction>
#include <QDir>
#include <QDockWidget>
#include <QFile>
#include <QLineEdit>
#include <QLoggingCategory>
#include <QPushButton>
#include <QRegularExpression>
#include <QSlider>
#include <QToolButton>
#include <QTreeWidget>

#include <gtest/gtest.h>

#include <map>
#include <set>

/// Whether a user can do in the editor whatever an application can do to a score.
namespace {

using namespace zarn;
using namespace zarn::editor;
using test::EditorDriver;

/// The names of the commands that are executed while one lives, from what the core logs.
class ExecutedCommands {
public:
    ExecutedCommands()
    {
        _current = this;
        QLoggingCategory::setFilterRules(QStringLiteral("zarn.core.commands.info=true"));
        _before = qInstallMessageHandler(take);
    }
    ~ExecutedCommands()
    {
        qInstallMessageHandler(_before);
        QLoggingCategory::setFilterRules(QString());
        _current = nullptr;
    }

    bool has(const QString &name) const
    {
        const auto found = _counts.find(name);
        return found != _counts.end() && found->second > 0;
    }

private:
    /// What is refused is told of after it was to be executed.
    static void take(QtMsgType, const QMessageLogContext &, const QString &message)
    {
        static const QRegularExpression words(QStringLiteral("^(execute|Cannot execute) (\\w+)"));
        const auto found = words.match(message);
        if (!found.hasMatch())
            return;
        _current->_counts[found.captured(2)] +=
            found.captured(1) == QLatin1String("execute") ? 1 : -1;
    }

    static ExecutedCommands *_current;
    QtMessageHandler _before;
    std::map<QString, int> _counts;
};

ExecutedCommands *ExecutedCommands::_current = nullptr;

/// All operations of scores, as their headers declare them.
std::set<QString> operations()
{
    std::set<QString> names;
    const QDir folder(QStringLiteral(ZARN_SOURCE_DIR "/Sources/ZarnCore/score"));
    const QRegularExpression declaration(QStringLiteral("^    bool (\\w+)\\("),
                                         QRegularExpression::MultilineOption);
    for (const QString &name : folder.entryList({QStringLiteral("*Operations.h")})) {
        QFile file(folder.filePath(name));
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        auto found = declaration.globalMatch(QString::fromUtf8(file.readAll()));
        while (found.hasNext())
            names.insert(found.next().captured(1));
    }
    return names;
}

/// Operations whose effect the editor reaches by another one, which is executed here.
const std::map<QString, QString> &equivalents()
{
    static const std::map<QString, QString> all = [] {
        std::map<QString, QString> map;
        const auto add = [&map](const char *others, const char *used) {
            for (const QString &name : QString::fromLatin1(others).split(QLatin1Char(' ')))
                map[name] = QString::fromLatin1(used);
        };
        // Attributes have one command for all of a node, and some of them one of their own.
        add("setBeatAttributes switchBeatAttribute unsetBeatAttribute "
            "incrementBeatSecondaryAttribute setBeatDynamic setBeatFreeText setBeatArpeggio "
            "setBrush setBeatFadding setBeatOttavia setBeatTimer setBeatSlashed setBeatPickStroke "
            "setBeatRasgueado setBeatGolpe setBeatTremolo setBeatBarre setStringedBeatBassAttack "
            "setStringedBeatVibrato setWah setStemOrientations",
            "SetBeatAttribute");
        add("setNoteTrill setNoteFingering setNoteVelocity setNoteAntiAccent setNoteOrnement "
            "setNoteOrnament setStringedNoteVibrato setStringedNoteLeftHandTapping "
            "setStringedNoteRightHandTapping setStringedNoteShowStringNumber",
            "SetNoteAttribute");
        add("setMasterBarAttributes unsetMasterBarAttributes setMasterTripletFeel "
            "setMasterBarDoubleBar setMasterBarMovementStart setMasterBarLayoutRatios",
            "SetMasterBarAttribute");
        add("setBarAttributes unsetBarAttributes setBarSimileMark setBarLayoutRatios",
            "SetBarAttribute");
        // One for all of a kind, or for one of them.
        add("createBar", "CreateBars");
        add("removeBar removeBarRange", "RemoveBars");
        add("setBarDirections", "SetBarDirection");
        add("changeProperty", "ChangeProperties");
        add("removeMasterReverb", "DeleteEffect");
        add("unsetMasterBarSection", "SetMasterBarSection");
        add("setMasterTrackVolumePan", "SetChannelStripParameter");
        add("modifyAutomations", "ModifyMasterTrackAutomations");
        add("createTrack", "InsertTrack");
        // What is typed is written as notes and beats.
        add("setNoteDurationAndVelocity setBeatRhythm", "SetNoteDuration");
        add("setNoteMidiForString setStringedNoteFret", "SetStringedNote");
        add("setBeatTiedOnly setNoteTied setNoteTiedOnly", "SetBeatTied");
        add("clearBeats", "SetNoteRest");
        add("removeNonPitchedNote", "RemoveNote");
        return map;
    }();
    return all;
}

/// What applications use to bring in what they have made themselves: paste and import do so here.
const std::set<QString> &elsewhere()
{
    static const std::set<QString> all = {
        QStringLiteral("modifyBarRange"),
        QStringLiteral("modifyBarRangeAllTracks"),
        QStringLiteral("writeBeats"),
        QStringLiteral("replaceScore"),
        // Panels and dialogs with tests of their own.
        QStringLiteral("setPageSetup"),
        QStringLiteral("setGuitarFullTuning"),
    };
    return all;
}

/// The first bar in which a track begins with notes.
int barWithNotes(const Track &track)
{
    int bar = 0;
    while (!track.bar(static_cast<unsigned>(bar))->voice(0)->beat(0)->hasNotes())
        ++bar;
    return bar;
}

/// Everything that the menus do to a score, each from the same start.
void tryActions(EditorDriver &driver, int track)
{
    const int bar = barWithNotes(*driver.model().track(static_cast<unsigned>(track)));
    for (const ActionGroup &group : actionTable())
        for (const Action &action : group.actions) {
            const QString menu = action.id.section(QLatin1Char('.'), 0, 0);
            const bool isOfScore = menu == QLatin1String("beat") || menu == QLatin1String("note")
                || menu == QLatin1String("bar") || menu == QLatin1String("track")
                || menu == QLatin1String("score");
            if (!isOfScore)
                continue;
            driver.document().moveCursor([&](ScoreCursor &cursor) {
                return cursor.to(CursorStep::Track, track) && cursor.to(CursorStep::Voice, 0)
                    && cursor.to(CursorStep::Bar, bar);
            });
            const bool isPitch = action.id == QLatin1String("score.concertTone");
            driver.answers().numbers = {isPitch ? 442 : 2};
            driver.trigger(action.id);
            while (driver.document().canUndo()) {
                EXPECT_FALSE(driver.document().undoTitle().isEmpty()) << action.id.toStdString();
                driver.document().undo();
            }
        }
}

void press(EditorDriver &driver, const char *panel, const char *button)
{
    auto *const dock = driver.window().findChild<QDockWidget *>(QLatin1String(panel));
    ASSERT_NE(dock, nullptr) << panel;
    auto *const found = dock->findChild<QToolButton *>(QLatin1String(button));
    ASSERT_NE(found, nullptr) << button;
    found->click();
    driver.settle();
}

QTreeWidget *treeOf(EditorDriver &driver, const char *panel)
{
    auto *const dock = driver.window().findChild<QDockWidget *>(QLatin1String(panel));
    dock->show();
    driver.settle();
    return dock->widget()->findChild<QTreeWidget *>();
}

void trySounds(EditorDriver &driver)
{
    QTreeWidget *const tree = treeOf(driver, "sounds");
    const auto choose = [tree](int owner, int effect) {
        QTreeWidgetItem *const item = tree->topLevelItem(owner);
        tree->setCurrentItem(effect < 0 ? item : item->child(effect));
    };
    press(driver, "sounds", "addSound");
    ASSERT_EQ(driver.model().track(0)->sounds().size(), 2u);
    choose(1, -1);
    press(driver, "sounds", "up");
    driver.answers().fields[QStringLiteral("program")] = 30;
    press(driver, "sounds", "edit");
    EXPECT_EQ(driver.model().track(0)->sounds()[0]->midiSound().program(), 30);
    tree->topLevelItem(0)->setCheckState(0, Qt::Checked);
    driver.settle();
    EXPECT_EQ(driver.model().track(0)->forcedSoundIndex(), 0);
    choose(0, -1);
    press(driver, "sounds", "addEffect");
    choose(0, 0);
    driver.answers().fields[QStringLiteral("knob0")] = 0.25;
    press(driver, "sounds", "edit");
    tree->topLevelItem(0)->child(0)->setCheckState(0, Qt::Unchecked);
    driver.settle();
    choose(0, 0);
    press(driver, "sounds", "down");
    const auto chain = [&driver]() -> const EffectChain & {
        return driver.model().track(0)->sounds()[0]->orkaSound().effectChain();
    };
    EXPECT_TRUE(chain().effect(0).isEmpty());
    EXPECT_FLOAT_EQ(chain().effect(1).parameter(0), 0.25F);
    EXPECT_TRUE(chain().effect(1).isBypassed());
    choose(0, 0);
    press(driver, "sounds", "remove");
    EXPECT_TRUE(chain().isEmpty());
    choose(0, -1);
    press(driver, "sounds", "copy");
    EXPECT_EQ(chain(), driver.model().masterTrack()->mastering().effectChain());
    choose(0, -1);
    press(driver, "sounds", "clear");
    EXPECT_TRUE(chain().isEmpty());
    choose(0, -1);
    press(driver, "sounds", "remove");
    EXPECT_EQ(driver.model().track(0)->sounds().size(), 1u);
    const int mix = tree->topLevelItemCount() - 1;
    choose(mix, 0);
    press(driver, "sounds", "remove");
    EXPECT_TRUE(driver.model().masterTrack()->mastering().effectChain().isEmpty());
}

void tryAutomation(EditorDriver &driver)
{
    QTreeWidget *const tree = treeOf(driver, "automations");
    for (int kind = 0; kind < 6; ++kind) {
        driver.answers().fields[QStringLiteral("kind")] = kind;
        driver.answers().fields[QStringLiteral("knob")] = 7;
        driver.answers().fields[QStringLiteral("bar")] = 3;
        driver.answers().fields[QStringLiteral("value")] = kind == 3 ? 90.0 : 0.5;
        press(driver, "automations", "add");
    }
    const Automation *const volume =
        driver.model().track(0)->automations().automation(Automation::DSPParam_00, 2, 0);
    ASSERT_NE(volume, nullptr);
    EXPECT_FLOAT_EQ(volume->value(), 0.5F);
    EXPECT_TRUE(driver.model().masterTrack()->hasAutomation(Automation::DSPParam_06, 2, 0));
    EXPECT_TRUE(driver.model().masterTrack()->hasAutomation(Automation::Tempo, 2, 0));
    // A kind of the score, and one of the track.
    for (const int line : {0, tree->topLevelItemCount() - 1}) {
        tree->topLevelItem(line)->setCheckState(0, Qt::Unchecked);
        driver.settle();
    }
    EXPECT_TRUE(driver.model().masterTrack()->isTypeBypassed(Automation::Tempo));
    const auto items = tree->findItems(QStringLiteral("Volume of the track"), Qt::MatchExactly);
    ASSERT_EQ(items.size(), 1);
    tree->setCurrentItem(items[0]->child(0));
    driver.answers().fields[QStringLiteral("bar")] = 4;
    press(driver, "automations", "edit");
    const auto &automations = driver.model().track(0)->automations();
    EXPECT_FALSE(automations.hasAutomation(Automation::DSPParam_00, 2, 0));
    EXPECT_TRUE(automations.hasAutomation(Automation::DSPParam_00, 3, 0));
}

/// A slider of the mixer, a chord.
void tryOtherPanels(EditorDriver &driver)
{
    const auto panel = [&driver](const char *id) {
        auto *const dock = driver.window().findChild<QDockWidget *>(QLatin1String(id));
        dock->show();
        driver.settle();
        return dock->widget();
    };
    panel("mixer")->findChildren<QSlider *>()[2]->setValue(40);
    driver.type(QStringLiteral("PgDown Ctrl+Home"));
    QWidget *const chords = panel("chords");
    chords->findChild<QLineEdit *>()->setText(QStringLiteral("Am"));
    driver.settle();
    for (QPushButton *const button : chords->findChildren<QPushButton *>()) {
        button->click();
        driver.settle();
    }
}

TEST(CommandWaysTest, everyCommandIsInAMenuOrAPanel)
{
    const ExecutedCommands executed;
    EditorDriver().type(QStringLiteral("5 Right 7 Ctrl+R"));
    EditorDriver driver(QStringLiteral(ZARN_SOURCE_DIR "/Samples/saints-band.musicxml"));
    driver.answers().openPath = QStringLiteral("/tmp/take.wav");
    driver.answers().fields = {
        {QStringLiteral("name"), QStringLiteral("Other")},
        {QStringLiteral("shortName"), QStringLiteral("O.")},
        {QStringLiteral("icon"), 3},
        {QStringLiteral("colour"), QStringLiteral("#102030")},
        {QStringLiteral("style"), 2},
        {QStringLiteral("palmMute"), 0.9},
        {QStringLiteral("letRing"), true},
        {QStringLiteral("accents"), true},
        {QStringLiteral("brush"), true},
        {QStringLiteral("ownMidi"), true},
        {QStringLiteral("channelPerString"), true},
        {QStringLiteral("line1"), QStringLiteral("la la")},
        {QStringLiteral("shown2"), false},
        {QStringLiteral("systems"), QStringLiteral("4 4")},
        {QStringLiteral("title"), QStringLiteral("Verse")},
        {QStringLiteral("beats"), 3},
        {QStringLiteral("beams"), QStringLiteral("2+1")},
        {QStringLiteral("free"), true},
        {QStringLiteral("HeaderLeft"), QStringLiteral("%Title%")},
    };
    for (int track = 0; track < static_cast<int>(driver.model().trackCount()); ++track) {
        driver.answers().fields[QStringLiteral("kind")] = track;
        tryActions(driver, track);
        driver.document().moveCursor(
            [track](ScoreCursor &cursor) { return cursor.to(CursorStep::Track, track); });
        // What is written by keys, on whatever staff it is.
        driver.type(QStringLiteral("Ctrl+End 5 Right 7 Left H Right Up Alt+Up L Right 1 3 3 Del"));
    }
    // What is set before it is taken away, or moved.
    const auto setSection = [&driver](const QString &title) {
        driver.answers().fields[QStringLiteral("title")] = title;
        driver.answers().fields[QStringLiteral("letter")] = title.left(1);
        return driver.trigger(QStringLiteral("bar.section"));
    };
    EXPECT_TRUE(setSection(QStringLiteral("Verse")));
    EXPECT_TRUE(setSection(QString()));
    EXPECT_TRUE(driver.trigger(QStringLiteral("score.addRecording")));
    EXPECT_TRUE(driver.trigger(QStringLiteral("score.changeRecording")));
    EXPECT_TRUE(driver.trigger(QStringLiteral("score.removeRecording")));
    EXPECT_TRUE(driver.trigger(QStringLiteral("track.lyrics")));
    EXPECT_TRUE(driver.trigger(QStringLiteral("track.lyricsStart")));
    driver.type(QStringLiteral("Ctrl+Home Ctrl+C Ctrl+Right Ctrl+V"));
    driver.type(QStringLiteral("Ctrl+B Ctrl+C Ctrl+Right Ctrl+V"));
    driver.document().moveCursor([](ScoreCursor &cursor) {
        return cursor.to(CursorStep::Track, 0) && cursor.to(CursorStep::Bar, 0);
    });
    driver.answers().fields.clear();
    trySounds(driver);
    tryAutomation(driver);
    tryOtherPanels(driver);
    while (driver.document().canUndo())
        driver.document().undo();
    EXPECT_FALSE(driver.document().isModified());

    for (const QString &name : operations()) {
        const auto other = equivalents().find(name);
        QString command = other != equivalents().end() ? other->second : name;
        command[0] = command[0].toUpper();
        EXPECT_TRUE(executed.has(command) || elsewhere().count(name) != 0)
            << name.toStdString() << " is in no menu and in no panel";
    }
}

} // namespace
