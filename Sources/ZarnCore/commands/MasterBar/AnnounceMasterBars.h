// SPDX-License-Identifier: MIT
#pragma once

namespace zarn {

class ScoreBase;

/// Sends the event of a master bar's attribute, by its number in the table of attributes, for bars
/// from `first` to `last`: `SetBarSection` for those that have a section now and `UnsetBarSection`
/// for the others, `MasterBarAttribute` where there is none of its own. That of the pickup bar,
/// which is the master track's, is not among them.
void announceMasterBars(ScoreBase &score, const void *sender, unsigned event, unsigned first,
                        unsigned last);

} // namespace zarn
