// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/model/notes/ZarnKeptBeats.h>

#include <utility>
#include <vector>

namespace zarn {

class ScoreModel;
class TouchedBars;

/// Joints between beats that meet anew after a change: what leads over them is kept, then mended
/// where its two ends do not agree, and put back before the change is taken back.
class KeptJoints {
public:
    /// The joint in front of a beat, or behind the last one, of a voice; of a bar without that
    /// voice the one where its neighbours would meet.
    void add(const ScoreModel &model, unsigned track, unsigned staff, unsigned bar, unsigned voice,
             unsigned beat);

    /// Those over the bar line in front of a bar, in all voices; none at the ends of the staff,
    /// where what leads out waits for its other end.
    void addBarLine(const ScoreModel &model, unsigned track, unsigned staff, unsigned bar);

    /// Beats that nobody else has, from `beat` up to, not including, `end`: what joins them is
    /// mended too, and not kept. The joints where they meet other beats are to be added as well.
    void addNew(const ScoreModel &model, unsigned track, unsigned staff, unsigned bar,
                unsigned voice, unsigned beat, unsigned end);

    /// Mends all that were added, and adds the bars where that changed something.
    void mend(const ScoreModel &model, TouchedBars &touched);

    void putBack(const ScoreModel &model) const;

private:
    using Place = KeptBeats::Place;

    std::vector<Place> _joints;
    std::vector<std::pair<Place, unsigned>> _new; ///< the first beat, and the one behind the last
    KeptBeats _kept;
};

} // namespace zarn
