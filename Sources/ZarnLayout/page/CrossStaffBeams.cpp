// SPDX-License-Identifier: MIT
#include <ZarnLayout/page/CrossStaffBeams.h>

#include <ZarnLayout/page/InkField.h>
#include <ZarnLayout/page/SideItem.h>
#include <ZarnLayout/page/TupletEngraver.h>

#include <algorithm>
#include <cmath>
#include <map>
#include <tuple>

namespace zarn::engraving {

namespace {

constexpr double stemLength = 3.25; ///< to the outer edge of beams outside of the staves
constexpr double clearStem = 2.25;  ///< what is seen of a stem in front of beams between staves

/// Where the nearest head is to the end of a stem.
double headAtTip(const PlacedChord &chord)
{
    return chord.chord->isStemUp ? chord.chord->top() : chord.chord->bottom();
}

/// How steep a beam over a width may be at most, in rise.
double mostRise(double width)
{
    return std::min(0.1 + width * 0.12, 2.0);
}

} // namespace

CrossStaffBeams::CrossStaffBeams(SystemDraft &draft) : _draft(draft)
{
    std::map<std::tuple<unsigned, unsigned, unsigned>, Group> groups;
    for (RowDraft &row : draft.rows)
        for (PlacedChord &chord : row.chords)
            if (chord.chord->isCrossBeamed)
                groups[{row.row->track, chord.shownBar, chord.beat().crossBeam}].members.push_back(
                    {&row, &chord});
    for (auto &entry : groups) {
        finish(entry.second);
        _groups.push_back(std::move(entry.second));
    }
}

void CrossStaffBeams::finish(Group &group) const
{
    auto &members = group.members;
    std::stable_sort(members.begin(), members.end(), [](const Member &left, const Member &right) {
        return left.chord->beat().onset < right.chord->beat().onset;
    });
    const auto isHigher = [](const Member &left, const Member &right) {
        return left.row->number < right.row->number;
    };
    const auto [first, last] = std::minmax_element(members.begin(), members.end(), isHigher);
    group.upper = first->row;
    group.lower = last->row;
    group.isBetween = std::any_of(members.begin(), members.end(), [&](const Member &member) {
        return member.chord->chord->isStemUp != members.front().chord->chord->isStemUp;
    });
    group.scale = members.front().chord->chord->scale;
    for (const Member &member : members)
        group.chords.push_back({member.chord, placeOf(*member.row, *member.chord)});
    group.depth = _draft.pen.fonts().beam() * group.scale
        + beamStep(group.scale) * (mostBeamsOf(group.chords) - 1);
    findTuplets(group);
}

void CrossStaffBeams::findTuplets(Group &group)
{
    const auto rhythmOf = [&](std::size_t member) -> const RhythmValue & {
        return group.members[member].chord->beat().rhythm;
    };
    for (std::size_t first = 0; first < group.members.size();) {
        std::size_t end = first + 1;
        if (TupletGroup::ratioOf(rhythmOf(first), TupletLevel::Outer)) {
            TupletGroup tuplet(rhythmOf(first), TupletLevel::Outer,
                               group.members[first].chord->beat().onset);
            tuplet.add(rhythmOf(first));
            bool isAcross = false;
            for (; end < group.members.size() && !tuplet.isFull() && tuplet.takes(rhythmOf(end));
                 ++end) {
                tuplet.add(rhythmOf(end));
                isAcross = isAcross || group.members[end].row != group.members[first].row;
            }
            if (isAcross && tuplet.isFull()) {
                group.tuplets.push_back({first, end - 1, tupletText(tuplet.ratio())});
                for (std::size_t i = first; i < end; ++i)
                    group.members[i].chord->hasTupletElsewhere = true;
            }
        }
        first = end;
    }
}

void CrossStaffBeams::reserve()
{
    for (Group &group : _groups) {
        if (group.isBetween)
            reserveBetween(group);
        else
            reserveOutside(group);
        const double left = group.members.front().chord->stemX();
        const double right = group.members.back().chord->stemX();
        group.upper->beamsBelow.push_back({left, right});
        group.lower->beamsAbove.push_back({left, right});
    }
}

double CrossStaffBeams::roomNeeded(const Group &group, double slope, BeamLine &upper,
                                   BeamLine &lower)
{
    const double clear = clearStem * group.scale;
    const double x = group.members.front().chord->stemX();
    upper = {x, -1e9, slope};
    lower = {x, 1e9, slope};
    for (const Member &member : group.members) {
        const PlacedChord &chord = *member.chord;
        const double shift = slope * (chord.stemX() - x);
        if (chord.chord->isStemUp)
            lower.y = std::min(lower.y, headAtTip(chord) - clear - shift);
        else
            upper.y = std::max(upper.y, headAtTip(chord) + clear - shift);
    }
    return upper.y + group.depth - lower.y;
}

void CrossStaffBeams::reserveBetween(Group &group) const
{
    const Member &first = group.members.front();
    const Member &last = group.members.back();
    const double width = std::max(last.chord->stemX() - first.chord->stemX(), 0.1);
    // Beams follow notes that go from one staff to the other; where they go to and fro, they lie.
    std::size_t changes = 0;
    for (std::size_t i = 1; i < group.members.size(); ++i)
        changes += group.members[i].row != group.members[i - 1].row;
    double wish = 0;
    if (changes == 1)
        wish = first.row == group.lower ? -mostRise(width) / 2 : mostRise(width) / 2;
    double least = 1e9;
    constexpr int steps = 8;
    for (int step = -steps; step <= steps; ++step) {
        const double rise = mostRise(width) * step / steps;
        BeamLine upper;
        BeamLine lower;
        const double cost =
            roomNeeded(group, rise / width, upper, lower) + 0.5 * std::abs(rise - wish);
        if (cost < least - 1e-9) {
            least = cost;
            group.upperEdge = upper;
            group.lowerEdge = lower;
        }
    }
    for (Member &member : group.members) {
        const BeamLine &edge = member.row == group.upper ? group.upperEdge : group.lowerEdge;
        addStem(member, edge.at(member.chord->stemX()));
    }
    for (Ink &beam : beamInks(group.chords, group.upperEdge, 1, group.scale, _draft.pen)) {
        cover(*group.upper, beam);
        group.upper->beamsBetween.push_back(std::move(beam));
    }
    for (Ink &beam : beamInks(group.chords, group.lowerEdge, -1, group.scale, _draft.pen))
        group.lower->beamsBetween.push_back(std::move(beam));
}

void CrossStaffBeams::reserveOutside(Group &group) const
{
    const bool isUp = group.members.front().chord->chord->isStemUp;
    const double inward = isUp ? 1 : -1;
    RowDraft &home = isUp ? *group.upper : *group.lower;
    std::vector<const PlacedChord *> near;
    for (const Member &member : group.members)
        if (member.row == &home)
            near.push_back(member.chord);
    const double x = group.members.front().chord->stemX();
    const double width = std::max(group.members.back().chord->stemX() - x, 0.1);
    const double reach = near.back()->stemX() - near.front()->stemX();
    double rise = headAtTip(*near.back()) - headAtTip(*near.front());
    rise = reach > 0
        ? std::clamp(rise * 0.5 * width / reach, -mostRise(width) / 2, mostRise(width) / 2)
        : 0;
    BeamLine line = {x, isUp ? 1e9 : -1e9, rise / width};
    const double length =
        (stemLength + beamStep(1) * std::max(0, mostBeamsOf(group.chords) - 2)) * group.scale;
    const double middle = home.row->height() / 2;
    const auto keepOutside = [&](double y, double place) {
        const double start = y - line.slope * (place - x);
        line.y = isUp ? std::min(line.y, start) : std::max(line.y, start);
    };
    for (const PlacedChord *chord : near) {
        const double tip = headAtTip(*chord) - inward * length;
        keepOutside(isUp ? std::min(tip, middle) : std::max(tip, middle), chord->stemX());
    }
    // Stems of the other staff lead past all lines of this one.
    const double edge = isUp ? -0.5 : home.row->height() + 0.5;
    for (const Member &member : group.members)
        if (member.row != &home)
            keepOutside(edge, member.chord->stemX());
    line.y = inward * std::floor(inward * line.y * 4) / 4;
    (isUp ? group.upperEdge : group.lowerEdge) = line;
    constexpr double numberHeight = 1.6;
    for (const Tuplet &tuplet : group.tuplets) {
        const double centre =
            (group.members[tuplet.first].chord->stemX() + group.members[tuplet.last].chord->stemX())
            / 2;
        const double y = line.at(centre);
        home.cover({centre - 0.8, std::min(y, y - inward * numberHeight), centre + 0.8,
                    std::max(y, y - inward * numberHeight)});
    }
    for (Member &member : group.members) {
        const double tip = line.at(member.chord->stemX());
        if (member.row == &home) {
            addStem(member, tip);
        } else {
            addStem(member, member.chord->chord->stemTip);
            const double stem = member.chord->stemX();
            home.cover(
                {stem - 0.1, std::min(tip, 0.0), stem + 0.1, std::max(tip, home.row->height())});
        }
    }
    // Notes behind the end of their bar are not drawn: one may be left alone.
    if (group.members.size() == 1)
        return;
    for (Ink &beam : beamInks(group.chords, line, inward, group.scale, _draft.pen)) {
        cover(home, beam);
        home.inks.push_back(std::move(beam));
    }
}

void CrossStaffBeams::draw()
{
    for (Group &group : _groups)
        if (group.isBetween)
            drawBetween(group);
        else
            drawOutside(group);
}

void CrossStaffBeams::drawBetween(Group &group) const
{
    // Everything but the stems that end at the beams.
    InkField field;
    for (RowDraft *row : {group.upper, group.lower})
        for (std::size_t i = 0; i < row->inks.size(); ++i) {
            const bool isOwn =
                std::any_of(group.members.begin(), group.members.end(), [&](const Member &member) {
                    return member.row == row && member.stem == i;
                });
            if (!isOwn)
                field.add(row->inks[i], row->y);
        }
    const double highest = group.upper->y + group.upperEdge.y;
    const double lowest = std::max(highest, group.lower->y + group.lowerEdge.y - group.depth);
    const auto edgeAt = [&](double y) {
        BeamLine edge = group.upperEdge;
        edge.y = std::clamp(y, highest, lowest);
        return edge;
    };
    const auto isFree = [&](const BeamLine &edge) {
        const double left = group.members.front().chord->stemX();
        const double right = group.members.back().chord->stemX();
        constexpr int pieces = 12;
        for (int i = 0; i < pieces; ++i) {
            const double from = left + (right - left) * i / pieces;
            const double to = left + (right - left) * (i + 1) / pieces;
            const double top = std::min(edge.at(from), edge.at(to));
            const double bottom = std::max(edge.at(from), edge.at(to)) + group.depth;
            if (!field.isFree({from, top - 0.2, to, bottom + 0.2}))
                return false;
        }
        return std::all_of(group.members.begin(), group.members.end(), [&](const Member &member) {
            const double x = member.chord->stemX();
            const double from = member.row->y + member.chord->stemTip;
            const double to = edge.at(x) + group.depth / 2;
            return field.isFree({x - 0.15, std::min(from, to), x + 0.15, std::max(from, to)});
        });
    };
    // In the middle of the gap, or as near to it as notes and other ink let them.
    const double width = group.members.back().chord->stemX() - group.upperEdge.x;
    const double middle = (group.upper->y + group.upper->row->height() + group.lower->y
                           - group.depth - group.upperEdge.slope * width)
        / 2;
    BeamLine edge = edgeAt(middle);
    for (const double off : {0.0, -0.4, 0.4, -0.8, 0.8, -1.2, 1.2, -1.8, 1.8, -2.6, 2.6})
        if (isFree(edgeAt(middle + off))) {
            edge = edgeAt(middle + off);
            break;
        }
    // The first beam is on the side to which most stems point.
    const auto up = std::count_if(group.members.begin(), group.members.end(),
                                  [](const Member &m) { return m.chord->chord->isStemUp; });
    const bool isFirstOnTop = 2 * static_cast<std::size_t>(up) >= group.members.size();
    const double inward = isFirstOnTop ? 1 : -1;
    if (!isFirstOnTop)
        edge.y += group.depth;
    for (Member &member : group.members) {
        const double x = member.chord->stemX();
        // Stems from the other side lead through to the first beam as well.
        const int beams = std::max(1, member.chord->beat().flagCount());
        const double own = member.chord->chord->isStemUp == isFirstOnTop
            ? 0.05
            : beamStep(group.scale) * (beams - 1) + _draft.pen.fonts().beam() * group.scale - 0.05;
        setStem(member, edge.at(x) + inward * own - member.row->y);
    }
    for (Ink &beam : beamInks(group.chords, edge, inward, group.scale, _draft.pen)) {
        beam.move(0, -group.upper->y);
        group.upper->inks.push_back(std::move(beam));
    }
    if (!isFirstOnTop)
        edge.y -= group.depth;
    addTuplets(group, edge);
}

void CrossStaffBeams::drawOutside(Group &group) const
{
    const bool isUp = group.members.front().chord->chord->isStemUp;
    const RowDraft &home = isUp ? *group.upper : *group.lower;
    const BeamLine &line = isUp ? group.upperEdge : group.lowerEdge;
    for (Member &member : group.members)
        if (member.row != &home)
            setStem(member, line.at(member.chord->stemX()) + home.y - member.row->y);
    BeamLine edge = line;
    edge.y += home.y - (isUp ? 0 : group.depth);
    addTuplets(group, edge);
}

/// At the beams whose upper edge is given, counted in the system: where stems leave room for the
/// number.
void CrossStaffBeams::addTuplets(const Group &group, const BeamLine &edge) const
{
    if (group.tuplets.empty())
        return;
    InkField field;
    for (const RowDraft *row : {group.upper, group.lower})
        field.add(row->inks, row->y);
    for (const Tuplet &tuplet : group.tuplets) {
        const PlacedChord &first = *group.members[tuplet.first].chord;
        const PlacedChord &last = *group.members[tuplet.last].chord;
        const double centre = (first.stemX() + last.stemX()) / 2;
        const Ink text = _draft.pen.text(MarkKind::Tuplet, TextRole::Tuplet, tuplet.text, centre, 0,
                                         Pen::Align::Centre);
        constexpr double gap = 0.3;
        const auto placed = [&](double shift, bool isAbove) {
            Ink ink = text;
            const double lean = std::abs(edge.slope) * text.box.width() / 2;
            const double y = edge.at(centre + shift);
            ink.move(shift,
                     isAbove ? y - lean - gap - text.box.bottom
                             : y + group.depth + lean + gap - text.box.top);
            return ink;
        };
        const bool isUsuallyAbove = group.isBetween || first.chord->isStemUp;
        Ink best = placed(0, isUsuallyAbove);
        bool isFree = false;
        const double farthest = (last.stemX() - first.stemX()) / 2;
        for (double off = 0; off <= farthest && !isFree; off += 0.25)
            for (const double shift : {off, -off})
                for (const bool isAbove : {isUsuallyAbove, !isUsuallyAbove}) {
                    const Ink ink = placed(shift, isAbove);
                    const Box box = ink.box;
                    if (isFree
                        || !field.isFree(
                            {box.left - 0.1, box.top - 0.1, box.right + 0.1, box.bottom + 0.1}))
                        continue;
                    best = ink;
                    isFree = true;
                }
        best.place = placeOf(*group.members[tuplet.first].row, first);
        best.move(0, -group.upper->y);
        field.add(best, group.upper->y);
        group.upper->inks.push_back(std::move(best));
    }
}

void CrossStaffBeams::addStem(Member &member, double tip) const
{
    member.stem = member.row->inks.size();
    member.row->inks.emplace_back();
    setStem(member, tip);
    member.row->cover(member.row->inks[member.stem].box);
}

void CrossStaffBeams::setStem(Member &member, double tip) const
{
    PlacedChord &chord = *member.chord;
    chord.stemTip = tip;
    Ink stem = _draft.pen.line(MarkKind::Stem, {chord.stemX(), chord.chord->stemRoot},
                               {chord.stemX(), tip}, _draft.pen.fonts().stem());
    stem.place = placeOf(*member.row, chord);
    member.row->inks[member.stem] = std::move(stem);
}

} // namespace zarn::engraving
