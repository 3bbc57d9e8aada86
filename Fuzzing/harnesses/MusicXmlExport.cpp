// SPDX-License-Identifier: MIT
#include "Documents.h"
#include "Fuzzing.h"

#include <ZarnCore/io/ZarnExportReport.h>
#include <ZarnCore/io/ZarnImportReport.h>
#include <ZarnCore/io/ZarnMusicXmlExporter.h>
#include <ZarnCore/io/ZarnMusicXmlImporter.h>
#include <ZarnCore/io/ZarnNativeExporter.h>
#include <ZarnCore/model/ZarnScoreModel.h>

#include <support/RandomOperations.h>
#include <support/SmallScore.h>

namespace {

using namespace zarn;

std::shared_ptr<ScoreModel> writtenAndRead(const ScoreModel &model)
{
    io::ExportReport losses;
    const std::string text = io::MusicXmlExporter().toText(model, losses);
    for (const auto &problem : losses.problems())
        fuzz::expect(!problem.text.empty(), "every line of the report says something");
    io::ImportReport report;
    const auto copy = fuzz::readDocument(io::MusicXmlImporter(), "written.musicxml", text, report);
    fuzz::expect(copy != nullptr, "what was written is read");
    fuzz::expectToBeSound(*copy);
    return copy;
}

} // namespace

/// The input says how a small score is edited; what comes of it is written and read. What was read
/// once has nothing any more that MusicXML lacks, and comes back whole.
void fuzz::check(std::string_view input)
{
    Random random(input);
    SmallScore small;
    const auto &operations = randomOperations();
    while (!random.isUsedUp()) {
        EditedScore edited(small.score, random);
        isAccepted([&] { operations[random.below(operations.size())].act(edited); });
    }
    const ScoreModel &model = *small.score.scoreModel();
    if (!model.hasTracks() || !model.masterTrack()->hasMasterBars())
        return; // There is no such document.
    const auto once = writtenAndRead(model);
    const auto twice = writtenAndRead(*once);
    const io::NativeExporter native;
    expectEqual(native.toText(*twice), native.toText(*writtenAndRead(*twice)),
                "what MusicXML holds comes back whole");
}
