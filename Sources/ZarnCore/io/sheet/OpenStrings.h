// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>

#include <QStringList>

namespace zarn {

class GuitarTuning;

namespace sheet {

enum class Signs : int;

/// "E2", "A2" and so on from the lowest string up; black keys as the tuning's name has them.
ZARNCORE_EXPORT QStringList openStrings(const GuitarTuning &tuning, Signs signs);

/// "E", "A" and so on from the lowest string up, as over posted tablature: the highest string in
/// lower case where the lowest has its letter too.
ZARNCORE_EXPORT QStringList postedStrings(const GuitarTuning &tuning);

} // namespace sheet
} // namespace zarn
