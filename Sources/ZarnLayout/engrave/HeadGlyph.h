// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnLayout/engrave/Fonts.h>
#include <ZarnLayout/source/BarSource.h>
#include <ZarnLayout/source/Rows.h>

namespace zarn::engraving {

/// The head of a note in a beat: as it, its instrument set or its technique asks, for the length
/// of the beat.
std::uint32_t headGlyph(const Row &row, const NoteSource &note, const BeatSource &beat,
                        const Fonts &fonts);

/// The head of a rhythm slash.
Sign slashHead(const RhythmValue &rhythm) noexcept;

} // namespace zarn::engraving
