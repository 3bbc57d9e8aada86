// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnTypes.h>

#include <string>

namespace zarn {

/// Tempo at which a score starts while no tempo automation stands at its first bar.
struct TempoSettings {
    /// Beats per minute, in `unit`.
    double value = 120;
    TempoUnit unit = TempoUnit::Quarter;

    /// Words before the number, such as "Allegro"; UTF-8.
    std::string label;
    bool visible = true;

    friend bool operator==(const TempoSettings &left, const TempoSettings &right)
    {
        return left.value == right.value && left.unit == right.unit && left.label == right.label
            && left.visible == right.visible;
    }
    friend bool operator!=(const TempoSettings &left, const TempoSettings &right)
    {
        return !(left == right);
    }
};

} // namespace zarn
