// SPDX-License-Identifier: MIT
// Pitches and tones of a tuning: where they lie, and what they are called.
#include <ZarnCore/instruments/tunings/ZarnGuitarTuning.h>

#include <ZarnCore/instruments/tunings/GuitarTuningData.h>
#include <ZarnCore/music/ZarnTone.h>

#include <QStringList>

#include <algorithm>
#include <cstdint>
#include <limits>

namespace zarn {

namespace {

constexpr int semitonesOfOctave = 12;

QStringList toneNames(const GuitarTuning &tuning, bool preferSharp)
{
    QStringList names;
    for (const int midi : tuning.midiNumbers())
        names.append(Tone(midi).toString(preferSharp));
    return names;
}

} // namespace

int GuitarTuning::lowestFret(unsigned string) const noexcept
{
    return _data->hasShortDroneString && string == 0 ? droneFret : 0;
}

int GuitarTuning::midi(unsigned string, int fret) const noexcept
{
    const auto midi = std::int64_t{tuning(string)} + fret - lowestFret(string);
    using Limits = std::numeric_limits<int>;
    return static_cast<int>(std::clamp<std::int64_t>(midi, Limits::min(), Limits::max()));
}

int GuitarTuning::fret(unsigned string, int midi, int lastFret) const noexcept
{
    if (string >= stringCount())
        return -1;
    const auto fret = std::int64_t{midi} - this->midi(string, 0);
    return fret >= lowestFret(string) && fret <= lastFret ? static_cast<int>(fret) : -1;
}

bool GuitarTuning::firstStringAndFret(int midi, unsigned lowestString, int lastFret,
                                      unsigned &string, int &fret) const noexcept
{
    for (auto candidate = stringCount(); candidate > lowestString; --candidate) {
        const int found = this->fret(candidate - 1, midi, lastFret);
        if (found < 0)
            continue;
        string = candidate - 1;
        fret = found;
        return true;
    }
    return false;
}

Tone GuitarTuning::tone(unsigned string, int fret) const noexcept
{
    return Tone(midi(string, fret));
}

int GuitarTuning::fret(unsigned string, const Tone &tone, unsigned firstFret,
                       int lastFret) const noexcept
{
    if (string >= stringCount())
        return -1;
    const auto first = std::max<std::int64_t>(firstFret, lowestFret(string));
    const auto distance = (tone - Tone(midi(string, 0))).value() - first;
    const auto octaves = distance < 0 ? (-distance + semitonesOfOctave - 1) / semitonesOfOctave : 0;
    const auto found = first + distance + octaves * semitonesOfOctave;
    return found <= lastFret ? static_cast<int>(found) : -1;
}

void GuitarTuning::frets(unsigned string, const Tone &tone, int lastFret,
                         std::list<int> &frets) const
{
    frets.clear();
    const int first = fret(string, tone, 0, lastFret);
    if (first < 0)
        return;
    for (int fret = first;; fret += semitonesOfOctave) {
        frets.push_back(fret);
        if (fret > lastFret - semitonesOfOctave)
            return;
    }
}

QString GuitarTuning::toString(bool preferSharp) const
{
    return toneNames(*this, preferSharp).join(QString());
}

QString GuitarTuning::defaultNameFromTuning(bool preferSharp, bool hasDrone) const
{
    auto names = toneNames(*this, preferSharp);
    if (hasDrone && !names.isEmpty())
        names[0] = tone(0, droneFret).toString(preferSharp);
    return names.join(QLatin1Char(' '));
}

QString GuitarTuning::nameWithNotes(bool preferSharp, bool hasDrone) const
{
    return QString::fromStdString(name()) + QLatin1Char(' ')
        + defaultNameFromTuning(preferSharp, hasDrone);
}

} // namespace zarn
