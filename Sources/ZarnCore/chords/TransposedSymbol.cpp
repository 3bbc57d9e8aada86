// SPDX-License-Identifier: MIT
#include <ZarnCore/chords/TransposedSymbol.h>

#include <ZarnCore/chords/ChordSymbolParts.h>
#include <ZarnCore/chords/ChordSymbolTokens.h>
#include <ZarnCore/chords/ZarnChord.h>

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
    const Chord moved = chord->transposed(interval);
    // Signs of print are understood as a whole.
    if (asciiSymbol(symbol) != symbol)
        return moved.toDisplayText();
    const auto parts = ChordSymbolParts::of(symbol, *chord);
    const std::string text = textOf(chord->root(), interval) + parts.kind
        + (parts.bass.empty() ? "" : '/' + textOf(chord->bass(), interval));
    return Chord::fromText(text) == moved ? text : moved.toText();
}

} // namespace zarn::chord
