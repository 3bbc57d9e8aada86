// SPDX-License-Identifier: MIT
#include "Scores.h"

#include <support/NativeDocument.h>

#include <ZarnCore/io/ZarnMusicXmlImporter.h>

#include <gtest/gtest.h>

using namespace zarn;

TEST(NativeRealScores, everyImportedScoreComesBackEqualAndIsWrittenAlike)
{
    if (!scores::areHere())
        GTEST_SKIP() << "no scores in " << scores::folder().toStdString();
    const QDir folder(scores::folder() + QStringLiteral("/musicxml"));
    unsigned count = 0;
    for (const QFileInfo &file : folder.entryInfoList(QDir::Files)) {
        SCOPED_TRACE(file.fileName().toStdString());
        io::ImportReport imported;
        const auto score = scores::importFile(file.filePath(), imported);
        ASSERT_TRUE(score);
        const std::string document = test::writeNative(*score);
        io::ImportReport report;
        const auto copy = test::readNative(document, report);
        EXPECT_TRUE(*copy == *score);
        EXPECT_TRUE(test::writeNative(*copy) == document);
        for (const io::ImportProblem &problem : report.problems())
            EXPECT_TRUE(imported.hasProblem(problem.text)) << problem.toString();
        ++count;
    }
    EXPECT_GE(count, 41u);
}
