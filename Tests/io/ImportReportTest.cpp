// SPDX-License-Identifier: MIT
#include <ZarnCore/io/ZarnExportReport.h>
#include <ZarnCore/io/ZarnImportException.h>
#include <ZarnCore/io/ZarnImportReport.h>

#include <gtest/gtest.h>

using zarn::io::ImportException;
using zarn::io::ImportProblem;
using zarn::io::ImportReport;

TEST(ImportReport, placesCountFromOneAndLeaveOutWhatIsUnknown)
{
    EXPECT_EQ((ImportProblem{"odd", 0, 11, 345}.toString()), "part 1, bar 12, line 345: odd");
    EXPECT_EQ((ImportProblem{"odd", -1, -1, 7}.toString()), "line 7: odd");
    EXPECT_EQ((ImportProblem{"odd"}.toString()), "odd");
}

TEST(ImportReport, unheldElementsAddUpAndZeroLeavesNoTrace)
{
    ImportReport report;
    report.addUnheld("slur", 2);
    report.addUnheld("slur");
    report.addUnheld("lyric", 0);
    EXPECT_EQ(report.unheld().size(), 1u);
    EXPECT_EQ(report.unheld().at("slur"), 3u);
}

TEST(ExportReport, firstOfAKindKeepsItsPlace)
{
    zarn::io::ExportReport report;
    report.addUnheld("wah pedal", zarn::io::FormatPlace{1, 4});
    report.addUnheld("wah pedal", zarn::io::FormatPlace{0, 0});
    report.addUnheld("effect");
    EXPECT_EQ(report.unheld().at("wah pedal"), 2u);
    EXPECT_EQ(report.firstUnheld("wah pedal").toString("track"), "track 2, bar 5");
    EXPECT_EQ(report.firstUnheld("effect").toString(), "");
}

TEST(ImportException, isCaughtAsCoreExceptionWithDocumentPlaceAndReason)
{
    try {
        ZARN_REFUSE_IN("f", "a.xml", "line 3", "no root");
    } catch (const zarn::CoreException &error) {
        EXPECT_EQ(error.message(), "a.xml: line 3: no root");
        EXPECT_EQ(dynamic_cast<const ImportException &>(error).place(), "line 3");
        return;
    }
    FAIL() << "nothing was raised";
}
