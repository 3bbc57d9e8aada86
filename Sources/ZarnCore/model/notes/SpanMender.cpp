// SPDX-License-Identifier: MIT
#include <ZarnCore/model/notes/SpanMender.h>

#include <ZarnCore/model/ZarnVoice.h>
#include <ZarnCore/model/notes/Ties.h>

namespace zarn {

namespace {

bool areNeighbours(const SpanMark &left, const SpanMark &right)
{
    if (left.place.bar == right.place.bar)
        return left.place.beat + 1 == right.place.beat;
    const auto voice = left.beat->parentVoice();
    return voice && beatBehindJoint(*voice, left.place.beat + 1) == right.beat;
}

} // namespace

void SpanMender::run(const std::optional<Before> &before)
{
    _mayBeginWithin = !before || before->neededOpen;
    walk();
    finish(before ? std::optional<bool>(before->leftOpen) : std::nullopt);
}

void SpanMender::runForGiven()
{
    _isGiven = true;
    walk();
    finishGiven();
}

void SpanMender::walk()
{
    if (_first > 0) {
        _last = _first - 1;
        _isOpen = _marks[*_last].leavesOpen;
    }
    for (std::size_t i = _first; i < _end; ++i) {
        pass(i);
        const SpanMark &mark = _marks[i];
        if (_kind != SpanKind::Word && !mark.needsOpen && !mark.leavesOpen)
            continue;
        _isOpen = mark.leavesOpen;
        _last = i;
    }
    if (_kind == SpanKind::Word && hasNext() && _last && _marks[*_last].isHeld
        && areNeighbours(_marks[*_last], _marks[_end])) {
        _marks[*_last].isHeld = false;
        _faults.emplace_back(*_last, SpanFault::HeldOverSyllable);
    }
}

void SpanMender::pass(std::size_t number)
{
    if (_kind == SpanKind::Word)
        passWord(number);
    else if (_kind == SpanKind::Pedal)
        passPedal(number);
    else
        passPair(number);
}

/// The first of all may be in mid-word, as what is typed may.
void SpanMender::passWord(std::size_t number)
{
    const SpanMark &mark = _marks[number];
    if (mark.needsOpen && !_isOpen && (_last || !_mayBeginWithin))
        change(number, false, mark.leavesOpen, SpanFault::EndsNothing);
    else if (!mark.needsOpen && _isOpen)
        change(*_last, _marks[*_last].needsOpen, false, SpanFault::LacksEnd);
    if (_last && _marks[*_last].isHeld && areNeighbours(_marks[*_last], mark)) {
        _marks[*_last].isHeld = false;
        _faults.emplace_back(*_last, SpanFault::HeldOverSyllable);
    }
}

/// Whether a mark is at the time of the last one that counts.
bool SpanMender::isWithLast(std::size_t number) const
{
    if (!_last || *_last < _first)
        return false;
    while (number > *_last && _marks[number].isAtOnce)
        --number;
    return number == *_last;
}

void SpanMender::passPedal(std::size_t number)
{
    const SpanMark &mark = _marks[number];
    if (isWithLast(number)) {
        _isOpen = _marks[*_last].leavesOpen = mark.leavesOpen;
        drop(number, SpanFault::AtOnce);
    } else if (mark.needsOpen && !_isOpen) {
        change(number, false, mark.leavesOpen, SpanFault::EndsNothing);
    } else if (!mark.needsOpen && _isOpen) {
        if (_isGiven && *_last >= _first) {
            drop(number, SpanFault::BeginsWithin);
            _lastDropped = number;
        } else {
            change(number, true, true, SpanFault::BeginsWithin);
        }
    }
}

void SpanMender::passPair(std::size_t number)
{
    const SpanMark &mark = _marks[number];
    if (mark.needsOpen && !_isOpen) {
        drop(number, SpanFault::EndsNothing);
    } else if (!mark.needsOpen && mark.leavesOpen && _isOpen) {
        if (_isGiven) {
            drop(number, SpanFault::BeginsWithin);
            _lastDropped = number;
        } else if (isPairWithin(number)) {
            drop(number, SpanFault::BeginsWithin);
            drop(number + 1, SpanFault::BeginsWithin);
        } else {
            drop(*_last, SpanFault::LacksEnd);
        }
    }
}

/// Whether a begin and the end behind it stand within a span that has an end behind them.
bool SpanMender::isPairWithin(std::size_t number) const
{
    return number + 1 < _end && _marks[number + 1].needsOpen && number + 2 < _marks.size()
        && _marks[number + 2].needsOpen;
}

void SpanMender::finish(std::optional<bool> wasOpen)
{
    if (hasNext())
        wasOpen = _marks[_end].needsOpen;
    else if (!mayStayOpen())
        wasOpen = false;
    if (!wasOpen)
        return;
    if (_isOpen && !*wasOpen)
        change(*_last, _marks[*_last].needsOpen, false, SpanFault::LacksEnd);
    else if (!_isOpen && *wasOpen && hasNext())
        change(_end, false, _marks[_end].leavesOpen, SpanFault::EndsNothing);
}

void SpanMender::finishGiven()
{
    const bool isBegunHere = _isOpen && *_last >= _first;
    if (!isBegunHere || (hasNext() && _marks[_end].needsOpen))
        return finish(_isOpen);
    if (_lastDropped && *_lastDropped > *_last)
        change(*_lastDropped, true, false, SpanFault::LacksEnd);
    else if (!mayStayOpen())
        _lacksEnd = _last;
    else if (hasNext())
        change(_end, true, _marks[_end].leavesOpen, SpanFault::BeginsWithin);
}

void SpanMender::change(std::size_t number, bool needsOpen, bool leavesOpen, SpanFault fault)
{
    _marks[number].needsOpen = needsOpen;
    _marks[number].leavesOpen = leavesOpen;
    _faults.emplace_back(number, fault);
}

} // namespace zarn
