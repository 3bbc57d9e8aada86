// SPDX-License-Identifier: MIT
#include <ZarnCore/io/midi/NotatedBar.h>

#include <ZarnCore/io/midi/ByteReader.h>

#include <algorithm>
#include <cstdlib>
#include <numeric>

namespace zarn::io {

namespace {

constexpr std::string_view mark = "\x7Dzarn";
constexpr char barEvent = 1;
constexpr char meterEvent = 2;

constexpr int voiceShift = 3;
constexpr int staffShift = 5;
constexpr unsigned graceBit = 4;
constexpr unsigned kindMask = 3;
constexpr unsigned voiceMask = 3;
constexpr int middleFifth = 64;

void append(std::string &bytes, std::uint64_t number)
{
    constexpr std::uint64_t most = 0x0FFFFFFF;
    number = std::min(number, most);
    int shift = 0;
    while (number >> (shift + 7) != 0)
        shift += 7;
    for (; shift > 0; shift -= 7)
        bytes += static_cast<char>(0x80 | ((number >> shift) & 0x7F));
    bytes += static_cast<char>(number & 0x7F);
}

/// What a number of times are all multiples of, as 32 bits have them: no bar is so long that more
/// would be needed.
class CommonPart {
public:
    void add(MidiTime time)
    {
        const std::uint32_t value = bitsOf(time);
        if (_value == 0 || value % _value != 0)
            _value = std::gcd(_value, value);
    }
    std::uint32_t value() const { return std::max<std::uint32_t>(_value, 1); }
    std::uint32_t of(MidiTime time) const { return bitsOf(time) / value(); }

private:
    static std::uint32_t bitsOf(MidiTime time)
    {
        constexpr MidiTime most = 0x7FFFFFFF;
        return static_cast<std::uint32_t>(std::min(std::abs(time), most));
    }

    std::uint32_t _value = 0;
};

/// Small numbers of either sign are short.
void appendSigned(std::string &bytes, MidiTime time, const CommonPart &part)
{
    const std::uint64_t value = part.of(time);
    append(bytes, time < 0 ? value * 2 - 1 : value * 2);
}

std::string begun(char kind)
{
    return std::string(mark) + kind;
}

/// Reads numbers one after the other; a missing one is 0 and makes the whole unusable.
class Numbers {
public:
    Numbers(std::string_view payload, char kind) : _bytes(payload)
    {
        _isGood = _bytes.standsAt(mark);
        _bytes.seek(mark.size());
        _isGood = _isGood && byte() == static_cast<unsigned char>(kind);
    }

    bool isGood() const { return _isGood; }
    bool isAtEnd() const { return _bytes.isAtEnd(); }

    unsigned byte() { return take(_bytes.byte()); }
    std::uint32_t number() { return take(_bytes.variableNumber()); }
    std::int64_t signedNumber()
    {
        const std::int64_t value = number();
        return value % 2 == 0 ? value / 2 : -(value + 1) / 2;
    }

private:
    template <typename Value>
    std::uint32_t take(const std::optional<Value> &value)
    {
        _isGood = _isGood && value.has_value();
        return _isGood ? *value : 0;
    }

    ByteReader _bytes;
    bool _isGood = true;
};

} // namespace

std::string payloadOf(const NotatedBar &bar)
{
    // Times are few and even: most are small numbers of their common part.
    CommonPart unit;
    CommonPart shiftUnit;
    unit.add(bar.length);
    for (const NotatedNote &note : bar.notes) {
        unit.add(note.onset);
        unit.add(note.length);
        shiftUnit.add(note.startLate);
        shiftUnit.add(note.endLate);
    }
    std::string bytes = begun(barEvent);
    constexpr std::size_t bytesOfNote = 8;
    bytes.reserve(bytes.size() + bytesOfNote * (bar.notes.size() + 1));
    append(bytes, unit.value());
    append(bytes, shiftUnit.value());
    append(bytes, unit.of(bar.length));
    for (const NotatedNote &note : bar.notes) {
        bytes += static_cast<char>(static_cast<unsigned>(note.kind) | (note.isGrace ? graceBit : 0)
                                   | static_cast<unsigned>(note.voice) << voiceShift
                                   | static_cast<unsigned>(note.staff) << staffShift);
        bytes += static_cast<char>(note.key);
        bytes += static_cast<char>(note.fifth + middleFifth);
        append(bytes, unit.of(note.onset));
        append(bytes, unit.of(note.length));
        if (note.kind == NotatedNote::Kind::Struck || note.kind == NotatedNote::Kind::Stroke) {
            appendSigned(bytes, note.startLate, shiftUnit);
            appendSigned(bytes, note.endLate, shiftUnit);
        }
    }
    return bytes;
}

std::optional<NotatedBar> readNotatedBar(std::string_view payload)
{
    Numbers numbers(payload, barEvent);
    if (!numbers.isGood())
        return std::nullopt;
    // No bar is longer, and no product of two numbers too great.
    constexpr MidiTime longest = MidiTime(1) << 40;
    const MidiTime unit = numbers.number();
    const MidiTime shiftUnit = numbers.number();
    NotatedBar bar;
    bar.length = unit * numbers.number();
    while (numbers.isGood() && !numbers.isAtEnd()) {
        NotatedNote note;
        const unsigned kind = numbers.byte();
        note.kind = static_cast<NotatedNote::Kind>(kind & kindMask);
        note.isGrace = (kind & graceBit) != 0;
        note.voice = static_cast<std::uint8_t>((kind >> voiceShift) & voiceMask);
        note.staff = static_cast<std::uint8_t>(kind >> staffShift);
        note.key = static_cast<std::uint8_t>(numbers.byte());
        note.fifth = static_cast<std::int8_t>(static_cast<int>(numbers.byte()) - middleFifth);
        note.onset = unit * numbers.number();
        note.length = unit * numbers.number();
        if (note.kind == NotatedNote::Kind::Struck || note.kind == NotatedNote::Kind::Stroke) {
            note.startLate = shiftUnit * numbers.signedNumber();
            note.endLate = shiftUnit * numbers.signedNumber();
        }
        constexpr int keyCount = 128;
        const bool isInBar = note.onset <= bar.length && note.length <= bar.length - note.onset;
        const bool isLengthRight = note.isGrace == (note.length == 0);
        if (note.staff >= NotatedBar::mostStaves || note.key >= keyCount || !isInBar
            || !isLengthRight)
            return std::nullopt;
        bar.notes.push_back(note);
    }
    if (!numbers.isGood() || bar.length <= 0 || bar.length > longest)
        return std::nullopt;
    return bar;
}

std::string payloadOf(const WrittenMeter &meter)
{
    std::string bytes = begun(meterEvent);
    append(bytes, meter.numerator);
    append(bytes, meter.denominator);
    return bytes;
}

std::optional<WrittenMeter> readWrittenMeter(std::string_view payload)
{
    constexpr unsigned mostBeats = 255;
    constexpr unsigned shortestUnit = 128;
    Numbers numbers(payload, meterEvent);
    WrittenMeter meter;
    meter.numerator = numbers.number();
    meter.denominator = numbers.number();
    const bool isPower =
        meter.denominator != 0 && (meter.denominator & (meter.denominator - 1)) == 0;
    if (!numbers.isGood() || !isPower || meter.numerator > mostBeats
        || meter.denominator > shortestUnit)
        return std::nullopt;
    return meter;
}

} // namespace zarn::io
