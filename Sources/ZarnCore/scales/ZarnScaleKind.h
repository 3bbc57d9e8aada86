// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>
#include <ZarnCore/chords/ZarnChordDegree.h>
#include <ZarnCore/music/ZarnToneSet.h>

#include <cstddef>
#include <string_view>
#include <vector>

namespace zarn::scale {

class ScaleKinds;

/// A row of the table of scales.
///
/// Rows are constants of the library: compare their addresses.
class ZARNCORE_EXPORT ScaleKind {
public:
    constexpr ScaleKind(std::string_view name, std::string_view aliases,
                        std::string_view degrees) noexcept
        : _name(name), _aliases(aliases), _degrees(chord::DegreeList::fromText(degrees)),
          _tones(_degrees.tones())
    {
    }

    /// In lower case: "harmonic minor".
    constexpr std::string_view name() const noexcept { return _name; }

    /// Other names that are read for it.
    std::vector<std::string_view> aliases() const;

    /// Ascending. Scales of seven tones have each number once.
    constexpr const chord::DegreeList &degrees() const noexcept { return _degrees; }

    /// The tones above a tonic C.
    constexpr ToneSet tones() const noexcept { return _tones; }

    /// Place in the table: the smaller, the more usual the scale is.
    int rank() const noexcept;

    /// Case does not count, nor do signs for accidentals; nor, where only one scale can be meant,
    /// the order of words: "minor harmonic", "dorian mode". Null when there is no such scale.
    static const ScaleKind *fromName(std::string_view name);

    /// The scale with these tones above a tonic C; null when there is none.
    static const ScaleKind *fromTones(ToneSet tones) noexcept;

    /// All of them, the usual ones first.
    static ScaleKinds all() noexcept;

private:
    std::string_view _name;
    std::string_view _aliases;
    chord::DegreeList _degrees;
    ToneSet _tones;
};

/// The rows of the table, for loops.
class ScaleKinds {
public:
    constexpr ScaleKinds(const ScaleKind *begin, const ScaleKind *end) noexcept
        : _begin(begin), _end(end)
    {
    }
    constexpr const ScaleKind *begin() const noexcept { return _begin; }
    constexpr const ScaleKind *end() const noexcept { return _end; }
    constexpr std::size_t size() const noexcept { return static_cast<std::size_t>(_end - _begin); }
    constexpr const ScaleKind &operator[](std::size_t index) const noexcept
    {
        return _begin[index];
    }

private:
    const ScaleKind *_begin;
    const ScaleKind *_end;
};

} // namespace zarn::scale
