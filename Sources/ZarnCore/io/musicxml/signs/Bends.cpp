// SPDX-License-Identifier: MIT
#include <ZarnCore/io/musicxml/signs/Bends.h>

#include <ZarnCore/io/musicxml/ImportContext.h>

#include <algorithm>
#include <cstring>
#include <optional>
#include <utility>
#include <vector>

namespace zarn::io {

namespace {

/// One <bend>: from where the string is to where it goes.
struct Leg {
    int amount = 0;        ///< in quarter-tones
    bool isBefore = false; ///< before the string is struck
    bool isRelease = false;
    std::optional<int> first; ///< in 60ths of the note
    std::optional<int> last;
};

// Where a leg lies when it does not say so (MusicXML 4.0, bend-sound): at a quarter and at three
// quarters of the note, or of its share of it.
constexpr int quarterOf(int share)
{
    return share / 4;
}

std::optional<int> positionOf(pugi::xml_attribute percent)
{
    constexpr int end = static_cast<int>(PitchCurve::End);
    const auto value = parseDecimal(percent.value());
    if (!value)
        return std::nullopt;
    const auto position = (*value * utils::rational(end, 100)).round();
    return static_cast<int>(std::clamp<std::int64_t>(position, 0, end));
}

Leg legOf(pugi::xml_node bend, ImportContext &context)
{
    Leg leg;
    if (const auto alter = bend.child(tagName(Tag::BendAlter))) {
        const auto amount = (context.decimal(alter, 0) * utils::rational(2)).round();
        leg.amount = static_cast<int>(
            std::clamp<std::int64_t>(amount, WhammyBar::Lowest, WhammyBar::Highest));
        if (amount != leg.amount)
            context.addProblem(bend, "a bend farther than the strings go was shortened");
    }
    leg.isBefore = static_cast<bool>(bend.child(tagName(Tag::PreBend)));
    leg.isRelease = static_cast<bool>(bend.child(tagName(Tag::Release)));
    leg.first = positionOf(bend.attribute("first-beat"));
    leg.last = positionOf(bend.attribute("last-beat"));
    return leg;
}

/// Points that rise in time, whatever the legs say.
class CurveMaker {
public:
    void add(int position, int value)
    {
        const auto value16 = static_cast<std::int16_t>(value);
        if (!_points.empty() && position <= _points.back().position) {
            if (_points.size() > 1 || position < _points.back().position)
                _points.back().value = value16;
            return;
        }
        if (_points.size() + 2 > PitchCurve::MaxPoints)
            return;
        if (_points.empty() && position > 0)
            _points.push_back({0, 0});
        _points.push_back({static_cast<std::uint8_t>(position), value16});
    }

    PitchCurve curve()
    {
        constexpr auto end = static_cast<std::uint8_t>(PitchCurve::End);
        if (_points.back().position != end)
            _points.push_back({end, _points.back().value});
        return PitchCurve(std::move(_points));
    }

private:
    PitchCurve::Points _points;
};

BendType typeOf(bool isBentBefore, bool rises, bool falls)
{
    if (isBentBefore)
        return falls ? BendType::PreBendNRelease
            : rises  ? BendType::PreBendNBend
                     : BendType::PreBend;
    return rises ? (falls ? BendType::BendNRelease : BendType::Bend) : BendType::Release;
}

/// The curve of all legs in turn. A string that a release finds unbent was bent by the note that
/// it is tied to.
Bend bendOf(const std::vector<Leg> &legs)
{
    constexpr int end = static_cast<int>(PitchCurve::End);
    CurveMaker maker;
    bool isBentBefore = false;
    bool rises = false;
    bool falls = false;
    int now = 0;
    const auto moving = static_cast<int>(
        std::count_if(legs.begin(), legs.end(), [](const Leg &leg) { return !leg.isBefore; }));
    const int share = end / std::max(moving, 1);
    int start = 0;
    for (const auto &leg : legs) {
        const int amount = std::min(std::abs(leg.amount), Bend::Highest);
        if (leg.isBefore) {
            isBentBefore = true;
            now = amount;
            maker.add(0, now);
            continue;
        }
        const bool isDown = leg.isRelease || leg.amount < 0;
        if (isDown && now == 0) {
            now = amount;
            maker.add(0, now);
        }
        const int target = isDown ? std::max(now - amount, 0)
                                  : std::min(amount > now ? amount : now + amount, Bend::Highest);
        falls = falls || isDown;
        rises = rises || !isDown;
        maker.add(0, now);
        maker.add(leg.first.value_or(start + quarterOf(share)), now);
        maker.add(leg.last.value_or(start + share - quarterOf(share)), target);
        now = target;
        start += share;
    }
    Bend bend;
    bend.type = typeOf(isBentBefore, rises, falls);
    bend.curve = maker.curve();
    return bend;
}

WhammyBar whammyBarOf(const std::vector<Leg> &legs, const char *kind)
{
    const auto &leg = legs.front();
    if (leg.isBefore)
        return WhammyBar::of(WhammyBarType::PreDive, leg.amount);
    const bool isDip = std::strcmp(kind, "dip") == 0 || std::strcmp(kind, "scoop") == 0
        || (legs.size() > 1 && legs[1].amount == -leg.amount);
    return WhammyBar::of(isDip ? WhammyBarType::Dip : WhammyBarType::Dive, leg.amount);
}

} // namespace

void readBends(pugi::xml_node technical, const NotePlace &place, ImportContext &context)
{
    std::vector<Leg> legs;
    pugi::xml_node bar;
    for (const auto bend : technical.children(tagName(Tag::Bend))) {
        const auto leg = legOf(bend, context);
        if (!bar)
            bar = bend.child(tagName(Tag::WithBar));
        if (leg.amount == 0 || !place.note) {
            context.addUnheld(bend, Tag::Bend);
            context.addProblemInBar(place.bar, bend, "a bend by nothing was left out");
        } else {
            legs.push_back(leg);
        }
    }
    if (legs.empty())
        return;
    if (bar)
        place.beat->setWhammyBar(whammyBarOf(legs, bar.child_value()));
    else
        place.note->setBend(bendOf(legs));
}

} // namespace zarn::io
