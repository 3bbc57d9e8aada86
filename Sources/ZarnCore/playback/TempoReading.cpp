// SPDX-License-Identifier: MIT
#include <ZarnCore/playback/TempoReading.h>

#include <ZarnCore/model/form/ZarnInForce.h>
#include <ZarnCore/playback/HeldTimes.h>
#include <ZarnCore/playback/WrittenPosition.h>

#include <algorithm>
#include <array>

namespace zarn::playback {

namespace {

using utils::rational;

double quartersPerMinute(double value, TempoUnit unit)
{
    // By the numbers of the units; none counts quarters.
    constexpr std::array quarters{1.0, 0.5, 1.0, 1.5, 2.0, 3.0};
    const auto number = static_cast<std::size_t>(unit);
    return value * (number < quarters.size() ? quarters[number] : 1.0);
}

/// A tempo at a time of the score as written.
struct WrittenTempo {
    rational time;
    double tempo;
    bool isLinear;
};

class TempoReader {
public:
    TempoReader(const ScoreModel &model, const PlayedBars &bars) : _bars(bars)
    {
        const MasterTrack &track = *model.masterTrack();
        if (track.isTypeBypassed(Automation::Tempo)) {
            _marks.push_back({0, track.quarterTempoValue(), false});
            return;
        }
        for (const TempoMark &mark : temposOf(track))
            if (mark.bar < track.masterBarCount())
                _marks.push_back({bars.writtenStart(mark.bar) + positionOf(mark.position),
                                  quartersPerMinute(mark.value, mark.unit), mark.isLinear});
        std::stable_sort(_marks.begin(), _marks.end(), [](const auto &left, const auto &right) {
            return left.time < right.time;
        });
        if (_marks.empty() || _marks.front().time.sign() > 0)
            _marks.insert(_marks.begin(), {0, track.quarterTempoValue(), false});
    }

    std::vector<TempoMap::Point> read() const
    {
        std::vector<TempoMap::Point> points;
        for (const PlayedBar &played : _bars.bars())
            readBar(played, points);
        if (points.empty())
            points.push_back({0, 0, _marks.front().tempo, _marks.front().tempo});
        const double last = points.back().tempoAtEnd;
        if (points.back().tempo != last)
            points.push_back({_bars.length(), 0, last, last});
        return points;
    }

private:
    using Marks = std::vector<WrittenTempo>;

    void readBar(const PlayedBar &played, std::vector<TempoMap::Point> &points) const
    {
        const rational from = _bars.writtenStart(played.bar);
        const rational to = from + played.length;
        auto mark = std::upper_bound(
            _marks.begin(), _marks.end(), from,
            [](const rational &time, const WrittenTempo &other) { return time < other.time; });
        --mark; // the first one stands at 0
        for (rational start = from; start < to; ++mark) {
            const auto next = mark + 1;
            const rational end = next == _marks.end() ? to : std::min(to, next->time);
            if (end > start) {
                const TempoMap::Point point{played.start + (start - from), 0, tempoAt(mark, start),
                                            tempoAt(mark, end)};
                const bool goesOn = !points.empty() && !mark->isLinear
                    && points.back().tempo == points.back().tempoAtEnd
                    && points.back().tempo == point.tempo;
                if (!goesOn)
                    points.push_back(point);
            }
            start = end;
        }
    }

    /// Of a mark, or on the way from it to the next one.
    double tempoAt(Marks::const_iterator mark, const rational &time) const
    {
        const auto next = mark + 1;
        if (!mark->isLinear || next == _marks.end() || next->time == mark->time)
            return mark->tempo;
        const double share = ((time - mark->time) / (next->time - mark->time)).toDouble();
        return mark->tempo + (next->tempo - mark->tempo) * share;
    }

    const PlayedBars &_bars;
    Marks _marks;
};

/// Cuts points where held times begin and end, and slows those down in between.
std::vector<TempoMap::Point> hold(const std::vector<TempoMap::Point> &points,
                                  const std::vector<HeldTime> &held, const rational &length)
{
    if (held.empty())
        return points;
    std::vector<rational> times;
    for (const TempoMap::Point &point : points)
        times.push_back(point.time);
    for (const HeldTime &each : held)
        times.insert(times.end(), {each.start, each.end});
    std::sort(times.begin(), times.end());
    times.erase(std::unique(times.begin(), times.end()), times.end());

    const TempoMap plain(points);
    std::vector<TempoMap::Point> result;
    auto point = points.begin();
    auto hold = held.begin();
    for (std::size_t i = 0; i < times.size(); ++i) {
        const rational start = times[i];
        const rational end = i + 1 < times.size() ? times[i + 1] : std::max(length, start);
        while (point + 1 != points.end() && (point + 1)->time <= start)
            ++point;
        while (hold != held.end() && hold->end <= start)
            ++hold;
        const bool isHeld = hold != held.end() && hold->start <= start;
        const double factor = isHeld ? hold->factor : 1;
        const bool isSlide = point->tempo != point->tempoAtEnd;
        const bool isToItsEnd = point + 1 != points.end() && (point + 1)->time == end;
        const double from = isSlide ? plain.tempoAt(start.toDouble()) : point->tempo;
        const double to = !isSlide ? point->tempo
            : isToItsEnd           ? point->tempoAtEnd
                                   : plain.tempoAt(end.toDouble());
        result.push_back({start, 0, from / factor, to / factor});
    }
    return result;
}

} // namespace

TempoMap readTempo(const ScoreModel &model, const PlayedBars &bars,
                   const std::vector<bool> &barsWithCaesura)
{
    return TempoMap(hold(TempoReader(model, bars).read(), heldTimes(model, bars, barsWithCaesura),
                         bars.length()));
}

} // namespace zarn::playback
