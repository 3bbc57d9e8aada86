// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/utils/rational.h>

#include <algorithm>
#include <vector>

namespace zarn {

/// The time under a fermata, as beats of all staves give it, in quarters from the start of the bar.
///
/// A fermata stands over the beats that begin with it, and over a longer one that began before and
/// ends together with one of these: all are held at once, where they end.
class FermataSpan {
public:
    explicit FermataSpan(const utils::rational &position) : _position(position) { }

    /// Takes a beat into account; one that begins elsewhere changes nothing.
    void add(const utils::rational &onset, const utils::rational &end)
    {
        if (onset == _position && onset < end)
            _ends.push_back(end);
    }

    bool hasBeats() const noexcept { return !_ends.empty(); }

    bool isOver(const utils::rational &onset, const utils::rational &end) const
    {
        return onset == _position || isHeldFromBefore(onset, end);
    }

    bool isHeldFromBefore(const utils::rational &onset, const utils::rational &end) const
    {
        return onset < _position && _position < end
            && std::find(_ends.begin(), _ends.end(), end) != _ends.end();
    }

private:
    utils::rational _position;
    std::vector<utils::rational> _ends; ///< of the beats that begin there
};

} // namespace zarn
