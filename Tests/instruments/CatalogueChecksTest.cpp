// SPDX-License-Identifier: MIT
#include "CatalogueChecks.h"

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
        {{"\"tunings\": [", "\"tunings\": [,", "line "},
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

} // namespace
