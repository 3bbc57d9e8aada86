// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <vector>

namespace zarn {

class Beat;

/// Deals the attributes of a beat out to its pieces when it is cut. The pieces stand in their order
/// and have their lengths; the first is the beat itself, the others are copies of it. Each
/// attribute stays with the first, goes with the last, is on all, or is cut in time, as the tables
/// say; the notes of a piece are tied to those of the one before, and a slur leads through.
void splitAttributes(const std::vector<std::shared_ptr<Beat>> &pieces);

} // namespace zarn
