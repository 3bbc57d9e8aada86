// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnAssert.h>
#include <ZarnCore/commands/ZarnScoreCommand.h>
#include <ZarnCore/model/ZarnBarAttribute.h>

#include <utility>
#include <vector>

namespace zarn {

class Staff;

/// Base of commands that give neighbouring bars of a staff attributes of the table, by their ids.
/// Sends the event of each attribute once, in the order of the ids.
///
/// A clef takes the changes of clef inside the bars off. A simile mark is set as `Simple`, or as
/// `Double` on pairs of bars; what is left of a double mark that is cut goes, in the bar in front
/// or behind too.
class ZARNCORE_EXPORT SetBarsByTable : public ScoreCommand {
protected:
    using Values = std::vector<std::pair<BarAttribute, AttributeValue>>;

    explicit SetBarsByTable(const QString &name) : ScoreCommand(name) { }

    static bool isAttribute(BarAttribute id) noexcept
    {
        return static_cast<std::size_t>(id) < BarAttributeCount;
    }

    /// Remembers and records what is to be done to the bars `first` to `last`. False for bars that
    /// are not there, when nothing is to be set, for values out of range, and for simile marks that
    /// have nothing in front of them to repeat or no second half.
    bool prepare(Score *score, unsigned track, unsigned staff, unsigned first, unsigned last,
                 Values values);

    /// What one of the bars gets, as given unless a command says otherwise.
    virtual AttributeValue valueFor(const Staff &staff, unsigned bar, BarAttribute id,
                                    const AttributeValue &given) const;

private:
    /// The staff, null when it or one of the bars is not there.
    Staff *place() const;
    bool setsSimiles() const noexcept;
    void markSimiles(Staff &staff, SimileMark mark);
    void announce();

    void apply() override;
    void revert() override;
    void announceApplied() override { announce(); }
    void announceReverted() override { announce(); }

    unsigned _track = 0;
    unsigned _staff = 0;
    unsigned _first = 0;
    unsigned _last = 0;
    Values _values;
    std::vector<std::vector<AttributeValue>> _before; ///< per bar, of all attributes

    /// Simile marks from the bar in front to the one behind, as far as they are there.
    std::vector<SimileMark> _marks;
    unsigned _firstMark = 0;
    unsigned _firstMarked = 0; ///< bars whose simile marks changed
    unsigned _lastMarked = 0;
};

} // namespace zarn
