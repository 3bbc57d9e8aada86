// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnLayout/engrave/Pen.h>
#include <ZarnLayout/source/BarSource.h>
#include <ZarnLayout/source/Rows.h>

namespace zarn::engraving {

/// The signs at the start of a staff. All stand at x = 0 and are as wide as their boxes say.
class StaffSigns {
public:
    explicit StaffSigns(const Pen &pen) : _pen(pen) { }

    /// `scale` below 1 for a change.
    Inks clef(const Row &row, ClefType clef, Ottavia ottavia, double scale) const;

    /// The accidentals of a key; naturals where one without accidentals follows on another.
    Inks key(const Row &row, ClefType clef, int key, int before) const;

    Inks meter(const Row &row, const TimeSignature &meter, MeterSign sign) const;

private:
    const Pen &_pen;
};

} // namespace zarn::engraving
