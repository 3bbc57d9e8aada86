// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnTypes.h>

#include <cstddef>
#include <string>

namespace zarn::lilypond {

class VoiceBeats;
struct StaffContext;

/// Levels, attacks and hairpins of one voice, from its first beat to its last.
class VoiceDynamics {
public:
    VoiceDynamics(const StaffContext &context, const VoiceBeats &beats, unsigned voice)
        : _context(context), _beats(beats), _voice(voice)
    {
    }

    /// The events of the next beat; what is to stand behind it is added to `after`.
    std::string events(std::size_t index, std::string &after);

private:
    const StaffContext &_context;
    const VoiceBeats &_beats;
    unsigned _voice;
    Hairpin _hairpin = Hairpin::NoHairpin;
    std::string _dynamic;
};

} // namespace zarn::lilypond
