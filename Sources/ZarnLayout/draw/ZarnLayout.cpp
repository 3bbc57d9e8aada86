// SPDX-License-Identifier: MIT
#include <ZarnLayout/draw/ZarnLayout.h>

#include <ZarnCore/ZarnAssert.h>

#include <algorithm>
#include <utility>

namespace zarn::layout {
namespace {

constexpr auto constructor = "zarn::layout::Layout::Layout";

template <typename T>
bool haveEqualValue(const std::shared_ptr<const T> &a, const std::shared_ptr<const T> &b)
{
    return a == b || (a != nullptr && b != nullptr && *a == *b);
}

bool isEqual(const PlacedSystem &a, const PlacedSystem &b)
{
    return a.at == b.at && haveEqualValue(a.drawing, b.drawing);
}

bool isEqual(const LayoutPage &a, const LayoutPage &b)
{
    return a.width == b.width && a.height == b.height && a.leftMargin == b.leftMargin
        && a.topMargin == b.topMargin && a.rightMargin == b.rightMargin
        && a.bottomMargin == b.bottomMargin && haveEqualValue(a.marks, b.marks)
        && std::equal(a.systems.begin(), a.systems.end(), b.systems.begin(), b.systems.end(),
                      [](const PlacedSystem &x, const PlacedSystem &y) { return isEqual(x, y); });
}

} // namespace

Layout::Layout(Content content) : _content(std::move(content))
{
    ZARN_ASSERT_IN(constructor, _content.font != nullptr);
    ZARN_ASSERT_IN(constructor, _content.staffSpace > 0);
    for (const LayoutPage &page : _content.pages)
        for (const PlacedSystem &system : page.systems)
            ZARN_ASSERT_IN(constructor, system.drawing != nullptr);
}

Layout::~Layout() = default;

bool operator==(const Layout &a, const Layout &b)
{
    const Layout::Content &x = a._content;
    const Layout::Content &y = b._content;
    return x.font == y.font && x.staffSpace == y.staffSpace && x.title == y.title
        && x.problems == y.problems
        && std::equal(x.pages.begin(), x.pages.end(), y.pages.begin(), y.pages.end(),
                      [](const LayoutPage &m, const LayoutPage &n) { return isEqual(m, n); });
}

} // namespace zarn::layout
