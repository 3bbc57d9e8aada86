// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/music/ZarnRhythmValue.h>
#include <ZarnLayout/draw/ZarnLayout.h>

namespace zarn::editor {

/// What the next key enters.
struct EntryState {
    /// Of the next beat.
    RhythmValue rhythm;

    /// Of the staff that the cursor is on: it decides what keys mean.
    layout::StaffKind staffKind = layout::StaffKind::Tablature;
    /// What the user chose where a track shows several; it comes back behind tracks that lack it.
    layout::StaffKind wantedKind = layout::StaffKind::Tablature;

    friend bool operator==(const EntryState &a, const EntryState &b) noexcept
    {
        return a.rhythm == b.rhythm && a.staffKind == b.staffKind && a.wantedKind == b.wantedKind;
    }
};

} // namespace zarn::editor
