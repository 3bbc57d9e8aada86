// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/io/lilypond/VoiceBeats.h>

#include <optional>
#include <string>
#include <vector>

namespace zarn::lilypond {

struct StaffContext;

/// What sounds at the beats of a voice, as it is written, and how it leads on.
class VoiceTones {
public:
    struct Tone {
        const Note *note;
        std::string text; ///< "cis'" or a drum
    };

    VoiceTones(const StaffContext &context, const VoiceBeats &beats)
        : _context(context), _beats(beats)
    {
    }

    std::vector<Tone> of(const VoiceBeat &place) const;

    /// A tie to the same pitch behind, or an open one.
    std::string tieText(std::size_t index, const Tone &tone) const;

    /// Events behind a beat; what has to stand in front of it is added to `command`.
    std::string slideText(std::size_t index, std::string &command) const;
    std::string strumText(const VoiceBeat &place, std::string &command);

    /// Whether a note names a string on which tablature finds a fret for it.
    bool isOnItsString(const Note &note) const;

    /// What stands in front of a note whose fret is another than its pitch leads to.
    std::string fretText(const Note &note, const VoiceBeat &place) const;

private:
    std::optional<int> openOf(const Note &note, const std::vector<int> &strings) const;
    std::string toneText(const Note &note, const VoiceBeat &place) const;

    const StaffContext &_context;
    const VoiceBeats &_beats;
    std::string _strum; ///< the command in force
};

} // namespace zarn::lilypond
