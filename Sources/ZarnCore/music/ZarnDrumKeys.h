// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>

#include <cstddef>
#include <optional>
#include <string_view>
#include <vector>

namespace zarn {

/// A key of the General MIDI percussion map as drummers speak of it.
struct DrumKey {
    std::string_view drum; ///< "Hi-hat": keys that strike one drum in different ways share it
    std::string_view word; ///< to be typed: "openhat"
    std::string_view otherWord = {}; ///< the same: "openhihat"; may be empty
};

constexpr int firstDrumKey = 35;
constexpr int lastDrumKey = 81;

/// Null for a key outside of the map.
ZARNCORE_EXPORT const DrumKey *drumKey(int key) noexcept;

/// The key of a word, and how many letters it has.
struct DrumWord {
    int key = 0;
    std::size_t length = 0;
};

/// The longest word with which a text begins: "hat" of "hatq".
ZARNCORE_EXPORT std::optional<DrumWord> drumWordAt(std::string_view text) noexcept;

/// The key of exactly this word; -1 for another.
ZARNCORE_EXPORT int drumKeyOf(std::string_view word) noexcept;

/// All words, in the order of their keys.
ZARNCORE_EXPORT std::vector<std::string_view> drumWords();

} // namespace zarn
