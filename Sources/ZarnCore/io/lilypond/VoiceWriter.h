// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnTypes.h>
#include <ZarnCore/io/lilypond/StaffContext.h>
#include <ZarnCore/io/lilypond/VoiceBeats.h>
#include <ZarnCore/io/lilypond/VoiceDynamics.h>
#include <ZarnCore/io/lilypond/VoiceMarks.h>
#include <ZarnCore/io/lilypond/VoiceTones.h>

#include <string>
#include <utility>
#include <vector>

namespace zarn {

class Bar;
class Note;

namespace lilypond {

/// Writes the music of one voice of a staff through all bars, a bar a line.
class VoiceWriter {
public:
    VoiceWriter(const StaffContext &context, unsigned voice);

    std::string write();

private:
    std::string barText(unsigned bar);
    std::string commands(const VoiceBeat &place);
    std::string voiceCommand(const Bar &bar) const;
    std::string graceText(std::size_t first, std::size_t end);
    /// `value` is written in place of the beat's own, if there is one.
    std::string beatText(std::size_t index, const std::string &value = {});
    std::string tremoloText(std::size_t index);
    bool hasStemOfItsOwn(const VoiceBeat &place) const;
    bool isRestOfOthers(const VoiceBeat &place) const;
    std::string coreText(std::size_t index, const std::string &duration);
    std::string restText(std::size_t index) const;
    std::vector<std::string> fermatasOf(const VoiceBeat &place) const;
    std::string takePending() { return std::exchange(_pending, {}); }
    void foldSimiles(std::vector<std::string> &texts) const;

    const StaffContext &_context;
    unsigned _voice;
    VoiceBeats _beats;
    VoiceTones _tones;
    VoiceDynamics _dynamics;
    std::vector<PlacedWords> _marks; ///< by beat

    std::string _pending; ///< events for whatever comes next
    std::string _command; ///< which voice it is of how many
    std::string _stem;
    std::string _size;
};

} // namespace lilypond
} // namespace zarn
