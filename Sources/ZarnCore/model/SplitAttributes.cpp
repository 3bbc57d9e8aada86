// SPDX-License-Identifier: MIT
#include <ZarnCore/model/SplitAttributes.h>

#include <ZarnCore/model/ZarnBeatAttribute.h>

#include <algorithm>

namespace zarn {

namespace {

using utils::rational;
using Pieces = std::vector<std::shared_ptr<Beat>>;

/// Where a piece lies in the beat that was cut.
struct Part {
    rational from; ///< in 60ths of the beat, as positions of curves are
    rational to;
    bool isFirst;
    bool isLast;
};

/// By the letter of the table, for all but what is cut.
template <class Row, class Node>
void deal(const Row &row, Node &node, const Part &part)
{
    if ((row.split == Split::First && !part.isFirst) || (row.split == Split::Last && !part.isLast))
        reset(node, row);
}

struct Motion {
    bool rises = false;
    bool falls = false;
};

Motion motionOf(const PitchCurve &curve)
{
    Motion motion;
    const auto &points = curve.points();
    for (std::size_t i = 1; i < points.size(); ++i) {
        motion.rises = motion.rises || points[i].value > points[i - 1].value;
        motion.falls = motion.falls || points[i].value < points[i - 1].value;
    }
    return motion;
}

bool staysAtZero(const PitchCurve &curve)
{
    return curve.isWithin(0, 0);
}

/// What a part of a bend is drawn as; a part that is struck is the start of a bend that is.
Bend bendOf(const PitchCurve &curve, bool isStruck)
{
    if (staysAtZero(curve))
        return {};
    const Motion motion = motionOf(curve);
    if (curve.points().front().value == 0)
        return {motion.falls ? BendType::BendNRelease : BendType::Bend, curve};
    if (motion.rises)
        return {BendType::PreBendNBend, curve};
    if (motion.falls)
        return {isStruck ? BendType::PreBendNRelease : BendType::Release, curve};
    return {isStruck ? BendType::PreBend : BendType::HoldBend, curve};
}

WhammyBar whammyBarOf(const WhammyBar &whole, const Part &part)
{
    const PitchCurve curve = whole.curve.part(part.from, part.to);
    if (staysAtZero(curve))
        return {};
    if (part.isFirst)
        return {whole.type, curve};
    const Motion motion = motionOf(curve);
    const bool moves = motion.rises || motion.falls;
    return {moves ? WhammyBarType::PreDiveNDive : WhammyBarType::HoldWhammyBar, curve};
}

/// A swell is at its loudest in the middle.
Hairpin hairpinOf(Hairpin whole, const Part &part)
{
    constexpr int middle = static_cast<int>(PitchCurve::End) / 2;
    if (whole != Hairpin::Swell)
        return whole;
    if (part.to <= rational(middle))
        return Hairpin::Crescendo;
    return part.from >= rational(middle) ? Hairpin::Decrescendo : Hairpin::Swell;
}

Fadding faddingOf(Fadding whole, const Part &part)
{
    if (part.isFirst && whole != Fadding::NoFadding && whole != Fadding::FadeOut)
        return Fadding::FadeIn;
    if (part.isLast && whole != Fadding::NoFadding && whole != Fadding::FadeIn)
        return Fadding::FadeOut;
    return Fadding::NoFadding;
}

TextSpan textSpanOf(TextSpan whole, const Part &part)
{
    const bool isHere = begins(whole) ? part.isFirst : part.isLast;
    return isHere ? whole : TextSpan::None;
}

SlurEnds slurEndsOf(const SlurEnds &whole, const Part &part)
{
    SlurEnds ends;
    std::copy_if(whole.begin(), whole.end(), std::back_inserter(ends),
                 [&](const SlurEnd &end) { return end.isBegin ? part.isFirst : part.isLast; });
    return ends;
}

AccentFlags accentsOf(AccentFlags whole, const Part &part)
{
    constexpr AccentFlags atTheEnd(static_cast<unsigned>(AccentFlag::Staccato)
                                   | static_cast<unsigned>(AccentFlag::Staccatissimo));
    constexpr AccentFlags throughout(AccentFlag::Tenuto);
    constexpr AccentFlags atTheStart(AccentFlags::AllBits & ~atTheEnd.bits() & ~throughout.bits());
    AccentFlags accents = whole;
    if (!part.isFirst)
        accents = accents.without(atTheStart);
    return part.isLast ? accents : accents.without(atTheEnd);
}

void cutNote(Note &note, const Part &part)
{
    for (const NoteAttributeRow &row : noteAttributes())
        deal(row, note, part);
    note.setAccents(accentsOf(note.accents(), part));
    if (note.hasDetails()) {
        const Bend bend = note.bend();
        const bool isStruck =
            part.isFirst && bend.type != BendType::HoldBend && bend.type != BendType::Release;
        note.setBend(bendOf(bend.curve.part(part.from, part.to), isStruck));
    }
    if (!part.isFirst)
        note.setTied(true);
    if (!part.isLast)
        note.setTieOrigin(true);
}

void cutBeat(Beat &beat, const Part &part)
{
    for (const BeatAttributeRow &row : beatAttributes())
        if (row.id != BeatAttribute::Rhythm)
            deal(row, beat, part);
    beat.setWholeBarRest(false);
    beat.setHairpin(hairpinOf(beat.hairpin(), part));
    beat.setFadding(faddingOf(beat.fadding(), part));
    const bool isInSlur = beat.isSlurredToNext() || beat.isSlurredToPrevious();
    if (!part.isFirst)
        beat.setSlurredToPrevious(isInSlur);
    if (!part.isLast)
        beat.setSlurredToNext(isInSlur);
    // The two beats of such a tremolo have one length.
    beat.setTremoloToNext(0);
    if (beat.hasDetails()) {
        beat.setWhammyBar(whammyBarOf(beat.whammyBar(), part));
        beat.setTextSpan(textSpanOf(beat.textSpan(), part));
        beat.setSlurEnds(slurEndsOf(beat.slurEnds(), part));
    }
    for (const auto &note : beat.notes())
        cutNote(*note, part);
}

} // namespace

void splitAttributes(const Pieces &pieces)
{
    if (pieces.size() < 2)
        return;
    rational length;
    for (const auto &piece : pieces)
        length += piece->rhythmValue().getLength();
    rational from;
    for (std::size_t i = 0; i < pieces.size(); ++i) {
        const rational to =
            from + pieces[i]->rhythmValue().getLength() * rational(PitchCurve::End) / length;
        cutBeat(*pieces[i], {from, to, i == 0, i + 1 == pieces.size()});
        from = to;
    }
}

} // namespace zarn
