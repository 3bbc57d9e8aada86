// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>
#include <ZarnCore/ZarnTypes.h>

#include <optional>

namespace zarn {

class ScoreModelRange;

/// What joins the beats and notes of a score to their neighbours. Ranges are taken as places of
/// this score, whatever their model. The commands of the same names, in `cmd`, say more. Each
/// answers whether it was done: what cannot be done is logged and changes nothing.
class ZARNCORE_EXPORT ScoreLinkOperations {
public:
    /// Ties beats to the ones in front of them; rests take copies of what is held. Unchecked, the
    /// notes are struck anew.
    bool setBeatTied(const ScoreModelRange &range, bool checked);

    /// The same for notes; a string that a place names takes a copy of what is held.
    bool setNoteTied(const ScoreModelRange &range, bool checked);

    /// The older forms, which tie notes that are there and write none: `cmd::deprecated`.
    bool setBeatTiedOnly(const ScoreModelRange &range, bool checked);
    bool setNoteTiedOnly(const ScoreModelRange &range, bool checked);

    /// A slur over the beats of a range, one for each voice.
    bool setBeatLegato(const ScoreModelRange &range, bool checked);

    /// A hairpin over them; a swell lies on each beat by itself.
    bool setBeatHairpin(const ScoreModelRange &range, Hairpin hairpin);

    /// Hammer-ons and pull-offs from note to note of a string.
    bool setStringedNoteHopo(const ScoreModelRange &range, bool checked);

    /// Slides into notes and out of them; what is not given stays.
    bool setStringedNoteSlide(const ScoreModelRange &range, std::optional<SlideIn> in,
                              std::optional<SlideOut> out);

protected:
    ScoreLinkOperations() = default;
    ~ScoreLinkOperations() = default;
};

} // namespace zarn
