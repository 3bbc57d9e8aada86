// SPDX-License-Identifier: MIT
#include <ZarnViews/widgets/CanvasSheets.h>

#include <ZarnViews/widgets/SheetChanges.h>

#include <algorithm>
#include <cmath>

namespace zarn::views {
namespace {

/// Systems that go to another sheet take all behind them along: what is left of the sheets there is
/// not worth knowing.
constexpr int mostCompared = 2;

/// Whether two sheets show the same; drawings that are equal are shared by layouts that follow each
/// other.
bool isShownAlike(const layout::LayoutPage &a, const layout::LayoutPage &b)
{
    return a.width == b.width && a.height == b.height && a.marks == b.marks
        && a.systems == b.systems;
}

} // namespace

void ScoreCanvas::Sheets::setLayout(std::shared_ptr<const layout::Layout> layout)
{
    const auto before = std::exchange(_layout, std::move(layout));
    const std::size_t count = _layout == nullptr ? 0 : _layout->pages().size();
    const bool isComparable = before != nullptr && _layout != nullptr
        && before->staffSpace() == _layout->staffSpace() && &before->font() == &_layout->font();
    _numbers.resize(count, 0);
    _formers.resize(count);
    int changedCount = 0;
    for (std::size_t sheet = 0; sheet < count; ++sheet) {
        const layout::LayoutPage &page = _layout->pages()[sheet];
        Former former;
        if (isComparable && sheet < before->pages().size()) {
            const layout::LayoutPage &old = before->pages()[sheet];
            if (isShownAlike(old, page))
                continue;
            if (++changedCount <= mostCompared && old.width == page.width
                && old.height == page.height)
                if (const auto change = changeOfSheet(old, page, _layout->font()))
                    former = {_numbers[sheet], *change};
        }
        _formers[sheet] = former;
        _numbers[sheet] = _nextNumber++;
    }
    place();
}

void ScoreCanvas::Sheets::setScale(double scale)
{
    _scale = scale;
    place();
}

double ScoreCanvas::Sheets::pixelsPerUnit() const noexcept
{
    return _layout == nullptr ? 1 : _scale * _layout->staffSpace() / (1000.0 * layout::staffSpace);
}

QSizeF ScoreCanvas::Sheets::largestSheet() const
{
    QSizeF largest;
    if (_layout != nullptr)
        for (const layout::LayoutPage &page : _layout->pages())
            largest = largest.expandedTo(QSizeF(page.width / 1000.0, page.height / 1000.0));
    return largest;
}

void ScoreCanvas::Sheets::place()
{
    _rects.clear();
    const double widest = largestSheet().width() * _scale;
    double y = gap;
    for (std::size_t sheet = 0; sheet < _numbers.size(); ++sheet) {
        const layout::LayoutPage &page = _layout->pages()[sheet];
        const double width = page.width / 1000.0 * _scale;
        const double height = page.height / 1000.0 * _scale;
        // Whole pixels, so that tiles meet the pixels of the screen.
        _rects.emplace_back(std::round(gap + (widest - width) / 2), std::round(y), std::ceil(width),
                            std::ceil(height));
        y += std::ceil(height) + gap;
    }
    _size = _rects.empty() ? QSizeF() : QSizeF(widest + 2 * gap, y);
}

} // namespace zarn::views
