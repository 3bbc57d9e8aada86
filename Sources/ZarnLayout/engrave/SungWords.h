// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnLayout/engrave/Pen.h>

#include <ZarnCore/model/attributes/ZarnSyllable.h>

#include <string>

namespace zarn::engraving {

/// A syllable as it is sung, without space around it and without dashes towards the rest of its
/// word: the page has its own hyphens there. Words that "~" joins have a bow between them.
struct SungText {
    std::string number; ///< of the verse that begins with it, as it is written: "1."
    std::string words;
};

SungText sungText(const Syllable &syllable);

/// One of the syllables of a beat, centred at x, with its base line at 0. Numbers of verses hang to
/// the left of the words, those of a beat in a column: `lyrics` are all that stand there.
Inks sungInks(const Pen &pen, const Syllable &syllable, const Syllables &lyrics, double centre);

} // namespace zarn::engraving
