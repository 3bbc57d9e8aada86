// SPDX-License-Identifier: MIT
#include <ZarnCore/music/ZarnMusicGlyph.h>

#include <ZarnCore/music/MusicGlyphTable.h>

#include <algorithm>
#include <iterator>
#include <unordered_map>

namespace zarn {
namespace {

constexpr bool isAscending()
{
    for (std::size_t i = 1; i < detail::musicGlyphs.size(); ++i)
        if (detail::musicGlyphs[i].codePoint <= detail::musicGlyphs[i - 1].codePoint)
            return false;
    return true;
}
static_assert(isAscending());

struct HeadRow {
    char16_t last; ///< last code point of a run that starts behind the row before
    NoteHead head;
};

/// Heads without a kind of their own (moons, circled, in parentheses) count as normal ones.
constexpr HeadRow heads[] = {
    {0xE09F, NoteHead::Normal},
    {0xE0A4, NoteHead::Normal},
    {0xE0A5, NoteHead::None},
    {0xE0AF, NoteHead::Cross},
    {0xE0B3, NoteHead::CircleX},
    {0xE0B7, NoteHead::Cross},
    {0xE0B9, NoteHead::Square},
    {0xE0C2, NoteHead::Triangle},
    {0xE0C7, NoteHead::InvertedTriangle},
    {0xE0C9, NoteHead::Triangle},
    {0xE0CB, NoteHead::Normal},
    {0xE0CD, NoteHead::InvertedTriangle},
    {0xE0CE, NoteHead::Normal},
    {0xE0CF, NoteHead::Slashed},
    {0xE0D0, NoteHead::BackSlashed},
    {0xE0D1, NoteHead::Slashed},
    {0xE0D2, NoteHead::BackSlashed},
    {0xE0D3, NoteHead::Slashed},
    {0xE0D4, NoteHead::BackSlashed},
    {0xE0D5, NoteHead::Slashed},
    {0xE0D6, NoteHead::BackSlashed},
    {0xE0E3, NoteHead::Diamond},
    {0xE0EB, NoteHead::Normal},
    {0xE0EC, NoteHead::CircleX},
    {0xE0F0, NoteHead::ArrowUp},
    {0xE0F4, NoteHead::ArrowDown},
    {0xE0F6, NoteHead::Normal},
    {0xE0F7, NoteHead::Slashed},
    {0xE0F9, NoteHead::Cross},
    {0xE0FB, NoteHead::Normal},
    {0xE0FC, NoteHead::Diamond},
    {0xE0FF, NoteHead::Normal},
    {0xE10A, NoteHead::Slash},
    {0xE115, NoteHead::Normal},
    {0xE119, NoteHead::Slashed},
    {0xE11B, NoteHead::Square},
    {0xE11D, NoteHead::Slashed},
};

std::unordered_map<std::string_view, char16_t> codePointsByName()
{
    std::unordered_map<std::string_view, char16_t> codePoints;
    for (const auto &row : detail::musicGlyphs)
        codePoints.emplace(row.name, row.codePoint);
    return codePoints;
}

} // namespace

std::string MusicGlyph::name() const
{
    const auto *const row = std::lower_bound(
        detail::musicGlyphs.begin(), detail::musicGlyphs.end(), _codePoint,
        [](const auto &candidate, char16_t wanted) { return candidate.codePoint < wanted; });
    return row != detail::musicGlyphs.end() && row->codePoint == _codePoint ? std::string(row->name)
                                                                            : std::string();
}

std::optional<MusicGlyph> MusicGlyph::fromName(std::string_view name)
{
    static const auto codePoints = codePointsByName();
    const auto found = codePoints.find(name);
    return found == codePoints.end() ? std::nullopt : std::optional(MusicGlyph(found->second));
}

NoteHead MusicGlyph::noteHead() const noexcept
{
    const auto *const row = std::lower_bound(
        std::begin(heads), std::end(heads), _codePoint,
        [](const HeadRow &candidate, char16_t wanted) { return candidate.last < wanted; });
    return row == std::end(heads) ? NoteHead::Normal : row->head;
}

} // namespace zarn
