// SPDX-License-Identifier: MIT
#include "actions/ActionTable.h"
#include "document/Recovery.h"
#include "editor/EditorDriver.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <set>

namespace {

using namespace zarn;
using namespace zarn::editor;
using test::EditorDriver;

const QString sample = QStringLiteral(ZARN_SOURCE_DIR "/Samples/saints-band.musicxml");

TEST(DocumentTest, whatIsSavedIsWhatIsOpened)
{
    const QTemporaryDir folder;
    EditorDriver driver(sample);
    EXPECT_FALSE(driver.document().isModified());
    EXPECT_TRUE(driver.document().path().isEmpty()) << "a MusicXML file is left as it is";
    driver.type(QStringLiteral("Ctrl+Down 5"));
    EXPECT_TRUE(driver.window().isWindowModified());
    driver.answers().savePath = folder.filePath(QStringLiteral("song.zarn"));
    ASSERT_TRUE(driver.trigger(QStringLiteral("file.save")));
    EXPECT_FALSE(driver.window().isWindowModified());
    EditorDriver again(driver.answers().savePath);
    EXPECT_EQ(again.text(), driver.text());
    EXPECT_EQ(again.document().path(), driver.answers().savePath);
    ASSERT_TRUE(driver.trigger(QStringLiteral("edit.undo")));
    EXPECT_TRUE(driver.window().isWindowModified()) << "the file holds something else";
}

TEST(DocumentTest, nothingIsLostWhenItCannotBeSaved)
{
    const QTemporaryDir folder;
    EditorDriver driver;
    driver.type(QStringLiteral("5"));
    driver.answers().savePath = folder.filePath(QStringLiteral("gone/song.zarn"));
    driver.trigger(QStringLiteral("file.save"));
    ASSERT_EQ(driver.answers().told.size(), 1);
    EXPECT_FALSE(driver.answers().details.value(0).isEmpty()) << "a reason";
    EXPECT_TRUE(driver.document().isModified());
    EXPECT_TRUE(driver.document().path().isEmpty());

    driver.answers().answer = Questions::Answer::Cancel;
    EXPECT_FALSE(driver.window().close());
    driver.answers().answer = Questions::Answer::Save;
    EXPECT_FALSE(driver.window().close()) << "it could not be saved";
    driver.answers().answer = Questions::Answer::Discard;
    EXPECT_TRUE(driver.window().close());
}

TEST(DocumentTest, damagedFilesAreRefusedWithAReason)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("broken.zarn"));
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("{\"format\": \"zarn\", ");
    file.close();
    EditorDriver driver;
    for (const QString &bad :
         {path, folder.filePath(QStringLiteral("missing.zarn")), folder.path()}) {
        driver.answers().told.clear();
        driver.answers().details.clear();
        driver.editor().open(bad, &driver.window());
        ASSERT_TRUE(QTest::qWaitFor([&] { return !driver.editor().isOpening(); }, 10000));
        ASSERT_EQ(driver.answers().told.size(), 1) << bad.toStdString();
        EXPECT_FALSE(driver.answers().details.value(0).isEmpty()) << bad.toStdString();
    }
    EXPECT_EQ(driver.editor().windows().size(), 1u);
}

TEST(DocumentTest, twoWindowsShowOneDocument)
{
    EditorDriver driver;
    ASSERT_TRUE(driver.trigger(QStringLiteral("file.newWindow")));
    ASSERT_EQ(driver.editor().windows().size(), 2u);
    MainWindow *const other = driver.editor().windows().back();
    EXPECT_EQ(&other->document(), &driver.document());
    driver.window().activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&driver.window()));
    driver.view().setFocus();
    driver.type(QStringLiteral("7"));
    EXPECT_EQ(*other->view().layout(), *driver.view().layout());
    EXPECT_TRUE(other->close()) << "the document stays open";
    EXPECT_TRUE(driver.answers().told.isEmpty());
}

TEST(DocumentTest, whatACrashLeftIsOffered)
{
    QString kept;
    {
        EditorDriver driver(sample);
        driver.type(QStringLiteral("Ctrl+Down 5"));
        driver.document().recovery().keep();
        kept = driver.document().recovery().copyPath();
        EXPECT_TRUE(QFile::exists(kept));
        EXPECT_TRUE(lostDocuments().empty()) << "it is still kept";
        EXPECT_TRUE(QFile::copy(kept, kept + QStringLiteral(".copy.zarn"))); // as after a crash
    }
    EXPECT_FALSE(QFile::exists(kept)) << "closed in order";
    ASSERT_EQ(lostDocuments().size(), 1u);
    EditorDriver driver;
    EXPECT_TRUE(driver.editor().offerLostDocuments());
    EXPECT_TRUE(driver.editor().windows().back()->document().isModified());
    EXPECT_TRUE(lostDocuments().empty());
}

TEST(DocumentTest, drawingsAndOtherFormatsAreWritten)
{
    const QTemporaryDir folder;
    EditorDriver driver(sample);
    for (const char *const name : {"band.pdf", "band.svg", "band.png", "band.mxl", "band.ly",
                                   "band.mid", "band.tab", "band.none"}) {
        driver.answers().savePath = folder.filePath(QLatin1String(name));
        driver.answers().told.clear();
        driver.trigger(QStringLiteral("file.export"));
        const bool isKnown = !QLatin1String(name).endsWith(QLatin1String("none"));
        const bool isThere = QFile::exists(driver.answers().savePath)
            || QFile::exists(folder.filePath(QLatin1String(name).chopped(4) + QStringLiteral("-1")
                                             + QLatin1String(name).right(4)));
        EXPECT_EQ(isThere, isKnown) << name;
        EXPECT_TRUE(isKnown || driver.answers().told.size() == 1) << name;
    }
    EXPECT_TRUE(driver.document().path().isEmpty()) << "the document is another file";
}

TEST(ActionTableTest, everyActionHasANameOfItsOwn)
{
    std::set<QString> ids;
    for (const ActionGroup &group : actionTable())
        for (const Action &action : group.actions) {
            EXPECT_TRUE(ids.insert(action.id).second) << action.id.toStdString();
            EXPECT_FALSE(action.text.isEmpty()) << action.id.toStdString();
            EXPECT_TRUE(action.run != nullptr) << action.id.toStdString();
        }
}

TEST(ActionTableTest, noKeyMeansTwoThings)
{
    std::map<QString, QString> owners;
    for (const ActionGroup &group : actionTable())
        for (const Action &action : group.actions)
            for (const QKeySequence &key : action.keys) {
                const QString word = key.toString(QKeySequence::PortableText);
                if (word.isEmpty())
                    continue;
                EXPECT_TRUE(owners.emplace(word, action.id).second)
                    << word.toStdString() << ": " << owners[word].toStdString() << " and "
                    << action.id.toStdString();
            }
}

} // namespace
