// SPDX-License-Identifier: MIT
#include <ZarnCore/ZarnException.h>
#include <ZarnCore/instruments/tunings/ZarnGuitarTuningLibrary.h>

#include <QTemporaryDir>

#include <gtest/gtest.h>
#include <rapidjson/document.h>

namespace {

using zarn::CoreException;
using zarn::GuitarTuning;
using zarn::GuitarTuningLibrary;

constexpr auto core = GuitarTuning::CoreRole;
constexpr auto user = GuitarTuning::UserRole;
constexpr auto all = GuitarTuningLibrary::allRoles;

/// Keeps the user's files of a test in a folder of its own.
class GuitarTuningLibraryTest : public testing::Test {
protected:
    GuitarTuningLibraryTest() { qputenv("XDG_DATA_HOME", _folder.path().toUtf8()); }
    ~GuitarTuningLibraryTest() override { qunsetenv("XDG_DATA_HOME"); }

    std::shared_ptr<GuitarTuning> add(const char *name, GuitarTuning::Instrument instrument,
                                      std::initializer_list<unsigned> pitches,
                                      GuitarTuning::Role role = core)
    {
        auto tuning = std::make_shared<GuitarTuning>(instrument, pitches);
        tuning->setName(name);
        library.addTuning(tuning, role);
        return tuning;
    }

    GuitarTuningLibrary library;

private:
    QTemporaryDir _folder;
};

std::string faultOf(GuitarTuningLibrary &library, const char *text)
{
    rapidjson::Document document;
    document.Parse(text);
    try {
        library.parse(document);
    } catch (const CoreException &error) {
        return error.message();
    }
    return "(none)";
}

TEST_F(GuitarTuningLibraryTest, aBrokenCatalogueSaysWhereAndAddsNothing)
{
    const std::string good = R"({"name": "a", "instrument": "Guitar", "midiNumbers": [40]})";
    EXPECT_EQ(faultOf(library, ("[" + good + R"(, {"name": "b", "instrument": "Bass"}])").c_str()),
              "tunings[1]: Broken tuning: \"midiNumbers\" is missing or no array");
    EXPECT_EQ(faultOf(library, ("[" + good + ", 7]").c_str()),
              "tunings[1]: Broken tuning: it is no object");
    for (const char *text : {"{}", "[", "", "null", "{\"tunings\": []}"})
        EXPECT_EQ(faultOf(library, text), "tunings: it is no array");
    EXPECT_TRUE(library.getTunings(all).empty());

    EXPECT_EQ(faultOf(library, ("[" + good + "]").c_str()), "(none)");
    ASSERT_EQ(library.getTunings(core).size(), 1u);
    EXPECT_EQ(library.getTunings(core)[0]->role(), core);
    EXPECT_TRUE(library.getTunings(user).empty());
}

TEST_F(GuitarTuningLibraryTest, aTuningStandsInTheStoreOfItsRoleAlone)
{
    const auto tuning = add("mine", GuitarTuning::Guitar, {40, 45}, core);
    library.addTuning(tuning, user);
    EXPECT_EQ(tuning->role(), user);
    EXPECT_TRUE(library.getTunings(core).empty());
    EXPECT_EQ(library.getTunings(user).size(), 1u);

    library.removeTuning(tuning->id(), core);
    library.removeTuning(tuning->id(), all);
    EXPECT_EQ(library.getTunings(user).size(), 1u) << "another role, no role";
    library.addTuning(tuning, GuitarTuning::NoRole);
    EXPECT_TRUE(library.getTunings(all).empty());
    library.addTuning(nullptr, user);
    library.removeTuning(77, user);
    EXPECT_TRUE(library.getTunings(all).empty());
}

TEST_F(GuitarTuningLibraryTest, aRestringedTuningIsStillFoundMovedAndRemoved)
{
    for (const auto role : {core, user}) {
        const auto other = add("other", GuitarTuning::Bass, {28, 33}, role);
        const auto tuning = add("mine", GuitarTuning::Guitar, {40, 45}, role);
        tuning->setMidiNumbers({35, 40, 45});
        const auto id = tuning->id();
        EXPECT_EQ(library.findGuitarTuning(id, 2, role), tuning) << "as it was added";
        EXPECT_EQ(library.findGuitarTuning(id, 3, role), tuning) << "as it is";
        EXPECT_EQ(library.findGuitarTuning(id, 4, role), nullptr);
        EXPECT_EQ(library.findGuitarTuning(id, role), tuning);
        EXPECT_EQ(library.findGuitarTuning({35, 40, 45}, 3, role), tuning);
        EXPECT_EQ(library.defaultTuning(3, role), tuning);
        EXPECT_EQ(library.stringCounts(), (std::vector<unsigned>{2, 3}));

        library.addTuning(tuning, role);
        EXPECT_EQ(library.getTunings(role).size(), 2u) << "moved, not doubled";
        tuning->setMidiNumbers({35});
        library.removeTuning(id, role);
        EXPECT_EQ(library.getTunings(role), GuitarTuningLibrary::Tunings{other});
        EXPECT_EQ(library.findGuitarTuning(id, all), nullptr);
        library.removeTuning(other->id(), role);
    }
    EXPECT_TRUE(library.stringCounts().empty());
}

TEST_F(GuitarTuningLibraryTest, searchesTakeTheFirstOfTheStoresInOrder)
{
    const auto users = add("Standard", GuitarTuning::Guitar, {40, 45}, user);
    const auto wide = add("Standard", GuitarTuning::Guitar, {35, 40, 45});
    const auto first = add("Standard", GuitarTuning::Guitar, {40, 45});
    const auto second = add("Standard", GuitarTuning::Guitar, {40, 45});
    const auto bass = add("Low", GuitarTuning::Bass, {40, 45});

    EXPECT_EQ(library.findGuitarTuning("Standard", {40, 45}), first);
    EXPECT_EQ(library.findGuitarTuning("standard", {40, 45}), nullptr);
    EXPECT_EQ(library.findGuitarTuning({40, 45}, 2, all), first);
    EXPECT_EQ(library.findGuitarTuning({40, 45}, 2, user), users);
    EXPECT_EQ(library.findGuitarTuning({40, 45}, 3, all), nullptr);
    EXPECT_EQ(library.findGuitarTuning({40, 45}, 2, GuitarTuning::NoRole), nullptr);
    EXPECT_EQ(library.findGuitarTuning(first->id(), 2, user), nullptr);
    EXPECT_EQ(library.findGuitarTuning("Low", GuitarTuning::Bass, 2, all), bass);
    EXPECT_EQ(library.findGuitarTuning("Low", GuitarTuning::Guitar, 2, all), nullptr);

    EXPECT_EQ(library.getTunings(all),
              (GuitarTuningLibrary::Tunings{first, second, bass, wide, users}));
    EXPECT_EQ(library.getTunings(2, core), (GuitarTuningLibrary::Tunings{first, second, bass}));
    EXPECT_EQ(library.getTunings(GuitarTuning::Guitar, core),
              (GuitarTuningLibrary::Tunings{first, second, wide}));
    EXPECT_EQ(library.defaultTuning(GuitarTuning::Bass, 2, all), bass);
    EXPECT_EQ(library.defaultTuning(GuitarTuning::Banjo, 5, all), nullptr);
    EXPECT_EQ(library.instruments(),
              (std::vector<GuitarTuning::Instrument>{GuitarTuning::Guitar, GuitarTuning::Bass}));
}

TEST_F(GuitarTuningLibraryTest, searchesCompareInTheWayOfTheirMode)
{
    const auto builtIn = add("A", GuitarTuning::Guitar, {40, 45});
    const auto users = add("A", GuitarTuning::Guitar, {40, 45}, user);
    GuitarTuning wanted(*users);
    wanted.setMidiOffset(3);
    const auto find = [&](unsigned options, unsigned roles, int mode, GuitarTuning::Role role) {
        return library.findGuitarTuning(wanted, options, roles,
                                        static_cast<GuitarTuning::ComparisonMode>(mode), role);
    };
    for (const int mode : {0, 1}) {
        EXPECT_EQ(find(GuitarTuning::ComparePitches, all, mode, core), builtIn);
        EXPECT_EQ(find(GuitarTuning::ComparePitches, all, mode, user), users) << "its store first";
        EXPECT_EQ(find(GuitarTuning::ComparePitches, core, mode, user), builtIn);
        EXPECT_EQ(find(GuitarTuning::CompareAll, all, mode, core), users);
    }
    EXPECT_EQ(find(GuitarTuning::CompareAll, all, 2, core), nullptr) << "the offset counts too";
    wanted.setMidiOffset(0);
    EXPECT_EQ(find(0, all, 2, core), users);
}

TEST_F(GuitarTuningLibraryTest, displayNamesPreferTheBuiltInTuning)
{
    const GuitarTuning tuning(GuitarTuning::Guitar, {38, 45});
    EXPECT_EQ(library.tuningDisplayName(tuning), QStringLiteral("Custom"));
    add("mine", GuitarTuning::Guitar, {38, 45}, user);
    add("a bass", GuitarTuning::Bass, {38, 45});
    EXPECT_EQ(library.tuningDisplayName(tuning), QStringLiteral("mine"));
    add("Drop \xE2\x99\xAD", GuitarTuning::Guitar, {38, 45});
    EXPECT_EQ(library.tuningDisplayName(tuning), QString::fromUtf8("Drop ♭"));
}

} // namespace
