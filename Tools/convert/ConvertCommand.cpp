// SPDX-License-Identifier: MIT
#include "convert/ConvertCommand.h"

#include "common/Documents.h"
#include "common/Failure.h"
#include "common/Problems.h"
#include "common/Terminal.h"

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
    if (isSameFile(arguments.operands().at(0), arguments.operands().at(1)))
        throw Failure(to + ": is the file to read; give the new one another name");
    const OpenedDocument document = openDocument(from, terminal);
    const io::ExportReport losses = saveDocument(*document.model, to, terminal);
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
        {},
        runConvert,
    };
}

} // namespace zarn::tool
