// SPDX-License-Identifier: MIT
#include "CatalogueChecks.h"

#include <QDir>
#include <QFile>

#include <gtest/gtest.h>

#include <algorithm>

namespace {

using namespace zarn::resources;

CatalogueFile builtIn(const char *name)
{
    QFile file(QStringLiteral(ZARN_SOURCE_DIR "/Resources/") + QLatin1String(name));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << name;
    return {name, file.readAll().toStdString()};
}

std::string allOf(const Complaints &complaints)
{
    std::string text;
    for (const std::string &complaint : complaints)
        text += complaint + '\n';
    return text;
}

/// A built-in file in which the first place of a text is changed.
CatalogueFile changed(CatalogueFile file, const std::string &from, const std::string &to)
{
    const auto place = file.text.find(from);
    EXPECT_NE(place, std::string::npos) << from;
    file.text.replace(place, from.size(), to);
    return file;
}

/// What is slipped into a sound file, and what is then complained about.
struct Slip {
    const char *from;
    const char *to;
    const char *complaint;
};

void expectComplaints(Complaints (*check)(const CatalogueFile &), const CatalogueFile &file,
                      std::initializer_list<Slip> slips)
{
    EXPECT_EQ(allOf(check(file)), "");
    for (const Slip &slip : slips) {
        const std::string complaints = allOf(check(changed(file, slip.from, slip.to)));
        EXPECT_NE(complaints.find(slip.complaint), std::string::npos) << slip.to << " gave:\n"
                                                                      << complaints;
        EXPECT_EQ(complaints.compare(0, file.name.size(), file.name), 0) << complaints;
    }
}

TEST(CatalogueChecks, everySlipInTheTuningsIsNamedWithItsPlace)
{
    const char *const standard = "{\"name\": \"Standard\", \"instrument\": \"Guitar\", "
                                 "\"midiNumbers\": [40, 45, 50, 55, 59, 64]}";
    expectComplaints(
        checkTunings, builtIn("instrumentSet/ZarnTunings.json"),
        {{"\"tunings\": [", "\"tunings\": [,", ":2:"},
         {"\"tunings\"", "\"tuning\"", "the array \"tunings\""},
         {"\"name\": ", "\"nam\": ", "tunings[0]: "},
         {"\"Guitar\"", "\"Gitar\"", "tunings[0]: there is no instrument \"Gitar\""},
         {"[40, ", "[4, ", "string 0 is out of the range of pitches"},
         {"\"midiNumbers\": [", "\"midiNumbers\": [40, 40, 40, 40, 40, 40, 40, ", "13 strings"},
         {"\"Guitar\"", "\"Guitar\", \"shortDrone\": true", "only a banjo"},
         {"\"Guitar\"", "\"Guitar\", \"ofset\": 1", "\"ofset\" means nothing here"},
         {"\"offset\": 1", "\"offset\": 4", "its offset is 4, by its strings 1"},
         {standard,
          "{\"name\": \"Standard\", \"instrument\": \"Guitar\", "
          "\"midiNumbers\": [41, 45, 50, 55, 59, 64]}",
          "is not that of a new \"steelGuitar\" track"},
         {"\"name\": \"Drop D\"", "\"name\": \"Standard\"", "has the same name"},
         {"[38, 45, 50, 55, 59, 64]", "[40, 45, 50, 55, 59, 64]", "has the same strings"}});
}

TEST(CatalogueChecks, everySlipInTheInstrumentSetsIsNamedWithItsPlace)
{
    const char *const kick = "\"inputs\": {\"midiNumbers\": [36]}";
    const char *const otherKick = "\"inputs\": {\"midiNumbers\": [35]}";
    expectComplaints(
        checkInstrumentSets, builtIn("instrumentSet/ZarnInstrumentSets.json"),
        {{"\"instrumentSets\": [", "\"instrumentSets\": [,", ":2:"},
         {"\"lineCount\": 5", "\"lineCount\": \"5\"", "instrumentSets[0]: "},
         {"\"frenchHorn\"", "\"frenchhorn\"", "there is no instrument \"frenchhorn\""},
         {"\"frenchHorn\"", "\"brass\"", "there is no set of the type \"frenchHorn\""},
         {"\"trombone\"", "\"trumpet\"", "another set of the type \"trumpet\""},
         {"\"articulations\": []", "\"articulations\": [], \"articulation\": 1",
          "\"articulation\" means nothing here"},
         {"noteheadXBlack", "noteheadCrossBlack", "there is no glyph \"noteheadCrossBlack\""},
         {"\"inside\"", "\"within\"", "there is no placement \"within\""},
         {kick, otherKick, "enters \"Kick Drum (hit)\" already"},
         {kick, otherKick, "the drum kit has no articulation for key 36"},
         {"\"Snare (side stick)\"", "\"Snare (hit)\"", "there is another one of this name"}});
}

std::vector<CatalogueFile> builtInsOf(const char *folder)
{
    std::vector<CatalogueFile> files;
    const QDir place(QStringLiteral(ZARN_SOURCE_DIR "/Resources/") + QLatin1String(folder));
    for (const QString &name : place.entryList(QDir::Files, QDir::Name))
        files.push_back(builtIn((QLatin1String(folder) + QLatin1Char('/') + name).toUtf8()));
    return files;
}

TEST(CatalogueChecks, everySlipInTheSoundsIsNamedWithItsFile)
{
    const SoundFiles files = {builtIn("instrumentSet/ZarnInstrumentSets.json"),
                              builtInsOf("soundbankPatches"), builtInsOf("soundbanks"),
                              builtInsOf("notationPatch")};
    EXPECT_EQ(allOf(checkSounds(files)), "");
    const auto complaintsAfter = [&files](std::vector<CatalogueFile> SoundFiles::*kind,
                                          const char *name, const char *from, const char *to) {
        SoundFiles slipped = files;
        for (CatalogueFile &file : slipped.*kind)
            if (file.name == name)
                file = changed(file, from, to);
        return allOf(checkSounds(slipped));
    };
    struct SoundSlip {
        std::vector<CatalogueFile> SoundFiles::*kind;
        const char *name;
        Slip slip;
    };
    const char *const kit = "soundbankPatches/Drumkit-Master.json";
    const char *const steel = "soundbanks/12-Steel.zarn7bank";
    const SoundSlip slips[] = {
        {&SoundFiles::patches,
         kit,
         {"\"Master-Snare\"", "\"Master-Sneer\"", "no bank \"Master-Sneer\""}},
        {&SoundFiles::patches, kit, {"\"Snare\"", "\"Sneer\"", "has no element \"Sneer\""}},
        {&SoundFiles::patches,
         kit,
         {"\"drumKit\"", "\"drumkit\"", "no instrument set \"drumkit\""}},
        {&SoundFiles::patches,
         kit,
         {"\"Drumkit-Master\"", "\"Drumkit\"", "its name is to be \"Drumkit.json\""}},
        {&SoundFiles::patches,
         kit,
         {"\"Drumkit-Master\"", "\"Drumkit\"", "no patch for the identifier \"Drumkit-Oak\""}},
        {&SoundFiles::banks, steel, {"\"12-Steel\"", "\"12\"", "no bank \"12-Steel\""}},
        {&SoundFiles::banks, steel, {"\"steelGuitar\"", "\"ironGuitar\"", "\"ironGuitar\""}},
        {&SoundFiles::notationPatches,
         "notationPatch/Standard.json",
         {"\"name\"", "\"title\"", "\"name\""}},
    };
    for (const auto &[kind, name, slip] : slips) {
        const std::string complaints = complaintsAfter(kind, name, slip.from, slip.to);
        EXPECT_NE(complaints.find(slip.complaint), std::string::npos) << slip.to << " gave:\n"
                                                                      << complaints;
        EXPECT_NE(complaints.find(std::string(name) + ":"), std::string::npos) << complaints;
    }
}

} // namespace
