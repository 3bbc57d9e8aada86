// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/model/ZarnScoreModel.h>

#include <memory>
#include <set>
#include <vector>

namespace zarn {

/// Copies tracks and bars of a model into a model without any.
class PartCopy {
public:
    /// The columns ascend.
    PartCopy(const ScoreModel &from, ScoreModel &to, std::vector<unsigned> columns)
        : _from(from), _to(to), _columns(std::move(columns))
    {
    }

    void copySettings() const;
    void copyMasterTrack() const;

    /// Appends a track with those of its bars; the columns of the others stay empty.
    void copyTrack(unsigned track, const std::set<unsigned> &bars) const;

    /// Keeps the groups whose tracks, as far as they were copied, still stand side by side; the
    /// copies are of these tracks.
    void copyTrackGroups(const std::vector<unsigned> &tracks) const;

private:
    bool isWhole() const { return _columns.size() == _from.masterTrack()->masterBarCount(); }
    void copyDirections() const;
    void copyAutomations(const AutomationContainer &from, AutomationContainer &to) const;
    void copyAutomations(Automation::Type type, const AutomationContainer &from,
                         AutomationContainer &to) const;
    std::shared_ptr<Bar> copyBar(const Staff &staff, std::size_t column,
                                 const std::set<unsigned> &bars) const;
    bool hasSimileBars(SimileMark mark, std::size_t column, const std::set<unsigned> &bars) const;

    const ScoreModel &_from;
    ScoreModel &_to;
    std::vector<unsigned> _columns;
};

} // namespace zarn
