// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>

#include <cstdint>
#include <map>
#include <string>
#include <vector>

namespace zarn::io {

/// Notes of a document as they were written, before anything was placed in the tree.
struct NoteTally {
    std::uint32_t total = 0; ///< all of the following four
    std::uint32_t pitched = 0;
    std::uint32_t rests = 0;
    std::uint32_t unpitched = 0;
    std::uint32_t withoutPitch = 0; ///< neither pitched, unpitched nor a rest

    std::uint32_t grace = 0;
    std::uint32_t graceSlashed = 0;
    std::uint32_t chord = 0; ///< second and further notes of chords
    std::uint32_t cue = 0;
    std::uint32_t measureRests = 0;
    std::uint32_t hidden = 0;      ///< notes and rests that are not printed
    std::uint32_t hiddenRests = 0; ///< these are place holders in the tree
    std::uint32_t dotted = 0;
    std::uint32_t inTuplet = 0; ///< with a time modification
    std::uint32_t tieStart = 0;
    std::uint32_t tieStop = 0;
    std::uint32_t withFret = 0;
    std::uint32_t microtone = 0;
    std::uint32_t lyrics = 0;
};

/// One part of a document as it was written.
struct PartTally {
    std::string id;
    std::string name;
    std::uint32_t staves = 1;
    std::uint32_t measures = 0;
    std::string length;              ///< quarters reached by the written durations, such as "169/4"
    std::vector<std::string> voices; ///< names of the voices, sorted
    NoteTally notes;

    /// Tablatures that repeated the notes of another staff and were made one with it, by their
    /// numbers from 0, and what stood on them and stands there no longer.
    std::vector<std::uint32_t> mergedStaves;
    NoteTally merged;
    std::uint64_t mergedMidiSum = 0;
};

/// What a document says in its own terms and the tree cannot tell afterwards: a signature that
/// every part repeats is one in the tree, a chord over two staves becomes two beats.
struct SourceTally {
    std::vector<PartTally> parts;
    std::map<std::string, std::uint32_t> keys;  ///< "-3 minor", "0 -" without a mode
    std::map<std::string, std::uint32_t> times; ///< "3+2/8", "senza-misura"
    std::map<std::string, std::uint32_t> clefs; ///< "G2", "G2/-1", "TAB5"
    std::uint32_t tuplets = 0;                  ///< tuplet brackets that begin

    bool isEmpty() const noexcept { return parts.empty(); }
};

} // namespace zarn::io
