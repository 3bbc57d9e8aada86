// SPDX-License-Identifier: MIT
#pragma once

namespace zarn {

class Voice;

/// Undoes the ties over the joints in front of the beats `first` and `last` of a voice whose two
/// ends no longer meet: the note before lets go, the note after starts anew. At the ends of the
/// voice the joint is the one with the same voice of the neighbouring bar.
void mendTies(Voice &voice, unsigned first, unsigned last);

} // namespace zarn
