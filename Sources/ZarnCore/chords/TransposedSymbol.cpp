// SPDX-License-Identifier: MIT
#include <ZarnCore/chords/TransposedSymbol.h>

#include <ZarnCore/chords/ChordSymbolTokens.h>
#include <ZarnCore/chords/ZarnChord.h>

#include <string_view>

namespace zarn::chord {

namespace {

std::string textOf(const PitchClass &pitch, const Interval &interval)
{
    return pitch.transposed(interval).toString().toStdString();
}

} // namespace

std::string transposedSymbol(const std::string &symbol, const Interval &interval)
{
    const auto chord = Chord::fromText(symbol);
    if (!chord || chord->isNone())
        return symbol;
    std::string_view kind = symbol;
    const PitchClass root = takePitchClass(kind);
    // Signs of print are understood as a whole, and so are names of other languages.
    const Chord moved = chord->transposed(interval);
    if (asciiSymbol(symbol) != symbol || root != chord->root())
        return moved.toDisplayText();
    std::string bass;
    if (const auto slash = kind.rfind('/'); slash != std::string_view::npos) {
        std::string_view rest = kind.substr(slash + 1);
        const PitchClass pitch = takePitchClass(rest);
        if (pitch && rest.empty()) {
            bass = '/' + textOf(pitch, interval);
            kind = kind.substr(0, slash);
        }
    }
    const std::string text = textOf(root, interval) + std::string(kind) + bass;
    return Chord::fromText(text) == moved ? text : moved.toDisplayText();
}

} // namespace zarn::chord
