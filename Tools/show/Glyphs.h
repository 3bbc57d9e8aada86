// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace zarn::tool {

/// The characters that a picture is drawn with.
struct Glyphs {
    bool isUtf8;
    QString string; ///< a string between two frets
    QString barLine;
    QString doubleBarLine;
    QString heavyBarLine; ///< of repeats and the end
    QString repeatDot;
    QString spanLeft;
    QString spanLine;
    QString spanRight;
    QString endingLeft;
    QString endingRight;
    QString flat;
    QString sharp;
    QString quarterNote; ///< in tempo marks
    QString halfNote;
    QString eighthNote;

    static const Glyphs &utf8();
    static const Glyphs &ascii();
};

} // namespace zarn::tool
