// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>
#include <ZarnCore/fingering/ZarnFingeringWeights.h>
#include <ZarnCore/fingering/ZarnPassage.h>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

namespace zarn::fingering {

/// Where a note is played.
struct Placement {
    static constexpr int None = -1;

    int string = None;
    int fret = None; ///< as written
    int finger = 0;  ///< 1 to 4 from the index finger; 0 for an open string

    friend bool operator==(const Placement &left, const Placement &right) noexcept
    {
        return left.string == right.string && left.fret == right.fret
            && left.finger == right.finger;
    }
};

/// Something of a passage that no hand can play.
struct FingeringProblem {
    enum class Kind : std::uint8_t {
        NotOnInstrument, ///< no string has the pitch within the frets
        NoStringLeft,    ///< the strings that have it are needed by other notes
        TooWide,         ///< the notes that begin with it ask for more than a hand reaches
    };
    Kind kind;
    std::size_t note; ///< in `Passage::notes`
};

/// How a passage is played.
struct FingeringSolution {
    std::vector<Placement> notes; ///< one for each of `Passage::notes`
    std::vector<FingeringProblem> problems;
    double effort = 0;      ///< in the units of the weights
    double leastEffort = 0; ///< of the easiest way that was found
};

/// One way to play an event.
struct FingeringAlternative {
    std::vector<Placement> notes; ///< one for each note of the event
    double loss = 0; ///< how much worse the passage around it is played so than in the best way
};

/// Finds strings, frets and fingers for a passage: of all ways to hold its events one after the
/// other, the one that agrees best with all easy ones. Deterministic; memory does not grow with the
/// passage but for the result.
class ZARNCORE_EXPORT FingeringSolver {
public:
    /// The passage outlives the solver.
    explicit FingeringSolver(const Passage &passage, const FingeringWeights &weights = {});
    ~FingeringSolver();

    FingeringSolution solve();

    /// The best ways to play one event with what is around it, the easiest first, each on other
    /// strings; at most `most`.
    std::vector<FingeringAlternative> alternatives(std::size_t event, std::size_t most);

private:
    class Search;
    std::unique_ptr<Search> _search;
};

} // namespace zarn::fingering
