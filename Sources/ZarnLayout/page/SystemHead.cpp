// SPDX-License-Identifier: MIT
#include <ZarnLayout/page/SystemHead.h>

#include <algorithm>

namespace zarn::engraving {

namespace {

constexpr double levelWidth = 1.35; ///< of brackets around brackets

/// Tracks of the rows that a bracket or brace joins.
struct Joining {
    unsigned firstRow;
    unsigned lastRow;
    GroupSymbol symbol;
    unsigned level = 0; ///< how many others stand between it and the staves
};

std::vector<Joining> joiningsOf(const EngravedScore &score)
{
    std::vector<Joining> joinings;
    const auto &rows = score.rows;
    for (const TrackGroup &group : score.groups) {
        int first = -1;
        int last = -1;
        for (std::size_t i = 0; i < rows.size(); ++i)
            if (rows[i].track >= group.first && rows[i].track <= group.last) {
                first = first < 0 ? static_cast<int>(i) : first;
                last = static_cast<int>(i);
            }
        if (first >= 0)
            joinings.push_back(
                {static_cast<unsigned>(first), static_cast<unsigned>(last), group.symbol, 0});
    }
    for (std::size_t i = 0; i < rows.size();) {
        std::size_t end = i + 1;
        while (end < rows.size() && rows[end].track == rows[i].track)
            ++end;
        if (end - i > 1) {
            const bool isGrand = rows[i].staff != rows[end - 1].staff;
            joinings.push_back({static_cast<unsigned>(i), static_cast<unsigned>(end - 1),
                                isGrand ? GroupSymbol::Brace : GroupSymbol::Bracket, 0});
        }
        i = end;
    }
    // From the inside out: shorter ones are nearer to the staves.
    std::stable_sort(joinings.begin(), joinings.end(),
                     [](const Joining &left, const Joining &right) {
                         return left.lastRow - left.firstRow < right.lastRow - right.firstRow;
                     });
    for (std::size_t i = 0; i < joinings.size(); ++i)
        for (std::size_t k = 0; k < i; ++k)
            if (joinings[k].firstRow <= joinings[i].lastRow
                && joinings[i].firstRow <= joinings[k].lastRow
                && joinings[k].symbol != GroupSymbol::None)
                joinings[i].level = std::max(joinings[i].level, joinings[k].level + 1);
    return joinings;
}

/// Names of tracks, in the middle of their rows, up to a place.
void addNames(SystemDraft &draft, double x)
{
    const Pen &pen = draft.pen;
    for (std::size_t i = 0; i < draft.rows.size();) {
        std::size_t end = i + 1;
        while (end < draft.rows.size() && draft.rows[end].row->track == draft.rows[i].row->track)
            ++end;
        const TrackHead &track = draft.score.tracks[draft.rows[i].row->track];
        const std::string &name = draft.isFirst ? track.name : track.shortName;
        if (!name.empty()) {
            const double middle =
                (draft.rows[i].y + draft.rows[end - 1].y + draft.rows[end - 1].row->height()) / 2;
            const auto lines = linesOf(name);
            const double cap = pen.fonts().capHeight(TextRole::TrackName);
            const double lead = cap * 1.9;
            double y = middle + cap / 2 - lead * static_cast<double>(lines.size() - 1) / 2;
            for (const std::string &line : lines) {
                Ink ink =
                    pen.text(MarkKind::TrackName, TextRole::TrackName, line, x, y, Pen::Align::End);
                ink.place.track = static_cast<std::int16_t>(draft.rows[i].row->track);
                draft.inks.push_back(std::move(ink));
                y += lead;
            }
        }
        i = end;
    }
}

} // namespace

double indentOf(const EngravedScore &score, const Pen &pen, bool isFirst)
{
    double width = 0;
    for (const Row &row : score.rows) {
        const TrackHead &track = score.tracks[row.track];
        const std::string &name = isFirst ? track.name : track.shortName;
        for (const std::string &line : linesOf(name))
            if (!line.empty())
                width = std::max(width, pen.fonts().textBox(line, TextRole::TrackName).right + 0.8);
    }
    const auto joinings = joiningsOf(score);
    double symbols = 0;
    for (const Joining &joining : joinings)
        if (joining.symbol != GroupSymbol::None)
            symbols = std::max(symbols, 1.7 + levelWidth * joining.level);
    return width + symbols;
}

void addSystemHead(SystemDraft &draft)
{
    const Pen &pen = draft.pen;
    const double top = draft.rows.empty() ? 0 : draft.rows.front().y;
    const double bottom =
        draft.rows.empty() ? 0 : draft.rows.back().y + draft.rows.back().row->height();
    if (draft.rows.size() > 1) {
        const double x = draft.staffLeft + 0.08;
        draft.inks.push_back(pen.line(MarkKind::SystemLine, {x, top}, {x, bottom}, 0.16));
    }
    double x = draft.staffLeft;
    const auto joinings = joiningsOf(draft.score);
    for (const Joining &joining : joinings) {
        const RowDraft &upper = draft.rows[joining.firstRow];
        const RowDraft &lower = draft.rows[joining.lastRow];
        const double from = upper.y;
        const double to = lower.y + lower.row->height();
        const double shift = levelWidth * joining.level;
        if (joining.symbol == GroupSymbol::Brace) {
            const Box &box = pen.fonts().box(Sign::Brace);
            const double scale = (to - from) / box.height();
            Ink brace = pen.glyph(MarkKind::Brace, Sign::Brace, 0, to, 1);
            brace.scale = scale;
            brace.stretch = std::clamp(scale, 1.0, 3.0) * 1.2;
            brace.box = {0, from, box.right * brace.stretch, to};
            brace.move(draft.staffLeft - shift - 0.35 - brace.box.right, 0);
            x = std::min(x, brace.box.left);
            draft.inks.push_back(std::move(brace));
        } else if (joining.symbol != GroupSymbol::None) {
            const bool isLine = joining.symbol == GroupSymbol::Line;
            const double width = isLine ? 0.16 : 0.45;
            const double left = draft.staffLeft - shift - 0.35 - width;
            draft.inks.push_back(pen.line(MarkKind::Bracket, {left + width / 2, from - 0.25},
                                          {left + width / 2, to + 0.25}, width));
            if (!isLine) {
                draft.inks.push_back(
                    pen.glyph(MarkKind::Bracket, Sign::BracketTop, left, from - 0.25));
                draft.inks.push_back(
                    pen.glyph(MarkKind::Bracket, Sign::BracketBottom, left, to + 0.25));
            }
            x = std::min(x, left);
        }
    }
    addNames(draft, x - 0.6);
}

} // namespace zarn::engraving
