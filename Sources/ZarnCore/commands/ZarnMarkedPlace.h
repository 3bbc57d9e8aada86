// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>
#include <ZarnCore/model/ZarnAttribute.h>

namespace zarn {

class Beat;
class Note;
class Staff;

/// Where a beat or a note stands that a command may change: what decides whether it does.
struct ZARNCORE_EXPORT MarkedPlace {
    const Staff &staff;
    bool isFretted;
    bool isPitched;

    explicit MarkedPlace(const Staff &staff);

    /// Whether the staff is one of those that an attribute is for.
    bool isOn(OnStaves staves) const noexcept
    {
        switch (staves) {
        case OnStaves::All:
            return true;
        case OnStaves::Fretted:
            return isFretted;
        case OnStaves::Pitched:
            return isPitched;
        case OnStaves::Unpitched:
            return !isPitched;
        }
        return false;
    }
};

} // namespace zarn
