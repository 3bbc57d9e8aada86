// SPDX-License-Identifier: MIT
#include <ZarnCore/playback/HeldSwells.h>

#include <algorithm>
#include <array>
#include <cmath>

namespace zarn::playback {

namespace {

using utils::rational;

constexpr int fullExpression = 127;

/// General MIDI programs, counted from 0, whose sound goes on and can grow.
struct Programs {
    int first;
    int last;
};
constexpr std::array sustained{
    Programs{16, 23},   // organs, accordion, harmonica
    Programs{40, 44},   // bowed strings
    Programs{48, 54},   // ensembles, choirs, voices
    Programs{56, 95},   // brass, reeds, pipes, leads and pads of synthesizers
    Programs{109, 111}, // bagpipe, fiddle, shanai
};

bool isSustained(int program)
{
    return std::any_of(sustained.begin(), sustained.end(), [program](const Programs &row) {
        return program >= row.first && program <= row.last;
    });
}

class SwellWriter {
public:
    SwellWriter(std::vector<PlannedNote> &notes, std::vector<PlannedControl> &controls)
        : _notes(notes), _controls(controls), _given(controls.size())
    {
        _order.resize(notes.size());
        for (std::size_t i = 0; i < notes.size(); ++i)
            _order[i] = &notes[i];
        std::stable_sort(_order.begin(), _order.end(),
                         [](const PlannedNote *left, const PlannedNote *right) {
                             return left->start < right->start;
                         });
    }

    void write(const HeldSwell &swell)
    {
        const rational start = swell.levels.front().time;
        for (; _control < _given && _controls[_control].time <= start; ++_control)
            if (_controls[_control].kind == PlannedControl::Kind::Program)
                _program = _controls[_control].number;
        for (; _next < _order.size() && _order[_next]->start < start; ++_next)
            _heardUntil = std::max(_heardUntil, _order[_next]->end);
        auto behind = _next;
        while (behind < _order.size() && _order[behind]->start == start)
            ++behind;
        const bool isAlone = behind == _order.size() || _order[behind]->start >= swell.end;
        if (!isSustained(_program) || _heardUntil > start || !isAlone)
            return;
        const auto loudest = std::max_element(
            swell.levels.begin(), swell.levels.end(),
            [](const auto &left, const auto &right) { return left.velocity < right.velocity; });
        const double peak = loudest->velocity;
        const auto raised = std::lround(peak) - std::lround(swell.levels.front().velocity);
        for (auto i = _next; i < behind; ++i)
            _order[i]->velocity =
                static_cast<std::uint8_t>(std::clamp(_order[i]->velocity + raised, 1L, 127L));
        for (const HeldSwell::Level &level : swell.levels)
            send(level.time, static_cast<int>(std::lround(fullExpression * level.velocity / peak)));
        send(behind == _order.size() ? swell.end : _order[behind]->start, fullExpression);
    }

private:
    void send(const rational &time, int value)
    {
        if (value == _expression)
            return;
        _expression = value;
        PlannedControl control;
        control.time = time;
        control.track = _notes.front().track;
        control.number = ExpressionController;
        control.value = static_cast<std::uint16_t>(value);
        _controls.push_back(control);
    }

    std::vector<PlannedNote> &_notes;
    std::vector<PlannedControl> &_controls;
    std::size_t _given;
    std::vector<PlannedNote *> _order;

    // How far the swells have come.
    std::size_t _control = 0;
    std::size_t _next = 0;
    int _program = 0;
    rational _heardUntil = -1000;
    int _expression = fullExpression;
};

} // namespace

const rational HeldSwell::step(1, 8);

void addHeldSwells(std::vector<HeldSwell> swells, std::vector<PlannedNote> &notes,
                   std::vector<PlannedControl> &controls)
{
    if (swells.empty() || notes.empty())
        return;
    // Of notes that are struck together the one that is held longest.
    std::stable_sort(swells.begin(), swells.end(),
                     [](const HeldSwell &left, const HeldSwell &right) {
                         const rational start = left.levels.front().time;
                         const rational other = right.levels.front().time;
                         return start != other ? start < other : left.end > right.end;
                     });
    const auto last = std::unique(swells.begin(), swells.end(),
                                  [](const HeldSwell &left, const HeldSwell &right) {
                                      return left.levels.front().time == right.levels.front().time;
                                  });
    SwellWriter writer(notes, controls);
    std::for_each(swells.begin(), last, [&](const HeldSwell &swell) { writer.write(swell); });
}

} // namespace zarn::playback
