// SPDX-License-Identifier: MIT
#include "chord/ChordCommand.h"

#include "chord/ChordVoicings.h"
#include "chord/DiagramPicture.h"
#include "chord/UserShapes.h"
#include "common/Failure.h"
#include "common/PitchSets.h"
#include "common/Terminal.h"

#include <ZarnCore/chords/ZarnChordRecognizer.h>

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>
#include <iostream>

namespace zarn::tool {

namespace {

using chord::Chord;
using chord::ChordName;
using chord::ChordRecognizer;

/// "third: 0.62" for every part of what a name costs.
QString explained(const ChordName &name)
{
    QStringList parts;
    for (const chord::NameReason &reason : name.reasons())
        parts.append(QStringLiteral("%1 %2").arg(QString::fromStdString(reason.text),
                                                 QString::number(reason.cost / 100.0, 'f', 2)));
    return parts.join(QStringLiteral(", "));
}

QJsonObject jsonOf(const ChordName &name)
{
    QJsonArray unheard;
    for (const chord::Degree &degree : name.unheard)
        unheard.append(QString::fromStdString(degree.toText()));
    QJsonArray reasons;
    for (const chord::NameReason &reason : name.reasons())
        reasons.append(QJsonObject{{QStringLiteral("text"), QString::fromStdString(reason.text)},
                                   {QStringLiteral("cost"), reason.cost / 100.0}});
    return {{QStringLiteral("name"), QString::fromStdString(name.chord.toText())},
            {QStringLiteral("cost"), name.cost / 100.0},
            {QStringLiteral("omitted"), unheard},
            {QStringLiteral("reasons"), reasons}};
}

QStringList textsOf(const std::vector<ChordName> &names)
{
    QStringList texts;
    for (const ChordName &name : names)
        texts.append(QString::fromStdString(name.chord.toText()));
    return texts;
}

/// Names of one set with what they cost and why.
int explainNames(const Arguments &arguments, const ChordRecognizer &recognizer)
{
    const auto names = recognizer.names(pitchesOf(arguments.value(QStringLiteral("notes"))));
    if (arguments.has(QStringLiteral("json"))) {
        QJsonArray all;
        for (const ChordName &name : names)
            all.append(jsonOf(name));
        std::cout << QJsonDocument(all).toJson().toStdString();
        return Done;
    }
    int width = 0;
    for (const QString &text : textsOf(names))
        width = std::max(width, text.size());
    for (const ChordName &name : names)
        std::cout << QString::fromStdString(name.chord.toText()).leftJustified(width).toStdString()
                  << "  " << QString::number(name.cost / 100.0, 'f', 2).toStdString() << "  "
                  << explained(name).toStdString() << '\n';
    return Done;
}

int nameNotes(const Arguments &arguments)
{
    const ChordRecognizer recognizer(keyOf(arguments));
    if (arguments.has(QStringLiteral("reasons"))) {
        if (arguments.value(QStringLiteral("notes")) == QStringLiteral("-"))
            throw UsageError{QStringLiteral("--reasons explains one set of notes, not \"-\"")};
        return explainNames(arguments, recognizer);
    }
    const bool isNothing = arguments.value(QStringLiteral("notes")).trimmed().isEmpty();
    return printNames(
        arguments,
        [&](const std::vector<int> &pitches) { return textsOf(recognizer.names(pitches)); },
        isNothing ? QStringLiteral("there are no notes to name a chord of")
                  : QStringLiteral("no chord symbol names these notes"));
}

/// With signs for accidentals, double ones too.
QString symbolOf(const PitchClass &pitch)
{
    return pitch.symbol()
        .replace(QStringLiteral("bb"), QStringLiteral("♭♭"))
        .replace(QStringLiteral("##"), QStringLiteral("♯♯"));
}

/// Tones, degrees and other writings, in columns.
void printMeaning(const Chord &chord, const Terminal &terminal)
{
    const bool asSigns = terminal.showsUtf8();
    std::cout << (asSigns ? chord.toDisplayText() : chord.toText()) << '\n';
    if (chord.isNone())
        return;
    std::string tones = "Tones     ";
    std::string degrees = "Intervals ";
    for (const chord::ChordTone &tone : chord.tones()) {
        const QString pitch = asSigns ? symbolOf(tone.pitch) : tone.pitch.toString();
        std::string degree = tone.degree.toText() + (tone.isOmissible ? "*" : "");
        const auto width = std::max(pitch.size(), static_cast<int>(degree.size())) + 2;
        tones += pitch.leftJustified(width).toStdString();
        degrees += QString::fromStdString(degree).leftJustified(width).toStdString();
    }
    const auto print = [](std::string text) {
        text.erase(text.find_last_not_of(' ') + 1);
        std::cout << text << '\n';
    };
    print(tones);
    print(degrees + (chord.omissibleTones().isEmpty() ? "" : "  (* may be left out)"));
    if (chord.hasBass())
        std::cout << "Bass      "
                  << (asSigns ? symbolOf(chord.bass()) : chord.bass().toString()).toStdString()
                  << '\n';
    std::string others;
    for (const auto alias : chord.kind().aliases())
        others += (others.empty() ? "" : "  ")
            + (chord.root().toString().toStdString() + std::string(alias));
    if (!others.empty())
        std::cout << "Also      " << others << '\n';
}

/// The symbol that was probably meant: roots are capital letters.
std::string meantBy(const std::string &symbol)
{
    std::string meant = symbol;
    if (meant.empty())
        return meant;
    char &root = meant.front();
    root = root >= 'a' && root <= 'h' ? static_cast<char>(root - 'a' + 'A') : root;
    return meant != symbol && Chord::fromText(meant) ? meant : std::string();
}

int explainSymbol(const Arguments &arguments, const Terminal &terminal)
{
    const std::string symbol = arguments.operand(0);
    const auto chord = Chord::fromText(symbol);
    if (!chord) {
        const std::string meant = meantBy(symbol);
        throw Failure("\"" + printable(symbol) + "\" is no chord symbol that zarn knows"
                      + (meant.empty() ? "" : "; did you mean \"" + printable(meant) + "\"?"));
    }
    const ChordVoicings voicings(*chord, arguments);
    if (arguments.has(QStringLiteral("json"))) {
        std::cout << QJsonDocument(voicings.toJson()).toJson().toStdString();
        return Done;
    }
    printMeaning(*chord, terminal);
    if (voicings.diagrams().empty())
        return Done;
    std::cout << '\n'
              << diagramPicture(voicings.diagrams(), chord::courseSizes(voicings.tuning()),
                                terminal);
    if (voicings.furtherCount() > 0)
        std::cout << '\n'
                  << counted(voicings.furtherCount(), "further way")
                  << " to play it; --all draws them.\n";
    return Done;
}

int runChord(const Arguments &arguments, const Terminal &terminal)
{
    if (UserShapes::isAskedFor(arguments))
        return UserShapes(arguments).run(terminal);
    if (arguments.operands().size() > 1)
        throw UsageError{QStringLiteral("a shape goes with --add or --remove")};
    const bool hasNotes = arguments.has(QStringLiteral("notes"));
    if (hasNotes == !arguments.operands().isEmpty())
        throw UsageError{QStringLiteral("\"zarn chord\" takes a chord symbol or --notes")};
    return hasNotes ? nameNotes(arguments) : explainSymbol(arguments, terminal);
}

} // namespace

Subcommand chordCommand()
{
    std::vector<Option> options = {
        {QStringLiteral("notes"), QStringLiteral("n"), QStringLiteral("NOTES"),
         QStringLiteral("Name these: MIDI numbers or names, 64,67,71,74 or \"E4 G4 B4\"; - reads "
                        "a set a line.")},
        {QStringLiteral("key"), QStringLiteral("k"), QStringLiteral("KEY"),
         QStringLiteral("The key, by its tonic; a minor key in lower case.")},
        {QStringLiteral("reasons"), QStringLiteral("r"), QString(),
         QStringLiteral("With --notes, also what each name costs and why.")},
        {QStringLiteral("json"), QStringLiteral("j"), QString(),
         QStringLiteral("Print it for programs.")}};
    for (const Option &option : ChordVoicings::options())
        options.push_back(option);
    for (const Option &option : UserShapes::options())
        options.push_back(option);
    return {
        QStringLiteral("chord"),
        QStringLiteral("[NAME [SHAPE]]"),
        0,
        2,
        QStringLiteral("Tells what a chord symbol means, and what chords some notes are."),
        QStringLiteral(
            "NAME is a chord symbol, such as \"F#m7b5/E\", with the usual signs or in ASCII. Its\n"
            "tones are printed from the root up, each with its interval against the major scale,\n"
            "and the best ways to play it on a guitar or another tuning are drawn with the "
            "fingers\n"
            "that hold the strings. --json prints these as an array of objects with the frets and\n"
            "fingers of the strings, the lowest first, -1 for one that is not played.\n"
            "With --notes, prints the names of the chord that the notes are, the best one first,\n"
            "the lowest note being the bass. The key decides how they are spelled. With --json,\n"
            "prints them as an array, a line for each set.\n"
            "With --add, keeps a SHAPE of your own for a chord, such as x32010: a fret for each\n"
            "string from the lowest on, x for one that is not played; x-12-14-14-13-12 from fret\n"
            "10 on. It comes first wherever the chord is played on these strings. --remove takes\n"
            "it away again, and without a shape all of the chord; --shapes lists them."),
        options,
        runChord,
    };
}

} // namespace zarn::tool
