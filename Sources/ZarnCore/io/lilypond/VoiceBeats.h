// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/utils/rational.h>

#include <cstddef>
#include <string>
#include <vector>

namespace zarn {

class Bar;
class Beat;
class Note;
class Staff;

namespace lilypond {

struct StaffContext;

/// The beats of one voice slot through all bars of a staff, with their places.
struct VoiceBeat {
    const Beat *beat;
    const Bar *bar;
    utils::rational onset; ///< in quarters from the start of the bar
};

class VoiceBeats {
public:
    VoiceBeats(const Staff &staff, unsigned voice);

    const std::vector<VoiceBeat> &all() const noexcept { return _beats; }
    const VoiceBeat &operator[](std::size_t index) const { return _beats[index]; }
    std::size_t size() const noexcept { return _beats.size(); }

    /// The first beat of a bar, and the one behind its last.
    std::size_t begin(unsigned bar) const { return _starts[bar]; }
    std::size_t end(unsigned bar) const { return _starts[bar + 1]; }

    /// The beat behind another one, where no bar without this voice parts them; null otherwise.
    const VoiceBeat *behind(std::size_t index) const;

    /// The same without grace beats.
    const VoiceBeat *mainBehind(std::size_t index) const;

private:
    std::vector<VoiceBeat> _beats;
    std::vector<std::size_t> _starts; ///< by bar; one more at the end
};

/// Whether a beat and the one behind it are two of one value that are repeated in turn. Such a pair
/// is written twice as long as it lasts, which documents say by a tuplet of 2 to 1.
bool isTremoloPair(const VoiceBeats &beats, std::size_t index);

/// Reports something of a beat that the language has no word for.
void lose(const StaffContext &context, const std::string &kind, const VoiceBeat &place);

} // namespace lilypond
} // namespace zarn
