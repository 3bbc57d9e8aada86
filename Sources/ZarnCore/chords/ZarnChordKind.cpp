// SPDX-License-Identifier: MIT
#include <ZarnCore/chords/ZarnChordKind.h>

#include <ZarnCore/chords/ChordKindTable.h>
#include <ZarnCore/chords/ChordSymbolTokens.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <string>
#include <unordered_map>

namespace zarn::chord {

namespace {

constexpr std::size_t kindCount = sizeof(chordKindTable) / sizeof(chordKindTable[0]);

/// Which letters and alterations are there, whatever the octave.
std::uint64_t lettersOf(const DegreeList &degrees) noexcept
{
    std::uint64_t letters = 0;
    for (const Degree &degree : degrees) {
        const int letter = (degree.number - 1) % spelling::letterCount;
        letters |= std::uint64_t(1) << (letter * 9 + degree.alteration + 4);
    }
    return letters;
}

constexpr bool tableIsConsistent() noexcept
{
    for (const ChordKind &kind : chordKindTable) {
        const DegreeList &degrees = kind.degrees();
        if (degrees.isEmpty() || degrees[0] != Degree{1, 0})
            return false;
        for (std::size_t i = 1; i < degrees.size(); ++i)
            if (!(degrees[i - 1] < degrees[i]) || degrees[i].number > Degree::lastNumber)
                return false;
    }
    return true;
}
static_assert(tableIsConsistent());

using KindsOfHarmony = std::array<const ChordKind *, harmonyKindCount>;

/// The first row of each kind is the plain one.
constexpr KindsOfHarmony kindsOfHarmony() noexcept
{
    KindsOfHarmony kinds = {};
    for (const ChordKind &kind : chordKindTable) {
        auto &first = kinds[static_cast<std::size_t>(kind.harmonyKind())];
        if (first == nullptr)
            first = &kind;
    }
    auto &none = kinds[static_cast<std::size_t>(HarmonyKind::None)];
    none = kinds[static_cast<std::size_t>(HarmonyKind::Other)];
    return kinds;
}
constexpr KindsOfHarmony plainKinds = kindsOfHarmony();

/// Rows by text, both as it is written and as it is read.
struct TextIndex {
    std::unordered_map<std::string, const ChordKind *> written;
    std::unordered_map<std::string, const ChordKind *> read;

    TextIndex()
    {
        for (const ChordKind &kind : chordKindTable) {
            insert(kind.text(), kind);
            for (const std::string_view word : kind.aliases())
                insert(word, kind);
        }
    }

private:
    void insert(std::string_view word, const ChordKind &kind)
    {
        written.emplace(word, &kind);
        if (const auto tokens = symbolTokens(word))
            read.emplace(symbolKey(tokens->data(), tokens->data() + tokens->size()), &kind);
    }
};

const TextIndex &textIndex()
{
    static const TextIndex index;
    return index;
}

const ChordKind *look(const std::unordered_map<std::string, const ChordKind *> &kinds,
                      const std::string &text)
{
    const auto found = kinds.find(text);
    return found != kinds.end() ? found->second : nullptr;
}

} // namespace

std::vector<std::string_view> ChordKind::aliases() const
{
    std::vector<std::string_view> words;
    for (std::string_view rest = _aliases; !rest.empty();) {
        const auto end = std::min(rest.find(' '), rest.size());
        words.push_back(rest.substr(0, end));
        rest.remove_prefix(std::min(end + 1, rest.size()));
    }
    return words;
}

bool ChordKind::isHarmonyKind() const noexcept
{
    return this == &fromHarmonyKind(_harmonyKind);
}

bool ChordKind::isOmissible(Degree degree) const noexcept
{
    return _degrees.isOmissible(degree);
}

const ChordKind *ChordKind::fromText(std::string_view text)
{
    const TextIndex &index = textIndex();
    if (const ChordKind *const kind = look(index.written, std::string(text)))
        return kind;
    const auto tokens = symbolTokens(text);
    return tokens ? kindOfSymbol(tokens->data(), tokens->data() + tokens->size()) : nullptr;
}

const ChordKind *kindOfSymbol(const SymbolToken *begin, const SymbolToken *end)
{
    return look(textIndex().read, symbolKey(begin, end));
}

const ChordKind *ChordKind::fromDegrees(const DegreeList &degrees)
{
    static const auto index = [] {
        std::unordered_map<std::uint64_t, const ChordKind *> kinds;
        for (const ChordKind &kind : chordKindTable)
            if (kind.isRecognised() || kind.harmonyKind() == HarmonyKind::Other)
                kinds.emplace(lettersOf(kind.degrees()), &kind);
        return kinds;
    }();
    const auto found = index.find(lettersOf(degrees));
    return found != index.end() ? found->second : nullptr;
}

const ChordKind &ChordKind::fromHarmonyKind(HarmonyKind kind) noexcept
{
    return *plainKinds[static_cast<std::size_t>(kind)];
}

ChordKinds ChordKind::all() noexcept
{
    return {chordKindTable, chordKindTable + kindCount};
}

} // namespace zarn::chord
