// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnLayout/draw/ZarnLayout.h>
#include <ZarnLayout/engrave/Problems.h>
#include <ZarnLayout/page/PageFiller.h>
#include <ZarnLayout/page/SystemBuilder.h>
#include <ZarnLayout/session/LineMaker.h>
#include <ZarnLayout/session/PageTexts.h>
#include <ZarnLayout/session/ScoreSource.h>
#include <ZarnLayout/session/Sheet.h>

#include <memory>
#include <optional>
#include <vector>

namespace zarn::engraving {

struct SystemWidth {
    double width = 0;
    bool isJustified = true;

    friend bool operator==(const SystemWidth &a, const SystemWidth &b) noexcept
    {
        return a.width == b.width && a.isJustified == b.isJustified;
    }
};

/// A system where it stands in the score.
struct ShownSystem {
    ShownSystem(unsigned first, unsigned end, const SystemWidth &width)
        : first(first), end(end), width(width)
    {
    }

    unsigned first; ///< shown bars
    unsigned end;
    SystemWidth width;    ///< for which it was built
    OpenLines open;       ///< at its beginning
    OpenLines openBehind; ///< at its end
    bool isNew = false;   ///< was not there in the layout before
    std::shared_ptr<const BuiltSystem> built;
    std::shared_ptr<const layout::SystemDrawing> drawing; ///< with its rows moved as it was shown
    double stretch = 0;                                   ///< by which they are moved apart
    std::shared_ptr<const Problems> problems;             ///< null for none
    SystemHeight height;
    const BuiltSystem *above = nullptr; ///< the system in front, for which the nesting is true

    // Of what is built, which is not looked at behind each edit.
    double right = 0; ///< of its last line

    /// Takes these from `built`.
    void lookAtBuilt();
};

/// Puts systems on pages, or all of them on one sheet, with titles, headers and footers.
class PageMaker {
public:
    explicit PageMaker(const Pen &pen) : _pen(pen) { }

    std::vector<layout::LayoutPage> make(const ScoreSource &source, const Sheet &sheet,
                                         std::vector<ShownSystem> &systems, Problems &problems);

    /// A line on a sheet of its own.
    std::vector<layout::LayoutPage> makeLine(const ScoreSource &source, const Sheet &sheet,
                                             const LineMaker &line, Problems &problems);

private:
    void setTexts(const ScoreSource &source, const Sheet &sheet);
    std::shared_ptr<const layout::DrawList> textsOf(const Sheet &sheet, unsigned page,
                                                    unsigned pageCount);

    static void placeSystems(const std::vector<ShownSystem> &systems, const FilledPage &page,
                             const std::vector<double> &places, const Point &corner,
                             layout::PlacedSystems &placed);
    std::vector<layout::LayoutPage> fillSheet(const Sheet &sheet,
                                              std::vector<ShownSystem> &systems) const;
    /// Moves rows apart that stretch by 1 by so many staff spaces, and others in proportion.
    void stretch(ShownSystem &system, double spaces) const;

    const Pen &_pen;
    std::shared_ptr<const ScoreModel> _model; ///< of the texts
    std::optional<PageTexts> _texts;
    PageSetup _setup; ///< for which they were drawn
    unsigned _pageCount = 0;
    std::vector<std::shared_ptr<const layout::DrawList>> _drawn; ///< by page
    std::vector<layout::PlacedSystems> _placed;                  ///< the time before, by page
};

} // namespace zarn::engraving
