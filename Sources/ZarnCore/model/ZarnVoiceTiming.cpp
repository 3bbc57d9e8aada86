// SPDX-License-Identifier: MIT
// Where the beats of a voice stand in time.
#include <ZarnCore/model/ZarnVoice.h>

#include <ZarnCore/model/ZarnBar.h>
#include <ZarnCore/model/ZarnMasterBar.h>

#include <algorithm>

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

Voice::Offsets Voice::sumUp() const
{
    Offsets offsets(1);
    offsets.reserve(beatCount() + 1);
    for (const auto &beat : beats())
        offsets.push_back(offsets.back() + beat->length());
    return offsets;
}

const Voice::Offsets &Voice::offsets(Offsets &scratch) const
{
    linkChildren();
    const Offsets &kept = _offsets.get([this] {
        const bool hearsOfChanges = !hasOrphans()
            && std::none_of(beats().begin(), beats().end(),
                            [](const auto &beat) { return beat->isWholeBarRest(); });
        return hearsOfChanges ? sumUp() : Offsets();
    });
    if (!kept.empty())
        return kept;
    scratch = sumUp();
    return scratch;
}

utils::rational Voice::offsetOf(const Beat &beat, const char *function) const
{
    const unsigned index = beat.index();
    if (index >= beatCount() || beats()[index].get() != &beat)
        ZARN_RAISE_IN(function, "The beat is not in this voice");
    Offsets scratch;
    return offsets(scratch)[index];
}

utils::rational Voice::beatOffsetIgnoringGraceBeats(const Beat &beat) const
{
    return offsetOf(beat, "zarn::Voice::beatOffsetIgnoringGraceBeats");
}

utils::rational Voice::beatDrawingOffset(const Beat &beat) const
{
    return offsetOf(beat, "zarn::Voice::beatDrawingOffset");
}

utils::rational Voice::soundingJoint(unsigned index) const
{
    Offsets scratch;
    const Offsets &all = offsets(scratch);
    const utils::rational offset = all[index];
    const auto bar = parentBar();
    const auto master = bar ? bar->masterBar() : nullptr;
    if (!master || master->tripletFeel() == TripletFeel::NoTripletFeel)
        return offset;
    const auto [here, behind] = std::equal_range(all.begin(), all.end(), offset);
    const auto before = here == all.begin() ? utils::rational() : offset - *(here - 1);
    const auto after = behind == all.end() ? utils::rational() : *behind - offset;
    return swung(offset, before, after, swingOf(master->tripletFeel()));
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
    const auto beat = beatAt(offset);
    return beat && beatDrawingOffset(*beat) == offset ? beat : nullptr;
}

std::shared_ptr<Beat> Voice::beatAt(const utils::rational &offset) const
{
    Offsets scratch;
    const Offsets &all = offsets(scratch);
    const auto behind = std::upper_bound(all.begin(), all.end(), offset);
    if (behind == all.begin() || behind == all.end())
        return {};
    return beats()[static_cast<std::size_t>(behind - all.begin() - 1)];
}

} // namespace zarn
