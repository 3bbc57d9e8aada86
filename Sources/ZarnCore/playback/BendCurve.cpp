// SPDX-License-Identifier: MIT
#include <ZarnCore/playback/BendCurve.h>

#include <ZarnCore/playback/PlayingTime.h>

#include <algorithm>
#include <cmath>

namespace zarn::playback {

namespace {

using utils::rational;

constexpr double vibratoHertz = 5.5;
constexpr int vibratoPointsPerCycle = 16;
constexpr double slightVibrato = 0.20; ///< semitones
constexpr double wideVibrato = 0.50;
constexpr double slideInSemitones = 3;
constexpr double longestSlideIn = 0.120; ///< seconds
constexpr double slideOutSemitones = 5;
constexpr double scrapeSemitones = 12;
constexpr double quarterTonesPerSemitone = 2;
constexpr double pi = 3.14159265358979323846;

/// Ticks to which lengths are brought that were given in seconds.
constexpr int ticksPerQuarter = 3840;

double semitonesOf(SlideOut slide)
{
    switch (slide) {
    case SlideOut::Downwards:
        return -slideOutSemitones;
    case SlideOut::Upwards:
        return slideOutSemitones;
    case SlideOut::PickScrapeDown:
        return -scrapeSemitones;
    case SlideOut::PickScrapeUp:
        return scrapeSemitones;
    default:
        return 0;
    }
}

/// The value just in front of a time, where a part may leap.
double semitonesBefore(const PitchMotion &part, const rational &time)
{
    const auto first = std::lower_bound(
        part.points.begin(), part.points.end(), time,
        [](const PitchMotion::Point &point, const rational &value) { return point.time < value; });
    const bool isPoint = first != part.points.end() && first->time == time;
    return isPoint ? first->semitones : part.semitonesAt(time);
}

double limited(double semitones)
{
    return std::clamp(semitones, -widestMotion, widestMotion);
}

bool isScrape(SlideOut slide)
{
    return slide == SlideOut::PickScrapeDown || slide == SlideOut::PickScrapeUp;
}

} // namespace

BendCurve::BendCurve(const rational &start, const rational &end, const TempoMap &tempo)
    : _start(start), _end(end), _tempo(tempo)
{
}

rational BendCurve::quartersOf(double seconds, const rational &at) const
{
    const double quarters = seconds * _tempo.tempoAt(at.toDouble()) / 60;
    return {std::max<std::int64_t>(std::llround(quarters * ticksPerQuarter), 1), ticksPerQuarter};
}

void BendCurve::addCurve(const PitchCurve &curve, const rational &from, const rational &to)
{
    PitchMotion part;
    if (from > _start)
        part.points.push_back({from, 0});
    for (const CurvePoint &point : curve.points())
        part.points.push_back(
            {bounded(from + (to - from) * point.position / static_cast<int>(PitchCurve::End)),
             point.value / quarterTonesPerSemitone});
    if (to < _end && part.points.back().semitones != 0)
        part.points.push_back({to, 0});
    addPart(std::move(part));
}

void BendCurve::addVibrato(Vibrato vibrato, const rational &from, const rational &to)
{
    if (vibrato == Vibrato::None)
        return;
    const double width = vibrato == Vibrato::Wide ? wideVibrato : slightVibrato;
    const rational start = bounded(from + (to - from) / 10);
    PitchMotion part;
    part.points.push_back({start, 0});
    rational time = start;
    for (int i = 1; time < to; ++i) {
        advance(time, quartersOf(1 / vibratoHertz / vibratoPointsPerCycle, time));
        if (time < to)
            part.points.push_back({time, width * std::sin(2 * pi * i / vibratoPointsPerCycle)});
    }
    part.points.push_back({to, 0});
    addPart(std::move(part));
}

void BendCurve::addSlideIn(SlideIn slide, const rational &from, const rational &to)
{
    if (slide == SlideIn::None)
        return;
    const rational length = std::min((to - from) / 4, quartersOf(longestSlideIn, from));
    const double first = slide == SlideIn::FromBelow ? -slideInSemitones : slideInSemitones;
    addPart({{{from, first}, {from + length, 0}}});
}

void BendCurve::addSlideOut(SlideOut slide, const rational &from, const rational &to)
{
    const double semitones = semitonesOf(slide);
    if (semitones == 0)
        return;
    const rational start = isScrape(slide) ? from : startOfSlide(from, to);
    addPart({{{start, 0}, {to, semitones}}});
}

void BendCurve::addSlideTo(int semitones, const rational &from, const rational &to)
{
    addPart({{{startOfSlide(from, to), 0}, {to, static_cast<double>(semitones)}}});
}

rational BendCurve::startOfSlide(const rational &from, const rational &to)
{
    return bounded(to - (to - from) / 3);
}

PitchMotion BendCurve::motion() const
{
    std::vector<rational> times{_start};
    for (const PitchMotion &part : _parts)
        for (const PitchMotion::Point &point : part.points)
            if (point.time > _start && point.time < _end)
                times.push_back(point.time);
    times.push_back(_end);
    std::sort(times.begin(), times.end());
    times.erase(std::unique(times.begin(), times.end()), times.end());
    PitchMotion sum;
    for (const rational &time : times) {
        double before = 0;
        double semitones = 0;
        for (const PitchMotion &part : _parts) {
            before += semitonesBefore(part, time);
            semitones += part.semitonesAt(time);
        }
        if (time != _start && limited(before) != limited(semitones))
            sum.points.push_back({time, limited(before)});
        if (time != _end || sum.points.back().time != time)
            sum.points.push_back({time, limited(time == _end ? before : semitones)});
    }
    return sum;
}

} // namespace zarn::playback
