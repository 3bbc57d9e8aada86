// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>

#include <QString>

#include <cstdint>

namespace zarn {

/// How pairs of equal eighths or sixteenths are played: long and short as 2 : 1 (triplet) or
/// 3 : 1 (dotted), or short and long as 1 : 3 (Scottish).
enum class TripletFeel : std::uint8_t {
    NoTripletFeel,
    Triplet8th,
    Triplet16th,
    Dotted8th,
    Dotted16th,
    Scottish8th,
    Scottish16th,
};

/// "NoTripletFeel", "Triplet8th" and so on; "Unknown (%0)" with the number for other values.
ZARNCORE_EXPORT QString tripletFeelToQString(TripletFeel feel);

/// The feel of an exact text; `NoTripletFeel` for any other.
ZARNCORE_EXPORT TripletFeel tripletFeelFromQString(const QString &text);

} // namespace zarn
