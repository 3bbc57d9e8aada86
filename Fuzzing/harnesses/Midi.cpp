// SPDX-License-Identifier: MIT
#include "Documents.h"
#include "Fuzzing.h"

#include <ZarnCore/ZarnException.h>
#include <ZarnCore/io/ZarnImportException.h>
#include <ZarnCore/io/ZarnImportReport.h>
#include <ZarnCore/io/ZarnMidiImporter.h>
#include <ZarnCore/io/midi/ZarnMidiFileReader.h>
#include <ZarnCore/io/midi/ZarnMidiFileWriter.h>

namespace {

using namespace zarn::io;

/// What can be written again is read back as the same bytes.
void checkCodec(std::string_view input)
{
    ImportReport report;
    std::string written;
    try {
        written = MidiFileWriter().toBytes(MidiFileReader().read("a.mid", input, report));
    } catch (const zarn::CoreException &) {
        return; // no MIDI file, or one with what may not be written
    }
    ImportReport again;
    const auto file = MidiFileReader().read("a.mid", written, again);
    fuzz::expect(again.problems().empty(), "nothing is odd in a file that was written");
    fuzz::expect(MidiFileWriter().toBytes(file) == written, "what was written comes back");
}

} // namespace

/// The first byte chooses how notes are fitted, the others are a MIDI file.
void fuzz::check(std::string_view input)
{
    if (input.empty())
        return;
    const auto choice = static_cast<unsigned char>(input.front());
    input.remove_prefix(1);
    checkCodec(input);
    MidiImportOptions options;
    options.hasTuplets = choice % 2 == 0;
    if (choice % 8 >= 4)
        options.shortestNote = utils::rational(1, 1 << (choice / 8 % 5));
    ImportReport report;
    const auto model = readDocument(MidiImporter(options), "song.mid", input, report);
    for (const ImportProblem &problem : report.problems())
        expect(!problem.text.empty(), "every line of the report says something");
    if (model == nullptr)
        return;
    expectToBeSound(*model);
    expectToBeUsable(*model);
    expectToComeBack(*model);
}
