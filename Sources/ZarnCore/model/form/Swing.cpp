// SPDX-License-Identifier: MIT
#include <ZarnCore/model/form/Swing.h>

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

} // namespace

utils::rational swungJoint(const utils::rational &offset, const utils::rational &before,
                           const utils::rational &after, TripletFeel feel)
{
    const Swing swing = swingOf(feel);
    if (swing.value.isZero() || after.isZero())
        return offset;
    const utils::rational units = offset / swing.value;
    const bool isMiddle = units.isInteger() && units.numerator() % 2 != 0;
    if (!isMiddle || !isMultiple(before, swing.value) || !isMultiple(after, swing.value))
        return offset;
    return offset - swing.value + swing.middle;
}

} // namespace zarn
