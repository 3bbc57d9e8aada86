// SPDX-License-Identifier: MIT
#include "MusicXmlText.h"

#include <ZarnCore/model/ZarnScoreModel.h>

#include <gtest/gtest.h>

namespace {

using namespace zarn;

std::string part(const std::string &id, const std::string &midi = {})
{
    return "<score-part id=\"" + id + "\"><part-name>" + id + "</part-name>"
        + (midi.empty() ? "" : "<midi-instrument id=\"I\">" + midi + "</midi-instrument>")
        + "</score-part>";
}

std::shared_ptr<ScoreModel> importList(const std::string &list, const std::string &ids,
                                       io::ImportReport &report)
{
    std::string music;
    for (const char id : ids)
        music += std::string("<part id=\"") + id + "\"><measure/></part>";
    return musicxml::import("<score-partwise><part-list>" + list + "</part-list>" + music
                                + "</score-partwise>",
                            report);
}

std::string group(const char *number, const std::string &more)
{
    return std::string("<part-group type=\"start\" number=\"") + number + "\">" + more
        + "</part-group>";
}

std::string end(const char *number)
{
    return std::string("<part-group type=\"stop\" number=\"") + number + "\"/>";
}

TEST(PartListImportTest, groupsOfPartsBecomeGroupsOfTracks)
{
    io::ImportReport report;
    const auto model = importList(
        part("A")
            + group("1", "<group-name>Strings</group-name><group-symbol>bracket</group-symbol>")
            + group("2", "<group-symbol>brace</group-symbol><group-barline>yes</group-barline>")
            + part("B") + part("C") + end("2") + part("X") + part("D") + end("1"),
        "ABCD", report);
    const std::vector<TrackGroup> expected = {
        {1, 3, "Strings", GroupSymbol::Bracket, false},
        {1, 2, "", GroupSymbol::Brace, true},
    };
    EXPECT_EQ(model->trackGroups(), expected);
    EXPECT_TRUE(report.unheld().empty());
}

TEST(PartListImportTest, brokenGroupsAreMendedAndTold)
{
    io::ImportReport report;
    const auto model =
        importList(group("1", "") + end("1") + end("7") + part("A") + group("2", "") + part("B"),
                   "AB", report);
    const std::vector<TrackGroup> expected = {{1, 1, "", GroupSymbol::None, false}};
    EXPECT_EQ(model->trackGroups(), expected);
    EXPECT_EQ(report.problems().size(), 3U);
}

TEST(PartListImportTest, volumeAndPanAreThoseOfTheTrack)
{
    io::ImportReport report;
    const auto model = importList(part("A", "<volume>50</volume><pan>-45</pan>")
                                      + part("B", "<volume>300</volume><pan>135</pan>") + part("C"),
                                  "ABC", report);
    EXPECT_EQ(model->track(0)->volumePan(), ZarnVolumePan(0.25F, -0.5F));
    EXPECT_EQ(model->track(1)->volumePan(), ZarnVolumePan(1, 0.5F));
    EXPECT_EQ(model->track(2)->volumePan(), ZarnVolumePan());
}

} // namespace
