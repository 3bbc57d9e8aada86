// SPDX-License-Identifier: MIT
#include <ZarnLayout/session/PageMaker.h>

#include <ZarnLayout/page/PageFiller.h>

#include <ZarnCore/model/ZarnScoreModel.h>

#include <algorithm>
#include <cmath>

namespace zarn::engraving {

using layout::boundedLength;
using layout::fromSpaces;
using layout::LayoutPage;

namespace {

constexpr double gapBelow = systemGap + 2; ///< a system of a sheet without end

LayoutPage emptyPage(const Sheet &sheet)
{
    LayoutPage page;
    page.width = sheet.setup.width;
    page.height = sheet.setup.height;
    page.leftMargin = sheet.setup.leftMargin;
    page.topMargin = sheet.setup.topMargin;
    page.rightMargin = sheet.setup.rightMargin;
    page.bottomMargin = sheet.setup.bottomMargin;
    return page;
}

/// The sheet grows, so that nothing is lost beyond its edge.
void growFor(LayoutPage &page, const ShownSystem &system, double above, const Sheet &sheet)
{
    const double needed = (above + system.height.height()) * sheet.space;
    page.height = std::max(page.height,
                           boundedLength(std::ceil(needed)) + page.topMargin + page.bottomMargin
                               + boundedLength(4 * sheet.space));
}

/// The same for one that is wider than its line.
void growFor(LayoutPage &page, const ShownSystem &system, const Sheet &sheet)
{
    if (system.right > sheet.width)
        page.width = std::max(page.width,
                              page.leftMargin + page.rightMargin
                                  + boundedLength(std::ceil(system.right * sheet.space)));
}

/// How far the rows of a system move when those that stretch by 1 move apart by so many spaces.
RowShifts shiftsOf(const BuiltSystem &system, double spaces)
{
    RowShifts shifts;
    double by = 0;
    for (const double row : system.rowsStretch) {
        by += row * spaces;
        shifts.push_back(fromSpaces(by));
    }
    if (by == 0)
        shifts.clear();
    return shifts;
}

std::vector<SystemHeight> heightsOf(const std::vector<ShownSystem> &systems)
{
    std::vector<SystemHeight> heights;
    heights.reserve(systems.size());
    for (const ShownSystem &system : systems)
        heights.push_back(system.height);
    return heights;
}

} // namespace

void ShownSystem::lookAtBuilt()
{
    height.top = built->top;
    height.bottom = built->bottom;
    height.stretch = built->stretch;
    right = built->right;
}

void PageMaker::setTexts(const ScoreSource &source, const Sheet &sheet)
{
    if (_texts && _model == source.texts && _setup == sheet.setup)
        return;
    _model = source.texts;
    _setup = sheet.setup;
    _texts.emplace(*_model, _pen, sheet.width, sheet.spaces(sheet.setup.bottomMargin));
    _drawn.clear();
}

std::shared_ptr<const layout::DrawList> PageMaker::textsOf(const Sheet &sheet, unsigned page,
                                                           unsigned pageCount)
{
    if (_pageCount != pageCount)
        _drawn.clear();
    _pageCount = pageCount;
    _drawn.resize(pageCount);
    auto &drawn = _drawn[page - 1];
    if (!drawn)
        drawn = _texts->draw(page, pageCount, sheet.spaces(sheet.setup.leftMargin),
                             sheet.spaces(sheet.setup.topMargin), sheet.height);
    return drawn;
}

std::vector<LayoutPage> PageMaker::make(const ScoreSource &source, const Sheet &sheet,
                                        std::vector<ShownSystem> &systems, Problems &problems)
{
    setTexts(source, sheet);
    problems.add(_texts->problems());
    if (source.view != ViewLayout::Pages)
        _placed.clear();
    if (source.view != ViewLayout::Pages)
        return fillSheet(sheet, systems);
    const double title = _texts->titleHeight();
    const double firstFooter = _texts->firstFooterHeight();
    const double footer = _texts->footerHeight();
    const double header = _texts->headerHeight();
    const PageRoom room = {std::max(sheet.height - title - firstFooter, 1.0),
                           std::max(sheet.height - header - footer, 1.0)};
    const FilledPages filled = fillPages(heightsOf(systems), room);
    const auto pageCount = std::max<unsigned>(1, static_cast<unsigned>(filled.pages.size()));
    const double left = sheet.spaces(sheet.setup.leftMargin);
    const double top = sheet.spaces(sheet.setup.topMargin);
    std::vector<LayoutPage> pages;
    pages.reserve(pageCount);
    _placed.resize(pageCount);
    for (unsigned i = 0; i < pageCount; ++i) {
        LayoutPage page = emptyPage(sheet);
        page.marks = textsOf(sheet, i + 1, pageCount);
        if (i < filled.pages.size()) {
            const FilledPage &systemsHere = filled.pages[i];
            const double above = i == 0 ? title : header;
            for (unsigned s = systemsHere.first; s < systemsHere.end; ++s) {
                growFor(page, systems[s], sheet);
                stretch(systems[s], systemsHere.stretch);
            }
            placeSystems(systems, systemsHere, filled.places, {left, top + above}, _placed[i]);
            page.systems = _placed[i];
            if (systemsHere.isTooTall) {
                const ShownSystem &system = systems[systemsHere.first];
                MarkPlace place;
                place.bar = system.drawing->bars.front().firstBar;
                problems.add(place, "The system is taller than the page.");
                growFor(page, system, above + (i == 0 ? firstFooter : footer), sheet);
                // Footers stay below the music.
                page.marks =
                    _texts->draw(i + 1, pageCount, left, top,
                                 sheet.height + sheet.spaces(page.height - sheet.setup.height));
            }
        }
        pages.push_back(std::move(page));
    }
    return pages;
}

/// Leaves what was placed the time before where it is the same.
void PageMaker::placeSystems(const std::vector<ShownSystem> &systems, const FilledPage &page,
                             const std::vector<double> &places, const Point &corner,
                             layout::PlacedSystems &placed)
{
    const auto at = [&](unsigned system) {
        return layout::Point{fromSpaces(corner.x), fromSpaces(corner.y + places[system])};
    };
    bool isSame = placed.size() == page.end - page.first;
    for (unsigned i = page.first; isSame && i < page.end; ++i) {
        const layout::PlacedSystem &before = placed[i - page.first];
        isSame = before.drawing == systems[i].drawing && before.at == at(i);
    }
    if (isSame)
        return;
    std::vector<layout::PlacedSystem> present;
    present.reserve(page.end - page.first);
    for (unsigned i = page.first; i < page.end; ++i)
        present.push_back({systems[i].drawing, at(i)});
    placed = std::move(present);
}

void PageMaker::stretch(ShownSystem &system, double spaces) const
{
    if (spaces == system.stretch)
        return;
    const RowShifts before = shiftsOf(*system.built, system.stretch);
    const RowShifts after = shiftsOf(*system.built, spaces);
    if (after != before)
        system.drawing = withRowsMoved(*system.drawing, system.built->hangers, before, after,
                                       _pen.fonts().music());
    system.stretch = spaces;
}

std::vector<LayoutPage> PageMaker::fillSheet(const Sheet &sheet,
                                             std::vector<ShownSystem> &systems) const
{
    LayoutPage page = emptyPage(sheet);
    const double left = sheet.spaces(page.leftMargin);
    const double top = sheet.spaces(page.topMargin);
    double y = top + _texts->titleHeight();
    std::vector<layout::PlacedSystem> placed;
    placed.reserve(systems.size());
    for (ShownSystem &system : systems) {
        stretch(system, 0);
        growFor(page, system, sheet);
        placed.push_back({system.drawing, {fromSpaces(left), fromSpaces(y + system.height.top)}});
        y += system.height.height() + gapBelow;
    }
    page.systems = std::move(placed);
    page.height = boundedLength(y * sheet.space) + page.bottomMargin;
    page.marks = _texts->draw(1, 1, left, top, y - top);
    return {std::move(page)};
}

std::vector<LayoutPage> PageMaker::makeLine(const ScoreSource &source, const Sheet &sheet,
                                            const LineMaker &line, Problems &problems)
{
    setTexts(source, sheet);
    problems.add(_texts->problems());
    _placed.clear();
    LayoutPage page = emptyPage(sheet);
    const double left = sheet.spaces(page.leftMargin);
    const double top = sheet.spaces(page.topMargin);
    double y = top + _texts->titleHeight();
    const std::vector<LinePart> &parts = line.parts();
    if (!parts.empty()) {
        std::vector<layout::PlacedSystem> placed;
        placed.reserve(parts.size());
        for (const LinePart &part : parts)
            placed.push_back(
                {part.drawing, {fromSpaces(left) + part.left, fromSpaces(y + line.top())}});
        page.systems = std::move(placed);
        y += line.top() + line.bottom() + gapBelow;
        const double width = layout::toSpaces(
            parts.back().left + parts.back().drawing->marks.box(_pen.fonts().music()).right);
        page.width =
            std::max(page.width, boundedLength((left + width) * sheet.space) + page.rightMargin);
    }
    page.height = boundedLength(y * sheet.space) + page.bottomMargin;
    page.marks = _texts->draw(1, 1, left, top, y - top);
    return {std::move(page)};
}

} // namespace zarn::engraving
