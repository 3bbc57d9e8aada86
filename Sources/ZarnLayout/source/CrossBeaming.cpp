// SPDX-License-Identifier: MIT
#include <ZarnLayout/source/CrossBeaming.h>

#include <ZarnLayout/source/BarSource.h>

#include <algorithm>
#include <limits>
#include <map>
#include <tuple>

namespace zarn::engraving {

namespace {

/// A beat of one of the two staves.
struct Spot {
    BarSource *bar = nullptr;
    std::size_t voice = 0;
    std::size_t beat = 0;

    std::vector<BeatSource> &beats() const { return bar->voices[voice].beats; }
    BeatSource &operator*() const { return beats()[beat]; }
    BeatSource *operator->() const { return &**this; }
    friend bool operator<(const Spot &a, const Spot &b)
    {
        return std::tie(a.bar, a.voice, a.beat) < std::tie(b.bar, b.voice, b.beat);
    }
};

bool canHang(const BeatSource &beat)
{
    return beat.flagCount() > 0 && beat.noteCount > 0 && !beat.isGrace() && !beat.isPlaceHolder;
}

/// Whether the voice is silent behind a beat, so that another staff may go on.
bool hasRoomBehind(const Spot &spot)
{
    const auto &beats = spot.beats();
    auto next = beats.begin() + static_cast<std::ptrdiff_t>(spot.beat) + 1;
    while (next != beats.end() && next->isGrace())
        ++next;
    return next == beats.end() || next->isPlaceHolder;
}

bool hasRoomBefore(const Spot &spot)
{
    std::size_t before = spot.beat;
    while (before > 0 && spot.beats()[before - 1].isGrace())
        --before;
    return before == 0 || spot.beats()[before - 1].isPlaceHolder;
}

class Joiner {
public:
    Joiner(BarSource &upper, BarSource &lower) : _lower(lower)
    {
        findLinks(upper, lower);
        findLinks(lower, upper);
    }

    unsigned number(unsigned used)
    {
        for (const auto &link : _next)
            if (link.first->crossBeam == 0 && used < std::numeric_limits<std::uint8_t>::max())
                mark(membersAround(link.first), ++used);
        return used;
    }

private:
    void findLinks(BarSource &from, BarSource &to)
    {
        for (std::size_t voice = 0; voice < from.voices.size(); ++voice)
            for (std::size_t i = 0; i < from.voices[voice].beats.size(); ++i) {
                const Spot spot = {&from, voice, i};
                if (!canHang(*spot) || spot->crossBeam != 0 || spot->isBeamedOn
                    || spot->marks.beamMode() != BeamMode::Join || !hasRoomBehind(spot))
                    continue;
                if (const Spot next = startAt(to, spot->onset + spot->length); next.bar) {
                    _next.emplace(spot, next);
                    _before.emplace(next, spot);
                }
            }
    }

    /// The note of a staff that begins at a time, behind free time, and is not taken; no bar when
    /// there is none.
    Spot startAt(BarSource &bar, const utils::rational &onset) const
    {
        for (std::size_t voice = 0; voice < bar.voices.size(); ++voice) {
            const auto &beats = bar.voices[voice].beats;
            auto beat = std::lower_bound(
                beats.begin(), beats.end(), onset,
                [](const BeatSource &left, const auto &time) { return left.onset < time; });
            while (beat != beats.end() && beat->isGrace())
                ++beat;
            if (beat == beats.end() || beat->onset != onset || !canHang(*beat)
                || beat->crossBeam != 0)
                continue;
            const Spot spot = {&bar, voice, static_cast<std::size_t>(beat - beats.begin())};
            if (hasRoomBefore(spot) && _before.count(spot) == 0)
                return spot;
        }
        return {};
    }

    bool goOn(Spot &spot) const
    {
        if (const auto across = _next.find(spot); across != _next.end()) {
            spot = across->second;
            return true;
        }
        if (!spot->isBeamedOn)
            return false;
        do {
            ++spot.beat;
        } while (spot.beat < spot.beats().size() && spot->isGrace());
        return spot.beat < spot.beats().size();
    }

    bool goBack(Spot &spot) const
    {
        if (const auto across = _before.find(spot); across != _before.end()) {
            spot = across->second;
            return true;
        }
        Spot before = spot;
        while (before.beat > 0 && before.beats()[before.beat - 1].isGrace())
            --before.beat;
        if (before.beat == 0 || !before.beats()[--before.beat].isBeamedOn)
            return false;
        spot = before;
        return true;
    }

    std::vector<Spot> membersAround(Spot spot) const
    {
        while (goBack(spot)) { }
        std::vector<Spot> members = {spot};
        while (goOn(spot))
            members.push_back(spot);
        return members;
    }

    void mark(const std::vector<Spot> &members, unsigned number) const
    {
        using Orientation = ZarnStemOrientation;
        const Orientation said = members.front()->marks.stemOrientation();
        const bool agree = said != Orientation::Undefined
            && std::all_of(members.begin(), members.end(), [&](const Spot &spot) {
                               return !canHang(*spot) || spot->marks.stemOrientation() == said;
                           });
        for (const Spot &spot : members) {
            spot->isBeamedOn = false;
            if (!canHang(*spot))
                continue;
            spot->crossBeam = static_cast<std::uint8_t>(number);
            spot->isCrossStemUp = agree ? said == Orientation::Upward : spot.bar == &_lower;
        }
    }

    BarSource &_lower;
    std::map<Spot, Spot> _next; ///< over the staves
    std::map<Spot, Spot> _before;
};

} // namespace

unsigned setBeamsAcross(BarSource &upper, BarSource &lower, unsigned used)
{
    if (upper.simile != SimileMark::None || lower.simile != SimileMark::None)
        return used;
    return Joiner(upper, lower).number(used);
}

} // namespace zarn::engraving
