// SPDX-License-Identifier: MIT
#include <ZarnLayout/session/LayoutChanges.h>

#include <algorithm>
#include <cstddef>
#include <functional>

namespace zarn::layout {

namespace {

Box boxOfSheet(const Layout &layout, const LayoutPage &page)
{
    return {0, 0, layout.fromMicrometres(page.width), layout.fromMicrometres(page.height)};
}

template <typename T>
bool haveEqualValue(const std::shared_ptr<const T> &a, const std::shared_ptr<const T> &b)
{
    return a == b || (a && b && *a == *b);
}

bool isSame(const PlacedSystem &a, const PlacedSystem &b)
{
    return a.at == b.at && haveEqualValue(a.drawing, b.drawing);
}

/// Systems stand on a page from the top down, and those at one height from left to right.
bool standsBefore(const PlacedSystem &a, const PlacedSystem &b)
{
    return a.at.y != b.at.y ? a.at.y < b.at.y : a.at.x < b.at.x;
}

/// Most likely where it is on its own page.
bool isIn(const LayoutPage &page, const PlacedSystem &system, std::size_t number)
{
    const auto &systems = page.systems;
    if (number < systems.size() && isSame(systems[number], system))
        return true;
    const auto [first, end] =
        std::equal_range(systems.begin(), systems.end(), system, standsBefore);
    return std::any_of(first, end,
                       [&](const PlacedSystem &other) { return isSame(other, system); });
}

/// Collects the boxes of one page.
class PageChanges {
public:
    PageChanges(std::size_t page, std::vector<PlacedBox> &changes) : _page(page), _changes(changes)
    {
    }

    void add(const Box &box)
    {
        // One more unit on each side: boxes are rounded, and a painter softens edges.
        constexpr Unit rim = staffSpace / 4;
        if (!box.isEmpty())
            _changes.push_back(
                {_page, {box.left - rim, box.top - rim, box.right + rim, box.bottom + rim}});
    }

    /// The systems of a page that another one has not.
    void addWhatOnlyOneHas(const Layout &layout, const LayoutPage &page, const LayoutPage &other)
    {
        if (page.systems == other.systems)
            return;
        std::vector<const PlacedSystem *> changed;
        for (std::size_t i = 0; i < page.systems.size(); ++i)
            if (!isIn(other, page.systems[i], i))
                changed.push_back(&page.systems[i]);
        if (changed.size() == page.systems.size() && _changes.size() > manyBoxes) {
            addPage(layout, page);
            return;
        }
        constexpr std::size_t few = 4;
        if (changed.size() > few && changed.front()->at.y == changed.back()->at.y) {
            addLineFrom(*changed.front(), layout, page);
            std::vector<const SystemDrawing *> shared;
            shared.reserve(other.systems.size());
            for (const PlacedSystem &system : other.systems)
                shared.push_back(system.drawing.get());
            std::sort(shared.begin(), shared.end(), std::less<>());
            const auto isMoved = [&](const PlacedSystem *system) {
                return std::binary_search(shared.begin(), shared.end(), system->drawing.get(),
                                          std::less<>());
            };
            changed.erase(std::remove_if(changed.begin(), changed.end(), isMoved), changed.end());
        }
        for (const PlacedSystem *system : changed)
            add(system->drawing->marks.box(layout.font()).movedBy(system->at));
    }

private:
    /// Systems that go to other pages take all behind them along: what each of these reaches is not
    /// worth knowing.
    static constexpr std::size_t manyBoxes = 16;

    /// All of the sheet, and what is beyond its edges.
    void addPage(const Layout &layout, const LayoutPage &page)
    {
        const Box sheet = boxOfSheet(layout, page);
        add({-sheet.right, -sheet.bottom, 2 * sheet.right, 2 * sheet.bottom});
    }

    /// Parts of a line that only move are many: all of the sheet is drawn again from the parts in
    /// front of them on, as far as their ink may reach, and what of them is beyond its edges.
    void addLineFrom(const PlacedSystem &first, const Layout &layout, const LayoutPage &page)
    {
        constexpr std::ptrdiff_t around = 2;
        const Box sheet = boxOfSheet(layout, page);
        const std::ptrdiff_t number = &first - page.systems.data();
        const Unit left = number < around ? 0 : (&first - around)->at.x;
        const Unit height = sheet.bottom;
        add({left, -height, sheet.right + height, 2 * height});
    }

    std::size_t _page;
    std::vector<PlacedBox> &_changes;
};

} // namespace

std::vector<PlacedBox> changesBetween(const Layout &before, const Layout &after)
{
    if (before.staffSpace() != after.staffSpace() || &before.font() != &after.font())
        return wholeSheets(after);
    std::vector<PlacedBox> changes;
    for (std::size_t i = 0; i < after.pages().size(); ++i) {
        const LayoutPage &page = after.pages()[i];
        PageChanges boxes(i, changes);
        const Box sheet = boxOfSheet(after, page);
        if (i >= before.pages().size()) {
            boxes.add(sheet);
            continue;
        }
        const LayoutPage &old = before.pages()[i];
        const Box oldSheet = boxOfSheet(before, old);
        boxes.add({oldSheet.right, 0, sheet.right, sheet.bottom});
        boxes.add({0, oldSheet.bottom, sheet.right, sheet.bottom});
        boxes.addWhatOnlyOneHas(before, old, page);
        boxes.addWhatOnlyOneHas(after, page, old);
        if (!haveEqualValue(old.marks, page.marks)) {
            if (old.marks)
                boxes.add(old.marks->box(before.font()));
            if (page.marks)
                boxes.add(page.marks->box(after.font()));
        }
    }
    return changes;
}

std::vector<PlacedBox> wholeSheets(const Layout &layout)
{
    std::vector<PlacedBox> sheets;
    for (std::size_t i = 0; i < layout.pages().size(); ++i) {
        const LayoutPage &page = layout.pages()[i];
        Box box = boxOfSheet(layout, page);
        // What is too wide for its sheet is drawn beyond it.
        for (const PlacedSystem &system : page.systems)
            box = box.unitedWith(system.drawing->marks.box(layout.font()).movedBy(system.at));
        sheets.push_back({i, box});
    }
    return sheets;
}

} // namespace zarn::layout
