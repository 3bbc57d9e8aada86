// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

namespace zarn {

class Bar;
class Beat;
class Note;

namespace lilypond {

/// The drums that a score strikes, each with its name in the language, its key and its look.
class DrumTable {
public:
    /// The name of a note's drum: that of its key in General MIDI, a new one for another look of
    /// the same key.
    std::string nameOf(const Note &note, const Beat &beat, const Bar &bar);

    bool isEmpty() const noexcept { return _drums.empty(); }

    /// Names of its own, and the tables of looks and of keys as the variables `drumLooks`
    /// and `drumKeys`.
    std::string toText() const;

private:
    struct Drum {
        std::string name;
        int key = 0;  ///< MIDI; -1 for none
        int line = 0; ///< half spaces above the middle line
        std::string head;
        bool isOwn = false; ///< unknown to the language
    };

    std::vector<Drum> _drums;
};

} // namespace lilypond
} // namespace zarn
