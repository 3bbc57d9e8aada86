// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnLayout/draw/ZarnLayout.h>
#include <ZarnLayout/page/BarLines.h>
#include <ZarnLayout/page/CrossStaffBeams.h>
#include <ZarnLayout/page/RestPlacer.h>
#include <ZarnLayout/page/RowShifts.h>
#include <ZarnLayout/page/SystemDraft.h>

#include <memory>
#include <utility>
#include <vector>

namespace zarn::engraving {

/// How a system reaches upwards before it has its bar number.
struct SystemFrame {
    double staffLeft = 0;          ///< where its staff lines begin
    Skyline above = Skyline(0, 0); ///< of the first row
    double top = 0;
};

/// What is known of a system that is ready: how far it reaches from the top line of its first row,
/// and how its rows may be moved apart.
struct BuiltSystem {
    double top = 0;                ///< above, positive
    double bottom = 0;             ///< below
    double right = 0;              ///< of its last line
    Skyline above = Skyline(0, 0); ///< of the first row
    Skyline below = Skyline(0, 0); ///< of the last row
    double lastRow = 0;            ///< y of the top line of the last row
    double lastHeight = 0;         ///< of its staff

    static constexpr std::uint32_t noMark = 0xffffffff;
    SystemFrame bare;
    std::uint32_t numberMark = noMark; ///< of the drawing, the one that is the bar number

    RowHangers hangers;              ///< of the drawing
    std::vector<double> rowsStretch; ///< by row: how readily it moves away from the one above
    double stretch = 0;              ///< of all rows

    /// Reaches around the bar number too.
    void addNumber(const Ink &ink);
};

struct DrawnSystem {
    BuiltSystem system;
    std::shared_ptr<const layout::SystemDrawing> drawing;
};

/// Justifies the bars of a system and draws it.
class SystemBuilder {
public:
    SystemBuilder(const EngravedScore &score, const Pen &pen, Problems &problems)
        : _score(score), _pen(pen), _problems(problems)
    {
    }

    /// The shown bars `first` up to `end`, in a width. A system that is not justified is as wide as
    /// its notes want to be. `open` is what comes from the systems in front.
    DrawnSystem build(unsigned first, unsigned end, double width, bool isJustified,
                      const OpenLines &open) const;

protected:
    /// Without rows: these are as wide as its bars.
    SystemDraft draftOf(unsigned first, unsigned end) const;
    void addRows(SystemDraft &draft, double width) const;
    void placeJoint(SystemDraft &draft, const Joint &joint, double x, unsigned bar) const;
    /// Answers with the beams between rows, which wait until these have their places.
    CrossStaffBeams placeRows(SystemDraft &draft) const;
    /// As near as the ink between two places lets the rows come.
    void separateRows(SystemDraft &draft, double left, double right) const;
    void addBarLines(SystemDraft &draft) const;
    /// Adds what reaches between two places from the top line of the first row.
    void measure(const SystemDraft &draft, double left, double right, BuiltSystem &system) const;
    void addNumber(SystemDraft &draft, BuiltSystem &system) const;
    /// Seen from a place on the line. Adds what the marks hang on to the system.
    std::shared_ptr<const layout::SystemDrawing> draw(const SystemDraft &draft, double origin,
                                                      BuiltSystem &system) const;

    const EngravedScore &_score;
    const Pen &_pen;
    Problems &_problems;

private:
    std::vector<bool> joinedRows() const;
    void placeBars(SystemDraft &draft, double width, bool isJustified) const;
    /// Answers with the rests that wait until all else is placed.
    std::vector<WaitingRest> placeRow(SystemDraft &draft, RowDraft &row) const;
    void addStaffLines(const SystemDraft &draft, const RowDraft &row, Inks &inks) const;

    struct LineJob {
        LineStyle style;
        double x;
        unsigned bar;
    };

    mutable std::vector<LineJob> _lines;
};

} // namespace zarn::engraving
