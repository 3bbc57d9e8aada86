// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>
#include <ZarnCore/chords/ZarnChordDegree.h>
#include <ZarnCore/chords/ZarnHarmony.h>

#include <cstddef>
#include <string_view>
#include <vector>

namespace zarn::chord {

class ChordKinds;

/// A row of the table of chords: what stands behind the root of a symbol, and what it means.
///
/// Rows are constants of the library: compare their addresses.
class ZARNCORE_EXPORT ChordKind {
public:
    /// Cost of the kinds that are read and written, but that notes are never recognised as.
    static constexpr int neverRecognised = 1000;

    constexpr ChordKind(std::string_view text, std::string_view aliases, std::string_view degrees,
                        HarmonyKind harmonyKind, int cost) noexcept
        : _text(text), _aliases(aliases), _degrees(DegreeList::fromText(degrees)),
          _tones(_degrees.tones()), _harmonyKind(harmonyKind), _cost(cost)
    {
    }

    /// As it is written: "", "m7b5", "maj7".
    constexpr std::string_view text() const noexcept { return _text; }

    /// Other texts that are read for it, ASCII and signs.
    std::vector<std::string_view> aliases() const;

    /// Ascending.
    constexpr const DegreeList &degrees() const noexcept { return _degrees; }

    /// The tones above a root C.
    constexpr ToneSet tones() const noexcept { return _tones; }

    /// The kind on which MusicXML builds it with its degrees.
    constexpr HarmonyKind harmonyKind() const noexcept { return _harmonyKind; }

    /// Whether MusicXML needs no degrees to say it.
    bool isHarmonyKind() const noexcept;

    /// How unusual the kind is, in hundredths: 0 for triads, 160 for what hardly anyone writes.
    constexpr int cost() const noexcept { return _cost; }
    constexpr bool isRecognised() const noexcept { return _cost < neverRecognised; }

    /// See `DegreeList::isOmissible`.
    bool isOmissible(Degree degree) const noexcept;

    /// The kind that a text or an alias stands for; null when it is none. What else can be read
    /// behind a root, `Chord::fromText` reads.
    static const ChordKind *fromText(std::string_view text);

    /// The kind with exactly these degrees, in any octave (a second counts as a ninth); null when
    /// none has them.
    static const ChordKind *fromDegrees(const DegreeList &degrees);

    /// The kind that a MusicXML kind means without any degrees.
    static const ChordKind &fromHarmonyKind(HarmonyKind kind) noexcept;

    /// All of them, the usual ones first.
    static ChordKinds all() noexcept;

private:
    std::string_view _text;
    std::string_view _aliases;
    DegreeList _degrees;
    ToneSet _tones;
    HarmonyKind _harmonyKind;
    int _cost;
};

/// The rows of the table, for loops.
class ChordKinds {
public:
    constexpr ChordKinds(const ChordKind *begin, const ChordKind *end) noexcept
        : _begin(begin), _end(end)
    {
    }
    constexpr const ChordKind *begin() const noexcept { return _begin; }
    constexpr const ChordKind *end() const noexcept { return _end; }
    constexpr std::size_t size() const noexcept { return static_cast<std::size_t>(_end - _begin); }
    constexpr const ChordKind &operator[](std::size_t index) const noexcept
    {
        return _begin[index];
    }

private:
    const ChordKind *_begin;
    const ChordKind *_end;
};

} // namespace zarn::chord
