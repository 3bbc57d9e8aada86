// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/model/form/ZarnTripletFeel.h>
#include <ZarnCore/utils/rational.h>

namespace zarn {

/// Where the joint between two lengths sounds that meet at `offset`, in quarters from the start of
/// their bar, as written. A triplet feel moves the middle of a pair of its values, when neither
/// length is shorter than the value nor cut across by tuplets; without a feel all stays in place.
utils::rational swungJoint(const utils::rational &offset, const utils::rational &before,
                           const utils::rational &after, TripletFeel feel);

} // namespace zarn
