// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/music/ZarnPitch.h>
#include <ZarnCore/music/ZarnRhythmValue.h>
#include <ZarnCore/utils/rational.h>

#include <string>

// The small words of the language, as LilyPond 2.24 reads them.
namespace zarn::lilypond {

/// A string in quotation marks. Control characters become spaces; signs of music fonts are left
/// out.
std::string quoted(const std::string &utf8);

/// Whether a text holds signs of music fonts: characters for private use, U+E000 to U+F8FF, or
/// names of glyphs between "<sym>" and "</sym>".
bool hasFontSigns(const std::string &utf8);

/// What a report calls them.
constexpr const char *fontSigns = "sign of the music font in words";

/// "cis'" for the C sharp above middle C; names of notes are the Dutch ones, which need no
/// inclusion.
std::string pitchText(const core::Pitch &pitch);

/// A key, black ones as flats or as sharps.
std::string keyText(int midi, bool asFlat);

/// "4." or "\breve", without tuplets.
std::string valueText(const RhythmValue &rhythm);

/// A skip, or a rest over a whole bar, of any length in quarters: "s2.", "R1*5/7".
enum class Gap : char { Skip = 's', BarRest = 'R' };
std::string gapText(Gap gap, const utils::rational &quarters);

/// A length in quarters as a part of a whole note, in Scheme: "#(ly:make-moment 3/4)".
std::string momentText(const utils::rational &quarters);

/// "XIV", also for names of variables, which hold no digits.
std::string romanNumber(unsigned number);

/// "\markup \concat { "B" \smaller \flat "7" }": a text whose signs for accidentals are drawn as
/// such.
std::string symbolMarkup(const std::string &utf8);

} // namespace zarn::lilypond
