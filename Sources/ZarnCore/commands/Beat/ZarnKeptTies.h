// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <vector>

namespace zarn {

class Beat;
class TouchedBars;
class Voice;
struct BeatSpan;

/// The ties of the beats around a stretch of a voice, kept while a command changes the stretch and
/// mends the ties, and put back when the stretch is as it was.
class KeptTies {
public:
    /// The stretch is the beats from `first` up to, not including, `end`.
    KeptTies(const Voice &voice, unsigned first, unsigned end);

    void putBack(const Voice &voice) const;

    /// Adds the neighbouring bars where ties are not as they were kept. `end` is where the stretch
    /// ends now, `place` the bar of the voice.
    void addChanged(const Voice &voice, unsigned end, const BeatSpan &place,
                    TouchedBars &touched) const;

private:
    struct NoteTies {
        bool isTied;
        bool isTieOrigin;
    };

    static bool areChanged(const std::shared_ptr<Beat> &beat, const std::vector<NoteTies> &ties);
    static std::vector<NoteTies> read(const std::shared_ptr<Beat> &beat);
    static void write(const std::shared_ptr<Beat> &beat, const std::vector<NoteTies> &ties);

    unsigned _first;
    unsigned _end;
    std::vector<NoteTies> _before;
    std::vector<NoteTies> _behind;
};

} // namespace zarn
