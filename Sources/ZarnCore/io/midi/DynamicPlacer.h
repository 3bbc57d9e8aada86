// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/io/midi/StaffBuilder.h>

namespace zarn::io {

/// Writes dynamics where the velocities of a part are those that notation programs play them with,
/// ppp 16 to fff 126, and there is more than one of them. A level is written where it begins and
/// holds for some notes; what accents and hairpins do between is none. The onsets are in the order
/// of their times.
void placeDynamics(const std::vector<StaffBuilder::Onset> &onsets);

} // namespace zarn::io
