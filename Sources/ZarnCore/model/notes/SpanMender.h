// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/model/notes/Spans.h>

#include <optional>
#include <utility>
#include <vector>

namespace zarn {

/// What was wrong with a mark of a line.
enum class SpanFault {
    EndsNothing, ///< or leads on where nothing runs
    LacksEnd,
    BeginsWithin,     ///< another one
    HeldOverSyllable, ///< a syllable that is held where the next one is sung
    AtOnce,           ///< a pedal that another voice moves at the same time
};

/// Finds out how the marks of a line must be read, so that each finds what it needs. It changes the
/// list alone: `rewrite` brings that to the beats.
///
/// What lost its other end goes. A pedal that is pressed while it is down changes, and what several
/// voices do with it at one time is one mark, of the first of them; where it or a
/// word loses its last sign, the one in front closes it, and where the first goes, the next one
/// begins.
class SpanMender {
public:
    /// The marks in question are those from `first` up to, not including, `end`; in front of them
    /// and behind is at most one mark that is as it should be, but for what leads over.
    SpanMender(SpanKind kind, SpanMarks &marks, std::size_t first, std::size_t end)
        : _kind(kind), _marks(marks), _first(first), _end(end)
    {
    }

    /// What is known of the marks that were there before: what the first needed in front of it, and
    /// what the last left behind.
    struct Before {
        bool neededOpen;
        bool leftOpen;
    };
    void run(const std::optional<Before> &before = std::nullopt);

    /// The same for marks of which some that begin were given to all beats of a range: the first
    /// counts, and the last becomes its end; what follows by itself gives way.
    void runForGiven();

    using Faults = std::vector<std::pair<std::size_t, SpanFault>>;

    /// The marks that changed, by their numbers, and why.
    const Faults &faults() const noexcept { return _faults; }

    /// The mark that was given a begin and still lacks an end.
    std::optional<std::size_t> lacksEnd() const noexcept { return _lacksEnd; }

    /// Whether spans of the kind may lead on to the end.
    bool mayStayOpen() const noexcept
    {
        return _kind == SpanKind::Pedal || _kind == SpanKind::Word;
    }

private:
    void walk();
    void pass(std::size_t number);
    void passWord(std::size_t number);
    void passPedal(std::size_t number);
    void passPair(std::size_t number);
    bool isPairWithin(std::size_t number) const;
    bool isWithLast(std::size_t number) const;
    void finish(std::optional<bool> wasOpen);
    void finishGiven();
    bool hasNext() const noexcept { return _end < _marks.size(); }
    void change(std::size_t number, bool needsOpen, bool leavesOpen, SpanFault fault);
    void drop(std::size_t number, SpanFault fault) { change(number, false, false, fault); }

    SpanKind _kind;
    SpanMarks &_marks;
    std::size_t _first;
    std::size_t _end;
    bool _isGiven = false;
    bool _mayBeginWithin = true; ///< a word
    bool _isOpen = false;
    std::optional<std::size_t> _last;        ///< the last mark that counts
    std::optional<std::size_t> _lastDropped; ///< of those that were given
    std::optional<std::size_t> _lacksEnd;
    Faults _faults;
};

} // namespace zarn
