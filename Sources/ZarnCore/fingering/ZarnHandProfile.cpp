// SPDX-License-Identifier: MIT
#include <ZarnCore/fingering/ZarnHandProfile.h>

#include <ZarnCore/model/ZarnStaff.h>

namespace zarn::fingering {

namespace {

constexpr HandProfile guitarHand = {};

/// A finger for each step of a scale, a fourth apart in all.
constexpr HandProfile violinHand = {{0.5F, 2.5F, 4.5F, 6}, 1, 7, true};
constexpr HandProfile mandolinHand = {{0.5F, 2.5F, 4.5F, 6}, 1, 6, false};
constexpr HandProfile celloHand = {{0, 1, 2, 3}, 0, 4, true};

/// Little and ring finger stop together: a tone from first to fourth.
constexpr HandProfile contrabassHand = {{0, 1, 1.5F, 2}, 0, 3, true};

bool isInFifths(const GuitarTuning &tuning)
{
    constexpr int fifth = 7;
    const auto &pitches = tuning.midiNumbers();
    for (std::size_t i = 1; i < pitches.size(); ++i)
        if (pitches[i] - pitches[i - 1] != fifth)
            return false;
    return pitches.size() > 2;
}

} // namespace

HandProfile handProfile(const Staff &staff)
{
    constexpr int lowestOfSmall = 48;
    switch (staff.tuning().instrument()) {
    case GuitarTuning::Violin:
    case GuitarTuning::Viola:
        return violinHand;
    case GuitarTuning::Mandolin:
        return mandolinHand;
    case GuitarTuning::Cello:
        return celloHand;
    case GuitarTuning::Contrabass:
        return contrabassHand;
    case GuitarTuning::Undefined:
        if (isInFifths(staff.tuning()))
            return staff.tuning().midiNumbers().front() >= lowestOfSmall ? violinHand : celloHand;
        return guitarHand;
    default:
        return guitarHand;
    }
}

} // namespace zarn::fingering
