// SPDX-License-Identifier: MIT
#include <ZarnLayout/engrave/StaffSigns.h>

#include <ZarnCore/music/ZarnKeySignature.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace zarn::engraving {

namespace {

struct ClefSign {
    Sign sign;
    int line; ///< in half spaces above the bottom line
};

/// The clef with the number of its octaves.
Sign withOttava(Sign clef, Ottavia ottavia)
{
    if (ottavia == Ottavia::None)
        return clef;
    const bool isDown = ottavia == Ottavia::_8vb || ottavia == Ottavia::_15mb;
    if (clef == Sign::CClef)
        return isDown ? Sign::CClef8vb : clef;
    const bool isDouble = ottavia == Ottavia::_15ma || ottavia == Ottavia::_15mb;
    const Sign first = clef == Sign::GClef ? Sign::GClef8vb : Sign::FClef8vb;
    return first + (isDouble ? 2 : 0) + (isDown ? 0 : 1);
}

ClefSign signOf(const Row &row, ClefType clef)
{
    const int middle = static_cast<int>(row.lineCount) - 1;
    if (row.isPercussion || clef == ClefType::Neutral || row.notation == Notation::Slash)
        return {Sign::UnpitchedPercussionClef1, middle};
    switch (clef) {
    case ClefType::F4:
        return {Sign::FClef, 6};
    case ClefType::C3:
        return {Sign::CClef, 4};
    case ClefType::C4:
        return {Sign::CClef, 6};
    default:
        return {Sign::GClef, 2};
    }
}

} // namespace

Inks StaffSigns::clef(const Row &row, ClefType clef, Ottavia ottavia, double scale) const
{
    if (row.notation == Notation::Tablature) {
        const bool isSmall = row.lineCount <= 4;
        const Sign sign = isSmall ? Sign::FourStringTabClef : Sign::SixStringTabClef;
        const Box &box = _pen.fonts().box(sign);
        // The sign fills the lines, but for a gap at either end.
        const double room = std::max(row.height() - 0.6, 1.6);
        const double fit = std::min(room / box.height(), 1.3) * scale;
        const double y = row.height() / 2 - (box.top + box.bottom) / 2 * fit;
        return {_pen.glyph(MarkKind::Clef, sign, -box.left * fit, y, fit)};
    }
    const ClefSign sign = signOf(row, clef);
    const bool isPitched = sign.sign != Sign::UnpitchedPercussionClef1;
    const Sign shown = isPitched ? withOttava(sign.sign, ottavia) : sign.sign;
    return {_pen.glyph(MarkKind::Clef, shown, 0, row.yOfLine(sign.line), scale)};
}

Inks StaffSigns::key(const Row &row, ClefType clef, int key, int before) const
{
    Inks inks;
    if (row.notation != Notation::Standard || row.isPercussion)
        return inks;
    const bool cancels = key == 0 && before != 0;
    const int shown = cancels ? before : key;
    const Sign sign = cancels ? Sign::AccidentalNatural
        : key > 0             ? Sign::AccidentalSharp
                              : Sign::AccidentalFlat;
    const KeySignature signature(shown);
    const double step = sign == Sign::AccidentalFlat ? 0.85 : 1.0;
    double x = 0;
    for (int i = 0; i < std::abs(shown); ++i) {
        const int line = signature.staffLineWithAccidentalIndex(i, clef);
        inks.push_back(_pen.glyph(MarkKind::KeySignature, sign, x, row.yOfLine(line)));
        x += step;
    }
    return inks;
}

Inks StaffSigns::meter(const Row &row, const TimeSignature &meter, MeterSign sign) const
{
    if (sign == MeterSign::Hidden || (row.notation == Notation::Tablature && !row.hasRhythm))
        return {};
    const double centre = row.height() / 2;
    if (sign == MeterSign::Common || sign == MeterSign::Cut) {
        const Sign glyph = sign == MeterSign::Common ? Sign::TimeSigCommon : Sign::TimeSigCutCommon;
        Inks inks = {_pen.glyph(MarkKind::TimeSignature, glyph, 0, centre)};
        move(inks, -boxOf(inks).left, 0);
        return inks;
    }
    const auto upper = digitsOf(meter.getNumerator(), Sign::TimeSig0);
    const auto lower = digitsOf(meter.getDenominator(), Sign::TimeSig0);
    const bool isAlone = sign == MeterSign::UpperNumber;
    Inks inks = _pen.glyphs(MarkKind::TimeSignature, upper, 0, isAlone ? centre : centre - 1);
    if (!isAlone) {
        Inks below = _pen.glyphs(MarkKind::TimeSignature, lower, 0, centre + 1);
        inks.insert(inks.end(), below.begin(), below.end());
    }
    move(inks, -boxOf(inks).left, 0);
    return inks;
}

} // namespace zarn::engraving
