// SPDX-License-Identifier: MIT
#include <ZarnCore/model/notes/ZarnFretting.h>

#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/model/ZarnStaff.h>
#include <ZarnCore/model/ZarnTrack.h>

#include <algorithm>

namespace zarn {

namespace {

constexpr int droneFret = 5;
constexpr int highestKey = 127;

/// The fret, from the nut, at which the capos hold a string down.
int capoOf(const Staff &staff, unsigned string)
{
    const auto &flags = staff.partialCapoStringFlags();
    const bool isHeld = string < flags.size() && flags[string];
    return static_cast<int>(std::max(staff.capoFret(), isHeld ? staff.partialCapoFret() : 0U));
}

bool countsFromNut(const Track *track)
{
    const auto model = track != nullptr ? track->parentScoreModel() : nullptr;
    return model != nullptr && model->ignoreCapo();
}

} // namespace

int writtenPitch(const Staff &staff, int string, int fret)
{
    const GuitarTuning &tuning = staff.tuning();
    if (string < 0 || static_cast<unsigned>(string) >= tuning.stringCount() || fret < 0
        || static_cast<unsigned>(fret) > staff.fretCount())
        return -1;
    const auto number = static_cast<unsigned>(string);
    const auto track = staff.track();
    const int capo = capoOf(staff, number);
    const int firstFret = number == 0 && tuning.hasShortDroneString() ? droneFret : 0;
    if (fret > 0 && fret <= firstFret)
        return -1;
    int fromNut = countsFromNut(track.get()) ? std::max(fret, capo) : capo + fret;
    if (fret == 0)
        fromNut = std::max(capo, firstFret);
    const int sounding = tuning.midi(number, fromNut);
    const int written = sounding - (track ? track->transpositionOffset() : 0);
    return written >= 0 && written <= highestKey ? written : -1;
}

int fretOfPitch(const Staff &staff, int string, int midi)
{
    if (midi < 0)
        return -1;
    for (int fret = 0; fret <= static_cast<int>(staff.fretCount()); ++fret) {
        if (writtenPitch(staff, string, fret) == midi)
            return fret;
    }
    return -1;
}

} // namespace zarn
