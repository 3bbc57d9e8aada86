// SPDX-License-Identifier: MIT
#include <ZarnCore/playback/ZarnPitchMotion.h>

#include <algorithm>
#include <cmath>

namespace zarn::playback {

double PitchMotion::semitonesAt(const utils::rational &time) const
{
    const auto behind =
        std::upper_bound(points.begin(), points.end(), time,
                         [](const auto &value, const Point &point) { return value < point.time; });
    if (behind == points.begin())
        return points.front().semitones;
    const Point &before = behind[-1];
    if (behind == points.end())
        return before.semitones;
    const double share = ((time - before.time) / (behind->time - before.time)).toDouble();
    return before.semitones + (behind->semitones - before.semitones) * share;
}

double PitchMotion::reach() const
{
    double reach = 0;
    for (const Point &point : points)
        reach = std::max(reach, std::abs(point.semitones));
    return reach;
}

} // namespace zarn::playback
