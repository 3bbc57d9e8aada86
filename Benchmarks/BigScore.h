// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/model/ZarnScoreModel.h>

#include <memory>

/// A score of 32 tracks of 2,000 bars of 4 beats of 2 notes.
namespace bench::bigscore {

inline constexpr unsigned trackCount = 32;
inline constexpr unsigned barCount = 2000;
inline constexpr unsigned beatCount = 4;
inline constexpr unsigned notesPerBeat = 2;
inline constexpr unsigned noteCount = trackCount * barCount * beatCount * notesPerBeat;

inline int pitch(unsigned bar, unsigned beat, unsigned note)
{
    return static_cast<int>(40 + (bar * 7 + beat * 3 + note * 4) % 48);
}

inline void build(zarn::ScoreModel &model)
{
    model.insertEmptyBarColumns(0, barCount);
    for (unsigned t = 0; t < trackCount; ++t)
        model.createAndInsertTrack(t, zarn::InstrumentSet::steelGuitar);
    for (const auto &track : model.tracks())
        for (const auto &bar : track->bars(0)) {
            const auto voice = bar->ensureVoice(0);
            for (unsigned b = 0; b < beatCount; ++b) {
                const auto beat = std::make_shared<zarn::Beat>();
                voice->addBeat(beat);
                for (unsigned n = 0; n < notesPerBeat; ++n)
                    beat->addNote(std::make_shared<zarn::Note>(pitch(bar->index(), b, n)));
            }
        }
}

} // namespace bench::bigscore
