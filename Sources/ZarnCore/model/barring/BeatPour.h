// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/model/ZarnVoice.h>

#include <memory>
#include <utility>
#include <vector>

namespace zarn {

/// Pours the beats of a voice into bars, in their order and with their lengths. A beat that fits is
/// taken as it is; one that lies over a bar line is cut there exactly, into tied copies.
///
/// Grace beats stay with the beat that they lead to. Rests that fill their bar are as long as one
/// says; a bar where nothing but plain rests come together gets one again.
class BeatPour {
public:
    using Length = utils::rational;

    enum class Filler { Rests, PlaceHolders };

    /// Of bars, in quarters; any number of voices may be poured into the same ones.
    using Lengths = std::shared_ptr<const std::vector<Length>>;

    /// The bars behind those whose lengths are given all have the length `further`. The first beat
    /// goes to `start` in the first bar.
    BeatPour(Lengths lengths, const Length &further, const Length &start = {});
    BeatPour(std::vector<Length> lengths, const Length &further, const Length &start = {});

    /// A beat, and the time that it takes.
    void add(const std::shared_ptr<Beat> &beat, const Length &length);

    /// Time without beats. Bars that lie in it wholly stay empty of place holders.
    void addGap(const Length &length, Filler filler);

    /// Notes that the next beat does not follow the one in front of it as it did before.
    void part();

    /// To be called behind the last beat: grace beats that lead on stay in the last bar.
    void end();

    /// The beats of each bar that any came to.
    std::vector<Voice::Beats> &bars() noexcept { return _bars; }

    /// Joints where beats meet that did not before: the bar, and the number of the beat behind.
    const std::vector<std::pair<unsigned, unsigned>> &partedJoints() const noexcept
    {
        return _parted;
    }

    unsigned bar() const noexcept { return _bar; }
    const Length &offset() const noexcept { return _offset; }
    Length lengthOf(unsigned bar) const
    {
        return bar < _lengths->size() ? (*_lengths)[bar] : _further;
    }

private:
    void put(const std::shared_ptr<Beat> &beat);
    void partHere();
    void leaveFullBar();
    void addGraces();
    Voice::Beats &here();
    std::vector<Length> segments(Length length) const;
    void joinRests();

    Lengths _lengths;
    Length _further;
    unsigned _bar = 0;
    Length _offset;
    Voice::Beats _graces;
    std::vector<std::size_t> _gracePartings; ///< how many of them are in front of each joint
    const Beat *_before = nullptr;           ///< the last one that takes time
    std::vector<Voice::Beats> _bars;
    std::vector<bool> _isSilent; ///< per bar, whether it has nothing but plain rests
    std::vector<std::pair<unsigned, unsigned>> _parted;
};

} // namespace zarn
