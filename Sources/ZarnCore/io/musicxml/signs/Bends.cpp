// SPDX-License-Identifier: MIT
#include <ZarnCore/io/musicxml/signs/Bends.h>

#include <ZarnCore/io/musicxml/ImportContext.h>
#include <ZarnCore/io/musicxml/writer/ExportContext.h>

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

/// The moves of a curve, one leg each. `isBefore` tells that it begins at a pitch to which the
/// string was bent, or the bar moved, before.
std::vector<Leg> legsOf(const PitchCurve &curve, bool isBefore)
{
    std::vector<Leg> legs;
    const auto &points = curve.points();
    if (isBefore && points.front().value != 0) {
        Leg leg;
        leg.amount = points.front().value;
        leg.isBefore = true;
        legs.push_back(leg);
    }
    for (std::size_t i = 1; i < points.size(); ++i) {
        const int from = points[i - 1].value;
        const int to = points[i].value;
        if (from == to)
            continue;
        Leg leg;
        leg.isRelease = to < from;
        leg.amount = leg.isRelease ? to - from : to;
        leg.first = points[i - 1].position;
        leg.last = points[i].position;
        legs.push_back(leg);
    }
    return legs;
}

std::string percentOf(int position)
{
    return decimalText(position * 100.0 / PitchCurve::End);
}

pugi::xml_node writeLeg(const Leg &leg, pugi::xml_node technical)
{
    auto bend = addElement(technical, tagName(Tag::Bend));
    if (leg.first)
        addAttribute(bend, "first-beat", percentOf(*leg.first));
    if (leg.last)
        addAttribute(bend, "last-beat", percentOf(*leg.last));
    addElement(bend, tagName(Tag::BendAlter), decimalText(leg.amount / 2.0));
    if (leg.isBefore)
        addElement(bend, tagName(Tag::PreBend));
    else if (leg.isRelease)
        addElement(bend, tagName(Tag::Release));
    return bend;
}

} // namespace

void writeBend(const Bend &bend, pugi::xml_node notations, ExportContext &context)
{
    if (bend.type == BendType::NoBend)
        return;
    // A string that is let go to its own pitch at once was bent by the note in front.
    const auto &points = bend.curve.points();
    const auto moved =
        std::find_if(points.begin(), points.end(), [&points](const CurvePoint &point) {
            return point.value != points.front().value;
        });
    const bool isBefore =
        bend.type != BendType::Release || moved == points.end() || moved->value != 0;
    const auto legs = legsOf(bend.curve, isBefore);
    if (legs.empty())
        return context.addUnheld("bend by nothing");
    for (const auto &leg : legs)
        writeLeg(leg, ensureElement(notations, tagName(Tag::Technical)));
    context.addUnheldIf(!(bendOf(legs) == bend), "detail of a bend");
}

void writeWhammyBar(const WhammyBar &bar, pugi::xml_node notations, ExportContext &context)
{
    if (bar.type == WhammyBarType::NoWhammyBar)
        return;
    // What a reader makes of it: one leg, the lowest or the last that the bar goes to.
    const auto &points = bar.curve.points();
    const auto farthest = std::max_element(points.begin(), points.end(),
                                           [](const CurvePoint &left, const CurvePoint &right) {
                                               return std::abs(left.value) < std::abs(right.value);
                                           });
    Leg leg;
    leg.amount = farthest->value;
    leg.isBefore = bar.type == WhammyBarType::PreDive || bar.type == WhammyBarType::HoldWhammyBar;
    if (leg.amount == 0)
        return context.addUnheld("whammy bar that does nothing");
    const char *const kind = bar.type == WhammyBarType::Dip ? "dip" : "";
    addElement(writeLeg(leg, ensureElement(notations, tagName(Tag::Technical))),
               tagName(Tag::WithBar), kind);
    context.addUnheldIf(!(whammyBarOf({leg}, kind) == bar), "detail of the whammy bar");
}

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
