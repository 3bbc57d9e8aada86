// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnTypes.h>
#include <ZarnCore/model/attributes/ZarnPitchCurve.h>
#include <ZarnCore/playback/ZarnPitchMotion.h>
#include <ZarnCore/playback/ZarnTempoMap.h>

namespace zarn::playback {

/// Adds up all that moves the pitch of one note from its start to its end: bends, the whammy bar,
/// vibratos and slides.
class BendCurve {
public:
    BendCurve(const utils::rational &start, const utils::rational &end, const TempoMap &tempo);

    /// A curve in quarter-tones, stretched from one time to a later one; it stays at its last
    /// value no longer than that.
    void addCurve(const PitchCurve &curve, const utils::rational &from, const utils::rational &to);

    /// A sine of 5.5 Hz that begins after a tenth of the time, 20 or 50 cents wide.
    void addVibrato(Vibrato vibrato, const utils::rational &from, const utils::rational &to);

    /// Comes from three semitones below or above within a quarter of the time, at most 120 ms.
    void addSlideIn(SlideIn slide, const utils::rational &from, const utils::rational &to);

    /// Leaves over the last third of the time: by five semitones, or to a target and stays there.
    /// The edge of a pick scrapes over an octave in all of the time.
    void addSlideOut(SlideOut slide, const utils::rational &from, const utils::rational &to);
    void addSlideTo(int semitones, const utils::rational &from, const utils::rational &to);

    /// When a slide begins that leaves a note, but for scrapes.
    static utils::rational startOfSlide(const utils::rational &from, const utils::rational &to);

    bool isEmpty() const noexcept { return _parts.empty(); }

    /// The sum, within two octaves.
    PitchMotion motion() const;

private:
    utils::rational quartersOf(double seconds, const utils::rational &at) const;
    void addPart(PitchMotion part) { _parts.push_back(std::move(part)); }

    utils::rational _start;
    utils::rational _end;
    const TempoMap &_tempo;
    std::vector<PitchMotion> _parts; ///< each says its value at any time
};

/// Semitones that a motion reaches at most, up or down.
constexpr double widestMotion = 24;

} // namespace zarn::playback
