// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/model/ZarnBeatAttribute.h>
#include <ZarnCore/model/notes/ZarnKeptBeats.h>
#include <ZarnCore/model/notes/ZarnSpanLine.h>

#include <map>
#include <optional>
#include <vector>

namespace zarn {

class Track;

/// A sign of a span line: what it needs in front of it, and what it leaves behind.
struct SpanMark {
    KeptBeats::Place place; ///< the track left at 0
    Beat *beat = nullptr;
    bool needsOpen = false;  ///< it ends something, or leads on within it
    bool leavesOpen = false; ///< something goes on behind it
    bool isHeld = false;     ///< of a syllable: it is held over the notes that follow
    bool isAtOnce = false;   ///< at the time of the mark in front of it, in another voice
};

/// The marks of lines, in the order of time.
using SpanMarks = std::vector<SpanMark>;
using SpanMarksByLine = std::map<SpanLine, SpanMarks>;

/// Those in the bars of a track from `first` up to, not including, `end`.
SpanMarksByLine readSpans(const Track &track, unsigned first, unsigned end);

/// The nearest mark of a line in front of a bar, and from a bar on.
std::optional<SpanMark> lastMarkBefore(const Track &track, const SpanLine &line, unsigned bar);
std::optional<SpanMark> firstMarkFrom(const Track &track, const SpanLine &line, unsigned bar);

/// The attribute of beats that holds the marks of a kind.
BeatAttribute attributeOf(SpanKind kind) noexcept;

/// Gives a mark the meaning of another one at its place; one that neither needs nor leaves anything
/// goes, but a syllable stays.
void rewrite(const SpanLine &line, const SpanMark &mark, const SpanMark &meaning);

} // namespace zarn
