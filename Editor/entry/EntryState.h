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

    friend bool operator==(const EntryState &a, const EntryState &b) noexcept
    {
        return a.rhythm == b.rhythm && a.staffKind == b.staffKind;
    }
};

} // namespace zarn::editor
