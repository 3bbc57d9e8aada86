// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnTypes.h>
#include <ZarnCore/instruments/automations/ZarnAutomationContainer.h>
#include <ZarnCore/model/ZarnMasterTrack.h>
#include <ZarnCore/model/ZarnTrack.h>
#include <ZarnCore/model/notes/ZarnKeptBeats.h>
#include <ZarnCore/model/notes/ZarnKeptSpans.h>

#include <vector>

namespace zarn {

/// A simile mark of a bar beside inserted or removed columns, as it was before.
struct SimileMarkPlace {
    unsigned track = 0;
    unsigned staff = 0;
    unsigned bar = 0;
    SimileMark mark = SimileMark::None;
};

/// What inserting or removing bar columns changes in the columns that stay.
struct BarColumnSurroundings {
    MasterTrack::DirectionSlots directions = {};
    std::vector<SimileMarkPlace> simileMarks;
    KeptBeats links; ///< beats that face the columns
    KeptSpans spans; ///< of columns that were taken out

    /// Bars per system, of the full score first, then of each track.
    std::vector<std::vector<int>> systems;

    /// The bar behind removed columns that came to begin their movement; -1 for none.
    int newMovementStart = -1;
};

/// Bar columns that were taken out of a model, owned while they are out, with all that is needed
/// to put the very same nodes back as if they had never been gone.
struct BarColumns {
    unsigned first = 0;
    MasterTrack::MasterBars masterBars;

    /// Per track, per staff.
    std::vector<Track::BarBlocks> bars;

    /// Of the master track first, then of each track.
    std::vector<AutomationContainer::ErasedBlocks> automations;
    BarColumnSurroundings surroundings;

    unsigned count() const noexcept { return static_cast<unsigned>(masterBars.size()); }
};

} // namespace zarn
