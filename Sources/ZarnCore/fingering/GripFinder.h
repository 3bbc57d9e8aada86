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
    /// Grips that an event may be left from, at most.
    static constexpr std::size_t MostOrigins = 64;

    /// A way to hold an event, and the grips of the event in front, by their numbers as bits, that
    /// it can be reached from.
    struct Found {
        Grip grip;
        std::uint64_t origins = 0;
    };

    GripFinder(const Passage &passage, const Ringing &ringing, const FingeringWeights &weights);

    /// The ways to hold an event after those of the event in front of it, of which the likely ones
    /// come first; at least one.
    const std::vector<Found> &find(std::size_t event, const std::vector<Grip> &previous);

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

    /// What lasts from before, or a part of it.
    struct Held {
        Grip grip;
        std::uint64_t origins = 0; ///< as in `Found`
    };

    void addGrips(const Grip &grip, double onset);
    unsigned tiedStrings(const Grip &grip, const Grip &held, double onset) const;
    void addPart(const Held &held, unsigned strings);
    void addHolding(const Grip &grip, const Held &held);
    void layFingers(const chord::HandShape &shape, Grip &grip) const;
    void addFingered(const Grip &grip);
    void addUnfingered(Grip grip);

    const Passage &_passage;
    const Ringing &_ringing;
    const FingeringWeights &_weights;
    chord::HandModel _hand;
    KnownStrings _known;
    Pedals _pedals;

    std::vector<Held> _held;       ///< what may last from before, without the new notes
    std::vector<Held> _parts;      ///< the parts of it that a layout leaves
    std::vector<float> _positions; ///< where the hand may be
    std::vector<Strings> _strings; ///< the ways to lay the new notes
    Strings _current;
    int _budget = 0;
    bool _keepsFingers = true; ///< those that are given
    bool _isTooWide = false;   ///< no hand holds the event
    std::vector<chord::HandShape> _shapes;
    std::vector<Found> _found;
    std::uint64_t _origins = 0; ///< of the part that grips are looked for on top of
};

} // namespace zarn::fingering
