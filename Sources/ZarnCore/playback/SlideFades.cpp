// SPDX-License-Identifier: MIT
#include <ZarnCore/playback/SlideFades.h>

#include <ZarnCore/playback/PlayingTime.h>

#include <algorithm>
#include <tuple>

namespace zarn::playback {

namespace {

using utils::rational;

constexpr int fullExpression = 127;
constexpr int steps = 16;

/// When the notes of a track begin and end.
class NoteTimes {
public:
    explicit NoteTimes(const std::vector<PlannedNote> &notes)
    {
        for (const PlannedNote &note : notes) {
            _starts.push_back(note.start);
            _ends.push_back(note.end);
        }
        std::sort(_starts.begin(), _starts.end());
        std::sort(_ends.begin(), _ends.end());
    }

    /// Those that are heard at any time between two.
    std::ptrdiff_t heardBetween(const rational &from, const rational &to) const
    {
        const auto begun = std::lower_bound(_starts.begin(), _starts.end(), to) - _starts.begin();
        const auto ended = std::upper_bound(_ends.begin(), _ends.end(), from) - _ends.begin();
        return begun - ended;
    }

    /// When the next note begins; the time itself if none does.
    rational nextStart(const rational &time) const
    {
        const auto next = std::lower_bound(_starts.begin(), _starts.end(), time);
        return next == _starts.end() ? time : *next;
    }

private:
    std::vector<rational> _starts;
    std::vector<rational> _ends;
};

} // namespace

std::vector<PlannedControl> controlsOfSlides(std::vector<SlideFade> fades,
                                             const std::vector<PlannedNote> &notes)
{
    std::vector<PlannedControl> controls;
    if (fades.empty() || notes.empty())
        return controls;
    const auto send = [&](const rational &time, int value) {
        PlannedControl control;
        control.time = time;
        control.track = notes.front().track;
        control.number = ExpressionController;
        control.value = static_cast<std::uint16_t>(value);
        controls.push_back(control);
    };
    std::sort(fades.begin(), fades.end(), [](const SlideFade &left, const SlideFade &right) {
        return std::tie(left.start, left.end) < std::tie(right.start, right.end);
    });
    const NoteTimes times(notes);
    for (auto fade = fades.begin(); fade != fades.end();) {
        const auto last = std::find_if(fade, fades.end(), [&](const SlideFade &other) {
            return other.start != fade->start || other.end != fade->end;
        });
        if (fade->start < fade->end && times.heardBetween(fade->start, fade->end) == last - fade) {
            const rational step = bounded((fade->end - fade->start) / steps);
            for (int i = 1; i < steps; ++i)
                send(fade->start + step * i, fullExpression * (steps - i) / steps);
            send(times.nextStart(fade->end), fullExpression);
        }
        fade = last;
    }
    return controls;
}

} // namespace zarn::playback
