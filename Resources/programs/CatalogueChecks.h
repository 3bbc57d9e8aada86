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

/// Instrument sets: one for each category that names an instrument; known glyphs and types; names
/// and MIDI keys that lead to one articulation; a drum kit with all keys of General MIDI.
Complaints checkInstrumentSets(const CatalogueFile &file);

/// The files about sounds.
struct SoundFiles {
    CatalogueFile instrumentSets;
    std::vector<CatalogueFile> patches;
    std::vector<CatalogueFile> banks;
    std::vector<CatalogueFile> notationPatches;
};

/// Sounds: patches for elements that their instrument set has, of banks that are there; a patch
/// for each identifier that stands for others.
Complaints checkSounds(const SoundFiles &files);

} // namespace zarn::resources
