// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/model/ZarnVoice.h>

namespace zarn {

class TimeSignature;

/// Rests from one time to another in a bar of a meter, as they are usually written: none over the
/// start of a beat, but for halves of bars of two, four or eight beats (a half rest for the third
/// and the fourth quarter of 4/4, never for the second and the third); undotted but for whole beats
/// of compound meters, whose thirds have a rest each. What does not lie in the meter, such as the
/// rest of a tuplet, is filled to the next beat first.
///
/// A whole bar has the rest that fills it. Raises for times that no rests have.
Voice::Beats restsInMeter(const TimeSignature &meter, const utils::rational &from,
                          const utils::rational &to);

} // namespace zarn
