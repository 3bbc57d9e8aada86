// SPDX-License-Identifier: MIT
// Titles and names that a document has as text on its first page alone.
#include "MusicXmlText.h"

#include <gtest/gtest.h>

using zarn::ScoreProperty;
using zarn::io::ImportReport;

namespace {

constexpr ScoreProperty properties[] = {ScoreProperty::Title,  ScoreProperty::Subtitle,
                                        ScoreProperty::Music,  ScoreProperty::Words,
                                        ScoreProperty::Tabber, ScoreProperty::Copyright};

/// The properties of a document with such a header, one to a line; then the credits not held.
std::string held(const std::string &header)
{
    auto text = musicxml::score(musicxml::measure(musicxml::note("C", 4, 4)));
    text.insert(text.find("<part-list>"), header);
    ImportReport report;
    const auto model = musicxml::import(text, report);
    std::string result;
    for (const auto property : properties)
        result += model->property(property) + "|";
    const auto unheld = report.unheld().find("credit");
    return result + std::to_string(unheld == report.unheld().end() ? 0 : unheld->second);
}

std::string placed(const std::string &text, const std::string &justify, int y, int size)
{
    return "<credit page=\"1\"><credit-words justify=\"" + justify + "\" default-y=\""
        + std::to_string(y) + "\" font-size=\"" + std::to_string(size) + "\">" + text
        + "</credit-words></credit>";
}

std::string typed(const std::string &type, const std::string &text, int page = 1)
{
    return "<credit page=\"" + std::to_string(page) + "\"><credit-type>" + type
        + "</credit-type><credit-words>" + text + "</credit-words></credit>";
}

const std::string sheet = "<defaults><scaling><millimeters>7</millimeters><tenths>40</tenths>"
                          "</scaling><page-layout><page-height>1683</page-height>"
                          "<page-width>1190</page-width></page-layout></defaults>";

} // namespace

TEST(CreditImport, fillsWhatTheHeaderLeavesEmptyByTypeOrPlace)
{
    EXPECT_EQ(held(sheet + placed("from a suite", "center", 1560, 14)
                   + placed("The Dudes", "center", 1627, 24) + placed("A. B.", "right", 1527, 12)
                   + placed("Shuffle", "left", 1527, 12) + placed("(C) A. B.", "center", 113, 8)),
              "The Dudes|from a suite|A. B.|||(C) A. B.|1")
        << "the largest is the title, and what stands left may be a tempo";
    EXPECT_EQ(held(sheet + typed("title", "Song") + typed("lyricist", "C. D.")
                   + typed("arranger", "E. F.") + placed("So ng", "center", 1627, 24)),
              "Song|||C. D.|E. F.||0")
        << "what repeats a property is held by it";
    EXPECT_EQ(held(sheet
                   + "<credit><credit-words justify=\"center\" default-y=\"1500\">J. S.\n"
                     "</credit-words><credit-words>Bach</credit-words></credit>"),
              "J. S. Bach||||||0");
}

TEST(CreditImport, changesNothingThatTheHeaderSaysAndTakesNoNumberOfAPage)
{
    const std::string named = "<work><work-title>Song</work-title></work><identification>"
                              "<creator type=\"composer\">A. B.</creator></identification>"
        + sheet;
    EXPECT_EQ(held(named + placed("SONG", "center", 1627, 24) + placed("A. B.", "right", 1527, 12)
                   + placed("x", "right", 1500, 12)),
              "Song|SONG|A. B.||||1");
    EXPECT_EQ(
        held("<work><work-title>Song</work-title></work><movement-title>Song</movement-title>"),
        "Song||||||0")
        << "one work of one movement has no subtitle";
    EXPECT_EQ(held(sheet + placed("2", "center", 60, 10) + placed("3", "right", 1650, 10)
                   + typed("page number", "1") + typed("title", "of the second page", 2)
                   + "<credit><credit-words>nowhere</credit-words></credit>"),
              "||||||5");
}
