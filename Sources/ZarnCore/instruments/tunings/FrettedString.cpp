// SPDX-License-Identifier: MIT
#include <ZarnCore/instruments/tunings/FrettedString.h>

#include <algorithm>
#include <cstdint>
#include <limits>

namespace zarn {
namespace {

constexpr int semitonesOfOctave = 12;

} // namespace

int FrettedString::midi(int fret) const noexcept
{
    const auto midi = std::int64_t{_openMidi} + fret - _firstFret;
    using Limits = std::numeric_limits<int>;
    return static_cast<int>(std::clamp<std::int64_t>(midi, Limits::min(), Limits::max()));
}

int FrettedString::fret(int midi, int lastFret) const noexcept
{
    const auto fret = std::int64_t{midi} - this->midi(0);
    return fret >= _firstFret && fret <= lastFret ? static_cast<int>(fret) : -1;
}

int FrettedString::fret(const Tone &tone, unsigned firstFret, int lastFret) const noexcept
{
    const auto first = std::max<std::int64_t>(firstFret, _firstFret);
    const auto distance = (tone - Tone(midi(0))).value() - first;
    const auto octaves = distance < 0 ? (-distance + semitonesOfOctave - 1) / semitonesOfOctave : 0;
    const auto found = first + distance + octaves * semitonesOfOctave;
    return found <= lastFret ? static_cast<int>(found) : -1;
}

std::list<int> FrettedString::frets(const Tone &tone, int lastFret) const
{
    std::list<int> frets;
    const int first = fret(tone, 0, lastFret);
    if (first < 0)
        return frets;
    for (int fret = first;; fret += semitonesOfOctave) {
        frets.push_back(fret);
        if (fret > lastFret - semitonesOfOctave)
            return frets;
    }
}

} // namespace zarn
