// SPDX-License-Identifier: MIT
#include <ZarnLayout/page/RowHangers.h>

#include <algorithm>

namespace zarn::engraving {

namespace {

constexpr double trackStretch = 0.6; ///< of staves of one track
constexpr double staffStretch = 0.3; ///< of a staff's notation and tablature

bool hasSlurBetweenStaves(const SystemDraft &draft, unsigned track)
{
    return std::any_of(draft.inks.begin(), draft.inks.end(), [&](const Ink &ink) {
        return ink.kind == MarkKind::Slur && ink.place.track == static_cast<int>(track);
    });
}

} // namespace

std::vector<double> rowsStretch(const SystemDraft &draft)
{
    std::vector<double> stretch(draft.rows.size(), 0);
    for (std::size_t i = 1; i < draft.rows.size(); ++i) {
        const Row &upper = *draft.rows[i - 1].row;
        const Row &lower = *draft.rows[i].row;
        // What leads from one staff to another has found its way between them as they are.
        if (upper.track != lower.track)
            stretch[i] = 1;
        else if (draft.rows[i].beamsAbove.empty() && !hasSlurBetweenStaves(draft, lower.track))
            stretch[i] = upper.staff != lower.staff ? trackStretch : staffStretch;
    }
    return stretch;
}

void HangerCollector::addRow(const RowDraft &row, std::size_t marks)
{
    const auto number = static_cast<std::uint16_t>(row.number);
    add({0, number, number}, marks);
}

void HangerCollector::add(const Ink &ink)
{
    add(hangerOf(ink), 1);
}

RowHanger HangerCollector::hangerOf(const Ink &ink) const
{
    if (ink.shape == Ink::Shape::Line && ink.points.size() == 2)
        return {0, rowOf(ink, 0), rowOf(ink, 1)};
    if (ink.kind == MarkKind::Brace)
        return {0, rowAt(ink.box.top), rowAt(ink.box.bottom)};
    if (ink.shape == Ink::Shape::Text || ink.shape == Ink::Shape::Curve)
        return trackOf(ink);
    const std::uint16_t row = rowAt(ink.points.empty() ? ink.at.y : ink.points.front().y);
    return {0, row, row};
}

std::uint16_t HangerCollector::rowOf(const Ink &line, int end) const
{
    return line.rows[end] >= 0 ? static_cast<std::uint16_t>(line.rows[end])
                               : rowAt(line.points[static_cast<std::size_t>(end)].y);
}

RowHanger HangerCollector::trackOf(const Ink &ink) const
{
    const auto isHere = [&](const RowDraft &row) {
        return static_cast<int>(row.row->track) == ink.place.track;
    };
    RowHanger hanger;
    const auto &rows = _draft.rows;
    const auto first = std::find_if(rows.begin(), rows.end(), isHere);
    const auto last = std::find_if(rows.rbegin(), rows.rend(), isHere);
    if (first != rows.end()) {
        hanger.top = static_cast<std::uint16_t>(first->number);
        hanger.bottom = static_cast<std::uint16_t>(last->number);
    }
    return hanger;
}

std::uint16_t HangerCollector::rowAt(double y) const
{
    std::uint16_t best = 0;
    double least = 1e9;
    for (const RowDraft &row : _draft.rows) {
        const double off = std::max({row.y - y, y - row.y - row.row->height(), 0.0});
        if (off < least) {
            least = off;
            best = static_cast<std::uint16_t>(row.number);
        }
    }
    return best;
}

void HangerCollector::add(RowHanger hanger, std::size_t marks)
{
    _count += static_cast<std::uint32_t>(marks);
    hanger.end = _count;
    const bool isSame = !_hangers.empty() && _hangers.back().top == hanger.top
        && _hangers.back().bottom == hanger.bottom;
    if (isSame)
        _hangers.back().end = _count;
    else
        _hangers.push_back(hanger);
}

} // namespace zarn::engraving
