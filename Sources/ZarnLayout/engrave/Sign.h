// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

namespace zarn::engraving {

/// The glyphs that engraving uses by itself, by their names in SMuFL 1.4.
// clang-format off
enum class Sign : std::uint8_t {
    GClef, FClef, CClef, GClef8vb, GClef8va, GClef15mb, GClef15ma, FClef8vb, FClef8va, FClef15mb,
    FClef15ma, CClef8vb, UnpitchedPercussionClef1, SixStringTabClef, FourStringTabClef, TimeSig0,
    TimeSig1, TimeSig2, TimeSig3, TimeSig4, TimeSig5, TimeSig6, TimeSig7, TimeSig8, TimeSig9,
    TimeSigX, AccidentalDoubleFlat, AccidentalFlat, AccidentalNatural, AccidentalSharp,
    AccidentalDoubleSharp, AccidentalParensLeft, AccidentalParensRight, AccidentalBracketLeft,
    AccidentalBracketRight, NoteheadDoubleWhole, NoteheadWhole, NoteheadHalf, NoteheadBlack,
    NoteheadXDoubleWhole, NoteheadXWhole, NoteheadXHalf, NoteheadXBlack,
    NoteheadSlashWhiteDoubleWhole, NoteheadSlashWhiteWhole, NoteheadSlashWhiteHalf,
    NoteheadSlashHorizontalEnds, NoteheadParenthesisLeft, NoteheadParenthesisRight,
    AugmentationDot, RestLonga, RestDoubleWhole, RestWhole, RestHalf, RestQuarter, Rest8th,
    Rest16th, Rest32nd, Rest64th, Rest128th, Rest256th, RestHBarLeft, RestHBarMiddle,
    RestHBarRight, Flag8thUp, Flag16thUp, Flag32ndUp, Flag64thUp, Flag128thUp, Flag256thUp,
    Flag8thDown, Flag16thDown, Flag32ndDown, Flag64thDown, Flag128thDown, Flag256thDown, Tremolo1,
    Tremolo2, Tremolo3, Tremolo4, Tremolo5, Repeat1Bar, Repeat2Bars, RepeatDot, Segno,
    SegnoSerpent1, Coda, CodaSquare, DynamicPPPPPP, DynamicPPPPP, DynamicPPPP, DynamicPPP,
    DynamicPP, DynamicPiano, DynamicMP, DynamicMF, DynamicForte, DynamicFF, DynamicFFF,
    DynamicFFFF, DynamicFFFFF, DynamicFFFFFF, DynamicSforzando1, DynamicSforzato,
    DynamicSforzatoFF, DynamicForzando, DynamicRinforzando1, DynamicRinforzando2,
    DynamicFortePiano, DynamicSforzandoPiano, DynamicSforzandoPianissimo, FermataAbove,
    FermataShortAbove, FermataLongAbove, ArticStaccatoAbove, ArticStaccatoBelow,
    ArticStaccatissimoAbove, ArticStaccatissimoBelow, ArticAccentAbove, ArticAccentBelow,
    ArticMarcatoAbove, ArticMarcatoBelow, ArticTenutoAbove, ArticTenutoBelow,
    ArticSoftAccentAbove, ArticSoftAccentBelow, OrnamentTrill, OrnamentTurn, OrnamentTurnInverted,
    OrnamentMordent, OrnamentShortTrill, WiggleTrill, WiggleVibrato, WiggleVibratoWide,
    WiggleArpeggiatoUp, WiggleArpeggiatoUpArrow, WiggleArpeggiatoDownArrow, ArrowheadBlackUp,
    ArrowheadBlackDown, KeyboardPedalPed, KeyboardPedalUp, StringsDownBow, StringsUpBow,
    GuitarFadeIn, GuitarFadeOut, GuitarVolumeSwell, GuitarGolpe, GuitarOpenPedal,
    GuitarClosePedal, GuitarLeftHandTapping, GuitarRightHandTapping, BreathMarkComma, Caesura,
    Fingering0, Fingering1, Fingering2, Fingering3, Fingering4, FingeringPLower, FingeringILower,
    FingeringMLower, FingeringALower, FingeringCLower, FingeringTLower, MetNoteHalfUp,
    MetNoteQuarterUp, MetNote8thUp, MetAugmentationDot, MetNoteDoubleWhole, MetNoteWhole,
    MetNote16thUp, MetNote32ndUp, OttavaAlta, OttavaBassaVb,
    QuindicesimaAlta, QuindicesimaBassaMb, Brace, BracketTop, BracketBottom,
    OctaveParensLeft, OctaveParensRight, FretboardFilledCircle, FretboardX, FretboardO,
    RestDoubleWholeLegerLine, RestWholeLegerLine, RestHalfLegerLine,
    TimeSigCommon, TimeSigCutCommon, StringsHarmonic,
};
// clang-format on

constexpr unsigned signCount = static_cast<unsigned>(Sign::StringsHarmonic) + 1;

/// The SMuFL name.
const char *nameOf(Sign sign) noexcept;

/// The sign some places behind another, as digits are.
constexpr Sign operator+(Sign sign, int places) noexcept
{
    return static_cast<Sign>(static_cast<int>(sign) + places);
}

} // namespace zarn::engraving
