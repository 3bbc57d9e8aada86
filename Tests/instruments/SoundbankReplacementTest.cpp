// SPDX-License-Identifier: MIT
#include <ZarnCore/instruments/soundbanks/ZarnSoundbankPatch.h>
#include <ZarnCore/instruments/soundbanks/ZarnSoundbankPatchReplacement.h>

#include <gtest/gtest.h>

#include <set>

namespace {

using namespace zarn;

TEST(SoundbankPatchReplacement, hasItsRows)
{
    const auto &rows = soundbankPatchReplacements();
    EXPECT_EQ(rows.size(), 175u);
    const std::set<std::pair<std::string, std::string>> distinct(rows.begin(), rows.end());
    EXPECT_EQ(distinct.size(), 173u);
    std::set<std::string> keys;
    for (const auto &[id, replacement] : distinct) {
        EXPECT_TRUE(keys.insert(id).second) << id << " has two replacements";
        EXPECT_NE(id, replacement);
        EXPECT_EQ(soundbankPatchReplacement(id), replacement);
    }
}

TEST(SoundbankPatchReplacement, standsForVariantsAndOlderForms)
{
    const std::pair<const char *, const char *> samples[] = {
        {"Dano-Guitar", "Strat-Guitar"},    {"Rockabilly-Guitar", "ES-Guitar"},
        {"WunderString-Pad", "Huge-Pad"},   {"Drumkit-Vintage", "Drumkit-Master"},
        {"Oak-Tom04", "Master-Tom04"},      {"Star-Tom05", "Master-Tom05"},
        {"Custom-China", "Master-China"},   {"Fretless JB", "Fretless-Bass"},
        {"Fretless-Bass", "Pre-Bass"},      {"Harpsicord-Key", "Harpsichord-Key"},
        {"CuicaHigh-Percu", "Cuica-Percu"}, {"Violin-Ensemble-Pizz", "Violin1-Ensemble-Pizz"},
        {"American-Mandolin", "D-Steel"},
    };
    for (const auto &[id, replacement] : samples)
        EXPECT_EQ(soundbankPatchReplacement(id), replacement) << id;
    for (const auto *id : {"Fab-Tom04", "Oak-Tom05", "Custom-Tom05", "Master-Snare", "Strat-Guitar",
                           "strat-guitar", ""})
        EXPECT_EQ(soundbankPatchReplacement(id), "") << id;
}

TEST(SoundbankPatchReplacement, isTriedBeforeTheIdentifierAndItsOwnReplacement)
{
    const auto resolved = [](std::initializer_list<const char *> known, const char *id) {
        SoundbankPatches patches;
        for (const auto *name : known)
            patches[name] = std::make_shared<SoundbankPatch>();
        const auto patch = resolveSoundbankPatch(patches, id);
        for (const auto &[name, candidate] : patches)
            if (candidate == patch)
                return name;
        return std::string("nothing");
    };
    EXPECT_EQ(resolved({"Fretless JB", "Fretless-Bass", "Pre-Bass"}, "Fretless JB"),
              "Fretless-Bass");
    EXPECT_EQ(resolved({"Fretless JB", "Pre-Bass"}, "Fretless JB"), "Fretless JB");
    EXPECT_EQ(resolved({"Pre-Bass"}, "Fretless JB"), "Pre-Bass");
    EXPECT_EQ(resolved({"Fretless-Bass", "Pre-Bass"}, "Fretless-Bass"), "Pre-Bass");
    EXPECT_EQ(resolved({"Fretless-Bass"}, "Fretless-Bass"), "Fretless-Bass");
    EXPECT_EQ(resolved({"Pre-Bass"}, "pre-bass"), "nothing");
    EXPECT_EQ(resolved({}, ""), "nothing");
}

} // namespace
