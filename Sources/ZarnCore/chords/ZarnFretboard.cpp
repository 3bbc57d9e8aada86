// SPDX-License-Identifier: MIT
#include <ZarnCore/chords/ZarnFretboard.h>

#include <ZarnCore/chords/ZarnFretRow.h>

#include <algorithm>
#include <cstdlib>

namespace zarn::chord {

namespace {

constexpr int semitonesOfOctave = 12;

/// An instrument with that many strings has them all in pairs.
constexpr unsigned fewestPairedStrings = 8;
constexpr unsigned stringsOfUkulele = 4;

bool isPair(int one, int other) noexcept
{
    return one == other || std::abs(one - other) == semitonesOfOctave;
}

} // namespace

std::vector<unsigned> courseSizes(const GuitarTuning &tuning)
{
    const auto &pitches = tuning.midiNumbers();
    std::vector<unsigned> sizes;
    for (std::size_t string = 0; string < pitches.size();) {
        const bool paired =
            string + 1 < pitches.size() && isPair(pitches[string], pitches[string + 1]);
        sizes.push_back(paired ? 2 : 1);
        string += sizes.back();
    }
    const bool allPaired =
        std::all_of(sizes.begin(), sizes.end(), [](unsigned size) { return size == 2; });
    const bool hasCourses = tuning.instrument() == GuitarTuning::Ukulele
        ? sizes.size() == stringsOfUkulele
        : allPaired && pitches.size() >= fewestPairedStrings;
    return hasCourses ? sizes : std::vector<unsigned>(pitches.size(), 1);
}

Fretboard::Fretboard(const GuitarTuning &tuning, const Capos &capos, unsigned fretCount)
    : _stringCount(std::min<unsigned>(tuning.stringCount(), FretRow::mostStrings)),
      _lastFret(static_cast<int>(std::min<unsigned>(fretCount, mostFrets)))
{
    const auto onNeck = [this](unsigned fret) {
        return std::min(static_cast<int>(std::min<unsigned>(fret, mostFrets)), _lastFret);
    };
    _capo = onNeck(capos.fret);
    unsigned string = 0;
    for (const unsigned size : courseSizes(tuning)) {
        if (string + size > _stringCount)
            break;
        const bool isHeld = string < capos.partialStrings.size() && capos.partialStrings[string];
        const int capo = std::max(_capo, isHeld ? onNeck(capos.partialFret) : 0);
        const bool isDrone = string == 0 && tuning.hasShortDroneString();
        const int zero = std::max(capo, isDrone ? GuitarTuning::droneFret : 0);
        int open = tuning.midi(string, zero);
        for (unsigned other = 1; other < size; ++other)
            open = std::min(open, tuning.midi(string + other, zero));
        _courses.push_back({static_cast<std::uint8_t>(string), static_cast<std::uint8_t>(size),
                            open, static_cast<std::int16_t>(zero),
                            static_cast<std::int16_t>(zero + 1),
                            static_cast<std::int16_t>(_lastFret), isDrone});
        string += size;
    }
    constexpr std::size_t fewestCoursesWithBass = 5;
    const auto isLower = [](const Course &left, const Course &right) {
        return left.openPitch < right.openPitch;
    };
    const auto isBowed = tuning.instrument() >= GuitarTuning::Violin;
    const auto isBass = tuning.instrument() == GuitarTuning::Bass;
    _hasBass = (_courses.size() >= fewestCoursesWithBass || isBass || isBowed)
        && std::is_sorted(_courses.begin(), _courses.end(), isLower);
}

} // namespace zarn::chord
