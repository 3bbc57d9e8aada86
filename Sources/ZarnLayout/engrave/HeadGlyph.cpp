// SPDX-License-Identifier: MIT
#include <ZarnLayout/engrave/HeadGlyph.h>

#include <ZarnCore/music/ZarnMusicGlyph.h>

#include <algorithm>
#include <array>

namespace zarn::engraving {

namespace {

using Heads = std::array<char16_t, 4>; ///< breve, whole, half, quarter and shorter

/// By the kind of the head, as SMuFL 1.4 numbers its glyphs.
Heads headsOf(NoteHead head)
{
    switch (head) {
    case NoteHead::Slash:
        return {0xE10A, 0xE102, 0xE103, 0xE101};
    case NoteHead::Triangle:
        return {0xE0BA, 0xE0BB, 0xE0BC, 0xE0BE};
    case NoteHead::Diamond:
        return {0xE0D7, 0xE0D8, 0xE0D9, 0xE0DB};
    case NoteHead::Square:
        return {0xE0A1, 0xE0B8, 0xE0B8, 0xE0B9};
    case NoteHead::Cross:
        return {0xE0A6, 0xE0A7, 0xE0A8, 0xE0A9};
    case NoteHead::CircleX:
        return {0xE0B0, 0xE0B1, 0xE0B2, 0xE0B3};
    case NoteHead::InvertedTriangle:
        return {0xE0C3, 0xE0C4, 0xE0C5, 0xE0C7};
    case NoteHead::ArrowDown:
        return {0xE0F1, 0xE0F2, 0xE0F3, 0xE0F4};
    case NoteHead::ArrowUp:
        return {0xE0ED, 0xE0EE, 0xE0EF, 0xE0F0};
    case NoteHead::Slashed:
        return {0xE0D5, 0xE0D3, 0xE0D1, 0xE0CF};
    case NoteHead::BackSlashed:
        return {0xE0D6, 0xE0D4, 0xE0D2, 0xE0D0};
    case NoteHead::Do:
        return {0xE0BA, 0xE0BB, 0xE0BC, 0xE0BE};
    case NoteHead::Re:
        return {0xE0CB, 0xE0CA, 0xE0CA, 0xE0CB};
    case NoteHead::Mi:
        return {0xE0D7, 0xE0D8, 0xE0D9, 0xE0DB};
    case NoteHead::Fa:
        return {0xE0C8, 0xE0C8, 0xE0C8, 0xE0C9};
    case NoteHead::La:
        return {0xE0A1, 0xE0B8, 0xE0B8, 0xE0B9};
    case NoteHead::Ti:
        return {0xE0CD, 0xE0CC, 0xE0CC, 0xE0CD};
    case NoteHead::So:
    case NoteHead::Normal:
    case NoteHead::Cluster:
    case NoteHead::None:
        break;
    }
    return {0xE0A0, 0xE0A2, 0xE0A3, 0xE0A4};
}

/// Of the value, or of one whose heads are filled as is wished: a half is open, a quarter full.
std::size_t rankOf(const RhythmValue &rhythm, HeadFill fill = HeadFill::Auto)
{
    const int value = static_cast<int>(rhythm.getNoteValue());
    constexpr int breve = static_cast<int>(RhythmValue::NoteValue::DWhole);
    constexpr int half = 2;
    constexpr int quarter = 3;
    const int rank = std::clamp(value - breve, 0, quarter);
    return static_cast<std::size_t>(fill == HeadFill::Filled     ? quarter
                                        : fill == HeadFill::Open ? std::min(rank, half)
                                                                 : rank);
}

} // namespace

std::uint32_t headGlyph(const Row &row, const NoteSource &note, const BeatSource &beat,
                        const Fonts &fonts)
{
    const std::size_t rank = rankOf(beat.rhythm, note.headFill);
    if (note.head == NoteHead::None)
        return fonts.glyph(Sign::NoteheadBlack);
    const std::size_t length = rank == 3 ? 0 : rank == 2 ? 1 : 2;
    const char16_t set = note.setHeads[length];
    if (set != 0 && (note.head == NoteHead::Normal || MusicGlyph(set).noteHead() == note.head))
        if (const auto glyph = fonts.glyph(set))
            return *glyph;
    NoteHead head = note.head;
    if (beat.marks.isSlashed())
        head = NoteHead::Slash;
    else if (head == NoteHead::Normal && note.marks.isDead())
        head = NoteHead::Cross;
    else if (head == NoteHead::Normal && !row.circlesHarmonics
             && note.marks.harmonic().type == HarmonicType::Natural)
        head = NoteHead::Diamond;
    return fonts.glyph(headsOf(head)[rank]).value_or(fonts.glyph(Sign::NoteheadBlack));
}

Sign slashHead(const RhythmValue &rhythm) noexcept
{
    return Sign::NoteheadSlashWhiteDoubleWhole + static_cast<int>(rankOf(rhythm));
}

} // namespace zarn::engraving
