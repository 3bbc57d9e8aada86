// SPDX-License-Identifier: MIT
#include <ZarnLayout/page/BeamInks.h>

#include <algorithm>

namespace zarn::engraving {

namespace {

/// A short beam points into the beat that its note belongs to.
bool pointsLeft(const BeamedChords &chords, std::size_t member)
{
    if (member == 0)
        return false;
    if (member + 1 == chords.size())
        return true;
    const BeatSource &beat = chords[member].chord->beat();
    const utils::rational pair = beat.length * utils::rational(2);
    return pair.sign() > 0 && !utils::modulo(beat.onset, pair).isZero();
}

/// One beam, over the chords `first` up to `end`.
Ink beamInk(const BeamedChords &chords, std::size_t first, std::size_t end, const BeamLine &line,
            double thickness, double scale, const Pen &pen)
{
    const double half = pen.fonts().stem() / 2;
    double left = chords[first].chord->stemX() - half;
    double right = chords[end - 1].chord->stemX() + half;
    if (end - first == 1) {
        constexpr double stub = 1.1;
        if (pointsLeft(chords, first))
            left = std::max(right - stub * scale - 0.1, chords[first - 1].chord->stemX() + 0.3);
        else
            right = std::min(left + stub * scale + 0.1, chords[first + 1].chord->stemX() - 0.3);
    }
    const double y0 = line.at(left);
    const double y1 = line.at(right);
    Ink beam = pen.polygon(
        MarkKind::Beam, {{left, y0}, {right, y1}, {right, y1 + thickness}, {left, y0 + thickness}});
    beam.place = chords[first].place;
    return beam;
}

} // namespace

double beamStep(double scale)
{
    return 0.75 * scale;
}

int mostBeamsOf(const BeamedChords &chords)
{
    int most = 0;
    for (const BeamedChord &chord : chords)
        most = std::max(most, chord.chord->beat().flagCount());
    return most;
}

int beamsBehind(const BeamedChords &chords, std::size_t member)
{
    const auto beamsOf = [&](std::size_t i) {
        return i < chords.size() ? chords[i].chord->beat().flagCount() : 0;
    };
    const int here = beamsOf(member);
    const int behind = beamsOf(member + 1);
    // Beams that neither neighbour has are short.
    if (here > behind && here > (member > 0 ? beamsOf(member - 1) : 0)
        && !pointsLeft(chords, member))
        return here;
    if (behind > here && behind > beamsOf(member + 2) && pointsLeft(chords, member + 1))
        return behind;
    return std::min(here, behind);
}

Inks beamInks(const BeamedChords &chords, const BeamLine &line, double inward, double scale,
              const Pen &pen)
{
    Inks inks;
    inks.reserve(static_cast<std::size_t>(mostBeamsOf(chords)));
    const double thickness = inward * pen.fonts().beam() * scale;
    for (int level = 0, most = mostBeamsOf(chords); level < most; ++level) {
        BeamLine edge = line;
        edge.y += inward * beamStep(scale) * level;
        const auto hasLevel = [&](std::size_t member) {
            return chords[member].chord->beat().flagCount() > level;
        };
        for (std::size_t first = 0; first < chords.size();) {
            std::size_t end = first;
            while (end < chords.size() && hasLevel(end))
                ++end;
            if (end > first)
                inks.push_back(beamInk(chords, first, end, edge, thickness, scale, pen));
            first = std::max(end, first + 1);
        }
    }
    return inks;
}

void cover(RowDraft &row, const Ink &beam)
{
    constexpr int pieces = 8;
    const Point &left = beam.points[0];
    const Point &right = beam.points[1];
    const double thickness = beam.points[3].y - left.y;
    const auto at = [&](int piece) {
        const double part = static_cast<double>(piece) / pieces;
        return Point{left.x + (right.x - left.x) * part, left.y + (right.y - left.y) * part};
    };
    for (int i = 0; i < pieces; ++i) {
        const Point a = at(i);
        const Point b = at(i + 1);
        row.cover({a.x, std::min({a.y, b.y, a.y + thickness, b.y + thickness}), b.x,
                   std::max({a.y, b.y, a.y + thickness, b.y + thickness})});
    }
}

} // namespace zarn::engraving
