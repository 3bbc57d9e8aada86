// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>

#include <QString>

#include <array>

namespace zarn::sheet {

/// One sign in all sets of characters.
struct Glyph {
    const char *utf8;
    const char *ascii;
    const char *posted = nullptr; ///< where it differs from `ascii`
};

/// The characters that a picture is drawn with.
struct ZARNCORE_EXPORT Glyphs {
    bool isUtf8;

    /// Tablature stands as players post it: strings have letters alone, what is bent names the fret
    /// that it comes to sound like, and hammer-ons stand without slurs.
    bool isPosted;

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

    std::array<QString, 4> quarters; ///< behind a whole number: nothing, 1/4, 1/2, 3/4

    static const Glyphs &utf8();
    static const Glyphs &ascii();
    static const Glyphs &posted(); ///< in ASCII

    QString of(const Glyph &glyph) const
    {
        if (isPosted && glyph.posted != nullptr)
            return QString::fromUtf8(glyph.posted);
        return QString::fromUtf8(isUtf8 ? glyph.utf8 : glyph.ascii);
    }

    /// Quarter-tones as whole tones: "1", "1\u00bd", "\u00bd", with a sign in front where it is
    /// below 0.
    QString tones(int quarterTones) const;
};

} // namespace zarn::sheet
