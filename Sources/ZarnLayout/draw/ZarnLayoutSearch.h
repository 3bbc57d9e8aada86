// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/utils/rational.h>
#include <ZarnLayout/ZarnLayoutExport.h>
#include <ZarnLayout/draw/ZarnLayout.h>

#include <cstddef>
#include <optional>
#include <vector>

/// From points on sheets to places of the score, and back. Points and boxes are in units from the
/// upper left corner of their sheet. Whatever is not there is answered with nothing.
namespace zarn::layout {

/// A mark that was hit.
struct FoundMark {
    DrawPlace place;
    MarkKind kind = MarkKind::StaffLine;
    Box box;
};

/// The mark at a point, or the nearest one within `reach` of it: notes and frets before whatever
/// else is there, and staff lines never.
ZARNLAYOUT_EXPORT std::optional<FoundMark> markAt(const Layout &layout, std::size_t page,
                                                  Point point, Unit reach = staffSpace / 2);

/// Where in the music a point is, whether or not anything is drawn there.
struct FoundSpot {
    StaffFrame staff; ///< the nearest one of the system
    std::int32_t bar = 0;
    utils::rational offset; ///< of the nearest column, in quarters from the begin of the bar
    /// Steps of half a staff space from the top line downwards; of tablature each line is two.
    std::int32_t step = 0;
};
ZARNLAYOUT_EXPORT std::optional<FoundSpot> spotAt(const Layout &layout, std::size_t page,
                                                  Point point);

/// A part of a sheet.
struct PlacedBox {
    std::size_t page = 0;
    Box box;
};

/// The marks of a place and of all that lies in it: of a beat its stem and its notes, of a bar all
/// of it but its lines. One box for each system and staff that holds some of them.
ZARNLAYOUT_EXPORT std::vector<PlacedBox> boxesOf(const Layout &layout, const DrawPlace &place);

/// The upright line where a position of the music is played, as high as its system: as far between
/// two columns as the position is.
ZARNLAYOUT_EXPORT std::optional<PlacedBox> playbackLine(const Layout &layout, std::int32_t bar,
                                                        const utils::rational &offset);

/// Where a spot of a staff is: around its time, between two columns where no note starts, and as
/// high as a line of a tablature, other staves as a whole. Nothing when the layout lacks bar or
/// staff.
ZARNLAYOUT_EXPORT std::optional<PlacedBox> boxOfSpot(const Layout &layout, const FoundSpot &spot);

} // namespace zarn::layout
