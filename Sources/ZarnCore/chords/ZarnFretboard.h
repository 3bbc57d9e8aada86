// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>
#include <ZarnCore/instruments/tunings/ZarnGuitarTuning.h>

#include <cstdint>
#include <vector>

namespace zarn::chord {

/// Capos on the neck, by their frets from the nut; 0 is none, and beyond the last fret is there.
struct Capos {
    unsigned fret = 0;        ///< over all strings
    unsigned partialFret = 0; ///< over those of `partialStrings`
    std::vector<bool> partialStrings;
};

/// Strings that one finger stops together, since they lie as a pair: those of a twelve-string
/// guitar, a mandolin, an eight-string ukulele. Elsewhere each string is a course of its own.
struct Course {
    std::uint8_t firstString;
    std::uint8_t stringCount;
    int openPitch;          ///< MIDI key of the lowest string, open behind the capos
    std::int16_t zeroFret;  ///< fret that stands for the nut: where a capo holds the course
    std::int16_t firstStop; ///< lowest fret, from the nut, that a finger can stop
    std::int16_t lastStop;
    bool isDrone; ///< a short drone string, which rings open

    /// MIDI key that sounds when it is stopped at a fret from the nut, or open at `zeroFret`.
    int pitchAt(int fret) const noexcept { return openPitch + fret - zeroFret; }
};

/// The neck as a hand meets it: the courses of a tuning, with what capos make of them.
class ZARNCORE_EXPORT Fretboard {
public:
    /// The farthest fret that a hand is sent to.
    static constexpr int mostFrets = 48;

    /// Strings beyond `FretRow::mostStrings` are left out, as are frets beyond `mostFrets`.
    explicit Fretboard(const GuitarTuning &tuning, const Capos &capos = {},
                       unsigned fretCount = 24);

    const std::vector<Course> &courses() const noexcept { return _courses; }
    unsigned stringCount() const noexcept { return _stringCount; }
    /// Of the capo over all strings.
    int capo() const noexcept { return _capo; }
    /// The fret, from the nut, that a diagram means by one of its own, which count from the capos;
    /// see `VoicingFinder::diagram`.
    int fretOfDiagram(const Course &course, int fret) const noexcept
    {
        // A drone is numbered along the long neck.
        return fret + (course.isDrone && fret > 0 ? _capo : course.zeroFret);
    }
    /// The highest that any course has, from the nut.
    int lastFret() const noexcept { return _lastFret; }

    /// Whether the lowest string carries the bass: not so on ukuleles and other small instruments,
    /// nor where the strings do not ascend.
    bool hasBass() const noexcept { return _hasBass; }

private:
    std::vector<Course> _courses;
    unsigned _stringCount = 0;
    int _capo = 0;
    int _lastFret = 0;
    bool _hasBass = true;
};

/// Strings of each course, the lowest first: neighbours in unison or an octave apart, where the
/// instrument is one that has its strings in pairs.
ZARNCORE_EXPORT std::vector<unsigned> courseSizes(const GuitarTuning &tuning);

} // namespace zarn::chord
