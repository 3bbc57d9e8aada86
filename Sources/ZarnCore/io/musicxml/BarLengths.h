// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/io/musicxml/PartFacts.h>

#include <vector>

namespace zarn {
class MasterTrack;
}

namespace zarn::io {

class ImportContext;

/// Gives the master bars the lengths that their notes reach, and reports the bars of parts that
/// are shorter or longer than they should be.
///
/// A bar that is shorter than its meter is meant to be so when the document says it is implicit,
/// when it begins a movement, when it ends one in all of several parts alike, and when another one
/// completes it: the halves of a bar that is divided, by a repeat sign for one, and a pickup with
/// the bar that leads back to it or ends its movement.
void setBarLengths(const std::vector<PartFacts> &parts, MasterTrack &master,
                   ImportContext &context);

} // namespace zarn::io
