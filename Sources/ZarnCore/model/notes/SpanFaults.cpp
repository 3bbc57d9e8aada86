// SPDX-License-Identifier: MIT
#include <ZarnCore/model/notes/SpanFaults.h>

#include <ZarnCore/model/ZarnTrack.h>
#include <ZarnCore/model/notes/SpanMender.h>

namespace zarn {

namespace {

struct FaultTexts {
    SpanKind kind;
    const char *endsNothing;
    const char *lacksEnd;
    const char *beginsWithin;
};

constexpr FaultTexts faultTexts[] = {
    {SpanKind::Pedal, "a pedal that is lifted without being down",
     "a pedal that is not lifted before its next sign", "a pedal that is pressed while it is down"},
    {SpanKind::TextSpan, "the end of a line behind words that nothing begins",
     "a line behind words that nothing ends", "a line behind words that begins within another"},
    {SpanKind::Slur, "a numbered slur that comes from no beat",
     "a numbered slur that leads to no beat", "a slur that begins within another of its number"},
    {SpanKind::Word, "a syllable in mid-word that none leads to",
     "a word that breaks off before its last syllable", ""},
};

const char *textOf(SpanKind kind, SpanFault fault) noexcept
{
    const FaultTexts &texts = faultTexts[static_cast<std::size_t>(kind)];
    switch (fault) {
    case SpanFault::EndsNothing:
        return texts.endsNothing;
    case SpanFault::LacksEnd:
        return texts.lacksEnd;
    case SpanFault::BeginsWithin:
        return texts.beginsWithin;
    case SpanFault::AtOnce:
        return "a second change of the pedal at one time";
    case SpanFault::HeldOverSyllable:
        break;
    }
    return "a syllable that is held over the next one";
}

template <class Change>
std::vector<BrokenSpan> visitFaults(const Track &track, Change change)
{
    std::vector<BrokenSpan> broken;
    for (auto &[line, marks] : readSpans(track, 0, track.barCount())) {
        SpanMarks meant = marks;
        SpanMender mender(line.kind, meant, 0, meant.size());
        mender.run();
        for (const auto &[number, fault] : mender.faults())
            broken.push_back({marks[number].place, textOf(line.kind, fault)});
        for (std::size_t i = 0; i < marks.size() && !mender.faults().empty(); ++i)
            change(line, marks[i], meant[i]);
    }
    return broken;
}

} // namespace

std::vector<BrokenSpan> brokenSpans(const Track &track)
{
    return visitFaults(track, [](const SpanLine &, const SpanMark &, const SpanMark &) {});
}

std::vector<BrokenSpan> mendBrokenSpans(const Track &track)
{
    return visitFaults(
        track, [](const SpanLine &line, const SpanMark &mark, const SpanMark &meaning) {
            if (mark.needsOpen != meaning.needsOpen || mark.leavesOpen != meaning.leavesOpen
                || mark.isHeld != meaning.isHeld)
                rewrite(line, mark, meaning);
        });
}

} // namespace zarn
