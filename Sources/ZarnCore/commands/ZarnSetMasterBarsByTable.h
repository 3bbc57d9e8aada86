// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnAssert.h>
#include <ZarnCore/commands/ZarnScoreCommand.h>
#include <ZarnCore/model/ZarnMasterBarAttribute.h>

#include <memory>
#include <utility>
#include <vector>

namespace zarn {

/// Base of commands that give neighbouring columns of bars attributes of the table, by their ids.
/// Sends the event of each attribute once, in the order of the ids; beam groups that do not fit a
/// new meter go, with their event; and what the order of playing depends on is followed by
/// `RequestMasterBarPlaylistUpdate`.
class ZARNCORE_EXPORT SetMasterBarsByTable : public ScoreCommand {
protected:
    using Values = std::vector<std::pair<MasterBarAttribute, AttributeValue>>;

    explicit SetMasterBarsByTable(const QString &name) : ScoreCommand(name) { }

    static bool isAttribute(MasterBarAttribute id) noexcept
    {
        return static_cast<std::size_t>(id) < MasterBarAttributeCount;
    }

    /// Remembers and records what is to be done to the bars `first` to `last`. False for bars that
    /// are not there, when nothing is to be set, for values out of range, and for beam groups or
    /// fermatas that one of the bars has no room for.
    bool prepare(Score *score, unsigned first, unsigned last, Values values);

private:
    using Bars = std::vector<std::shared_ptr<MasterBar>>;

    Bars bars() const;
    bool fit(const Bars &bars) const;
    bool setsForm() const noexcept;
    void announce();

    void apply() override;
    void revert() override;
    void announceApplied() override { announce(); }
    void announceReverted() override { announce(); }

    unsigned _first = 0;
    unsigned _last = 0;
    Values _values;
    std::vector<MasterBarAttribute> _kept;            ///< what is set, and what may go with it
    std::vector<std::vector<AttributeValue>> _before; ///< per bar, of each of those
    bool _haveGroupsGone = false;
};

} // namespace zarn
