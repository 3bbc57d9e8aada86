// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/model/ZarnMasterBar.h>
#include <ZarnCore/model/ZarnVoice.h>
#include <ZarnCore/model/barring/BeatPour.h>

#include <algorithm>
#include <optional>
#include <vector>

namespace zarn {

class Bar;
class ContentSwap;
class ScoreModel;
class Staff;

/// The music of some bars of all tracks, poured into the same bars as long as they are now, and
/// into as many more behind them as it needs. Works out what stands where and leaves the score as
/// it is.
class BarArrangement {
public:
    /// The bars `first` to `last` of a model, none of them in free time; they will have moved up by
    /// `shift` when their new content comes.
    BarArrangement(const ScoreModel &model, unsigned first, unsigned last, unsigned shift);

    unsigned first() const noexcept { return _first; }
    unsigned last() const noexcept { return _last; }

    /// How many columns it takes behind the last one.
    unsigned newBarCount() const noexcept { return _newBarCount; }

    /// Adds the new content; once.
    void addTo(ContentSwap &swap);

    /// Where what stood in a bar of the arrangement at a position in quarters stands afterwards;
    /// nothing for other bars and for what stays. The bars are numbered as they will be.
    struct NewPlace {
        unsigned bar;
        float position;
    };
    std::optional<NewPlace> newPlaceOf(unsigned bar, float position) const;

private:
    using Length = utils::rational;
    struct PouredVoice {
        unsigned track;
        unsigned staff;
        unsigned voice;
        BeatPour poured;
        std::vector<bool> leadsOverStrings; ///< per new bar, as far as any does
        bool endsAsCopy;                    ///< with beats that a simile mark stood for
    };

    /// How long bars without music of their own are; sought behind them once, when none is in
    /// front.
    struct UsualLength {
        std::optional<Length> length;
        bool isSought = false;
    };

    std::optional<Length> musicIn(unsigned bar) const;
    void measureColumn(unsigned bar, UsualLength &usual);
    void pour();
    void addVoices(ContentSwap &swap, unsigned track, const Staff &staff);
    void addSimiles(ContentSwap &swap, unsigned track, const Staff &staff) const;
    void addClefs(ContentSwap &swap, unsigned track, const Staff &staff) const;
    void addFermatas(ContentSwap &swap) const;
    void addHeldOver(ContentSwap &swap, unsigned track, const Staff &staff) const;
    unsigned barCount() const noexcept { return _last - _first + 1 + _newBarCount; }
    Length lengthOf(unsigned bar) const;

    /// The last bar, of those that take the music, of whose start a condition holds that holds of
    /// no start behind one of which it does not.
    template <class Condition>
    unsigned lastBarFrom(Condition holds) const
    {
        const auto end = std::partition_point(_barStarts.begin() + 1, _barStarts.end(), holds);
        return static_cast<unsigned>(end - _barStarts.begin()) - 1;
    }

    const ScoreModel &_model;
    unsigned _first;
    unsigned _last;
    unsigned _shift;
    unsigned _newBarCount = 0;
    std::vector<Length> _columns; ///< how long the music of each old bar is
    std::vector<Length> _columnStarts;
    std::vector<Length> _barStarts; ///< of all bars that take the music
    std::vector<Length> _lengths;   ///< of the bars as they are now
    Length _further;
    std::vector<PouredVoice> _voices;
};

} // namespace zarn
