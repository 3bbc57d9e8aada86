// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/model/places/ZarnScoreModelIndex.h>

#include <QElapsedTimer>

#include <optional>

namespace zarn::editor {

/// Remembers the digit that was typed last, to make one fret of two.
class FretDigits {
public:
    /// The fret that a digit makes with the one before: when that was typed at the same place less
    /// than a second ago, and nothing was changed since. `steps` counts the changes of the score.
    std::optional<int> joined(const ScoreModelIndex &place, int digit, unsigned steps) const
    {
        constexpr int together = 1000; // milliseconds
        constexpr int base = 10;
        if (_fret <= 0 || _fret >= base || steps != _steps || place != _place
            || _since.elapsed() > together)
            return std::nullopt;
        return _fret * base + digit;
    }

    void remember(const ScoreModelIndex &place, int fret, unsigned steps)
    {
        _place = place;
        _fret = fret;
        _steps = steps;
        _since.start();
    }

private:
    ScoreModelIndex _place;
    int _fret = -1;
    unsigned _steps = 0;
    QElapsedTimer _since;
};

} // namespace zarn::editor
