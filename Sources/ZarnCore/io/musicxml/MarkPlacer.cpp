// SPDX-License-Identifier: MIT
#include <ZarnCore/io/musicxml/MarkPlacer.h>

#include <ZarnCore/io/musicxml/GapFiller.h>
#include <ZarnCore/io/musicxml/ImportContext.h>
#include <ZarnCore/io/musicxml/signs/LevelWords.h>

#include <algorithm>

namespace zarn::io {

using utils::rational;

namespace {

/// Bytes of text that gather at one beat at most.
constexpr std::size_t mostText = 4096;

/// The index of the first note of the measure that became part of a beat.
std::size_t firstNoteOf(const Beat &beat, const std::vector<NotePlace> &notes)
{
    const auto found = std::find_if(notes.begin(), notes.end(), [&beat](const NotePlace &place) {
        return place.beat == &beat;
    });
    return static_cast<std::size_t>(found - notes.begin());
}

} // namespace

void MarkPlacer::place(const WrittenMeasure &measure, const std::vector<NotePlace> &notes,
                       std::vector<StaffSlots> &staves)
{
    for (const auto &mark : measure.marks) {
        if (mark.kind == WrittenMark::Kind::Ottava)
            continue;
        const auto *const ahead = noteAhead(measure, notes, mark.note, mark.staff, mark.position);
        if (auto *beat = ahead ? ahead->beat : beatFor(mark, measure.length, staves))
            attach(mark, *beat);
        else
            _context.addProblem(mark.node, "this stands in a bar without beats and was left out");
    }
    placeOttavas(measure, notes, staves);
}

void MarkPlacer::attach(const WrittenMark &mark, Beat &beat)
{
    const auto joined = [&](const std::string &before) {
        if (before.size() + mark.text.size() > mostText) {
            _context.addProblem(mark.node, "more text than fits at one beat was left out");
            return before;
        }
        return joinedWords(before, mark.text);
    };
    const auto setSide = [&] {
        if (mark.side != beat.dynamicSide())
            beat.setDynamicSide(mark.side);
    };
    switch (mark.kind) {
    case WrittenMark::Kind::Dynamic: {
        const NoteDynamic dynamic(static_cast<NoteDynamic::Value>(mark.value));
        if (beat.dynamic() != NoteDynamic() && beat.dynamic() != dynamic)
            _context.addProblem(mark.node, "of two dynamics at one beat the first was left out");
        beat.setDynamic(dynamic);
        setSide();
        break;
    }
    case WrittenMark::Kind::Attack:
        beat.setAttackDynamic(static_cast<AttackDynamic>(mark.value));
        setSide();
        break;
    case WrittenMark::Kind::Text:
        if (mark.side == MarkSide::Below)
            beat.setTextBelow(joined(beat.textBelow()));
        else
            beat.setText(joined(beat.text()));
        break;
    case WrittenMark::Kind::ChordSymbol:
        beat.setChordSymbol(joined(beat.chordSymbol()));
        if (mark.diagram)
            beat.setChord({beat.chordSymbol(), mark.diagram});
        break;
    case WrittenMark::Kind::Ottava:
        break;
    }
}

/// Puts the ottava signs over the beats of their staff, from where they begin to where they end.
void MarkPlacer::placeOttavas(const WrittenMeasure &measure, const std::vector<NotePlace> &notes,
                              std::vector<StaffSlots> &staves)
{
    _ottavias.resize(std::max(staves.size(), _ottavias.size()), Ottavia::None);
    for (std::size_t i = 0; i < staves.size(); ++i) {
        auto &open = _ottavias[i];
        _changes.clear();
        for (const auto &mark : measure.marks) {
            if (mark.kind != WrittenMark::Kind::Ottava || static_cast<std::size_t>(mark.staff) != i)
                continue;
            const auto *const ahead =
                noteAhead(measure, notes, mark.note, mark.staff, mark.position);
            _changes.push_back({ahead ? ahead->onset : mark.position,
                                static_cast<Ottavia>(mark.value), mark.note,
                                jointAt(measure, notes, mark.note, mark.staff, mark.position)});
        }
        if (_changes.empty() && open == Ottavia::None)
            continue;
        std::stable_sort(_changes.begin(), _changes.end(),
                         [](const auto &a, const auto &b) { return a.position < b.position; });
        for (unsigned slot = 0; slot < Bar::MaxVoices; ++slot) {
            auto current = open;
            auto next = _changes.begin();
            unsigned index = 0;
            const auto isReached = [&](const PlacedBeat &placed) {
                // Among grace notes, which take no time, the order of the document tells, and of
                // those at the end of the bar in any voice.
                if (placed.beat->isGrace() && !(placed.onset < next->position)
                    && !(next->position < measure.length))
                    return next->note <= firstNoteOf(*placed.beat, notes);
                return next->joint && next->joint->slot == slot ? index >= next->joint->index
                                                                : !(placed.onset < next->position);
            };
            for (auto &placed : staves[i].voiceSlots[slot].beats) {
                for (; next != _changes.end() && isReached(placed); ++next)
                    current = next->ottavia;
                placed.beat->setOttavia(current);
                ++index;
            }
        }
        if (!_changes.empty())
            open = _changes.back().ottavia;
    }
}

/// The first beat at or after the mark on its staff, or the last one before; on another staff, or
/// on a place holder, when the staff is empty.
Beat *MarkPlacer::beatFor(const WrittenMark &mark, const rational &length,
                          std::vector<StaffSlots> &staves)
{
    const auto own = std::min(static_cast<std::size_t>(mark.staff), staves.size() - 1);
    for (std::size_t i = 0; i < staves.size(); ++i) {
        auto &staff = staves[(own + i) % staves.size()];
        const PlacedBeat *after = nullptr;
        const PlacedBeat *before = nullptr;
        for (auto &slot : staff.voiceSlots) {
            const auto found =
                std::partition_point(slot.beats.begin(), slot.beats.end(),
                                     [&](const PlacedBeat &p) { return p.onset < mark.position; });
            if (found != slot.beats.end() && (!after || found->onset < after->onset))
                after = &*found;
            if (found != slot.beats.begin() && (!before || before->onset < found[-1].onset))
                before = &found[-1];
        }
        if (after || before)
            return (after ? after : before)->beat.get();
    }
    auto &slot = staves[own].voiceSlots[0];
    slot.voice = 0;
    _gaps.fill(slot, length > rational(0) ? length : rational(4), mark.node);
    return slot.beats.empty() ? nullptr : slot.beats.front().beat.get();
}

} // namespace zarn::io
