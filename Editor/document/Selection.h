// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/model/places/ZarnScoreModelIndex.h>
#include <ZarnCore/model/places/ZarnScoreModelRange.h>

#include <optional>

namespace zarn {
class Score;
}

namespace zarn::editor {

/// What of a selection's bars belongs to it.
enum class SelectedPart {
    Beats,     ///< from beat to beat, in one voice
    Bars,      ///< whole bars of a staff
    AllTracks, ///< whole bars of all tracks
};

/// What is selected: from a place that stays, the anchor, to the score's cursor; without an anchor
/// nothing is.
class Selection {
public:
    bool isEmpty() const noexcept { return !_anchor.has_value(); }
    SelectedPart part() const noexcept { return _part; }

    void clear() noexcept { _anchor.reset(); }

    /// Selects from a place to wherever the cursor goes.
    void start(const ScoreModelIndex &anchor, SelectedPart part = SelectedPart::Beats);

    /// Lets go of places that an edit took away.
    void settle(const Score &score);

    /// What a command of beats acts on: what is selected, else the beat of the cursor.
    ScoreModelRange beats(const Score &score) const;

    /// What a command of notes acts on: what is selected, else the note that the cursor is on, else
    /// all notes of its beat.
    ScoreModelRange notes(const Score &score) const;

    /// The bars that it touches, or the one of the cursor; both from 0 and included.
    std::pair<unsigned, unsigned> bars(const Score &score) const;

private:
    std::optional<ScoreModelIndex> _anchor;
    SelectedPart _part = SelectedPart::Beats;
};

} // namespace zarn::editor
