// SPDX-License-Identifier: MIT
#include <ZarnCore/io/sheet/OpenStrings.h>

#include <ZarnCore/instruments/tunings/ZarnGuitarTuning.h>
#include <ZarnCore/io/sheet/Texts.h>
#include <ZarnCore/music/ZarnPitchClass.h>

#include <QRegularExpression>

#include <algorithm>

namespace zarn::sheet {

namespace {

/// Whether the black keys of a tuning are flats: as in its name, "Eb Standard" or "F# Standard";
/// else unless there is a C# or F# among them, as in "Drop A".
bool hasFlats(const GuitarTuning &tuning)
{
    static const QRegularExpression flatLetter(QStringLiteral("\\b[A-G]b"));
    const QString name = QString::fromStdString(tuning.name());
    if (name.contains(flatLetter))
        return true;
    const auto isSharp = [](int midi) { return midi % 12 == 1 || midi % 12 == 6; };
    const auto &keys = tuning.midiNumbers();
    return !name.contains(QLatin1Char('#')) && std::none_of(keys.begin(), keys.end(), isSharp);
}

} // namespace

QStringList openStrings(const GuitarTuning &tuning, Signs signs)
{
    QStringList names;
    for (const int midi : tuning.midiNumbers())
        names.append(pitchText(PitchClass::fromPitch(midi, hasFlats(tuning)), midi, signs));
    return names;
}

QStringList postedStrings(const GuitarTuning &tuning)
{
    QStringList names;
    for (const int midi : tuning.midiNumbers())
        names.append(pitchClassText(PitchClass::fromPitch(midi, hasFlats(tuning)), Signs::Letters));
    if (names.size() > 1 && names.first() == names.last())
        names.last() = names.last().toLower();
    return names;
}

} // namespace zarn::sheet
