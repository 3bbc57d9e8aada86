// SPDX-License-Identifier: MIT
#include <ZarnCore/io/midi/RhythmWriter.h>

#include <ZarnCore/ZarnException.h>

#include <algorithm>
#include <optional>

namespace zarn::io {

namespace {

/// The shortest plain value, a 256th.
constexpr MidiTime shortest = midiQuarter / 64;

/// A plain value with up to `mostDots` dots of a length.
std::optional<RhythmValue> valueOf(MidiTime length, unsigned mostDots)
{
    for (unsigned dots = 0; dots <= mostDots; ++dots) {
        // With dots a value is 3/2 or 7/4 of the plain one.
        const MidiTime parts = (MidiTime(2) << dots) - 1;
        const MidiTime scaled = length << dots;
        if (scaled % parts != 0)
            continue;
        MidiTime plain = scaled / parts;
        int value = static_cast<int>(RhythmValue::NoteValue::Long);
        for (MidiTime candidate = 16 * midiQuarter; candidate >= shortest; candidate /= 2, ++value)
            if (candidate == plain)
                return RhythmValue(static_cast<RhythmValue::NoteValue>(value), dots);
    }
    return std::nullopt;
}

/// Whether a place in a beat is one of a division into `parts` halves, quarters and so on.
bool isIn(MidiTime offset, MidiTime beat, int parts)
{
    constexpr MidiTime halvings = 64;
    return offset * parts * halvings % beat == 0;
}

/// The notes of a tuplet of `actual` take the time of so many.
int normalOf(int actual, bool isThirded)
{
    int normal = isThirded ? 3 : 1;
    while (normal * 2 < actual)
        normal *= 2;
    return normal;
}

} // namespace

void RhythmWriter::findSpans(const MeterBar &bar, const std::vector<Stretch> &stretches)
{
    constexpr int tuplets[] = {3, 5, 7, 9, 15, 21};
    _spans.clear();
    MidiTime at = 0;
    std::size_t stretch = 0;
    for (const MidiTime length : beatsOf(bar)) {
        Span span = {at, length, 1, 1};
        while (stretch < stretches.size() && stretches[stretch].start <= at)
            ++stretch;
        const auto fits = [&](int parts, MidiTime of) {
            for (std::size_t i = stretch; i < stretches.size() && stretches[i].start < at + length;
                 ++i)
                if (!isIn(stretches[i].start - at, of, parts))
                    return false;
            return true;
        };
        // Plain values are multiples of the shortest one, whatever the beat.
        if (!fits(1, midiQuarter)) {
            const bool isThirded = length % 3 == 0 && isIn(length / 3, midiQuarter, 1);
            for (const int parts : tuplets)
                if (fits(parts, length)) {
                    span.actual = parts;
                    span.normal = normalOf(parts, isThirded);
                    break;
                }
        }
        _spans.push_back(span);
        at += length;
    }
}

/// Tuplets over two beats: where a note leads over the beat from one tuplet into the next.
void RhythmWriter::joinSpans(const std::vector<Stretch> &stretches)
{
    for (std::size_t i = 0; i + 1 < _spans.size(); ++i) {
        const Span &left = _spans[i];
        const Span &right = _spans[i + 1];
        if (left.actual == 1 || left.actual != right.actual || left.length != right.length)
            continue;
        const bool leadsOver =
            std::any_of(stretches.begin(), stretches.end(), [&](const Stretch &stretch) {
                return !stretch.isSilent && stretch.start > left.start
                    && stretch.start < right.start && stretch.end > right.start
                    && stretch.end < right.start + right.length;
            });
        if (!leadsOver)
            continue;
        _spans[i].length *= 2;
        _spans.erase(_spans.begin() + static_cast<std::ptrdiff_t>(i + 1));
    }
}

const std::vector<RhythmWriter::Value> &RhythmWriter::write(const MeterBar &bar,
                                                            const std::vector<Stretch> &stretches)
{
    const PatternTable::Found found = lookUp(bar, stretches);
    if (!found.isNew)
        return _written[found.number];
    writeNew(bar, stretches);
    if (found.number == PatternTable::NotKept)
        return _values;
    _written.push_back(_values);
    return _written.back();
}

/// All that decides how stretches are written.
PatternTable::Found RhythmWriter::lookUp(const MeterBar &bar, const std::vector<Stretch> &stretches)
{
    constexpr unsigned half = 32;
    const auto pair = [](MidiTime left, MidiTime right) {
        return static_cast<std::uint64_t>(left) << half | static_cast<std::uint64_t>(right);
    };
    _pattern.clear();
    _pattern.push_back(pair(bar.meter.getNumerator(), bar.meter.getDenominator()));
    _pattern.push_back(pair(bar.length, bar.start == 0 ? 1 : 0));
    for (const Stretch &stretch : stretches)
        _pattern.push_back(pair(stretch.start, 2 * stretch.end + (stretch.isSilent ? 1 : 0)));
    return _known.find(_pattern);
}

void RhythmWriter::writeNew(const MeterBar &bar, const std::vector<Stretch> &stretches)
{
    _values.clear();
    const auto beats = beatsOf(bar);
    _barLength = lengthOf(bar.meter);
    _beat = *std::max_element(beats.begin(), beats.end());
    _isCompound = _beat % 3 == 0 && isIn(_beat / 3, midiQuarter, 1);
    _offset = bar.start == 0 ? std::max<MidiTime>(0, _barLength - bar.length) : 0;
    findSpans(bar, stretches);
    joinSpans(stretches);
    for (std::size_t i = 0; i < stretches.size(); ++i)
        writeStretch(stretches[i], i);
    // Each is copied to many beats, which then find its length worked out.
    for (const Value &value : _values)
        value.rhythm.getLength();
}

void RhythmWriter::writeStretch(const Stretch &stretch, std::size_t number)
{
    MidiTime at = stretch.start;
    while (at < stretch.end) {
        auto span = std::find_if(_spans.begin(), _spans.end(), [&](const Span &candidate) {
            return at < candidate.start + candidate.length;
        });
        const auto isCut = [&](const Span &candidate) {
            return candidate.actual > 1
                && (at > candidate.start || stretch.end < candidate.start + candidate.length);
        };
        if (span != _spans.end() && isCut(*span)) {
            const MidiTime end = std::min(stretch.end, span->start + span->length);
            writeInTuplet(*span, at, end, number);
            at = end;
            continue;
        }
        // Up to the first tuplet that the stretch ends in.
        MidiTime end = stretch.end;
        for (; span != _spans.end() && span->start < stretch.end; ++span)
            if (span->actual > 1 && stretch.end < span->start + span->length)
                end = span->start;
        writePlain(at, end, stretch.isSilent, number);
        at = end;
    }
}

/// 0 for the bar line, greater numbers for weaker places.
int RhythmWriter::strengthOf(MidiTime time) const
{
    const MidiTime at = (time + _offset) % std::max<MidiTime>(_barLength, 1);
    if (at == 0)
        return 0;
    if (_isCompound) {
        if (at % _beat == 0)
            return 1;
        int strength = 2;
        for (MidiTime part = _beat / 3; part >= shortest; part /= 2, ++strength)
            if (at % part == 0)
                return strength;
        return strength;
    }
    int strength = 1;
    const MidiTime strongest = _barLength % (2 * midiQuarter) == 0 ? 2 * midiQuarter : 0;
    if (strongest != 0 && at % strongest == 0)
        return strength;
    for (MidiTime part = midiQuarter; part >= shortest; part /= 2)
        if (++strength, at % part == 0)
            return strength;
    return strength + 1;
}

MidiTime RhythmWriter::strongestWithin(MidiTime start, MidiTime end) const
{
    MidiTime best = 0;
    int bestStrength = 1000;
    MidiTime step = shortest;
    while (step * 2 < end - start)
        step *= 2;
    // A coarse walk first: what it meets is stronger than all between.
    for (; step >= shortest; step /= 2) {
        const MidiTime first = ((start + _offset) / step + 1) * step - _offset;
        for (MidiTime at = first; at < end; at += step)
            if (const int strength = strengthOf(at); strength < bestStrength) {
                best = at;
                bestStrength = strength;
            }
        if (bestStrength < 1000)
            break;
    }
    if (_isCompound) {
        // The parts of its beat are no halves of a quarter.
        const MidiTime first = ((start + _offset) / _beat + 1) * _beat - _offset;
        if (first < end && strengthOf(first) < bestStrength)
            best = first;
    }
    return best;
}

bool RhythmWriter::isReadable(MidiTime start, MidiTime end, bool isSilent) const
{
    const unsigned mostDots = isSilent ? (_isCompound ? 1 : 0) : 2;
    const auto value = valueOf(end - start, mostDots);
    if (!value)
        return false;
    const MidiTime within = strongestWithin(start, end);
    if (within == 0)
        return true;
    const int strength = strengthOf(within);
    const bool isStrict =
        isSilent || (_isCompound && strength == 1) || value->getAugmentationDot() > 1;
    return strengthOf(start) <= strength + (isStrict ? 0 : 1);
}

void RhythmWriter::writePlain(MidiTime start, MidiTime end, bool isSilent, std::size_t number)
{
    if (isReadable(start, end, isSilent)) {
        add(end - start, {}, number);
        return;
    }
    const MidiTime within = strongestWithin(start, end);
    if (within <= start || within >= end) {
        add(end - start, {}, number);
        return;
    }
    writePlain(start, within, isSilent, number);
    writePlain(within, end, isSilent, number);
}

void RhythmWriter::writeInTuplet(const Span &span, MidiTime start, MidiTime end, std::size_t number)
{
    const auto written = [&](MidiTime time) {
        return (time - span.start) * span.actual / span.normal;
    };
    MidiTime at = written(start);
    const MidiTime last = written(end);
    while (at < last) {
        MidiTime length = last - at;
        if (!valueOf(length, 1)) {
            // The longest plain value, from its own place if it can be.
            MidiTime plain = 16 * midiQuarter;
            while (plain > shortest && (plain > length || (at % plain != 0 && plain > length / 2)))
                plain /= 2;
            if (plain <= length)
                length = plain;
        }
        add(length, span, number);
        at += length;
    }
}

/// Values for a length as it is written, in a tuplet or not.
void RhythmWriter::add(MidiTime length, const Span &span, std::size_t number)
{
    if (auto value = valueOf(length, 2)) {
        if (span.actual > 1)
            value->setPrimaryTupletRatio(
                {static_cast<std::uint8_t>(span.actual), static_cast<std::uint8_t>(span.normal)});
        _values.push_back({*value, number});
        return;
    }
    std::vector<RhythmValue> rhythms;
    try {
        RhythmValue::rhythms(inQuarterNotes(length * span.normal) / span.actual, rhythms);
    } catch (const CoreException &) { // no tuplet has it: what is nearest
        RhythmValue::rhythms(inQuarterNotes(std::max(length / shortest, MidiTime(1)) * shortest),
                             rhythms);
    }
    for (const RhythmValue &rhythm : rhythms)
        _values.push_back({rhythm, number});
}

} // namespace zarn::io
