// SPDX-License-Identifier: MIT
#include <ZarnCore/io/lilypond/LyricsLine.h>

#include <ZarnCore/io/lilypond/VoiceBeats.h>
#include <ZarnCore/io/lilypond/Words.h>
#include <ZarnCore/io/sheet/SimileBars.h>
#include <ZarnCore/model/ZarnStaff.h>

#include <QString>

#include <algorithm>

namespace zarn::lilypond {

std::string lyricsLineOf(const Staff &staff, unsigned voice, unsigned line)
{
    const VoiceBeats beats(staff, voice);
    std::string text;
    bool hasAny = false;
    for (unsigned bar = 0; bar < staff.barCount(); ++bar) {
        if (sheet::isDrawnAsSimile(*staff.bars()[bar]))
            continue;
        std::string words;
        for (std::size_t i = beats.begin(bar); i < beats.end(bar); ++i) {
            const Beat &beat = *beats[i].beat;
            if (beat.isGrace() || !beat.hasNotes())
                continue;
            const auto &syllables = beat.lyrics();
            const auto sung =
                std::find_if(syllables.begin(), syllables.end(),
                             [&](const Syllable &syllable) { return syllable.line == line; });
            if (sung == syllables.end()) {
                words += " _";
                continue;
            }
            hasAny = true;
            words += ' ' + quoted(QString::fromStdString(sung->text).simplified().toStdString());
            if (sung->syllabic == Syllabic::Begin || sung->syllabic == Syllabic::Middle)
                words += " --";
            else if (sung->hasMelisma)
                words += " __";
        }
        if (!words.empty())
            text += " " + words + '\n';
    }
    return hasAny ? text : std::string();
}

} // namespace zarn::lilypond
