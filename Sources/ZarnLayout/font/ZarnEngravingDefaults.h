// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnLayout/draw/ZarnGeometry.h>

namespace zarn::layout {

/// Thicknesses and distances that a music font is designed for: SMuFL's `engravingDefaults`. What
/// a font does not say has the values of Bravura.
struct EngravingDefaults {
    Unit arrowShaftThickness = fromSpaces(0.16);
    Unit barlineSeparation = fromSpaces(0.4);
    Unit beamSpacing = fromSpaces(0.25);
    Unit beamThickness = fromSpaces(0.5);
    Unit bracketThickness = fromSpaces(0.5);
    Unit dashedBarlineDashLength = fromSpaces(0.5);
    Unit dashedBarlineGapLength = fromSpaces(0.25);
    Unit dashedBarlineThickness = fromSpaces(0.16);
    Unit hBarThickness = fromSpaces(1);
    Unit hairpinThickness = fromSpaces(0.16);
    Unit legerLineExtension = fromSpaces(0.4);
    Unit legerLineThickness = fromSpaces(0.16);
    Unit lyricLineThickness = fromSpaces(0.16);
    Unit octaveLineThickness = fromSpaces(0.16);
    Unit pedalLineThickness = fromSpaces(0.16);
    Unit repeatBarlineDotSeparation = fromSpaces(0.16);
    Unit repeatEndingLineThickness = fromSpaces(0.16);
    Unit slurEndpointThickness = fromSpaces(0.1);
    Unit slurMidpointThickness = fromSpaces(0.22);
    Unit staffLineThickness = fromSpaces(0.13);
    Unit stemThickness = fromSpaces(0.12);
    Unit subBracketThickness = fromSpaces(0.16);
    Unit textEnclosureThickness = fromSpaces(0.16);
    Unit thickBarlineThickness = fromSpaces(0.5);
    Unit thinBarlineThickness = fromSpaces(0.16);
    Unit tieEndpointThickness = fromSpaces(0.1);
    Unit tieMidpointThickness = fromSpaces(0.22);
    Unit tupletBracketThickness = fromSpaces(0.16);
};

} // namespace zarn::layout
