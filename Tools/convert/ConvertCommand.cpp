// SPDX-License-Identifier: MIT
#include "convert/ConvertCommand.h"

#include "common/BuiltIns.h"
#include "common/Documents.h"
#include "common/Failure.h"
#include "common/MidiOptions.h"
#include "common/Problems.h"
#include "common/Terminal.h"

#include <ZarnCore/io/ZarnMidiExporter.h>
#include <ZarnCore/io/ZarnTextExporter.h>
#include <ZarnCore/model/ZarnScoreModel.h>

#include <QFileInfo>

#include <initializer_list>
#include <vector>

namespace zarn::tool {

namespace {

bool isSameFile(const QString &left, const QString &right)
{
    const QString canonical = QFileInfo(left).canonicalFilePath();
    return !canonical.isEmpty() && canonical == QFileInfo(right).canonicalFilePath();
}

io::MidiExportOptions writtenMidi(const Arguments &arguments)
{
    io::MidiExportOptions options;
    options.ticksPerQuarter =
        arguments.number(QStringLiteral("ppq"), io::MidiExportOptions::LeastTicks,
                         io::MidiExportOptions::MostTicks, options.ticksPerQuarter);
    options.format = arguments.number(QStringLiteral("format"), 0, 1, options.format);
    if (arguments.has(QStringLiteral("channel-per-string")))
        options.channels = playback::Channels::OnePerString;
    options.saysNotation = !arguments.has(QStringLiteral("plain"));
    return options;
}

void refuse(const Arguments &arguments, std::initializer_list<const char *> options,
            const char *formats)
{
    for (const char *const option : options)
        if (arguments.has(QString::fromLatin1(option)))
            throw UsageError{QStringLiteral("--%1 is for %2")
                                 .arg(QLatin1String(option), QLatin1String(formats))};
}

/// Raises for options of another format than the one that is written.
void checkOptions(const std::string &path, const Arguments &arguments)
{
    if (!isSuffixOf(io::MidiExporter(), path))
        refuse(arguments, {"ppq", "format", "channel-per-string", "plain"},
               "MIDI files that are written");
    if (!isSuffixOf(io::TextExporter(), path))
        refuse(arguments, {"rhythm"}, "texts, .tab and .txt");
}

/// Writes with the options that the format has.
io::ExportReport save(const ScoreModel &model, const std::string &path, const Arguments &arguments,
                      const Terminal &terminal)
{
    const io::MidiExporter midi(writtenMidi(arguments));
    if (isSuffixOf(midi, path))
        return saveDocument(model, path, terminal, midi);
    if (arguments.has(QStringLiteral("rhythm")))
        return saveDocument(model, path, terminal,
                            io::TextExporter(io::TextExporter::TabRhythm::Shown));
    return saveDocument(model, path, terminal);
}

int runConvert(const Arguments &arguments, const Terminal &terminal)
{
    const std::string from = arguments.operand(0);
    const std::string to = arguments.operand(1);
    requireWritableFormat(to);
    checkOptions(to, arguments);
    if (isSameFile(arguments.operands().at(0), arguments.operands().at(1)))
        throw Failure(to + ": is the file to read; give the new one another name");
    const OpenedDocument document = openDocument(from, terminal, chosenMidiOptions(arguments));
    loadDrumKitsFor(*document.model);
    const io::ExportReport losses = save(*document.model, to, arguments, terminal);
    warnOfProblems(document);
    warnOfLosses(losses, to);
    return Done;
}

std::vector<Option> options()
{
    std::vector<Option> all = midiOptions();
    all.insert(all.end(),
               {{QStringLiteral("rhythm"), QStringLiteral("r"), QString(),
                 QStringLiteral("Write the rhythm over the strings of .tab and .txt, too.")},
                {QStringLiteral("ppq"), QString(), QStringLiteral("N"),
                 QStringLiteral("MIDI out: ticks of a quarter, 24 to 32767; 960 without it.")},
                {QStringLiteral("format"), QString(), QStringLiteral("0|1"),
                 QStringLiteral("MIDI out: 1 for a track each (as without it), 0 for all in one.")},
                {QStringLiteral("channel-per-string"), QString(), QString(),
                 QStringLiteral("MIDI out: a channel for each string.")},
                {QStringLiteral("plain"), QString(), QString(),
                 QStringLiteral("MIDI out: without what zarn reads of how bars are written.")}});
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
            "documents (.zarn), by their content. Writes %1. A file that is\n"
            "there already is replaced, once the new one is complete. What the score or the\n"
            "format of OUT cannot hold is named on standard error; \"zarn info IN\" lists what\n"
            "the score lacks. - stands for standard input and, as a native document, for\n"
            "standard output.")
            .arg(QString::fromStdString(writableSuffixes())),
        options(),
        runConvert,
    };
}

} // namespace zarn::tool
