// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnLayout/engrave/Pen.h>

#include <ZarnCore/model/form/ZarnInForce.h>

namespace zarn::engraving {

/// The words and metronome marks of a tempo, from x on, on a base line at height 0.
Inks tempoInks(const Pen &pen, const TempoMark &tempo, double x, double scale);

} // namespace zarn::engraving
