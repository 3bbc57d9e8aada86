// SPDX-License-Identifier: MIT
#pragma once

namespace zarn {

/// Ways to write a track, each of which may stand above the next.
struct TrackNotations {
    bool standard = true;
    bool tablature = false;
    /// Slashes that show the rhythm alone.
    bool slash = false;

    bool any() const noexcept { return standard || tablature || slash; }

    friend bool operator==(const TrackNotations &left, const TrackNotations &right) noexcept
    {
        return left.standard == right.standard && left.tablature == right.tablature
            && left.slash == right.slash;
    }
    friend bool operator!=(const TrackNotations &left, const TrackNotations &right) noexcept
    {
        return !(left == right);
    }
};

} // namespace zarn
