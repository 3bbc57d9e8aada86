// SPDX-License-Identifier: MIT
#include <ZarnLayout/engrave/Sign.h>

#include <array>

namespace zarn::engraving {

namespace {

// clang-format off
constexpr std::array<const char *, signCount> names = {
    "gClef", "fClef", "cClef", "gClef8vb", "gClef8va", "gClef15mb", "gClef15ma", "fClef8vb",
    "fClef8va", "fClef15mb", "fClef15ma", "cClef8vb", "unpitchedPercussionClef1",
    "6stringTabClef", "4stringTabClef", "timeSig0", "timeSig1", "timeSig2", "timeSig3",
    "timeSig4", "timeSig5", "timeSig6", "timeSig7", "timeSig8", "timeSig9", "timeSigX",
    "accidentalDoubleFlat", "accidentalFlat", "accidentalNatural", "accidentalSharp",
    "accidentalDoubleSharp", "accidentalParensLeft", "accidentalParensRight",
    "accidentalBracketLeft", "accidentalBracketRight", "noteheadDoubleWhole", "noteheadWhole",
    "noteheadHalf", "noteheadBlack", "noteheadXDoubleWhole", "noteheadXWhole", "noteheadXHalf",
    "noteheadXBlack", "noteheadSlashWhiteDoubleWhole", "noteheadSlashWhiteWhole",
    "noteheadSlashWhiteHalf", "noteheadSlashHorizontalEnds", "noteheadParenthesisLeft",
    "noteheadParenthesisRight", "augmentationDot", "restLonga", "restDoubleWhole", "restWhole",
    "restHalf", "restQuarter", "rest8th", "rest16th", "rest32nd", "rest64th", "rest128th",
    "rest256th", "restHBarLeft", "restHBarMiddle", "restHBarRight", "flag8thUp", "flag16thUp",
    "flag32ndUp", "flag64thUp", "flag128thUp", "flag256thUp", "flag8thDown", "flag16thDown",
    "flag32ndDown", "flag64thDown", "flag128thDown", "flag256thDown", "tremolo1", "tremolo2",
    "tremolo3", "tremolo4", "tremolo5", "repeat1Bar", "repeat2Bars", "repeatDot", "segno",
    "segnoSerpent1", "coda", "codaSquare", "dynamicPPPPPP", "dynamicPPPPP", "dynamicPPPP",
    "dynamicPPP", "dynamicPP", "dynamicPiano", "dynamicMP", "dynamicMF", "dynamicForte",
    "dynamicFF", "dynamicFFF", "dynamicFFFF", "dynamicFFFFF", "dynamicFFFFFF",
    "dynamicSforzando1", "dynamicSforzato", "dynamicSforzatoFF", "dynamicForzando",
    "dynamicRinforzando1", "dynamicRinforzando2", "dynamicFortePiano", "dynamicSforzandoPiano",
    "dynamicSforzandoPianissimo", "fermataAbove", "fermataShortAbove", "fermataLongAbove",
    "articStaccatoAbove", "articStaccatoBelow", "articStaccatissimoAbove",
    "articStaccatissimoBelow", "articAccentAbove", "articAccentBelow", "articMarcatoAbove",
    "articMarcatoBelow", "articTenutoAbove", "articTenutoBelow", "articSoftAccentAbove",
    "articSoftAccentBelow", "ornamentTrill", "ornamentTurn", "ornamentTurnInverted",
    "ornamentMordent", "ornamentShortTrill", "wiggleTrill", "wiggleVibrato", "wiggleVibratoWide",
    "wiggleArpeggiatoUp", "wiggleArpeggiatoUpArrow", "wiggleArpeggiatoDownArrow",
    "arrowheadBlackUp", "arrowheadBlackDown", "keyboardPedalPed", "keyboardPedalUp",
    "stringsDownBow", "stringsUpBow", "guitarFadeIn", "guitarFadeOut", "guitarVolumeSwell",
    "guitarGolpe", "guitarOpenPedal", "guitarClosePedal", "guitarLeftHandTapping",
    "guitarRightHandTapping", "breathMarkComma", "caesura", "fingering0", "fingering1",
    "fingering2", "fingering3", "fingering4", "fingeringPLower", "fingeringILower",
    "fingeringMLower", "fingeringALower", "fingeringCLower", "fingeringTLower", "metNoteHalfUp",
    "metNoteQuarterUp", "metNote8thUp", "metAugmentationDot", "metNoteDoubleWhole", "metNoteWhole",
    "metNote16thUp", "metNote32ndUp", "ottavaAlta", "ottavaBassaVb",
    "quindicesimaAlta", "quindicesimaBassaMb", "brace", "bracketTop", "bracketBottom",
    "octaveParensLeft", "octaveParensRight", "fretboardFilledCircle", "fretboardX", "fretboardO",
    "restDoubleWholeLegerLine", "restWholeLegerLine", "restHalfLegerLine",
    "timeSigCommon", "timeSigCutCommon", "stringsHarmonic",
};
// clang-format on

} // namespace

const char *nameOf(Sign sign) noexcept
{
    return names[static_cast<unsigned>(sign)];
}

} // namespace zarn::engraving
