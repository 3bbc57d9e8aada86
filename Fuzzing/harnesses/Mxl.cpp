// SPDX-License-Identifier: MIT
#include "ArchiveRecipe.h"
#include "Documents.h"
#include "Fuzzing.h"

#include <ZarnCore/io/ZarnImportReport.h>
#include <ZarnCore/io/ZarnMusicXmlImporter.h>

/// The input is an archive, or the recipe of one (see `archiveOf`), which gets a fuzzer through the
/// checksums and the packing.
void fuzz::check(std::string_view input)
{
    const bool isArchive = input.substr(0, 2) == "PK";
    const std::string archive = isArchive ? std::string(input) : archiveOf(input);
    zarn::io::ImportReport report;
    const auto model = readDocument(zarn::io::MusicXmlImporter(), "score.mxl", archive, report);
    if (model == nullptr)
        return;
    expectToBeSound(*model);
    expectToComeBack(*model);
}
