// SPDX-License-Identifier: MIT
#include "convert/ConvertCommand.h"

#include "common/Documents.h"
#include "common/Failure.h"
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
    const OpenedDocument document = openDocument(from, terminal);
    const io::ExportReport losses = hasRhythm
        ? saveDocument(*document.model, to, terminal, withRhythm)
        : saveDocument(*document.model, to, terminal);
    warnOfProblems(document);
    warnOfLosses(losses, to);
    return Done;
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
            "Reads MusicXML (.musicxml, .xml, .mxl) and native documents (.zarn), by\n"
            "their content. Writes %1. A file that is there already is replaced, once\n"
            "the new one is complete. What the score or the format of OUT cannot hold is\n"
            "named on standard error; \"zarn info IN\" lists what the score lacks. - stands\n"
            "for standard input and, as a native document, for standard output.")
            .arg(QString::fromStdString(writableSuffixes())),
        {{QStringLiteral("rhythm"), QStringLiteral("r"), QString(),
          QStringLiteral("Write the rhythm over the strings of .tab and .txt, too.")}},
        runConvert,
    };
}

} // namespace zarn::tool
