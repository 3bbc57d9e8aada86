// SPDX-License-Identifier: MIT
#include "StartedCore.h"

#include "programs/SecondLibrary.h"

#include <ZarnCore/ZarnException.h>
#include <ZarnCore/ZarnLog.h>
#include <ZarnCore/instruments/sets/ZarnInstrumentSetLibrary.h>
#include <ZarnCore/instruments/soundbanks/ZarnSoundbank.h>
#include <ZarnCore/instruments/soundbanks/ZarnSoundbankPatch.h>
#include <ZarnCore/instruments/tunings/ZarnGuitarTuningLibrary.h>
#include <ZarnCore/model/ZarnTrack.h>
#include <ZarnCore/utils/SignalContainer.h>
#include <filesystem/RAMFileSystem.h>

#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <string>
#include <thread>
#include <vector>

namespace zarn::test {

StartedCore &StartedCore::instance()
{
    // Owned by GoogleTest.
    static auto *const started = dynamic_cast<StartedCore *>(
        testing::AddGlobalTestEnvironment(std::make_unique<StartedCore>().release()));
    return *started;
}

} // namespace zarn::test

namespace {

using zarn::Core;
using zarn::test::CapturedLog;
using zarn::test::StartedCore;

[[maybe_unused]] const StartedCore &started = StartedCore::instance();

std::string contentOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll().toStdString() : "(no file)";
}

/// Exit code of a run of its own; -1 when it was killed.
int runOf(const QStringList &arguments)
{
    QProcess process;
    process.setProcessChannelMode(QProcess::ForwardedChannels);
    process.start(QStringLiteral(ZARN_BINARY_DIR "/bin/zarn_core_run"), arguments);
    process.waitForFinished(120000);
    return process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1;
}

TEST(Core, startLogsItsStepsInTheirOrder)
{
    const std::vector<std::string> expected = {
        "Parsing ZarnTunings configuration file (json)...",
        "Finished parsing ZarnTuning configuration file (json).",
        "Parsing ZarnInstrumentSet configuration file (json)...",
        "Finished parsing ZarnInstrumentSet configuration file (json).",
        "Parsing General Midi file ...",
        "Finished parsing General Midi file.",
    };
    EXPECT_EQ(StartedCore::instance().startLines, expected);
}

TEST(Core, oneCallMakesTheCataloguesKnown)
{
    Core &core = Core::instance();
    EXPECT_EQ(core.fileSystem(), &StartedCore::instance().files);
    EXPECT_GE(core.tuningLibrary().getTunings(zarn::GuitarTuning::CoreRole).size(), 150U);
    EXPECT_NE(core.instrumentSetLibrary().findInstrumentSetWithType(zarn::InstrumentSet::drumKit),
              nullptr);
    EXPECT_EQ(zarn::InstrumentSetLibrary::installed(), &core.instrumentSetLibrary());
    const auto guitar = core.findGMInstrument(24);
    ASSERT_NE(guitar, nullptr);
    EXPECT_EQ(guitar->type(), zarn::InstrumentSet::nylonGuitar);
    EXPECT_EQ(core.findGMPercussion(60), core.findGMPercussion(35));
    EXPECT_TRUE(core.findGMPercussionPath(60).contains(QStringLiteral(".060.")));
    const auto tom = core.findSoundbankPatch("Oak-Tom04");
    ASSERT_NE(tom, nullptr);
    EXPECT_EQ(tom->id(), "Master-Tom04");
    EXPECT_EQ(core.soundbankPatches().at("Master-Tom04"), tom);
    ASSERT_NE(core.findSoundbank("Huge-Pad"), nullptr);
    EXPECT_EQ(core.soundbanks().at("Huge-Pad")->name(), "Huge");
    EXPECT_TRUE(core.notationPatches().empty());
    core.loadNotationPatches();
    EXPECT_NE(core.findNotationPatch("Grand Staff"), nullptr);
    EXPECT_EQ(core.currentVersion(), 6000);
    EXPECT_EQ(core.maxNoteStringsCount(), 12);
}

TEST(Core, startingAgainTakesTheNewFileSystemAndLoadsNothingTwice)
{
    Core &core = Core::instance();
    const auto tunings =
        core.tuningLibrary().getTunings(zarn::GuitarTuningLibrary::allRoles).size();
    const auto sets = core.instrumentSetLibrary().instrumentSets().size();
    const unsigned importers = core.importersCount();
    filesystem::RAMFileSystem other;
    CapturedLog log;
    Core::initialize(&other);
    EXPECT_EQ(core.fileSystem(), &other);
    Core::initialize(&StartedCore::instance().files, QString());
    EXPECT_EQ(core.fileSystem(), &StartedCore::instance().files);
    EXPECT_EQ(core.tuningLibrary().getTunings(zarn::GuitarTuningLibrary::allRoles).size(), tunings);
    EXPECT_EQ(core.instrumentSetLibrary().instrumentSets().size(), sets);
    EXPECT_EQ(core.importersCount(), importers);
    EXPECT_TRUE(log.lines().empty());
}

TEST(Core, ownFormatsAreRegistered)
{
    const Core &core = Core::instance();
    ASSERT_EQ(core.importersCount(), 3U);
    EXPECT_EQ(core.importerExtensions(0), QStringList{QStringLiteral("zarn")});
    EXPECT_EQ(core.importerVisibleExtensions(1), core.importerExtensions(1));
    EXPECT_EQ(core.importerDescription(1), QStringLiteral("MusicXML"));
    ASSERT_GE(core.exportersCount(), 6U);
    EXPECT_EQ(core.exporterExtensions(0), std::list<std::string>{"zarn"});
    EXPECT_FALSE(core.exporterDescription(0).empty());
    EXPECT_THROW(core.importerDescription(3), zarn::CoreException);
}

TEST(Core, everyThreadSeesTheSameObjects)
{
    std::vector<std::vector<const void *>> seen(4);
    std::vector<std::thread> threads;
    for (auto &objects : seen)
        threads.emplace_back([&objects] {
            const Core &core = Core::instance();
            objects = {&core, core.ramFileSystem(), core.findGMInstrument(0).get(),
                       &core.soundbanks(), core.findGMPercussion(40).get()};
        });
    for (std::thread &thread : threads)
        thread.join();
    for (const auto &objects : seen)
        EXPECT_EQ(objects, seen.front());
}

TEST(Core, everyLibraryOfTheProcessSeesTheSameObjects)
{
    const std::vector<const void *> ours = {
        &Core::instance(), &zarn::log::core(), &zarn::log::soundfonts(),
        &utils::SignalContainerBase::priorityMap(), zarn::InstrumentSetLibrary::installed()};
    EXPECT_EQ(addressesSeenByTheSecondLibrary(), ours);
}

TEST(Core, runAfterAKilledOneHasItsLog)
{
    const QTemporaryDir folder;
    ASSERT_EQ(runOf({QStringLiteral("crash"), folder.path()}), -1);
    Core &core = Core::instance();
    EXPECT_EQ(core.logCommandStackFile(), nullptr);
    try {
        core.initLogFiles(folder.path());
        FAIL() << "no crash was reported";
    } catch (const zarn::LogCrashException &crash) {
        EXPECT_STREQ(crash.what(),
                     "previous run crashed (file: ZarnCore line: 756 func: "
                     "zarn::Core::initLogFiles)");
        EXPECT_EQ(crash.getLogFilename(), core.zippedLastLogPath());
        EXPECT_TRUE(core.createLogFromLgz(crash.getLogFilename(), core.unzippedLastLogPath()));
    }
    EXPECT_EQ(contentOf(core.unzippedLastLogPath()), "[RUN]\r\nin the middle of something\r\n");
    EXPECT_EQ(contentOf(core.logPath()), "[RUN]\r\n") << "the new log is open";
    core.writeToLog(QStringLiteral("nothing"));
    core.closeLogFilesWithQuitTag();
    EXPECT_EQ(contentOf(core.logPath()), "[RUN]\r\n[QUIT]\r\n");
    EXPECT_NO_THROW(core.initLogFiles(folder.path()));
    core.closeLogFiles();
    EXPECT_TRUE(core.wasThereACrash(core.logPath()));
}

TEST(Core, runThatEndsWhileTheCoreStillLoadsEndsWell)
{
    for (int i = 0; i < 10; ++i)
        EXPECT_EQ(runOf({QStringLiteral("end")}), 0);
}

} // namespace
