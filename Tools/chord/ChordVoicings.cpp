// SPDX-License-Identifier: MIT
#include "chord/ChordVoicings.h"

#include "common/BuiltIns.h"
#include "common/TuningWord.h"

#include <ZarnCore/chords/ZarnFingeringLibrary.h>

namespace zarn::tool {

namespace {

/// Frets of a neck that nobody has described.
constexpr int fretCount = 24;

/// What people look at before they ask for all.
constexpr std::size_t shownDiagrams = 10;
constexpr std::size_t listedDiagrams = 25;

template <typename Numbers>
QJsonArray jsonArray(const Numbers &numbers)
{
    QJsonArray array;
    for (const auto number : numbers)
        array.append(static_cast<int>(number));
    return array;
}

/// What a string sounds; null for nothing, and for the interval of a bass from outside.
struct Heard {
    QJsonValue tone;
    QJsonValue interval;
};

Heard heardAs(const chord::Chord &chord, Tone sounding)
{
    for (const chord::ChordTone &tone : chord.tones())
        if (tone.pitch.tone() == sounding)
            return {tone.pitch.toString(), QString::fromStdString(tone.degree.toText())};
    if (chord.bass().tone() == sounding)
        return {chord.bass().toString(), {}};
    return {};
}

QJsonObject barreObject(const DiagramBarre &barre)
{
    return {{QStringLiteral("finger"), barre.finger},
            {QStringLiteral("fret"), barre.fret},
            {QStringLiteral("from"), barre.firstString},
            {QStringLiteral("to"), barre.lastString}};
}

} // namespace

std::vector<Option> ChordVoicings::options()
{
    return {{QStringLiteral("tuning"), QStringLiteral("t"), QStringLiteral("TUNING"),
             QStringLiteral("Notes of the strings, name of a tuning, or an instrument.")},
            {QStringLiteral("capo"), QStringLiteral("c"), QStringLiteral("N"),
             QStringLiteral("A capo at fret N, from which frets are counted.")},
            {QStringLiteral("all"), QStringLiteral("a"), QString(),
             QStringLiteral("Every way to play the chord, not only the best.")}};
}

ChordVoicings::ChordVoicings(const chord::Chord &chord, const Arguments &arguments)
    : _chord(chord), _tuning(anyTuning(arguments.has(QStringLiteral("tuning"))
                                           ? arguments.value(QStringLiteral("tuning"))
                                           : QStringLiteral("Guitar")))
{
    _capos.fret = static_cast<unsigned>(arguments.number(QStringLiteral("capo"), 0, fretCount, 0));
    _diagrams = loadedCore().fingeringLibrary().voicings(chord, _tuning, _capos, fretCount);
    const std::size_t most = arguments.has(QStringLiteral("json")) ? listedDiagrams : shownDiagrams;
    if (arguments.has(QStringLiteral("all")) || _diagrams.size() <= most)
        return;
    _furtherCount = _diagrams.size() - most;
    _diagrams.resize(most);
}

QJsonArray ChordVoicings::toJson() const
{
    const chord::Fretboard fretboard(_tuning, _capos, fretCount);
    QJsonArray all;
    for (const ChordDiagram &diagram : _diagrams)
        all.append(jsonOf(diagram, fretboard));
    return all;
}

QJsonObject ChordVoicings::jsonOf(const ChordDiagram &diagram,
                                  const chord::Fretboard &fretboard) const
{
    QJsonArray tones;
    QJsonArray intervals;
    for (const chord::Course &course : fretboard.courses()) {
        for (unsigned string = 0; string < course.stringCount; ++string) {
            const int fret = diagram.frets[course.firstString];
            const auto heard = fret < 0
                ? Heard()
                : heardAs(_chord, Tone(course.pitchAt(fretboard.fretOfDiagram(course, fret))));
            tones.append(heard.tone);
            intervals.append(heard.interval);
        }
    }
    QJsonArray barres;
    for (const DiagramBarre &barre : barresOf(diagram, chord::courseSizes(_tuning)))
        barres.append(barreObject(barre));
    return {{QStringLiteral("name"), QString::fromStdString(diagram.name)},
            {QStringLiteral("firstFret"), diagram.firstFret},
            {QStringLiteral("frets"), jsonArray(diagram.frets)},
            {QStringLiteral("fingers"), jsonArray(diagram.fingers)},
            {QStringLiteral("barres"), barres},
            {QStringLiteral("tones"), tones},
            {QStringLiteral("intervals"), intervals}};
}

} // namespace zarn::tool
