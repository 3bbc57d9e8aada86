// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

namespace zarn::lilypond {

class VoiceBeats;
struct StaffContext;

/// What joins the beats of a voice, as words at each of them.
struct PlacedWords {
    std::string before;   ///< "\tuplet 3/2 { "
    std::string commands; ///< settings for the beat
    std::string events;   ///< behind the notes: "[", "(", "\startTextSpan"
    std::string after;    ///< "} "
};

/// Tuplets, beams, slurs and lines of words, by the number of the beat.
std::vector<PlacedWords> voiceMarksOf(const VoiceBeats &beats, const StaffContext &context);

} // namespace zarn::lilypond
