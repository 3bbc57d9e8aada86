// SPDX-License-Identifier: MIT
#include <ZarnCore/core/InstalledSounds.h>

#include "support/CapturedLog.h"

#include <ZarnCore/ZarnCore.h>
#include <ZarnCore/ZarnException.h>
#include <ZarnCore/instruments/sets/ZarnNotationPatch.h>
#include <ZarnCore/instruments/soundbanks/ZarnHVSoundFont.h>
#include <ZarnCore/instruments/soundbanks/ZarnSoundbank.h>
#include <ZarnCore/instruments/soundbanks/ZarnSoundbankPatch.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QThreadPool>

#include <gtest/gtest.h>

#include <string>

namespace {

using zarn::InstalledSounds;
using zarn::test::CapturedLog;

constexpr auto category = "zarn.core.sounfonts";

class InstalledSoundsTest : public testing::Test {
protected:
    QString add(const char *name, const std::string &text)
    {
        const QString path = folder.filePath(QLatin1String(name));
        QDir().mkpath(QFileInfo(path).path());
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly)) << name;
        file.write(text.c_str());
        return path;
    }
    QString addBank(const char *name, const std::string &id, const std::string &title)
    {
        return add(name,
                   R"({"id": ")" + id + R"(", "name": ")" + title
                       + R"(", "instrument": "electricGuitar"})");
    }
    QString addPatch(const char *name, const std::string &id, const std::string &title)
    {
        return add(name,
                   R"({"id": ")" + id + R"(", "name": ")" + title
                       + R"(", "description": "", "instrumentSet": "electricGuitar",
                            "soundbanks": []})");
    }
    std::string nameOfPatch(const std::string &id) const
    {
        const auto patch = sounds.soundbankPatch(id);
        return patch != nullptr ? patch->name() : "none";
    }

    QTemporaryDir folder;
    InstalledSounds sounds;
};

TEST_F(InstalledSoundsTest, banksOfAFolderAreKnownByTheirIds)
{
    addBank("b.zarn7bank", "B-Guitar", "Second");
    addBank("a.zarn7bank", "A-Guitar", "First");
    addBank("a.zarn7bank.old", "C-Guitar", "Old");
    addBank("a.ZARN7BANK", "D-Guitar", "Loud");
    addBank("deeper/e.zarn7bank", "E-Guitar", "Deep");
    add("broken.zarn7bank", "{");
    CapturedLog log;
    sounds.loadBankFolder(folder.path());
    EXPECT_EQ(sounds.banks().size(), 2U);
    ASSERT_NE(sounds.soundbank("A-Guitar"), nullptr);
    EXPECT_EQ(sounds.soundbank("A-Guitar")->name(), "First");
    EXPECT_EQ(sounds.soundbank("First"), nullptr);
    EXPECT_TRUE(log.hasWarning(category, {"broken.zarn7bank"}));
    EXPECT_EQ(log.lines().size(), 1U);
    sounds.loadBankFolder(folder.filePath(QStringLiteral("nowhere")));
    sounds.loadBank(QString());
    EXPECT_EQ(log.lines().size(), 1U) << "nothing to load is no failure";
}

TEST_F(InstalledSoundsTest, laterBankOfTheSameIdReplacesAndIsAnnounced)
{
    addBank("1.zarn7bank", "A-Guitar", "From 1");
    addBank("2.zarn7bank", "A-Guitar", "From 2");
    const QString other = addBank("other/name.txt", "A-Guitar", "From elsewhere");
    CapturedLog log;
    sounds.loadBankFolder(folder.path());
    EXPECT_EQ(sounds.soundbank("A-Guitar")->name(), "From 2") << "in the order of file names";
    sounds.loadBank(other);
    EXPECT_EQ(sounds.soundbank("A-Guitar")->name(), "From elsewhere");
    const auto texts = log.texts(category);
    ASSERT_EQ(texts.size(), 2U);
    EXPECT_EQ(texts.back(), "Bank A-Guitar overrided (" + other.toStdString() + ")\n");
    EXPECT_EQ(log.lines().back().type, QtInfoMsg);
}

TEST_F(InstalledSoundsTest, damagedPatchesAreSkippedWithFileAndReason)
{
    addPatch("a.json", "A-Guitar", "A");
    addPatch("b.json", "A-Guitar", "Later A");
    add("c.json", "{\n  no json");
    add("d.json", R"({"id": "D-Guitar"})");
    addPatch("e.json.txt", "E-Guitar", "E");
    add("f.json", std::string(5 << 20, ' '));
    CapturedLog log;
    sounds.loadPatchFolder(folder.path());
    EXPECT_EQ(nameOfPatch("A-Guitar"), "Later A");
    EXPECT_EQ(sounds.patches().size(), 1U);
    EXPECT_TRUE(log.hasWarning(category, {"skipped", "c.json:2:3"}));
    EXPECT_TRUE(log.hasWarning(category, {"skipped", "d.json: ", "\"name\""}));
    EXPECT_TRUE(log.hasWarning(category, {"skipped", "f.json: "}));
}

TEST_F(InstalledSoundsTest, patchIsFoundByWayOfItsReplacement)
{
    addPatch("a.json", "Strat-Guitar", "Strat");
    addPatch("b.json", "Tele-Guitar", "Tele");
    addPatch("c.json", "Pre-Bass", "Pre");
    sounds.loadPatchFolder(folder.path());
    EXPECT_EQ(nameOfPatch("Tele-Guitar"), "Strat") << "the replacement goes first";
    EXPECT_EQ(nameOfPatch("Fretless JB"), "Pre") << "the replacement has one of its own";
    EXPECT_EQ(nameOfPatch("Strat-Guitar"), "Strat");
    EXPECT_EQ(nameOfPatch("Rick12-Guitar"), "none");
}

TEST_F(InstalledSoundsTest, brokenNotationPatchOfTheLibraryIsRefusedWithItsName)
{
    const QString path = add("x.json", R"({"name": ""})");
    try {
        sounds.loadNotationPatches(folder.path());
        FAIL() << "nothing was raised";
    } catch (const zarn::CoreException &error) {
        EXPECT_EQ(error.message().rfind(path.toStdString() + ": ", 0), 0U) << error.message();
    }
    EXPECT_EQ(sounds.notationPatch("x"), nullptr);
}

TEST_F(InstalledSoundsTest, whatAsksDuringTheLoadingWaitsForIt)
{
    QThreadPool pool;
    sounds.startLoading(pool);
    const auto expected = sounds.patches().size();
    sounds.waitUntilLoaded();
    EXPECT_EQ(sounds.patches().size(), expected);
    EXPECT_EQ(expected, zarn::Core::instance().soundbankPatches().size());
}

TEST(Core, unknownPatchIsEmptyWithTheSpelledWarning)
{
    CapturedLog log;
    EXPECT_EQ(zarn::Core::instance().findSoundbankPatch("No such thing"), nullptr);
    EXPECT_EQ(zarn::Core::instance().findSoundbank("No such thing"), nullptr);
    EXPECT_EQ(zarn::Core::instance().findNotationPatch("No such thing"), nullptr);
    EXPECT_EQ(log.texts("zarn.core"),
              std::vector<std::string>{
                  "[ZarnCore] zarn::Core::findSoundbankSet : id not found : No such thing"});
    EXPECT_EQ(log.lines().size(), 1U);
}

} // namespace
