// SPDX-License-Identifier: MIT
#include <ZarnCore/io/musicxml/FretPitches.h>

#include <ZarnCore/io/musicxml/ImportContext.h>
#include <ZarnCore/io/musicxml/Wording.h>
#include <ZarnCore/model/ZarnTrack.h>
#include <ZarnCore/model/notes/ZarnFretting.h>

#include <cstdlib>

namespace zarn::io {

namespace {

/// Semitones from what the string and fret of a note sound up to what is written; 0 for a note
/// that has no fret, or no pitch to it. Harmonics are written where they are touched, as the open
/// string, or as they sound.
int distance(const Note &note, const Staff &staff)
{
    if (note.midi() == Note::Unset || note.fret() == Note::Unset || note.isDead())
        return 0;
    const int ofFret = writtenPitch(staff, note.string(), note.fret());
    if (ofFret < 0)
        return 0;
    if (const auto harmonic = note.harmonic(); harmonic.type != HarmonicType::NoHarmonic) {
        const bool isNatural = harmonic.type == HarmonicType::Natural;
        const int ofString = isNatural ? writtenPitch(staff, note.string(), 0) : ofFret;
        const int sounding = ofString + Harmonic::semitones(harmonic.partial);
        if (note.midi() == ofString || note.midi() == sounding)
            return 0;
    }
    return note.midi() - ofFret;
}

/// Notes one after another that are equally far from their frets.
struct Run {
    int distance = 0;
    std::size_t notes = 0;
    int first = 0; ///< bar
    int last = 0;
};

void tell(const Run &run, ImportContext &context)
{
    if (run.distance == 0)
        return;
    const bool isOne = run.notes == 1;
    const auto semitones = static_cast<std::size_t>(std::abs(run.distance));
    context.addProblemInBar(
        run.first, {},
        (isOne ? "a note is" : std::to_string(run.notes) + " notes")
            + (run.last == run.first ? "" : " up to bar " + std::to_string(run.last + 1))
            + (isOne ? "" : " are") + " written " + counted(semitones, "semitone")
            + (run.distance < 0 ? " lower" : " higher") + " than "
            + (isOne ? "its string and fret sound" : "their strings and frets sound")
            + "; what is written sounds");
}

} // namespace

void tellFretsApart(const Track &track, ImportContext &context)
{
    for (const auto &staff : track.staves()) {
        Run run;
        int number = -1;
        const auto add = [&](const Note &note) {
            if (note.fret() == Note::Unset)
                return;
            if (const int found = distance(note, *staff); found != run.distance) {
                tell(run, context);
                run = {found, 0, number, number};
            }
            ++run.notes;
            run.last = number;
        };
        for (const auto &bar : staff->bars()) {
            ++number;
            for (const auto &voice : bar->voices())
                if (voice)
                    for (const auto &beat : voice->beats())
                        for (const auto &note : beat->notes())
                            add(*note);
        }
        tell(run, context);
    }
}

} // namespace zarn::io
