// SPDX-License-Identifier: MIT
// Where the beats of a voice stand in time.
#include <ZarnCore/model/ZarnVoice.h>

#include <ZarnCore/model/ZarnBar.h>
#include <ZarnCore/model/ZarnMasterBar.h>

namespace zarn {
namespace {

/// The value of which a triplet feel plays pairs, and where it puts the middle of a pair.
struct Swing {
    utils::rational value;
    utils::rational middle;
};

Swing swingOf(TripletFeel feel)
{
    using utils::rational;
    switch (feel) {
    case TripletFeel::Triplet8th:
        return {rational(1, 2), rational(2, 3)};
    case TripletFeel::Triplet16th:
        return {rational(1, 4), rational(1, 3)};
    case TripletFeel::Dotted8th:
        return {rational(1, 2), rational(3, 4)};
    case TripletFeel::Dotted16th:
        return {rational(1, 4), rational(3, 8)};
    case TripletFeel::Scottish8th:
        return {rational(1, 2), rational(1, 4)};
    case TripletFeel::Scottish16th:
        return {rational(1, 4), rational(1, 8)};
    case TripletFeel::NoTripletFeel:
        break;
    }
    return {};
}

bool isMultiple(const utils::rational &length, const utils::rational &value)
{
    return (length / value).isInteger();
}

/// The sounding place of the joint between two lengths that meet at `offset` as written.
utils::rational swung(const utils::rational &offset, const utils::rational &before,
                      const utils::rational &after, const Swing &swing)
{
    if (swing.value.isZero() || after.isZero())
        return offset;
    const utils::rational units = offset / swing.value;
    const bool isMiddle = units.isInteger() && units.numerator() % 2 != 0;
    if (!isMiddle || !isMultiple(before, swing.value) || !isMultiple(after, swing.value))
        return offset;
    return offset - swing.value + swing.middle;
}

} // namespace

utils::rational Voice::length() const
{
    utils::rational sum;
    for (const auto &beat : beats())
        sum += beat->length();
    return sum;
}

utils::rational Voice::beatOffsetIgnoringGraceBeats(const Beat &beat) const
{
    utils::rational offset;
    for (const auto &candidate : beats()) {
        if (candidate.get() == &beat)
            return offset;
        offset += candidate->length();
    }
    ZARN_RAISE_IN("zarn::Voice::beatOffsetIgnoringGraceBeats", "The beat is not in this voice");
}

utils::rational Voice::beatDrawingOffset(const Beat &beat) const
{
    return beatOffsetIgnoringGraceBeats(beat);
}

utils::rational Voice::soundingJoint(unsigned index) const
{
    const auto bar = parentBar();
    const auto master = bar ? bar->masterBar() : nullptr;
    utils::rational offset;
    utils::rational before;
    for (unsigned i = 0; i < index; ++i) {
        const utils::rational length = beats()[i]->length();
        offset += length;
        if (!length.isZero())
            before = length;
    }
    utils::rational after;
    for (unsigned i = index; i < beatCount() && after.isZero(); ++i)
        after = beats()[i]->length();
    return swung(offset, before, after, master ? swingOf(master->tripletFeel()) : Swing());
}

utils::rational Voice::beatSoundingOffset(const Beat &beat) const
{
    const unsigned index = beat.index();
    ZARN_ASSERT_IN("zarn::Voice::beatSoundingOffset",
                   index < beatCount() && beats()[index].get() == &beat);
    return soundingJoint(index);
}

utils::rational Voice::beatSoundingLength(const Beat &beat) const
{
    const utils::rational start = beatSoundingOffset(beat);
    return beat.isGrace() ? utils::rational() : soundingJoint(beat.index() + 1) - start;
}

std::shared_ptr<Beat> Voice::beatStartingAt(const utils::rational &offset) const
{
    utils::rational start;
    for (const auto &beat : beats()) {
        if (start > offset)
            break;
        if (start == offset && !beat->isGrace())
            return beat;
        start += beat->length();
    }
    return {};
}

std::shared_ptr<Beat> Voice::beatAt(const utils::rational &offset) const
{
    utils::rational start;
    for (const auto &beat : beats()) {
        if (start > offset)
            break;
        start += beat->length();
        if (offset < start && !(offset < utils::rational()))
            return beat;
    }
    return {};
}

} // namespace zarn
