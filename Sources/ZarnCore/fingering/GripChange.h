// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/fingering/Grip.h>
#include <ZarnCore/fingering/Ringing.h>
#include <ZarnCore/fingering/ZarnFingeringWeights.h>
#include <ZarnCore/fingering/ZarnPassage.h>

#include <array>
#include <optional>

namespace zarn::fingering {

/// What it takes to go from one grip to the next.
class GripChange {
public:
    /// Passage and weights outlive this.
    GripChange(const Passage &passage, const Ringing &ringing, const FingeringWeights &weights);

    /// Takes the grip that is left, and when it began and ends. It stays where it is meanwhile.
    void leave(const Grip &from, double onset, double nextOnset);

    /// The effort of going on to a grip; nothing when what that holds is not what was there.
    std::optional<double> cost(const Grip &to) const;

private:
    bool holdsOn(const Grip &to) const;
    double costOfMove(const Grip &to) const;
    double costOfFingers(const Grip &to) const;
    double costOfNotes(const Grip &to) const;

    const Passage &_passage;
    const Ringing &_ringing;
    const FingeringWeights &_weights;
    std::array<double, 128> _fretWidths; ///< by position, that of the first being 1
    const Grip *_from = nullptr;
    unsigned _lasting = 0;   ///< strings that sound on, as bits
    unsigned _lingering = 0; ///< strings that may go on ringing
    double _relief = 1;
};

} // namespace zarn::fingering
