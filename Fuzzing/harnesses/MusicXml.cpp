// SPDX-License-Identifier: MIT
#include "Documents.h"
#include "Fuzzing.h"

#include <ZarnCore/io/ZarnImportReport.h>
#include <ZarnCore/io/ZarnMusicXmlImporter.h>

/// The input is a MusicXML file.
void fuzz::check(std::string_view input)
{
    zarn::io::ImportReport report;
    const auto model = readDocument(zarn::io::MusicXmlImporter(), "score.musicxml", input, report);
    for (const zarn::io::ImportProblem &problem : report.problems())
        expect(!problem.text.empty(), "every line of the report says something");
    if (model == nullptr)
        return;
    expectToBeSound(*model);
    expectToBeUsable(*model);
    expectToComeBack(*model);
}
