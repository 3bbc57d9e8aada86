// SPDX-License-Identifier: MIT
// What stands over the beats of a bar: dynamics, texts, chord symbols, ottavas.
#include <ZarnCore/io/musicxml/BarBuilder.h>
#include <ZarnCore/io/musicxml/ImportContext.h>

#include <algorithm>

namespace zarn::io {

using utils::rational;

namespace {

/// Bytes of text that gather at one beat at most.
constexpr std::size_t mostText = 4096;

} // namespace

void BarBuilder::attachMarks(const WrittenMeasure &measure)
{
    for (const auto &mark : measure.marks) {
        if (mark.kind == WrittenMark::Kind::Ottava)
            continue;
        if (auto *beat = beatForMark(mark, measure.length))
            attach(mark, *beat);
        else
            _context.addProblem(mark.node, "this stands in a bar without beats and was left out");
    }
}

void BarBuilder::attach(const WrittenMark &mark, Beat &beat)
{
    const auto joined = [&](const std::string &before) {
        if (before.size() + mark.text.size() > mostText) {
            _context.addProblem(mark.node, "more text than fits at one beat was left out");
            return before;
        }
        return before.empty() ? mark.text : before + " " + mark.text;
    };
    switch (mark.kind) {
    case WrittenMark::Kind::Dynamic:
        beat.setDynamic(NoteDynamic(static_cast<NoteDynamic::Value>(mark.value)));
        break;
    case WrittenMark::Kind::Text:
        beat.setText(joined(beat.text()));
        break;
    case WrittenMark::Kind::ChordSymbol:
        beat.setChordSymbol(joined(beat.chordSymbol()));
        break;
    case WrittenMark::Kind::Ottava:
        break;
    }
}

/// Puts the ottava signs over the beats of their staff, from where they begin to where they end.
void BarBuilder::attachOttavas(const WrittenMeasure &measure)
{
    for (std::size_t i = 0; i < _staves.size(); ++i) {
        auto &staff = _staves[i];
        _ottavas.clear();
        for (const auto &mark : measure.marks)
            if (mark.kind == WrittenMark::Kind::Ottava && static_cast<std::size_t>(mark.staff) == i)
                _ottavas.emplace_back(mark.position, static_cast<Ottavia>(mark.value));
        if (_ottavas.empty() && staff.ottavia == Ottavia::None)
            continue;
        std::stable_sort(_ottavas.begin(), _ottavas.end(),
                         [](const auto &a, const auto &b) { return a.first < b.first; });
        for (auto &slot : staff.voiceSlots) {
            auto current = staff.ottavia;
            auto next = _ottavas.begin();
            for (auto &placed : slot.beats) {
                for (; next != _ottavas.end() && !(placed.onset < next->first); ++next)
                    current = next->second;
                placed.beat->setOttavia(current);
            }
        }
        if (!_ottavas.empty())
            staff.ottavia = _ottavas.back().second;
    }
}

/// The first beat at or after the mark on its staff, or the last one before; on another staff, or
/// on a place holder, when the staff is empty.
Beat *BarBuilder::beatForMark(const WrittenMark &mark, const rational &length)
{
    const auto own = std::min(static_cast<std::size_t>(mark.staff), _staves.size() - 1);
    for (std::size_t i = 0; i < _staves.size(); ++i) {
        auto &staff = _staves[(own + i) % _staves.size()];
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
    auto &slot = _staves[own].voiceSlots[0];
    slot.voice = 0;
    fill(slot, length > rational(0) ? length : rational(4), mark.node);
    return slot.beats.empty() ? nullptr : slot.beats.front().beat.get();
}

} // namespace zarn::io
