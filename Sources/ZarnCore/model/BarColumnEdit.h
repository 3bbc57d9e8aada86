// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/model/ZarnBarColumns.h>
#include <ZarnCore/model/ZarnScoreModel.h>

namespace zarn {

/// Bar columns that go in and out of all staves of a model at once; see `ScoreModel`.
class BarColumnEdit {
public:
    explicit BarColumnEdit(ScoreModel &model) : _model(model), _master(*model.masterTrack()) { }

    BarColumnSurroundings insertEmpty(unsigned index, unsigned count);
    /// Leaves the links of the surroundings to be settled, when all is as it is without the
    /// columns.
    BarColumns take(unsigned first, unsigned last);

    /// For columns that fit the model.
    void putBack(BarColumns columns);
    void restore(const BarColumnSurroundings &surroundings);

private:
    BarColumnSurroundings surroundingsOf(unsigned end, unsigned begin) const;

    template <class Change>
    void changeSystems(const Change &change);

    ScoreModel &_model;
    MasterTrack &_master;
};

} // namespace zarn
