// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/instruments/tunings/ZarnGuitarTuning.h>
#include <ZarnCore/io/sheet/OpenStrings.h>

#include <QString>

namespace zarn {

class Staff;

namespace tool {

/// The tuning of a staff, with the instrument that its track is when it does not say: imported ones
/// often do not.
GuitarTuning presentTuning(const Staff &staff);

/// The tuning that a person asks for in place of another: by its name in the library ("Drop D"),
/// or by the notes of the strings from the lowest on ("D2 A2 D3 G3 B3 E4"). It is of the same
/// instrument and has as many strings; raises `Failure` otherwise, and offers what may have been
/// meant.
GuitarTuning tuningOf(const GuitarTuning &present, const QString &words);

/// The tuning that a person asks for when no instrument is given: by the notes of the strings, by
/// the name of an instrument ("ukulele", in its usual tuning), or by a name in the library, on a
/// guitar with six strings rather than elsewhere. Raises `Failure` otherwise.
GuitarTuning anyTuning(const QString &words);

/// The usual tuning of the same instrument with another number of strings. Raises `Failure` when
/// the library has none.
GuitarTuning usualTuning(const GuitarTuning &present, unsigned stringCount);

using sheet::openStrings;

} // namespace tool
} // namespace zarn
