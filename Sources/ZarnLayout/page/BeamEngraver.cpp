// SPDX-License-Identifier: MIT
#include <ZarnLayout/page/BeamEngraver.h>

#include <ZarnLayout/engrave/BeamChain.h>
#include <ZarnLayout/engrave/ChordInks.h>
#include <ZarnLayout/page/BeamInks.h>
#include <ZarnLayout/page/SideItem.h>

#include <algorithm>
#include <cmath>
#include <map>
#include <vector>

namespace zarn::engraving {

namespace {

/// A sign of a voice that stands by itself.
struct VoiceSign {
    int voice;
    bool isForAll; ///< in the way of the beams of its own voice, too
    Box box;
};

using VoiceSigns = Few<VoiceSign, 8>;

/// What the beams of the voices of a bar keep off: the heads, dots and flags of the other ones, the
/// accidentals of all of them, and clefs.
struct BarRivals {
    std::vector<const PlacedChord *> chords;
    VoiceSigns signs;
};

/// Those of each bar where there are any, by its number in the score.
using Rivals = std::map<unsigned, BarRivals>;

Rivals rivalsIn(const RowDraft &row)
{
    Rivals rivals;
    for (const PlacedChord &chord : row.chords)
        if (chord.chord->hasRival)
            rivals[chord.bar].chords.push_back(&chord);
    for (const Ink &ink : row.inks) {
        const bool isForAll = ink.kind == MarkKind::Accidental || ink.kind == MarkKind::Clef;
        if (!isForAll && ink.kind != MarkKind::AugmentationDot && ink.kind != MarkKind::Flag)
            continue;
        const auto number = static_cast<unsigned>(ink.place.bar);
        const auto bar = isForAll ? rivals.try_emplace(number).first : rivals.find(number);
        if (bar != rivals.end())
            bar->second.signs.push_back({ink.place.voice, isForAll, ink.box});
    }
    return rivals;
}

class BeamGroup {
public:
    BeamGroup(RowDraft &row, const BeamedNumbers &chain, const Rivals &rivals, const Pen &pen)
        : _row(row), _pen(pen)
    {
        for (const std::size_t i : chain)
            if (row.chords[i].chord->isRest())
                _inside.push_back(
                    restInk(*row.row, pen, *row.chords[i].chord).box.movedBy(row.chords[i].x, 0));
            else if (row.chords[i].chord->hasStem)
                _members.push_back(&row.chords[i]);
        const bool isOfGrace = row.chords[chain.front()].beat().isGrace();
        for (std::size_t i = chain.front(); i < chain.back() && !isOfGrace; ++i)
            if (const PlacedChord &grace = row.chords[i]; grace.beat().isGrace())
                _inside.push_back({grace.x, grace.top(), rightOf(grace), grace.bottom()});
        if (_members.empty())
            return;
        for (const PlacedChord *member : _members)
            _beamed.push_back({member, placeOf(row, *member)});
        if (const auto bar = rivals.find(_members.front()->bar); bar != rivals.end()) {
            _signs = &bar->second.signs;
            if (_members.size() > 1)
                findObstacles(bar->second);
        }
    }

    void draw()
    {
        if (_members.empty())
            return;
        _isUp = _members.front()->chord->isStemUp;
        _scale = _members.front()->chord->scale;
        measureStems();
        _line = bestLine();
        addStems();
        if (_members.size() > 1)
            addBeams();
    }

private:
    /// Where a stem stands, and how long it is to be.
    struct StemWish {
        double x;
        double headAtTip; ///< y of the head that is nearest to the beam
        double length;
        double least;
    };

    void measureStems()
    {
        int most = 1;
        for (std::size_t i = 0; i < _members.size(); ++i) {
            const PlacedChord &member = *_members[i];
            const int beams = beamsOver(i);
            const double least = std::max(leastOf(member, beams), leastForStrokes(member));
            _stems.push_back(
                {member.stemX(), headAtTip(member), std::max(wishOf(member, beams), least), least});
            most = std::max(most, beams);
        }
        _depth = step() * most;
    }

    /// What stands between the first stem and the last.
    void findObstacles(const BarRivals &rivals)
    {
        const unsigned voice = _members.front()->chord->voice;
        const double left = _members.front()->stemX();
        const double right = _members.back()->stemX();
        const auto add = [&](const Box &box) {
            if (box.left < right && box.right > left)
                _obstacles.push_back(box);
        };
        for (const PlacedChord *other : rivals.chords)
            if (other->chord->voice != voice && !other->chord->isRest())
                for (const Head &head : other->chord->heads) {
                    const double x = other->x + head.x;
                    add({x, head.y - 0.6, x + head.width, head.y + 0.6});
                }
        for (const VoiceSign &sign : rivals.signs)
            if (sign.isForAll || sign.voice != static_cast<int>(voice))
                add({sign.box.left, sign.box.top - 0.1, sign.box.right, sign.box.bottom + 0.1});
    }

    /// How deep the beams lie in what stands there, all in all.
    double coveredBy(const BeamLine &line) const
    {
        double covered = 0;
        for (const Box &box : _obstacles) {
            // From one end of the box to the other, as far as the beams reach.
            const double left = line.at(std::max(box.left, _stems.front().x));
            const double right = line.at(std::min(box.right, _stems.back().x));
            const double top = std::min(left, right) + std::min(0.0, inward() * _depth);
            const double bottom = std::max(left, right) + std::max(0.0, inward() * _depth);
            covered += std::max(0.0, std::min(box.bottom, bottom) - std::max(box.top, top));
        }
        return covered;
    }

    double step() const { return beamStep(_scale); }
    double inward() const { return _isUp ? 1 : -1; }

    static double headAtTip(const PlacedChord &member)
    {
        return member.chord->isStemUp ? member.chord->top() : member.chord->bottom();
    }

    /// The beams over the heads of a member: its own, and short ones that reach there from the side
    /// of the stem on which the heads are.
    int beamsOver(std::size_t number) const
    {
        const int own = _members[number]->beat().flagCount();
        const std::size_t front = _isUp ? number - 1 : number;
        if ((_isUp && number == 0) || front + 1 >= _members.size())
            return own;
        constexpr double reach = 2.5; ///< of a head and a short beam
        const double distance = _members[front + 1]->stemX() - _members[front]->stemX();
        return distance < reach ? std::max(own, beamsBehind(_beamed, front)) : own;
    }

    /// How long a stem wants to be from its nearest head to the line.
    double wishOf(const PlacedChord &member, int beams) const
    {
        const double tremolo = 0.6 * member.beat().marks.tremolo();
        return (3.25 + 0.75 * std::max(0, beams - 2) + tremolo) * (_scale < 1 ? 0.75 : 1);
    }
    double leastOf(const PlacedChord &member, int beams) const
    {
        if (const unsigned strokes = member.beat().marks.tremolo(); strokes > 0)
            return (1.5 + 0.75 * beams + 0.8 * strokes) * (_scale < 1 ? 0.75 : 1);
        return (2.5 + step() / _scale * std::max(0, beams - 1) * 0.8) * (_scale < 1 ? 0.75 : 1);
    }

    /// How long a stem is at least for the strokes of its tremolo to end outside of the accidentals
    /// of its chord that they reach over.
    double leastForStrokes(const PlacedChord &member) const
    {
        constexpr double gap = 0.1;
        const unsigned strokes = member.beat().marks.tremolo();
        if (strokes == 0 || _signs == nullptr)
            return 0;
        const Box &sign = _pen.fonts().box(tremoloSign(strokes));
        const double fromTip =
            std::abs(tremoloPoint(*member.chord, 0, _pen.fonts()).y) + sign.height() / 2 * _scale;
        const double half = sign.width() / 2 * _scale + gap;
        double least = 0;
        for (const VoiceSign &other : *_signs)
            if (other.isForAll && other.voice == static_cast<int>(member.chord->voice)
                && other.box.left < member.stemX() + half
                && other.box.right > member.stemX() - half) {
                const double edge = _isUp ? other.box.top : other.box.bottom;
                least = std::max(least, (headAtTip(member) - edge) * inward() + gap + fromTip);
            }
        return least;
    }

    /// Whether an inner head is nearer to the beam than both ends.
    bool isConcave() const
    {
        const double first = _stems.front().headAtTip * inward();
        const double last = _stems.back().headAtTip * inward();
        for (std::size_t i = 1; i + 1 < _stems.size(); ++i)
            if (_stems[i].headAtTip * inward() < std::min(first, last))
                return true;
        return false;
    }

    BeamLine bestLine() const
    {
        const StemWish &first = _stems.front();
        const StemWish &last = _stems.back();
        if (_row.row->notation != Notation::Standard)
            return {first.x, outermostTip(), 0};
        const double width = std::max(last.x - first.x, 0.1);
        const double rise = last.headAtTip - first.headAtTip;
        const double most = std::min({0.1 + width * 0.12, 1.5, std::abs(rise) * 0.5});
        const double wish = isConcave() ? 0 : std::copysign(most, rise);
        // The nearest head says where the line may be at most.
        double innermost = _isUp ? 1e9 : -1e9;
        for (const StemWish &stem : _stems) {
            const double part = (stem.x - first.x) / width;
            const double tip = stem.headAtTip - inward() * stem.length - wish * part;
            innermost = _isUp ? std::min(innermost, tip) : std::max(innermost, tip);
        }
        for (const Box &box : _inside) {
            const double edge = (_isUp ? box.top : box.bottom) - inward() * (0.4 + _depth);
            innermost = _isUp ? std::min(innermost, edge) : std::max(innermost, edge);
        }
        const double middle = _row.row->height() / 2;
        if (_scale == 1)
            innermost = _isUp ? std::min({innermost, middle, middle - wish})
                              : std::max({innermost, middle, middle - wish});
        // Of the ends nearby, those whose beam hangs from, sits on or straddles a staff line.
        BeamLine best = {first.x, innermost, wish / width};
        double least = 1e9;
        const double grid = 0.25;
        const double base = std::floor(innermost / grid) * grid;
        const double endBase = std::floor((innermost + wish) / grid) * grid;
        const auto seek = [&](int reach, double inkCost) {
            // None that costs more than the one in the middle is worth a look at all of it.
            const BeamLine centre = {first.x, base, (endBase - base) / width};
            least = costOfEnds(base, endBase, wish) + costOf(centre, 1e9)
                + (_obstacles.empty() ? 0 : inkCost * coveredBy(centre)) + 1e-6;
            for (int left = -reach; left <= reach; ++left)
                for (int right = std::max(-reach, left - 6); right <= std::min(reach, left + 6);
                     ++right) {
                    const double start = base + left * grid;
                    const double end = endBase + right * grid;
                    double cost = costOfEnds(start, end, wish);
                    if (cost >= least)
                        continue;
                    const BeamLine line = {first.x, start, (end - start) / width};
                    cost += costOf(line, least - cost);
                    if (cost < least && !_obstacles.empty())
                        cost += inkCost * coveredBy(line);
                    if (cost < least - 1e-9) {
                        least = cost;
                        best = line;
                    }
                }
        };
        // What is in the way may be farther off, and a beam goes around them by what it takes;
        // where that leaves it on ink, as far as stems can be.
        constexpr double inkCost = 8;
        constexpr double highestInkCost = 200;
        constexpr double air = 0.1; ///< that is around what stands there
        const bool isFree = _obstacles.empty() || coveredBy(best) == 0;
        seek(isFree ? 3 : 14, inkCost);
        if (!_obstacles.empty() && coveredBy(best) > air)
            seek(48, highestInkCost);
        return best;
    }

    double outermostTip() const
    {
        double tip = _isUp ? 1e9 : -1e9;
        for (const PlacedChord *member : _members)
            tip = _isUp ? std::min(tip, member->chord->stemTip)
                        : std::max(tip, member->chord->stemTip);
        return tip;
    }

    /// Of stems and what is in the way; no more of it is looked at than a limit.
    double costOf(const BeamLine &line, double limit) const
    {
        double cost = 0;
        for (const StemWish &stem : _stems) {
            const double length = inward() * (stem.headAtTip - line.at(stem.x));
            const double off = length - stem.length;
            cost += off < 0 ? 3 * off * off : 0.15 * off * off;
            if (length < stem.least)
                cost += 100 * (stem.least - length);
            if (cost >= limit)
                return cost;
        }
        for (const Box &box : _inside) {
            const double room =
                inward() * ((_isUp ? box.top : box.bottom) - line.at((box.left + box.right) / 2))
                - _depth;
            if (room < 0.1)
                cost += 60 * (0.1 - room);
        }
        return cost;
    }

    /// Of how a beam rises, and of ends between staff lines.
    double costOfEnds(double start, double end, double wish) const
    {
        const double rise = end - start;
        double cost = 6 * std::abs(rise - wish);
        if (rise * wish < 0 || (wish == 0 && rise != 0))
            cost += 20;
        for (const double y : {start, end}) {
            // Where the middle of the beam is between two staff lines: a quarter off at most.
            const double middle = y + inward() * 0.25 * _scale;
            const bool isInside = middle > -0.6 && middle < _row.row->height() + 0.6;
            const double part = middle - std::floor(middle);
            if (isInside && part > 0.3 && part < 0.7)
                cost += 4;
        }
        return cost;
    }

    void addStems()
    {
        for (PlacedChord *member : _members) {
            const Chord &chord = *member->chord;
            member->stemTip = _line.at(member->stemX());
            const double tip = member->stemTip + inward() * 0.05;
            Ink stem = _pen.line(MarkKind::Stem, {member->stemX(), chord.stemRoot},
                                 {member->stemX(), tip}, _pen.fonts().stem());
            stem.place = placeOf(_row, *member);
            _row.add(std::move(stem));
        }
    }

    void addBeams()
    {
        for (Ink &beam : beamInks(_beamed, _line, inward(), _scale, _pen)) {
            cover(_row, beam);
            _row.inks.push_back(std::move(beam));
        }
    }

    RowDraft &_row;
    const Pen &_pen;
    Few<PlacedChord *, 8> _members;
    BeamedChords _beamed;    ///< the members
    Few<StemWish, 8> _stems; ///< of the members
    double _depth = 0;       ///< of all beams together
    Few<Box, 2> _inside;     ///< rests and grace notes that the beams lead over
    Few<Box, 8> _obstacles;
    const VoiceSigns *_signs = nullptr; ///< of their bar
    BeamLine _line;
    bool _isUp = true;
    double _scale = 1;
};

} // namespace

void addBeams(RowDraft &row, const Pen &pen)
{
    auto &chords = row.chords;
    const Rivals rivals = rivalsIn(row);
    // Grace notes first: other beams lead over them.
    std::vector<bool> isDone(chords.size(), false);
    for (std::size_t step = 0; step < 2 * chords.size(); ++step) {
        const std::size_t first = step % chords.size();
        const Chord &chord = *chords[first].chord;
        if (isDone[first] || !chord.isBeamed || chord.isCrossBeamed
            || chord.beat->isGrace() != (step < chords.size()))
            continue;
        const auto chain = beamChain(
            first, chords.size(), [&](std::size_t i) -> const Chord & { return *chords[i].chord; });
        for (const std::size_t i : chain)
            isDone[i] = true;
        BeamGroup(row, chain, rivals, pen).draw();
    }
}

} // namespace zarn::engraving
