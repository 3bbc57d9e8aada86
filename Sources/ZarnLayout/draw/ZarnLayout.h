// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/utils/rational.h>
#include <ZarnLayout/ZarnLayoutExport.h>
#include <ZarnLayout/draw/ZarnDrawList.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace zarn::layout {

/// How a staff of a system shows its music.
enum class StaffKind : std::uint8_t { Notation, Tablature, Slash, Percussion };

/// One staff of a system, from its first to its last line.
struct StaffFrame {
    std::int32_t track = 0;
    std::int32_t staff = 0;
    StaffKind kind = StaffKind::Notation;
    std::int32_t lineCount = 5;
    Unit top = 0;
    Unit bottom = 0;

    friend bool operator==(const StaffFrame &a, const StaffFrame &b) noexcept
    {
        return a.track == b.track && a.staff == b.staff && a.kind == b.kind
            && a.lineCount == b.lineCount && a.top == b.top && a.bottom == b.bottom;
    }
};

/// Where something begins to sound inside a bar.
struct ColumnFrame {
    utils::rational offset; ///< in quarters from the begin of the bar
    Unit x = 0;

    friend bool operator==(const ColumnFrame &a, const ColumnFrame &b) noexcept
    {
        return a.offset == b.offset && a.x == b.x;
    }
};

/// One column of bars of a system; a multi-rest stands for several.
struct BarFrame {
    std::int32_t firstBar = 0;
    std::int32_t barCount = 1;
    Unit left = 0;
    Unit right = 0;
    std::vector<ColumnFrame> columns; ///< by ascending offset

    friend bool operator==(const BarFrame &a, const BarFrame &b) noexcept
    {
        return a.firstBar == b.firstBar && a.barCount == b.barCount && a.left == b.left
            && a.right == b.right && a.columns == b.columns;
    }
};

/// One system: its marks, and the frames by which a click or a cursor finds its place. Lengths are
/// seen from the left end of the first staff's top line.
struct SystemDrawing {
    DrawList marks;
    std::vector<StaffFrame> staves; ///< from top to bottom
    std::vector<BarFrame> bars;     ///< from left to right

    friend bool operator==(const SystemDrawing &a, const SystemDrawing &b) noexcept
    {
        return a.marks == b.marks && a.staves == b.staves && a.bars == b.bars;
    }
};

struct PlacedSystem {
    std::shared_ptr<const SystemDrawing> drawing;
    /// Where its origin is on the page, from the upper left corner of the sheet.
    Point at;

    /// Of one and the same drawing.
    friend bool operator==(const PlacedSystem &a, const PlacedSystem &b) noexcept
    {
        return a.at == b.at && a.drawing == b.drawing;
    }
};

/// The systems of a sheet. They never change, so that layouts which follow one another share those
/// of the sheets that stay as they are.
class PlacedSystems {
public:
    PlacedSystems() = default;
    PlacedSystems(std::vector<PlacedSystem> systems)
        : _systems(systems.empty()
                       ? nullptr
                       : std::make_shared<const std::vector<PlacedSystem>>(std::move(systems)))
    {
    }

    bool empty() const noexcept { return _systems == nullptr; }
    std::size_t size() const noexcept { return _systems ? _systems->size() : 0; }
    const PlacedSystem *data() const noexcept { return _systems ? _systems->data() : nullptr; }
    const PlacedSystem *begin() const noexcept { return data(); }
    const PlacedSystem *end() const noexcept { return data() + size(); }
    const PlacedSystem &operator[](std::size_t number) const { return (*_systems)[number]; }
    const PlacedSystem &front() const { return _systems->front(); }
    const PlacedSystem &back() const { return _systems->back(); }

    /// Of the same drawings in the same places.
    friend bool operator==(const PlacedSystems &a, const PlacedSystems &b) noexcept
    {
        return a._systems == b._systems || std::equal(a.begin(), a.end(), b.begin(), b.end());
    }

private:
    std::shared_ptr<const std::vector<PlacedSystem>> _systems; ///< null for none
};

/// One sheet. Its size and margins are in micrometres, what is drawn on it in units.
struct LayoutPage {
    std::int32_t width = 210000;
    std::int32_t height = 297000;
    std::int32_t leftMargin = 15000;
    std::int32_t topMargin = 15000;
    std::int32_t rightMargin = 15000;
    std::int32_t bottomMargin = 15000;
    PlacedSystems systems;
    /// Title, header and footer; seen from the upper left corner of the sheet. May be empty.
    std::shared_ptr<const DrawList> marks;
};

/// What could not be drawn as it should.
struct LayoutProblem {
    DrawPlace place;
    std::string message; ///< a sentence in UTF-8

    friend bool operator==(const LayoutProblem &a, const LayoutProblem &b) noexcept
    {
        return a.place == b.place && a.message == b.message;
    }
};

/// A score as it is drawn: sheets with systems on them. Immutable and shared, so that any thread
/// may paint or export it while the score is edited on. A view that scrolls is a single sheet.
class ZARNLAYOUT_EXPORT Layout {
public:
    struct Content {
        std::shared_ptr<const MusicFont> font;
        /// Distance of two staff lines in micrometres: the length of 1024 units on the sheets.
        std::int32_t staffSpace = 1750;
        std::vector<LayoutPage> pages;
        std::vector<LayoutProblem> problems;
        std::string title; ///< of the document, in UTF-8
    };

    /// Raises `CoreException` for a content without a font, a staff space or a system's drawing.
    explicit Layout(Content content);
    ~Layout();

    const MusicFont &font() const noexcept { return *_content.font; }
    std::int32_t staffSpace() const noexcept { return _content.staffSpace; }
    const std::vector<LayoutPage> &pages() const noexcept { return _content.pages; }
    const std::vector<LayoutProblem> &problems() const noexcept { return _content.problems; }
    const std::string &title() const noexcept { return _content.title; }

    double millimetres(Unit length) const noexcept
    {
        return static_cast<double>(length) * _content.staffSpace / (1000.0 * layout::staffSpace);
    }
    Unit fromMicrometres(std::int32_t length) const noexcept
    {
        return static_cast<Unit>(std::int64_t{length} * layout::staffSpace / _content.staffSpace);
    }

    /// Value by value: what shared drawings hold, not where they lie.
    friend ZARNLAYOUT_EXPORT bool operator==(const Layout &a, const Layout &b);
    friend bool operator!=(const Layout &a, const Layout &b) { return !(a == b); }

    Layout(const Layout &) = delete;
    Layout &operator=(const Layout &) = delete;

private:
    Content _content;
};

} // namespace zarn::layout
