// SPDX-License-Identifier: MIT
// The user's tunings, and what may happen to their file.
#include <ZarnCore/instruments/tunings/ZarnGuitarTuningLibrary.h>

#include "support/CapturedLog.h"
#include "support/FileSizeLimit.h"
#include "support/FolderWatch.h"
#include "support/UserFileTest.h"

#include <QDomDocument>
#include <QFile>

#include <gtest/gtest.h>

#include <csignal>
#include <set>
#include <sys/wait.h>
#include <unistd.h>

namespace {

using zarn::GuitarTuning;
using zarn::GuitarTuningLibrary;
using zarn::test::CapturedLog;
using zarn::test::FileSizeLimit;

constexpr auto user = GuitarTuning::UserRole;

class UserTunings : public zarn::test::UserFileTest<&GuitarTuningLibrary::userTuningsPath> {
protected:
    static std::shared_ptr<GuitarTuning> tuning(const std::string &name,
                                                std::initializer_list<unsigned> pitches)
    {
        auto made = std::make_shared<GuitarTuning>(GuitarTuning::Guitar, pitches);
        made->setName(name);
        return made;
    }

    static std::vector<std::string> names(const GuitarTuningLibrary &library)
    {
        std::vector<std::string> names;
        for (const auto &tuning : library.getTunings(user))
            names.push_back(tuning->name());
        return names;
    }

    /// Names of the tunings that the file has now.
    static std::vector<std::string> stored()
    {
        GuitarTuningLibrary library;
        library.loadUserTunings();
        return names(library);
    }

    /// A document of tunings "0" to "count - 1", not in the form in which it is saved.
    static QByteArray foreignForm(int count)
    {
        QByteArray text = "<?xml version='1.0' encoding='UTF-8'?>\n<UserTunings>";
        for (int i = 0; i < count; ++i) {
            const auto number = QByteArray::number(i);
            text += "<Tuning Name='" + number + "'   Instrument='1'>";
            for (int string = i % 7; string >= 0; --string)
                text += "<MidiNumber Index='" + QByteArray::number(string) + "' Number='40'/>";
            text += "</Tuning>";
        }
        return text + "</UserTunings>";
    }

    GuitarTuningLibrary library;
};

TEST_F(UserTunings, areReadBackAsTheyWereSaved)
{
    const auto banjo = std::make_shared<GuitarTuning>(GuitarTuning::Banjo,
                                                      std::initializer_list<unsigned>{67, 50});
    banjo->setName("<\"&'>\n\xF0\x9F\xAA\x95 \x01");
    banjo->setShortDroneString(true);
    banjo->setFlat(true);
    const auto low = tuning("low", {39, 44, 49, 54, 58, 63});
    low->setMidiOffset(7);
    library.addTuning(low, user);
    library.addTuning(banjo, user);

    QDomDocument document;
    ASSERT_TRUE(document.setContent(read()));
    const auto first = document.documentElement().firstChildElement();
    EXPECT_EQ(document.documentElement().tagName(), QStringLiteral("UserTunings"));
    EXPECT_EQ(first.attribute(QStringLiteral("HasShortDroneString")), QStringLiteral("1"))
        << "fewer strings come first";
    EXPECT_EQ(first.attribute(QStringLiteral("Instrument")), QStringLiteral("4"));
    EXPECT_EQ(first.attribute(QStringLiteral("IsFlat")), QStringLiteral("1"));
    const auto second = first.nextSiblingElement(QStringLiteral("Tuning"));
    EXPECT_EQ(second.attribute(QStringLiteral("MidiOffset")), QStringLiteral("1")) << "computed";
    EXPECT_EQ(second.lastChildElement().attribute(QStringLiteral("Number")), QStringLiteral("63"));
    EXPECT_EQ(second.lastChildElement().attribute(QStringLiteral("Index")), QStringLiteral("5"));
    EXPECT_TRUE(read().contains("\n  <Tuning ") && read().contains("\n    <MidiNumber "));

    GuitarTuningLibrary other;
    other.loadUserTunings();
    const auto loaded = other.getTunings(user);
    ASSERT_EQ(loaded.size(), 2u);
    banjo->setName("<\"&'>\n\xF0\x9F\xAA\x95 \xEF\xBF\xBD"); // XML has no place for U+0001
    EXPECT_EQ(*loaded[0], *banjo);
    low->setMidiOffset(1);
    EXPECT_EQ(*loaded[1], *low);

    library.removeTuning(low->id(), user);
    library.removeTuning(banjo->id(), user);
    EXPECT_EQ(stored(), std::vector<std::string>{});
    EXPECT_EQ(files(), "xml");
}

TEST_F(UserTunings, loadingBringsTheFileIntoItsUsualForm)
{
    write(foreignForm(20));
    library.loadUserTunings();
    EXPECT_EQ(library.getTunings(user).size(), 20u);
    const auto saved = read();
    zarn::test::FolderWatch watch(folder());
    for (int start = 0; start < 3; ++start)
        GuitarTuningLibrary().loadUserTunings();
    library.loadUserTunings();
    EXPECT_EQ(watch.written(), std::vector<std::string>{}) << "it is in its usual form";
    EXPECT_EQ(library.getTunings(user).size(), 20u) << "in place of those before";
    library.saveUserTunings();
    for (const auto &name : watch.written())
        EXPECT_EQ(name, "userTuningLibrary.xml.lock") << "what is there already is not written";
    EXPECT_EQ(read(), saved);
    EXPECT_EQ(files(), "xml");
}

TEST_F(UserTunings, whatIsNoListOfTuningsLoadsNothingAndIsKeptBeforeItIsReplaced)
{
    const QByteArray deep = QByteArray("<UserTunings>") + QByteArray("<a>").repeated(100000);
    const QByteArray bomb = "<!DOCTYPE U [<!ENTITY a '0123456789'>"
                            "<!ENTITY b '&a;&a;&a;&a;&a;&a;&a;&a;&a;&a;'>"
                            "<!ENTITY c '&b;&b;&b;&b;&b;&b;&b;&b;&b;&b;'>"
                            "<!ENTITY d '&c;&c;&c;&c;&c;&c;&c;&c;&c;&c;'>]>"
                            "<UserTunings>&d;</UserTunings>";
    int round = 0;
    for (const QByteArray &text :
         {QByteArray("<Tunings><Tuning Name='a'/></Tunings>"), QByteArray("no XML"),
          QByteArray("<UserTunings><Tuning Name='a'>"), deep, bomb}) {
        write(text);
        library.addTuning(tuning("gone", {40}), GuitarTuning::NoRole);
        const CapturedLog log;
        library.loadUserTunings();
        EXPECT_TRUE(library.getTunings(user).empty());
        EXPECT_TRUE(read() == text) << "not rewritten";
        EXPECT_TRUE(log.hasWarning("zarn.core", {path().toStdString(), " is not read: "})) << round;

        library.addTuning(tuning("new", {40, 45}), user);
        EXPECT_EQ(stored(), std::vector<std::string>{"new"});
        const auto counter = ++round > 1 ? QStringLiteral("-%1").arg(round) : QString();
        EXPECT_TRUE(kept(counter) == text);
    }
}

TEST_F(UserTunings, whatCannotBeIsLeftOutAndKeptBeside)
{
    const QByteArray text =
        "<UserTunings><Tuning Name='odd' Instrument='77' IsFlat='yes'>"
        "<MidiNumber Number='50' Index='1'/><x><MidiNumber Number='41'/></x>"
        "</Tuning>"
        "<Tuning Name='a'><MidiNumber Number='60' Index='9'/></Tuning>"
        "<Tuning Name='b'><MidiNumber Number='60' Index='-1'/></Tuning>"
        "<Tuning Name='c'><MidiNumber Number='high' Index='0'/></Tuning>"
        "<Tuning Name='d'><MidiNumber Number='999999999999' Index='0'/></Tuning>"
        "<Tuning Name='e'><MidiNumber Number='60'/><MidiNumber Number='61'/></Tuning>"
        "<Song/><Tuning Name='good' Instrument='2'>"
        "<MidiNumber Number='200' Index='0'/></Tuning><Song/></UserTunings>";
    write(text);
    library.loadUserTunings();
    const auto tunings = library.getTunings(user);
    ASSERT_EQ(tunings.size(), 2u);
    EXPECT_EQ(tunings[0]->midiNumbers(), std::vector<int>{119});
    EXPECT_EQ(tunings[0]->instrument(), GuitarTuning::Bass);
    EXPECT_EQ(tunings[1]->midiNumbers(), (std::vector<int>{41, 50}));
    EXPECT_EQ(tunings[1]->instrument(), GuitarTuning::Undefined);
    EXPECT_FALSE(tunings[1]->isFlat());
    EXPECT_EQ(kept(), text);
    EXPECT_FALSE(read().contains("Song"));

    write(text);
    library.loadUserTunings();
    EXPECT_EQ(files(), "kept.xml xml") << "kept once";
}

TEST_F(UserTunings, whatOthersAddedIsTakenOver)
{
    write(foreignForm(1));
    library.addTuning(tuning("not loaded before", {40}), user);
    EXPECT_EQ(names(library), (std::vector<std::string>{"not loaded before", "0"}));
    GuitarTuningLibrary second;
    second.loadUserTunings();
    second.addTuning(tuning("second", {40}), user);
    second.removeTuning(second.getTunings(user)[0]->id(), user);
    EXPECT_EQ(stored(), (std::vector<std::string>{"0", "second"}));

    const auto mine = library.getTunings(user);
    mine[1]->setName("renamed");
    library.addTuning(tuning("first", {40}), user);
    const std::vector<std::string> all = {"not loaded before", "renamed", "first", "second"};
    EXPECT_EQ(names(library), all) << "what one of two removes stays";
    EXPECT_EQ(stored(), all);
    for (const auto &tuning : library.getTunings(user))
        library.removeTuning(tuning->id(), user);
    EXPECT_EQ(stored(), std::vector<std::string>{}) << "what was taken over can be removed";
    EXPECT_EQ(files(), "xml");
}

TEST_F(UserTunings, twoProgramsThatSaveAtTheSameTimeLoseNothing)
{
    constexpr int count = 60;
    std::vector<pid_t> children;
    for (const char *program : {"a", "b"}) {
        children.push_back(fork());
        ASSERT_GE(children.back(), 0);
        if (children.back() != 0)
            continue;
        GuitarTuningLibrary own;
        own.loadUserTunings();
        for (int i = 0; i < count; ++i)
            own.addTuning(tuning(program + std::to_string(i), {40, 45}), user);
        _exit(0);
    }
    for (const pid_t child : children)
        waitpid(child, nullptr, 0);
    const auto all = stored();
    EXPECT_EQ(all.size(), std::size_t{2 * count});
    EXPECT_EQ(std::set<std::string>(all.begin(), all.end()).size(), std::size_t{2 * count});
    EXPECT_EQ(files(), "xml");
}

TEST_F(UserTunings, aTuningWithTooManyStringsIsLeftOutAndKept)
{
    QByteArray text = "<UserTunings>\n<Tuning Name='harp'>";
    text += QByteArray("<MidiNumber Number='40'/>").repeated(300'000);
    text += "</Tuning><Tuning Name='x' MidiOffset='4000'/></UserTunings>";
    write(text);
    const CapturedLog log;
    library.loadUserTunings();
    EXPECT_EQ(names(library), std::vector<std::string>{"x"});
    EXPECT_EQ(library.getTunings(user)[0]->storedMidiOffset(), 0);
    EXPECT_TRUE(log.hasWarning("zarn.core",
                               {"read in part: line 2: a tuning has 300000 strings, and at most"}));
    EXPECT_TRUE(kept() == text);
}

TEST_F(UserTunings, aFullDiskLeavesEveryTuningThatWasThere)
{
    write(foreignForm(30));
    const auto before = read();
    {
        const FileSizeLimit limit(4096);
        const CapturedLog log;
        library.loadUserTunings();
        EXPECT_TRUE(log.hasWarning("zarn.core", {path().toStdString(), " is not saved: "}))
            << "with its reason";
        EXPECT_EQ(log.lines().size(), 1u) << "said once";
        library.addTuning(tuning("new", {40}), user);
        EXPECT_EQ(read(), before);
    }
    EXPECT_EQ(library.getTunings(user).size(), 31u);
    library.saveUserTunings();
    EXPECT_EQ(stored().size(), 31u);
    EXPECT_EQ(files(), "xml");

    // What cannot be kept is not replaced either.
    const auto foreign = foreignForm(60);
    write(foreign);
    {
        const FileSizeLimit limit(4096);
        library.saveUserTunings();
    }
    EXPECT_EQ(read(), foreign);
    EXPECT_EQ(files(), "xml");
}

TEST_F(UserTunings, aFolderThatCannotBeMadeIsLogged)
{
    QFile file(qEnvironmentVariable("XDG_DATA_HOME") + QStringLiteral("/file"));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    qputenv("XDG_DATA_HOME", file.fileName().toUtf8());
    const CapturedLog log;
    library.loadUserTunings();
    EXPECT_TRUE(log.lines().empty()) << "a missing file is no fault";
    library.addTuning(tuning("new", {40}), user);
    EXPECT_TRUE(log.hasWarning("zarn.core", {path().toStdString(), " is not saved: "}));
    EXPECT_EQ(library.getTunings(user).size(), 1u);
}

TEST_F(UserTunings, aCrashWhileLoadingLosesNothing)
{
    constexpr int count = 20;
    for (int round = 1; round <= 10; ++round) {
        write(foreignForm(count));
        const pid_t child = fork();
        ASSERT_GE(child, 0);
        if (child == 0) {
            GuitarTuningLibrary dying;
            for (;;)
                dying.loadUserTunings();
        }
        usleep(static_cast<useconds_t>(round * 2000));
        kill(child, SIGKILL);
        waitpid(child, nullptr, 0);
        EXPECT_EQ(stored().size(), std::size_t{count});
    }
}

} // namespace
