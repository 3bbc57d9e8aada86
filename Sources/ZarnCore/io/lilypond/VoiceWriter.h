// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnTypes.h>
#include <ZarnCore/io/lilypond/StaffContext.h>
#include <ZarnCore/io/lilypond/VoiceBeats.h>
#include <ZarnCore/io/lilypond/VoiceMarks.h>

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
    /// What is pitched at a beat, as it is written.
    struct Tone {
        const Note *note;
        std::string text; ///< "cis'" or a drum
    };

    std::string barText(unsigned bar);
    std::string commands(const VoiceBeat &place);
    std::string voiceCommand(const Bar &bar) const;
    std::string graceText(std::size_t first, std::size_t end);
    /// `value` is written in place of the beat's own, if there is one.
    std::string beatText(std::size_t index, const std::string &value = {});
    std::string tremoloText(std::size_t index);
    bool hasStemOfItsOwn(const VoiceBeat &place) const;
    bool isRestOfOthers(const VoiceBeat &place) const;
    void checkString(const Note &note, const VoiceBeat &place) const;
    std::string coreText(std::size_t index, const std::string &duration);
    std::string restText(std::size_t index) const;
    std::string dynamicEvents(std::size_t index);
    std::string strumText(const VoiceBeat &place, std::string &command);
    std::string slideText(std::size_t index, std::string &command);
    std::string tieText(std::size_t index, const Tone &tone);
    std::vector<Tone> tonesOf(const VoiceBeat &place) const;
    std::string toneText(const Note &note, const VoiceBeat &place) const;
    std::vector<std::string> fermatasOf(const VoiceBeat &place) const;
    void lose(const std::string &kind, const VoiceBeat &place) const;
    std::string takePending() { return std::exchange(_pending, {}); }
    void foldSimiles(std::vector<std::string> &texts) const;

    const StaffContext &_context;
    unsigned _voice;
    VoiceBeats _beats;
    std::vector<PlacedWords> _marks; ///< by beat

    std::string _pending; ///< events for whatever comes next
    std::string _command; ///< which voice it is of how many
    std::string _stem;
    std::string _strum;
    std::string _size;
    Hairpin _hairpin = Hairpin::NoHairpin;
    std::string _dynamic;
};

} // namespace lilypond
} // namespace zarn
