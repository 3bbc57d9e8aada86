// SPDX-License-Identifier: MIT
// Faults of the world around: a full disk, a folder that is gone, windows that are closed early.
#include "editor/EditorDriver.h"
#include "support/FileSizeLimit.h"

#include "actions/ActionSet.h"
#include "document/Recovery.h"

#include <ZarnCore/model/ZarnScoreModel.h>

#include <QAction>
#include <QDir>
#include <QFile>
#include <QSignalSpy>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {

using namespace zarn;
using namespace zarn::editor;
using ::test::EditorDriver;

const QString sample = QStringLiteral(ZARN_SOURCE_DIR "/Samples/saints-band.musicxml");
constexpr int patience = 60000;

QByteArray contentOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

TEST(FaultsTest, aFullDiskLeavesTheOldFileAndTheChanges)
{
    const QTemporaryDir folder;
    EditorDriver driver(sample);
    const QString path = folder.filePath(QStringLiteral("band.zarn"));
    driver.answers().savePath = path;
    ASSERT_TRUE(driver.trigger(QStringLiteral("file.save")));
    const QByteArray before = contentOf(path);
    driver.type(QStringLiteral("Ctrl+Down 5"));
    QSignalSpy refused(&driver.document(), &Document::refused);
    {
        const zarn::test::FileSizeLimit full(1000);
        driver.trigger(QStringLiteral("file.save"));
        ASSERT_EQ(driver.answers().told.size(), 1);
        EXPECT_FALSE(driver.answers().details.value(0).isEmpty()) << "a reason";
        driver.document().recovery().keep();
        EXPECT_EQ(refused.size(), 1) << "no copy is kept, and the user knows";
        driver.answers().savePath = folder.filePath(QStringLiteral("band.pdf"));
        driver.trigger(QStringLiteral("file.export"));
        EXPECT_EQ(driver.answers().told.size(), 2);
        EXPECT_FALSE(QFile::exists(driver.answers().savePath));
    }
    EXPECT_EQ(contentOf(path), before);
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files), QStringList{QStringLiteral("band.zarn")});
    EXPECT_TRUE(driver.document().isModified());
    EXPECT_TRUE(driver.window().save()) << "there is room again";
    EXPECT_NE(contentOf(path), before);
    EXPECT_FALSE(driver.document().isModified());
}

TEST(FaultsTest, aFolderThatIsGoneTakesNothingWithIt)
{
    QTemporaryDir home;
    const QString folder = home.filePath(QStringLiteral("songs"));
    ASSERT_TRUE(QDir().mkdir(folder));
    EditorDriver driver(sample);
    driver.answers().savePath = folder + QStringLiteral("/band.zarn");
    ASSERT_TRUE(driver.trigger(QStringLiteral("file.save")));
    driver.type(QStringLiteral("Ctrl+Down 5"));
    ASSERT_TRUE(QDir(folder).removeRecursively());
    driver.trigger(QStringLiteral("file.save"));
    ASSERT_EQ(driver.answers().told.size(), 1);
    EXPECT_TRUE(driver.answers().told[0].contains(driver.answers().savePath));
    EXPECT_TRUE(driver.document().isModified());
    driver.answers().answer = Questions::Answer::Save;
    EXPECT_FALSE(driver.window().close()) << "what cannot be saved stays open";
    driver.answers().savePath = home.filePath(QStringLiteral("elsewhere.zarn"));
    ASSERT_TRUE(driver.trigger(QStringLiteral("file.saveAs")));
    EXPECT_FALSE(driver.document().isModified());
    EditorDriver again(driver.answers().savePath);
    EXPECT_EQ(again.text(), driver.text());
    // What was opened before and is gone is said, and asked for no more.
    driver.answers().told.clear();
    driver.editor().open(folder + QStringLiteral("/band.zarn"), &driver.window());
    ASSERT_TRUE(QTest::qWaitFor([&] { return !driver.editor().isOpening(); }, patience));
    EXPECT_EQ(driver.answers().told.size(), 1);
    EXPECT_FALSE(driver.editor().recentFiles().contains(folder + QStringLiteral("/band.zarn")));
}

TEST(FaultsTest, aWindowThatIsClosedWhileAFileIsReadTakesNothingAlong)
{
    EditorDriver driver;
    QSignalSpy opened(&driver.editor(), &Editor::opened);
    driver.editor().open(sample, &driver.window());
    EXPECT_TRUE(driver.editor().isOpening());
    EXPECT_TRUE(driver.window().close());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    ASSERT_TRUE(QTest::qWaitFor([&] { return !driver.editor().isOpening(); }, patience));
    ASSERT_EQ(opened.size(), 1);
    ASSERT_EQ(driver.editor().windows().size(), 1u);
    EXPECT_EQ(driver.editor().windows()[0]->document().model().trackCount(), 4u);
}

TEST(FaultsTest, aFileTakesThePlaceOfANewScoreThatNobodyTouched)
{
    for (const bool isTouched : {false, true}) {
        EditorDriver driver;
        if (isTouched)
            driver.type(QStringLiteral("5"));
        driver.editor().open(sample, &driver.window());
        ASSERT_TRUE(QTest::qWaitFor([&] { return !driver.editor().isOpening(); }, patience));
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        EXPECT_EQ(driver.editor().windows().size(), isTouched ? 2u : 1u);
        EXPECT_EQ(driver.editor().windows().back()->document().model().trackCount(), 4u);
    }
}

TEST(FaultsTest, theEditorEndsWhileAFileIsReadAndLaidOut)
{
    for (const bool isShown : {false, true}) {
        auto answers = std::make_unique<::test::GivenAnswers>();
        Editor editor(std::move(answers));
        QSignalSpy idle(&editor, &Editor::idle);
        editor.open(sample);
        if (isShown) {
            ASSERT_TRUE(idle.wait(patience)) << "its layout for edits is still under way";
        }
    }
}

TEST(FaultsTest, twoWindowsOfADocumentAreOneDocument)
{
    EditorDriver driver;
    ASSERT_TRUE(driver.trigger(QStringLiteral("file.newWindow")));
    MainWindow *const other = driver.editor().windows().back();
    driver.type(QStringLiteral("7 Right 5"));
    EXPECT_TRUE(other->isWindowModified());
    ASSERT_TRUE(driver.trigger(QStringLiteral("view.oneTrack")));
    other->actions().find(QStringLiteral("edit.undo"))->trigger();
    driver.settle();
    EXPECT_EQ(driver.bars(0, 0), "1.7q");
    for (MainWindow *const window : driver.editor().windows())
        EXPECT_EQ(*window->view().layout(),
                  *layout::layOut(driver.model(), window->view().layouts().shownOptions()));
    // The one that is closed first asks nothing: nothing is lost by it.
    driver.answers().answer = Questions::Answer::Cancel;
    EXPECT_TRUE(driver.window().close());
    EXPECT_TRUE(driver.answers().told.isEmpty());
    EXPECT_FALSE(other->close());
    EXPECT_EQ(driver.answers().told.size(), 1);
    driver.answers().answer = Questions::Answer::Discard;
}

TEST(FaultsTest, laysOutWhatItOpensOnce)
{
    const LoadedFile file = loadFile(sample);
    const auto layout = file.layout->layout();
    EditorDriver driver;
    MainWindow *const window = driver.editor().show(file);
    EXPECT_FALSE(window->view().layouts().isBusy());
    EXPECT_EQ(window->view().layout(), layout);
    EXPECT_EQ(file.layout->layout(), nullptr) << "edits go on from it";
    ASSERT_TRUE(window->document().edit(QStringLiteral("bars"),
                                        [](Score &score) { return score.createBars(0, 3); }));
    driver.settle();
    EXPECT_EQ(*window->view().layout(),
              *layout::layOut(window->document().model(), window->view().layouts().options()));
}

TEST(FaultsTest, editsWhileALargeScoreIsLaidOut)
{
    // Nobody waits for the first layout for edits: it is overtaken by them.
    EditorDriver driver(sample);
    ASSERT_TRUE(driver.document().edit(QStringLiteral("bars"),
                                       [](Score &score) { return score.createBars(0, 300); }));
    ASSERT_TRUE(driver.trigger(QStringLiteral("view.singleLine")));
    driver.window().actions().find(QStringLiteral("view.continuous"))->trigger();
    for (int i = 0; i < 5; ++i) {
        EXPECT_TRUE(driver.view().layouts().isBusy());
        EXPECT_TRUE(driver.document().edit(QStringLiteral("bar"),
                                           [](Score &score) { return score.removeBar(0); }));
    }
    driver.settle();
    EXPECT_EQ(*driver.view().layout(),
              *layout::layOut(driver.model(), driver.view().layouts().shownOptions()));
}

} // namespace
