// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <utility>
#include <vector>

/// What the built-in catalogues have to keep to beside what their readers insist on: the readers
/// take what people made elsewhere, a catalogue of the library is to be right.
namespace zarn::resources {

/// A file as it is in the tree.
struct CatalogueFile {
    std::string name;
    std::string text;
};

/// What is wrong, a line each: the file, the place in it, and why. Empty when all is well.
using Complaints = std::vector<std::string>;

/// Tunings: known instruments, pitches as they are kept, names and pitches that stand once, and
/// what a new track is tuned to first of its kind.
Complaints checkTunings(const CatalogueFile &file);

} // namespace zarn::resources
