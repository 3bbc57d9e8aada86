// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>
#include <ZarnCore/utils/rational.h>

#include <vector>

namespace zarn::playback {

/// Tempo over the time of playing: leads from quarters to seconds and back.
///
/// Between two of its points the tempo is constant, or slides in a straight line over the quarters.
/// Time in front of 0 goes on at the first tempo, time behind the last point at the last one.
class ZARNCORE_EXPORT TempoMap {
public:
    // What the tempo is kept within, in quarters per minute; a MIDI file can say no slower one.
    static constexpr double Slowest = 4;
    static constexpr double Fastest = 60'000;

    /// From here on, up to the next point.
    struct Point {
        utils::rational time; ///< in quarters
        double second = 0;
        double tempo = 120;      ///< at the point, in quarters per minute
        double tempoAtEnd = 120; ///< in front of the next point
    };

    /// 120 quarters a minute throughout.
    TempoMap();

    /// Points in order, the first at 0; their seconds are worked out here, and tempos are brought
    /// within the limits. Points at one time: the last one counts. Raises for no point.
    explicit TempoMap(std::vector<Point> points);

    const std::vector<Point> &points() const noexcept { return _points; }

    double secondsAt(const utils::rational &time) const { return secondsAt(time.toDouble()); }
    double secondsAt(double quarters) const;
    double quartersAt(double second) const;

    /// In quarters per minute.
    double tempoAt(double quarters) const;

    /// The map from a time on, which becomes its 0.
    TempoMap from(const utils::rational &time) const;

private:
    friend class TempoCursor;

    std::size_t indexAt(double quarters) const;
    double secondsFrom(std::size_t index, double quarters) const;

    std::vector<Point> _points;
    std::vector<double> _quarters; ///< of the points
};

/// Asks a map for times that mostly rise, each in constant time.
class TempoCursor {
public:
    explicit TempoCursor(const TempoMap &map) noexcept : _map(map) { }

    double secondsAt(const utils::rational &time)
    {
        const double quarters = time.toDouble();
        if (quarters < _from || quarters >= _to)
            find(quarters);
        return _map.secondsFrom(_index, quarters);
    }

private:
    ZARNCORE_EXPORT void find(double quarters);

    const TempoMap &_map;
    std::size_t _index = 0;
    double _from = 1;
    double _to = 0;
};

} // namespace zarn::playback
