// SPDX-License-Identifier: MIT
#include "convert/ConvertCommand.h"

#include "common/Documents.h"
#include "common/Failure.h"
#include "common/MidiOptions.h"
#include "common/Problems.h"
#include "common/Terminal.h"

#include <ZarnCore/io/ZarnTextExporter.h>
#include <ZarnCore/model/ZarnScoreModel.h>

#include <QFileInfo>

namespace zarn::tool {

namespace {

bool isSameFile(const QString &left, const QString &right)
{
    const QString canonical = QFileInfo(left).canonicalFilePath();
    return !canonical.isEmpty() && canonical == QFileInfo(right).canonicalFilePath();
}

int runConvert(const Arguments &arguments, const Terminal &terminal)
{
    const std::string from = arguments.operand(0);
    const std::string to = arguments.operand(1);
    requireWritableFormat(to);
    const bool hasRhythm = arguments.has(QStringLiteral("rhythm"));
    const io::TextExporter withRhythm(io::TextExporter::TabRhythm::Shown);
    if (hasRhythm && !isSuffixOf(withRhythm, to))
        throw UsageError{QStringLiteral("--rhythm is for texts, .tab and .txt")};
    if (isSameFile(arguments.operands().at(0), arguments.operands().at(1)))
        throw Failure(to + ": is the file to read; give the new one another name");
    const OpenedDocument document = openDocument(from, terminal, chosenMidiOptions(arguments));
    const io::ExportReport losses = hasRhythm
        ? saveDocument(*document.model, to, terminal, withRhythm)
        : saveDocument(*document.model, to, terminal);
    warnOfProblems(document);
    warnOfLosses(losses, to);
    return Done;
}

std::vector<Option> optionsOfConvert()
{
    std::vector<Option> all = midiOptions();
    all.push_back({QStringLiteral("rhythm"), QStringLiteral("r"), QString(),
                   QStringLiteral("Write the rhythm over the strings of .tab and .txt, too.")});
    return all;
}

} // namespace

Subcommand convertCommand()
{
    return {
        QStringLiteral("convert"),
        QStringLiteral("IN OUT"),
        2,
        2,
        QStringLiteral("Writes a score in another format, by the suffix of OUT."),
        QStringLiteral(
            "Reads MusicXML (.musicxml, .xml, .mxl), MIDI files (.mid, .midi, .kar) and native\n"
            "documents (.zarn), by their content. Writes %1. A file that is there already is "
            "replaced, once\n"
            "the new one is complete. What the score cannot hold is named on standard\n"
            "error; \"zarn info IN\" tells it in full. - stands for standard input and, as a\n"
            "native document, for standard output.")
            .arg(QString::fromStdString(writableSuffixes())),
        optionsOfConvert(),
        runConvert,
    };
}

} // namespace zarn::tool
