// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/chords/ZarnHandModel.h>
#include <ZarnCore/fingering/Grip.h>
#include <ZarnCore/fingering/KnownStrings.h>
#include <ZarnCore/fingering/Pedals.h>
#include <ZarnCore/fingering/Ringing.h>
#include <ZarnCore/fingering/ZarnFingeringWeights.h>
#include <ZarnCore/fingering/ZarnPassage.h>

#include <utility>
#include <vector>

namespace zarn::fingering {

/// Finds the ways to hold each event of a passage.
class GripFinder {
public:
    /// Of all ways, so many are kept, the easiest ones.
    static constexpr std::size_t MostGrips = 32;

    GripFinder(const Passage &passage, const Ringing &ringing, const FingeringWeights &weights);

    /// The ways to hold an event after those of the event in front of it; at least one.
    const std::vector<Grip> &find(std::size_t event, const std::vector<Grip> &previous);

    /// Whether some string has a note's pitch.
    bool isOnInstrument(const PassageNote &note) const;

private:
    /// Strings of the notes of an event, by their number in it; -1 for a note that is left out.
    using Strings = std::vector<std::int8_t>;

    struct Search {
        std::uint16_t taken = 0;
        int lowest = 127; ///< stopped frets
        int highest = 0;
        int left = 0; ///< how many notes may still be left out
    };

    void collectHeld(const PassageEvent &event, const std::vector<Grip> &previous);
    void collectPositions(const std::vector<Grip> &previous);
    void collectStrings(const PassageEvent &event);
    void searchStrings(const PassageEvent &event, std::uint32_t number, Search search, int span);

    bool hasFingers(const PassageEvent &event) const;

    /// The written fret at which a note may lie on a string; -1 when it may not.
    int fretOn(const PassageNote &note, int string) const;

    Grip gripOf(const PassageEvent &event, const Strings &strings) const;
    bool isSamePitch(std::uint32_t left, std::uint32_t right) const;
    void addGrips(const Grip &grip, double onset);
    void addHolding(const Grip &grip, const Grip &held, unsigned heldStopped, double onset);
    void layFingers(const chord::HandShape &shape, Grip &grip) const;
    void addFingered(const Grip &grip);
    void addUnfingered(Grip grip);
    void keepEasiest();

    const Passage &_passage;
    const Ringing &_ringing;
    const FingeringWeights &_weights;
    chord::HandModel _hand;
    KnownStrings _known;
    Pedals _pedals;

    std::vector<Grip> _held;       ///< what may last from before, without the new notes
    std::vector<float> _positions; ///< where the hand may be
    std::vector<Strings> _strings; ///< the ways to lay the new notes
    Strings _current;
    int _budget = 0;
    bool _keepsFingers = true; ///< those that are given
    bool _isTooWide = false;   ///< no hand holds the event
    std::vector<chord::HandShape> _shapes;
    std::vector<Grip> _grips;
    std::vector<std::pair<float, std::size_t>> _order;
};

} // namespace zarn::fingering
