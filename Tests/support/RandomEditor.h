// SPDX-License-Identifier: MIT
#pragma once

#include "RandomOperations.h"

#include <ZarnCore/utils/SignalContainer.h>

#include <cstdint>
#include <map>
#include <string>
#include <vector>

/// Edits a score at random: operations one by one, in macros and in transactions, each inside of
/// the other, abandoned ones too; steps back and forth between them; and listeners that throw in
/// the middle, and once more while what failed is taken back.
class RandomEditor {
public:
    /// What was done. An edit is an operation that was accepted and not thrown away.
    struct Tally {
        unsigned edits = 0;
        unsigned refused = 0;
        unsigned macros = 0;
        unsigned transactions = 0;
        unsigned abandoned = 0; ///< macros and transactions that were not committed
        unsigned takenBack = 0; ///< macros and operations that raised
        unsigned undone = 0;
        std::map<std::string, unsigned> accepted; ///< per operation
    };

    /// Keeps the score editable for ever: makes its undo ring hold `maximumUndo` steps.
    RandomEditor(zarn::Score &score, std::uint64_t seed, unsigned maximumUndo);
    RandomEditor(const RandomEditor &) = delete;
    RandomEditor &operator=(const RandomEditor &) = delete;

    /// One step: mostly a single edit.
    void step();

    const Tally &tally() const noexcept { return _tally; }

    /// What the last step was, for a report.
    const std::string &lastStep() const noexcept { return _lastStep; }

private:
    bool operate();
    void group(unsigned depth);
    void macro(unsigned depth);
    void transaction(unsigned depth);
    void fill(unsigned depth);
    void fillBearing(unsigned depth);
    void stepBackAndForth();
    void fail();

    zarn::Score &_score;
    Random _random;
    EditedScore _edited;
    Tally _tally;
    std::string _lastStep;
    unsigned _weights = 0;
    unsigned _failIn = 0;      ///< events until a listener throws; 0 for never
    unsigned _failAgainIn = 0; ///< events from there until it throws once more; 0 for never
    std::vector<utils::ScopedConnection> _connections;
};
