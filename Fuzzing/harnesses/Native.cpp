// SPDX-License-Identifier: MIT
#include "Documents.h"
#include "Fuzzing.h"

#include <ZarnCore/io/ZarnImportReport.h>
#include <ZarnCore/io/ZarnNativeImporter.h>
#include <ZarnCore/model/ZarnModelCheck.h>
#include <ZarnCore/model/ZarnScoreModel.h>

/// The input is a native document.
void fuzz::check(std::string_view input)
{
    zarn::io::ImportReport report;
    const auto model = readDocument(zarn::io::NativeImporter(), "score.zarn", input, report);
    if (model == nullptr)
        return;
    // A document may break rules of the tree without being unreadable, but each of them is told.
    for (const std::string &problem : zarn::checkModel(*model))
        if (!report.hasProblem(problem))
            breakLaw("broken rules of the tree are reported", problem);
    expectToBeUsable(*model);
    expectToComeBack(*model);
}
