// SPDX-License-Identifier: MIT
#include <ZarnCore/io/midi/ConductorTrack.h>

#include <ZarnCore/io/ZarnExportReport.h>
#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/model/form/ZarnInForce.h>

#include <algorithm>
#include <cmath>
#include <optional>

namespace zarn::io {

namespace {

using utils::rational;

struct Meter {
    int numerator = 4;
    int denominator = 4;

    bool operator!=(const Meter &other) const
    {
        return numerator != other.numerator || denominator != other.denominator;
    }
};

constexpr int mostBeats = 255;
constexpr int shortestUnit = 64; ///< a 64th

/// The meter of a length; with a unit as the denominator asks for, or a shorter one.
std::optional<Meter> meterOf(const rational &length, int denominator)
{
    for (; denominator <= shortestUnit; denominator *= 2) {
        const rational beats = length * denominator / 4;
        if (beats.isInteger() && beats.sign() > 0 && beats.numerator() <= mostBeats)
            return Meter{static_cast<int>(beats.numerator()), denominator};
    }
    return std::nullopt;
}

bool isPowerOfTwo(unsigned number)
{
    return number != 0 && (number & (number - 1)) == 0;
}

/// The length at one played bar, in the units of the meter where that is possible.
std::optional<Meter> meterOf(const MasterBar &bar, const rational &length)
{
    const unsigned unit = bar.timeSignature().getDenominator();
    const bool isUnit = isPowerOfTwo(unit) && unit <= shortestUnit;
    if (const auto meter = meterOf(length, isUnit ? static_cast<int>(unit) : 1))
        return meter;
    return meterOf(bar.timeSignature().barLength(), 1);
}

int clocksPerClick(const Meter &meter)
{
    constexpr int clocksPerWhole = 96;
    const bool isCompound = meter.denominator >= 8 && meter.numerator % 3 == 0;
    return std::clamp(clocksPerWhole / meter.denominator * (isCompound ? 3 : 1), 1, 255);
}

bool givesTempo(const MasterTrack &track)
{
    const auto marks = temposOf(track);
    return std::any_of(marks.begin(), marks.end(),
                       [](const TempoMark &mark) { return mark.isGiven; });
}

std::string markerOf(const Section &section)
{
    const bool hasBoth = !section.letter.empty() && !section.text.empty();
    return section.letter + (hasBoth ? " " : "") + section.text;
}

/// Tempo events that lead through the times of a plan, from one that holds already: at the end of
/// each the time is right to a microsecond a quarter, however long the score is.
void addTempos(const playback::PlaybackPlan &plan, const TickMap &ticks, int last, MidiTrack &track)
{
    constexpr double microseconds = 1e6;
    constexpr int slowest = 0xFFFFFF;
    constexpr double tolerance = 0.0002;  // seconds
    constexpr double longestPiece = 256;  // quarters of an even tempo
    constexpr double piecesOfQuarter = 2; // of a slide, at least

    const playback::TempoMap &tempo = plan.tempo();
    const auto secondsAt = [&](std::uint64_t tick) {
        return tempo.secondsAt(ticks.quartersOf(tick));
    };
    double written = secondsAt(0); // where the file is, against where the plan is
    const auto addPiece = [&](std::uint64_t from, std::uint64_t to) {
        const double quarters = static_cast<double>(to - from) / ticks.ticksPerQuarter();
        const double wanted = (secondsAt(to) - written) * microseconds / quarters;
        const int value = static_cast<int>(std::clamp(std::round(wanted), 1.0, double(slowest)));
        if (value != last)
            track.addTempo(from, static_cast<std::uint32_t>(value));
        last = value;
        written += value * quarters / microseconds;
    };
    const auto isEven = [&](std::uint64_t from, std::uint64_t to) {
        const std::uint64_t middle = from + (to - from) / 2;
        const double share = static_cast<double>(middle - from) / static_cast<double>(to - from);
        const double straight = secondsAt(from) + (secondsAt(to) - secondsAt(from)) * share;
        return std::abs(straight - secondsAt(middle)) < tolerance;
    };
    const std::uint64_t end = std::max<std::uint64_t>(ticks.tickOf(plan.end()), 1);
    std::uint64_t from = 0;
    const auto &points = tempo.points();
    for (std::size_t i = 0; i < points.size() && from < end; ++i) {
        const std::uint64_t to =
            i + 1 < points.size() ? std::min(ticks.tickOf(points[i + 1].time), end) : end;
        const bool isSlide = points[i].tempo != points[i].tempoAtEnd;
        const double longest = isSlide ? 1 / piecesOfQuarter : longestPiece;
        auto step = std::max<std::uint64_t>(
            static_cast<std::uint64_t>(longest * ticks.ticksPerQuarter()), 1);
        while (from < to) {
            std::uint64_t next = std::min(from + step, to);
            while (isSlide && next > from + 1 && !isEven(from, next))
                next = from + (next - from) / 2;
            addPiece(from, next);
            from = next;
        }
    }
}

} // namespace

void addConductor(const ScoreModel &model, const playback::PlaybackPlan &plan, const TickMap &ticks,
                  MidiTrack &track, ExportReport &report)
{
    const std::string &title = model.property(ScoreProperty::Title);
    if (!title.empty())
        track.addMeta(0, MidiMeta::TrackName, title);
    const std::string &copyright = model.property(ScoreProperty::Copyright);
    if (!copyright.empty())
        track.addMeta(0, MidiMeta::Copyright, copyright);
    const auto &masterBars = model.masterTrack()->masterBars();
    std::optional<Meter> meter;
    std::optional<KeySignature> key;
    const auto changeMeter = [&](std::uint64_t tick, const Meter &to) {
        if (!meter || *meter != to)
            track.addTimeSignature(tick, to.numerator, to.denominator, clocksPerClick(to));
        meter = to;
    };
    if (const auto lead = meterOf(ticks.lead(), 4))
        changeMeter(0, *lead);
    std::vector<bool> isTold(masterBars.size());
    for (const playback::PlayedBar &played : plan.bars().bars()) {
        const MasterBar &bar = *masterBars[played.bar];
        const std::uint64_t tick = ticks.tickOf(played.start);
        if (const auto here = meterOf(bar, played.length)) {
            changeMeter(tick, *here);
        } else if (!isTold[played.bar]) {
            report.addProblem(
                {"the meter has no signature in MIDI", -1, static_cast<int>(played.bar)});
            isTold[played.bar] = true;
        }
        if (!key || *key != bar.concertKeySignature()) {
            key = bar.concertKeySignature();
            track.addKeySignature(tick, key->accidentalCount(), !key->isMajor());
        }
        if (bar.hasSection())
            track.addMeta(tick, MidiMeta::Marker, markerOf(bar.section()));
    }
    constexpr int none = 0;
    constexpr int withoutEvents = 500'000; // microseconds of a quarter
    addTempos(plan, ticks, givesTempo(*model.masterTrack()) ? none : withoutEvents, track);
}

} // namespace zarn::io
