// SPDX-License-Identifier: MIT
#include <ZarnCore/io/midi/MeterLine.h>

#include <algorithm>
#include <cstdlib>

namespace zarn::io {

namespace {

constexpr MidiTime whole = 4 * midiQuarter;

/// What lies so near to a bar line was meant to be there.
constexpr MidiTime nearBarLine = midiQuarter / 32;

bool isCompound(const TimeSignature &meter)
{
    return meter.getDenominator() >= 8 && meter.getNumerator() % 3 == 0;
}

} // namespace

MidiTime lengthOf(const TimeSignature &meter)
{
    return whole / static_cast<MidiTime>(meter.getDenominator())
        * static_cast<MidiTime>(meter.getNumerator());
}

std::vector<MidiTime> beatsOf(const MeterBar &bar)
{
    const MidiTime unit = whole / static_cast<MidiTime>(bar.meter.getDenominator());
    const MidiTime beat = isCompound(bar.meter) ? 3 * unit : std::max(midiQuarter, unit / 4);
    std::vector<MidiTime> beats;
    // A pickup has its incomplete beat in front, any other bar at its end.
    const bool isCutInFront = bar.start == 0 && bar.length < lengthOf(bar.meter);
    const MidiTime rest = bar.length % beat;
    if (isCutInFront && rest > 0)
        beats.push_back(rest);
    for (MidiTime sum = beat; sum <= bar.length; sum += beat)
        beats.push_back(beat);
    if (!isCutInFront && rest > 0)
        beats.push_back(rest);
    return beats;
}

MeterLine::MeterLine(std::vector<MeterChange> changes, MidiTime pickup, MidiTime end,
                     std::size_t mostBars)
{
    addAllBars(changes, pickup, end, mostBars);
    // Music that ends in the middle of a bar fills it.
    if (_bars.size() < mostBars)
        _bars.back().length = std::max(_bars.back().length, lengthOf(_bars.back().meter));
    if (!_hasPickup)
        findPickup();
    joinSplitBars();
}

MeterLine MeterLine::ofWritten(std::vector<MeterChange> changes,
                               const std::vector<MeterChange> &written, MidiTime end,
                               std::size_t mostBars)
{
    MeterLine line;
    line.addAllBars(changes, 0, end, mostBars);
    for (const MeterChange &change : written) {
        MeterBar &bar = line._bars[line.barAt(change.time + nearBarLine)];
        if (std::abs(bar.start - change.time) <= nearBarLine)
            bar.meter = change.meter;
    }
    const MeterBar &first = line._bars.front();
    line._hasPickup = line._bars.size() > 1 && first.length < lengthOf(first.meter);
    return line;
}

void MeterLine::addAllBars(const std::vector<MeterChange> &changes, MidiTime pickup, MidiTime end,
                           std::size_t mostBars)
{
    TimeSignature meter;
    auto next = changes.begin();
    for (; next != changes.end() && next->time < nearBarLine; ++next)
        meter = next->meter;
    if (pickup > 0) {
        _bars.push_back({0, pickup, meter});
        _hasPickup = true;
    }
    for (; next != changes.end() && next->time < end; ++next) {
        addBars(meter, next->time, mostBars);
        meter = next->meter;
    }
    addBars(meter, end, mostBars);
    if (_bars.empty())
        _bars.push_back({0, lengthOf(meter), meter});
}

void MeterLine::addBars(const TimeSignature &meter, MidiTime until, std::size_t mostBars)
{
    // A bar that is cut is as long as something that can be written.
    until = (until + nearBarLine / 2) / nearBarLine * nearBarLine;
    const MidiTime length = lengthOf(meter);
    MidiTime at = _bars.empty() ? 0 : _bars.back().end();
    while (at + nearBarLine < until && _bars.size() < mostBars) {
        const MidiTime rest = until - at;
        const bool isWhole = rest + nearBarLine >= length;
        _bars.push_back({at, isWhole ? length : rest, meter});
        at = _bars.back().end();
    }
}

/// One short bar of a meter of its own in front of a longer meter that lasts.
void MeterLine::findPickup()
{
    if (_bars.size() < 3)
        return;
    MeterBar &first = _bars[0];
    const MeterBar &second = _bars[1];
    if (first.length >= second.length || first.meter == second.meter
        || _bars[2].meter != second.meter)
        return;
    first.meter = second.meter;
    _hasPickup = true;
}

/// Bars of meters of their own that make one bar of the meter around them: the halves of a bar with
/// a repeat sign in it, or the rest of a bar whose beginning is the pickup.
void MeterLine::joinSplitBars()
{
    for (std::size_t i = 1; i < _bars.size(); ++i) {
        const TimeSignature meter = _bars[i - 1].meter;
        const MidiTime length = lengthOf(meter);
        if (_bars[i].meter == meter || _bars[i].length >= length)
            continue;
        const bool isLast = i + 1 == _bars.size();
        const bool comesBack = i + 1 < _bars.size() && _bars[i + 1].meter == meter;
        const bool completesPickup = _hasPickup && _bars[i].length + _bars[0].length == length
            && (isLast || comesBack || _bars[i + 1].meter != _bars[i].meter);
        const bool isHalf = i + 1 < _bars.size() && _bars[i].length + _bars[i + 1].length == length
            && (i + 2 >= _bars.size() || _bars[i + 2].meter == meter);
        if (completesPickup || isHalf)
            _bars[i].meter = meter;
        if (isHalf)
            _bars[i + 1].meter = meter;
    }
}

std::size_t MeterLine::barAt(MidiTime time) const noexcept
{
    const auto next =
        std::upper_bound(_bars.begin(), _bars.end(), time,
                         [](MidiTime at, const MeterBar &bar) { return at < bar.start; });
    return next == _bars.begin() ? 0 : static_cast<std::size_t>(next - _bars.begin()) - 1;
}

} // namespace zarn::io
