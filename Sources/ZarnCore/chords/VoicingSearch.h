// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/chords/ZarnVoicingFinder.h>

#include <array>
#include <cstdint>
#include <vector>

namespace zarn::chord {

/// The lowest stopped fret; 0 when no string is stopped.
int lowestStop(const FretRow &frets) noexcept;

/// Walks through all that a hand can do with the strings, place by place along the neck.
class VoicingSearch {
public:
    /// Keeps references.
    VoicingSearch(const Fretboard &fretboard, const HandModel &hand, const VoicingWeights &weights,
                  const VoicingLimits &limits);

    /// The voicings of a chord that hold the required tones, and so many tones at least, with their
    /// costs, in no useful order.
    std::vector<Voicing> find(const ChordTones &chord, ToneSet requiredTones, int fewestTones);

private:
    /// A fret of a course, and the tone that it sounds.
    struct Choice {
        std::int8_t fret;
        Tone tone;
    };
    /// Frets above the lowest that fingers are counted at.
    static constexpr int mostSpan = 7;
    /// What the strings so far do.
    struct State {
        ToneSet tones;
        int sounding = 0;
        int innerMutes = 0;
        int mutesInRow = 0;
        bool holdsLowest = false;
        int fingers = 0; ///< at least needed
        /// By frets above the lowest: the string at which the last finger there lies down, so that
        /// it may hold more; -1 when none does.
        std::array<std::int8_t, mostSpan + 1> presses = {-1, -1, -1, -1, -1, -1, -1, -1};
    };

    void searchPlace(int lowest, int highest);
    void collectChoices(int lowest, int highest);
    void walk(std::size_t course, const State &state);
    void play(std::size_t course, const Choice &choice, const State &state);
    bool press(std::size_t course, int fret, State &state) const;
    void keep(const State &state);
    int mutesAtEnds() const;
    void addCosts(Voicing &voicing, int innerMutes) const;

    const Fretboard &_fretboard;
    const HandModel &_hand;
    const VoicingWeights &_weights;
    const VoicingLimits &_limits;

    ChordTones _chord;
    ToneSet _required;
    int _fewestTones = 1;
    int _fewestSounding = 1;
    int _mostInnerMutes = 0;
    int _lowest = 0; ///< stop that a voicing of this place begins at; 0 for open strings alone
    std::array<std::vector<Choice>, FretRow::mostStrings> _choices;
    // What the courses from each one on can still bring.
    std::array<ToneSet, FretRow::mostStrings + 1> _tonesToCome{};
    std::array<bool, FretRow::mostStrings + 1> _isLowestToCome{};
    FretRow _row{0};
    std::vector<Voicing> _found;
};

} // namespace zarn::chord
