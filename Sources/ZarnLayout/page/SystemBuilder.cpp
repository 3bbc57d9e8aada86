// SPDX-License-Identifier: MIT
#include <ZarnLayout/page/SystemBuilder.h>

#include <ZarnLayout/page/BarNumber.h>
#include <ZarnLayout/page/BeamEngraver.h>
#include <ZarnLayout/page/CrossStaffSlurs.h>
#include <ZarnLayout/page/Emitter.h>
#include <ZarnLayout/page/RestPlacer.h>
#include <ZarnLayout/page/RowEngravers.h>
#include <ZarnLayout/page/RowHangers.h>
#include <ZarnLayout/page/SystemHead.h>
#include <ZarnLayout/page/TremoloEngraver.h>
#include <ZarnLayout/page/WordRods.h>

#include <algorithm>
#include <cmath>
#include <numeric>
#include <utility>

namespace zarn::engraving {

namespace {

constexpr double gapInStaff = 3.5;      ///< between notation and tablature of a staff
constexpr double gapInTrack = 4.8;      ///< between staves of a track
constexpr double gapInScore = 5.0;      ///< between tracks
constexpr double inkGap = 0.6;          ///< between ink of neighbouring rows
constexpr double inkGapInStaff = 1.2;   ///< where nothing but distance parts notes and numbers
constexpr double loosest = 1.35;        ///< factor of a single line that is still drawn out
constexpr double loosestLast = 1.6;     ///< of a last one, and of what it is drawn out else
constexpr double widestPlainLine = 0.9; ///< between bars, with nothing else
constexpr double anywhere = 1e9;        ///< right of all ink

bool changesClef(const BarSource &bar)
{
    return bar.clefBefore != ClefType::None
        && (bar.clef != bar.clefBefore || bar.ottavia != bar.ottaviaBefore);
}

/// The middle of a bar, or of the widest stretch between clefs that change in it.
double middleOf(const BarPlace &bar, const EngravedBar &engraved)
{
    double left = bar.left;
    double from = bar.left;
    double to = bar.left;
    const auto addStretch = [&](double right) {
        if (right - left > to - from) {
            from = left;
            to = right;
        }
    };
    for (const auto &clef : engraved.clefs) {
        const double x = clef.column < bar.columns.size() ? bar.columns[clef.column]
                                                          : bar.right - 0.4 - clef.ink.box.right;
        addStretch(x + clef.ink.box.left);
        left = x + clef.ink.box.right;
    }
    addStretch(bar.right);
    return (from + to) / 2;
}

} // namespace

std::vector<bool> SystemBuilder::joinedRows() const
{
    const auto &rows = _score.rows;
    std::vector<bool> joined(rows.size(), false);
    for (std::size_t i = 0; i + 1 < rows.size(); ++i) {
        joined[i] = rows[i].track == rows[i + 1].track;
        for (const TrackGroup &group : _score.groups)
            if (group.barsThrough && rows[i].track >= group.first
                && rows[i + 1].track <= group.last)
                joined[i] = true;
    }
    return joined;
}

SystemDraft SystemBuilder::draftOf(unsigned first, unsigned end) const
{
    _lines.clear();
    SystemDraft draft(_score, _pen, _problems);
    draft.first = first;
    draft.end = end;
    draft.isFirst = first == 0;
    draft.knowsBefore = first > 0;
    draft.knowsBehind = end < _score.shown.size();
    return draft;
}

void SystemBuilder::addRows(SystemDraft &draft, double width) const
{
    draft.rows.reserve(_score.rows.size());
    for (unsigned i = 0; i < _score.rows.size(); ++i) {
        draft.rows.emplace_back(_score.rows[i], i, width);
        draft.rows.back().stringCount =
            static_cast<int>(_score.tracks[_score.rows[i].track].stringCount);
    }
}

DrawnSystem SystemBuilder::build(unsigned first, unsigned end, double width, bool isJustified,
                                 const OpenLines &open) const
{
    SystemDraft draft = draftOf(first, end);
    draft.openSyllables = open.syllables;
    draft.staffLeft = indentOf(_score, _pen, draft.isFirst);
    addRows(draft, width);
    for (const OpenWords &words : open.words)
        for (RowDraft &row : draft.rows)
            if (_score.staffOfRow[row.number] == words.staff)
                row.openWords = words.side;
    placeBars(draft, width, isJustified);
    CrossStaffBeams beams = placeRows(draft);
    addRowSigns(draft);
    separateRows(draft, 0, anywhere);
    beams.draw();
    addCrossStaffSlurs(draft);
    addSystemHead(draft);
    addBarLines(draft);

    BuiltSystem system;
    measure(draft, 0, anywhere, system);
    system.right = draft.right;
    system.bare = {draft.staffLeft, system.above, system.top};
    addNumber(draft, system);
    system.rowsStretch = rowsStretch(draft);
    system.stretch = std::accumulate(system.rowsStretch.begin(), system.rowsStretch.end(), 0.0);
    const auto drawing = draw(draft, 0, system);
    const auto &marks = drawing->marks.marks();
    const auto mark = std::find_if(marks.begin(), marks.end(), [](const layout::DrawMark &drawn) {
        return drawn.kind == MarkKind::BarNumber;
    });
    if (mark != marks.end())
        system.numberMark = static_cast<std::uint32_t>(mark - marks.begin());
    return {std::move(system), drawing};
}

void SystemBuilder::addBarLines(SystemDraft &draft) const
{
    const std::vector<bool> joined = joinedRows();
    const std::vector<Readable> readables = readablesBetweenRows(draft);
    for (const LineJob &job : _lines)
        addBarLine(draft, job.style, job.x, joined, job.bar, readables);
}

void SystemBuilder::measure(const SystemDraft &draft, double left, double right,
                            BuiltSystem &system) const
{
    for (const RowDraft &row : draft.rows) {
        system.top = std::max(system.top, row.above.reach(left, right) - row.y);
        system.bottom = std::max(system.bottom, row.below.reach(left, right) + row.y);
        // With the handles of curves: whoever measures boxes finds them inside too.
        for (const Ink &ink : row.inks)
            for (const Point &point : ink.points) {
                system.top = std::max(system.top, 0.2 - point.y - row.y);
                system.bottom = std::max(system.bottom, 0.2 + point.y + row.y);
            }
    }
    for (const Ink &ink : draft.inks) {
        system.top = std::max(system.top, -ink.box.top);
        system.bottom = std::max(system.bottom, ink.box.bottom);
    }
    if (!draft.rows.empty()) {
        system.above = draft.rows.front().above;
        system.below = draft.rows.back().below;
        system.lastRow = draft.rows.back().y;
        system.lastHeight = draft.rows.back().row->height();
    }
}

void SystemBuilder::addNumber(SystemDraft &draft, BuiltSystem &system) const
{
    const BarNumber number(_score.number(draft.first), system.bare, _pen);
    if (!number.isShown() || draft.rows.empty())
        return;
    Ink ink = number.ink();
    ink.place.bar = static_cast<std::int32_t>(_score.shown[draft.first].bar);
    system.addNumber(ink);
    draft.rows.front().inks.push_back(std::move(ink));
}

void BuiltSystem::addNumber(const Ink &ink)
{
    above = bare.above;
    above.insert(ink.box.left, ink.box.right, -ink.box.top);
    top = std::max(bare.top, -ink.box.top);
}

void SystemBuilder::placeBars(SystemDraft &draft, double width, bool isJustified) const
{
    const Joint head = jointBefore(_score, draft.first, JointPlace::Head, _pen);
    const Joint tail = jointBefore(_score, draft.end, JointPlace::Tail, _pen);
    std::vector<Joint> joints;
    SpringLine line;
    WordRods words(_score, line);
    words.startAt(draft.staffLeft);
    line.addColumn(0, 0);
    line.addColumn(head.width, 0);
    for (unsigned i = draft.first; i < draft.end; ++i) {
        if (i > draft.first) {
            joints.push_back(jointBefore(_score, i, JointPlace::Middle, _pen));
            line.addColumn(joints.back().width, 0);
        }
        const unsigned start = line.columnCount();
        _score.spaced(i).addTo(line);
        words.addBar(i, start);
    }
    words.endAt(tail.width);
    const double room = width - draft.staffLeft - tail.width;
    const bool isLastLine = draft.end == _score.shown.size();
    double factor = isJustified ? line.factorFor(room) : 1;
    if (isLastLine && draft.first > 0)
        factor = std::min(factor, loosestLast);
    else if (isLastLine && factor > loosest)
        factor = 1.1;
    std::vector<double> places = line.places(factor);
    if (isJustified && places.back() > room + 1e-6) {
        // More than the line holds, which is said: several bars move together as far as their
        // ink lets them. Beyond that the sheet gets wider.
        if (draft.end - draft.first > 1)
            places = line.squeezedPlaces(room);
        MarkPlace where;
        where.bar = static_cast<std::int32_t>(_score.shown[draft.first].bar);
        _problems.add(where, "The bars of the system are wider than the line.");
    }
    for (double &place : places)
        place += draft.staffLeft;
    const double needed = places.back() + tail.width;
    if (needed > width)
        for (RowDraft &row : draft.rows) {
            row.above = Skyline(needed, 0);
            row.below = Skyline(needed, row.row->height());
        }
    placeJoint(draft, head, draft.staffLeft, draft.first);
    draft.musicLeft = draft.staffLeft + head.width;
    std::size_t column = 1;
    for (unsigned i = draft.first; i < draft.end; ++i) {
        if (i > draft.first) {
            placeJoint(draft, joints[i - draft.first - 1], places[column], i);
            ++column;
        }
        BarPlace bar;
        bar.shownBar = i;
        bar.left = places[column];
        const std::size_t count = _score.spaced(i).onsets.size();
        bar.columns.assign(places.begin() + static_cast<std::ptrdiff_t>(column) + 1,
                           places.begin() + static_cast<std::ptrdiff_t>(column + 1 + count));
        column += count + 1;
        bar.right = places[column];
        draft.bars.push_back(std::move(bar));
    }
    placeJoint(draft, tail, places.back(), draft.end);
    draft.right = places.back() + tail.width;
    draft.room = draft.right - draft.staffLeft;
}

void SystemBuilder::placeJoint(SystemDraft &draft, const Joint &joint, double x,
                               unsigned shownBar) const
{
    const unsigned next = std::min(shownBar, static_cast<unsigned>(_score.shown.size()) - 1);
    for (unsigned i = 0; i < draft.rows.size(); ++i) {
        MarkPlace place;
        place.track = static_cast<std::int16_t>(draft.rows[i].row->track);
        place.staff = static_cast<std::int8_t>(draft.rows[i].row->staff);
        place.bar = static_cast<std::int32_t>(_score.shown[next].bar);
        const auto add = [&](const Inks &inks, double offset) {
            for (Ink ink : inks) {
                ink.move(x + offset, 0);
                ink.place = place;
                draft.rows[i].add(std::move(ink));
            }
        };
        add(joint.clefs[i], joint.clefX);
        add(joint.keys[i], joint.keyX);
        add(joint.meters[i], joint.meterX);
    }
    const auto addLine = [&](LineStyle style, double offset, unsigned bar) {
        if (style == LineStyle::None)
            return;
        _lines.push_back({style, x + offset, bar});
        for (RowDraft &row : draft.rows)
            for (Ink &dot : repeatDots(style, x + offset, *row.row, _pen)) {
                dot.place.bar = static_cast<std::int32_t>(bar);
                row.add(std::move(dot));
            }
    };
    addLine(joint.line, joint.lineX, shownBar > 0 ? _score.shown[shownBar - 1].bar : 0);
    addLine(joint.lateLine, joint.lateLineX, _score.shown[next].bar);
}

std::vector<WaitingRest> SystemBuilder::placeRow(SystemDraft &draft, RowDraft &row) const
{
    // Chords voice by voice, as what joins them wants them. Rests beside other voices wait for the
    // beams of these.
    std::vector<WaitingRest> rests;
    std::size_t inks = row.inks.size();
    std::size_t chords = 0;
    for (const BarPlace &bar : draft.bars) {
        const EngravedBar &engraved = _score.bar(row.number, bar.shownBar);
        inks += engraved.inks.size();
        chords += engraved.chords.size();
    }
    row.chords.reserve(chords);
    row.inks.reserve(inks + inks / 2); // beams, signs and slurs come later
    for (unsigned voice = 0; voice < Bar::MaxVoices; ++voice)
        for (const BarPlace &bar : draft.bars) {
            const EngravedBar &engraved = _score.bar(row.number, bar.shownBar);
            const auto isHere = [&](const Chord &chord) {
                return chord.voice == voice && chord.column < bar.columns.size();
            };
            const auto placedOf = [&](const Chord &chord) {
                PlacedChord placed;
                placed.chord = &chord;
                placed.source = &_score.source(row.number, bar.shownBar);
                placed.shownBar = bar.shownBar;
                placed.bar = _score.shown[bar.shownBar].bar;
                placed.x = bar.columns[chord.column] + chord.x;
                placed.stemTip = chord.stemTip;
                return placed;
            };
            for (const Chord &chord : engraved.silent)
                if (isHere(chord))
                    row.silent.push_back(placedOf(chord));
            for (const Chord &chord : engraved.chords) {
                if (!isHere(chord))
                    continue;
                const PlacedChord placed = placedOf(chord);
                row.chords.push_back(placed);
                const bool waits = chord.isRest() && chord.hasRival;
                if (waits)
                    rests.push_back({{}, chord.isAbove});
                for (std::uint32_t i = chord.firstInk; i < chord.inkEnd; ++i) {
                    Ink ink = engraved.inks[i];
                    ink.place.bar = static_cast<std::int32_t>(placed.bar);
                    ink.move(placed.x, 0);
                    if (waits)
                        rests.back().inks.push_back(std::move(ink));
                    else
                        row.add(std::move(ink));
                }
            }
        }
    for (const BarPlace &bar : draft.bars) {
        const EngravedBar &engraved = _score.bar(row.number, bar.shownBar);
        const auto number = static_cast<std::int32_t>(_score.shown[bar.shownBar].bar);
        for (const auto &clef : engraved.clefs) {
            Ink ink = clef.ink;
            ink.place.bar = number;
            if (clef.column < bar.columns.size())
                ink.move(bar.columns[clef.column], 0);
            else
                ink.move(bar.right - 0.4 - ink.box.right, 0);
            row.add(std::move(ink));
        }
        for (Ink ink : engraved.centred) {
            ink.place.bar = number;
            const bool isOnLine =
                ink.kind == MarkKind::Simile && ink.glyph == _pen.fonts().glyph(Sign::Repeat2Bars);
            // The sign for two bars stands on the line between them, or in front of it where that
            // has no room: at the end of a system, or beside a clef, a meter or the dots of
            // repeats.
            double before = bar.right;
            for (const auto &clef : engraved.clefs)
                if (clef.column >= bar.columns.size())
                    before -= 0.4 + clef.ink.box.width();
            const bool hasRoom = bar.shownBar + 1 < draft.end && before == bar.right
                && !changesClef(_score.source(row.number, bar.shownBar + 1))
                && draft.bars[bar.shownBar + 1 - draft.first].left - bar.right < widestPlainLine;
            const double onLine = hasRoom ? bar.right : before - 0.4 - ink.box.right;
            ink.move(isOnLine ? onLine : middleOf(bar, engraved), 0);
            if (ink.kind == MarkKind::Rest && !engraved.chords.empty())
                rests.push_back({{ink}, ink.place.voice % 2 == 0});
            else
                row.add(std::move(ink));
        }
    }
    addBeams(row, _pen);
    return rests;
}

CrossStaffBeams SystemBuilder::placeRows(SystemDraft &draft) const
{
    std::vector<std::vector<WaitingRest>> rests;
    for (RowDraft &row : draft.rows)
        rests.push_back(placeRow(draft, row));
    CrossStaffBeams beams(draft);
    beams.reserve();
    for (std::size_t i = 0; i < draft.rows.size(); ++i) {
        addTremolos(draft.rows[i], draft);
        addRests(draft.rows[i], std::move(rests[i]), _pen);
    }
    const std::vector<bool> joined = joinedRows();
    for (std::size_t i = 0; i < draft.rows.size(); ++i) {
        RowDraft &row = draft.rows[i];
        row.hasLinesAbove = i > 0 && joined[i - 1];
        row.hasLinesBelow = joined[i];
        if (row.hasLinesAbove || row.hasLinesBelow)
            for (const BarPlace &bar : draft.bars)
                row.barLines.push_back(bar.right);
    }
    return beams;
}

void SystemBuilder::separateRows(SystemDraft &draft, double left, double right) const
{
    for (std::size_t i = 1; i < draft.rows.size(); ++i) {
        const RowDraft &upper = draft.rows[i - 1];
        RowDraft &lower = draft.rows[i];
        const double gap = upper.row->track != lower.row->track ? gapInScore
            : upper.row->staff != lower.row->staff              ? gapInTrack
                                                                : gapInStaff;
        lower.y = upper.y
            + std::max(upper.row->height() + gap,
                       upper.below.distance(lower.above, left, right)
                           + (gap == gapInStaff ? inkGapInStaff : inkGap));
    }
}

void SystemBuilder::addStaffLines(const SystemDraft &draft, const RowDraft &row, Inks &inks) const
{
    MarkPlace place;
    place.track = static_cast<std::int16_t>(row.row->track);
    place.staff = static_cast<std::int8_t>(row.row->staff);
    inks.reserve(row.row->lineCount);
    for (unsigned line = 0; line < row.row->lineCount; ++line) {
        const double y = line * row.row->lineDistance;
        // Numbers interrupt the lines of a tablature, so that nothing needs to be painted over.
        std::vector<std::pair<double, double>> gaps;
        if (row.row->notation == Notation::Tablature)
            for (const Ink &ink : row.inks)
                if ((ink.kind == MarkKind::Fret
                     || (ink.kind == MarkKind::Enclosure && ink.shape == Ink::Shape::Text))
                    && ink.box.top < y && ink.box.bottom > y)
                    gaps.push_back({ink.box.left - 0.12, ink.box.right + 0.12});
        std::sort(gaps.begin(), gaps.end());
        double x = draft.staffLeft;
        const auto addPiece = [&](double to) {
            if (to <= x)
                return;
            Ink ink = _pen.line(MarkKind::StaffLine, {x, y}, {to, y}, _pen.fonts().staffLine());
            ink.place = place;
            inks.push_back(std::move(ink));
        };
        for (const auto &[left, right] : gaps) {
            addPiece(left);
            x = std::max(x, right);
        }
        addPiece(draft.right);
    }
}

std::shared_ptr<const layout::SystemDrawing>
SystemBuilder::draw(const SystemDraft &draft, double origin, BuiltSystem &system) const
{
    HangerCollector hangers(draft);
    layout::DrawListBuilder builder;
    const Emitter emitter(builder, _pen.fonts(), _problems);
    auto drawing = std::make_shared<layout::SystemDrawing>();
    for (const RowDraft &row : draft.rows) {
        Inks lines;
        addStaffLines(draft, row, lines);
        emitter.emit(lines, -origin, row.y);
        hangers.addRow(row, lines.size());
        layout::StaffFrame frame;
        frame.track = static_cast<std::int32_t>(row.row->track);
        frame.staff = static_cast<std::int32_t>(row.row->staff);
        frame.kind = row.row->notation == Notation::Tablature ? layout::StaffKind::Tablature
            : row.row->notation == Notation::Slash            ? layout::StaffKind::Slash
            : row.row->isPercussion                           ? layout::StaffKind::Percussion
                                                              : layout::StaffKind::Notation;
        frame.lineCount = static_cast<std::int32_t>(row.row->lineCount);
        frame.top = layout::fromSpaces(row.y);
        frame.bottom = layout::fromSpaces(row.y + row.row->height());
        drawing->staves.push_back(frame);
    }
    emitter.emit(draft.inks, -origin, 0);
    for (const Ink &ink : draft.inks)
        hangers.add(ink);
    for (const RowDraft &row : draft.rows) {
        emitter.emit(row.inks, -origin, row.y);
        hangers.addRow(row, row.inks.size());
    }
    for (const BarPlace &bar : draft.bars) {
        layout::BarFrame frame;
        frame.firstBar = static_cast<std::int32_t>(_score.shown[bar.shownBar].bar);
        frame.barCount = static_cast<std::int32_t>(_score.shown[bar.shownBar].count);
        frame.left = layout::fromSpaces(bar.left - origin);
        frame.right = layout::fromSpaces(bar.right - origin);
        for (std::size_t i = 0; i < bar.columns.size(); ++i)
            frame.columns.push_back({_score.spaced(bar.shownBar).onsets[i],
                                     layout::fromSpaces(bar.columns[i] - origin)});
        drawing->bars.push_back(std::move(frame));
    }
    drawing->marks = builder.build();
    system.hangers = hangers.take();
    return drawing;
}

} // namespace zarn::engraving
