// SPDX-License-Identifier: MIT
#include "common/MidiOptions.h"

namespace zarn::tool {

const std::vector<Option> &midiOptions()
{
    static const std::vector<Option> options = {
        {QStringLiteral("grid"), QString(), QStringLiteral("NOTE"),
         QStringLiteral("Write no note of a MIDI file shorter than this, such as 1/16.")},
        {QStringLiteral("no-tuplets"), QString(), QString(),
         QStringLiteral("Write a MIDI file without triplets and other tuplets.")},
    };
    return options;
}

std::vector<Option> withMidiOptions(std::vector<Option> options)
{
    options.insert(options.end(), midiOptions().begin(), midiOptions().end());
    return options;
}

io::MidiImportOptions chosenMidiOptions(const Arguments &arguments)
{
    io::MidiImportOptions options;
    options.hasTuplets = !arguments.has(QStringLiteral("no-tuplets"));
    if (!arguments.has(QStringLiteral("grid")))
        return options;
    const QString text = arguments.value(QStringLiteral("grid"));
    const auto part = utils::rational::fromString(text.toStdString());
    constexpr std::int64_t shortest = 128;
    const bool isNoteValue = part && part->numerator() == 1 && part->denominator() <= shortest
        && (part->denominator() & (part->denominator() - 1)) == 0;
    if (!isNoteValue)
        throw UsageError{QStringLiteral("--grid takes a note value from 1 to 1/128, such as 1/16, "
                                        "and not \"%1\"")
                             .arg(text)};
    options.shortestNote = *part * utils::rational(4);
    return options;
}

} // namespace zarn::tool
