// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/io/midi/MidiPart.h>
#include <ZarnCore/io/midi/RhythmQuantizer.h>

namespace zarn::io {

class MidiOddities;

/// Finds out how the notes of a part are written: their times, voices and spelling.
class PartFitter {
public:
    /// The music and the bars outlive the fitter.
    PartFitter(const MidiMusic &music, const MeterLine &bars, const PlayingAccuracy &accuracy,
               const GridChoice &choice)
        : _music(music), _bars(bars), _quantizer(bars, music.tempos, accuracy, choice)
    {
    }

    /// For a part of the music.
    void fit(MidiPart &part, MidiOddities &oddities);

private:
    void fitRhythm(const MidiPart &part, PlayedNotes &notes, MidiOddities &oddities);

    const MidiMusic &_music;
    const MeterLine &_bars;
    RhythmQuantizer _quantizer;
};

} // namespace zarn::io
