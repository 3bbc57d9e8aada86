// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Track/ZarnTransposeTrack.h>

#include <ZarnCore/ZarnAssert.h>
#include <ZarnCore/fingering/ZarnFingeringSolver.h>
#include <ZarnCore/fingering/ZarnPassageReader.h>
#include <ZarnCore/model/ZarnScoreModel.h>

#include <cstdlib>

namespace zarn::cmd {

TransposeTrack::TransposeTrack() : TransposeNotes(QStringLiteral("TransposeTrack"), Frets::Follow)
{
}
TransposeTrack::~TransposeTrack() = default;

bool TransposeTrack::init(Score *score, unsigned track, int semitones, Refingering refingering)
{
    ZARN_ASSERT_IN("zarn::cmd::TransposeTrack::init", score != NULL);
    addArg(QStringLiteral("TrackIndex"), QString::number(track));
    addArg(QStringLiteral("Value"), QString::number(semitones));
    addArg(QStringLiteral("Type"),
           refingering == Refingering::KeepStrings ? QStringLiteral("KeepStrings")
                                                   : QStringLiteral("FindAnew"));
    _track = track;
    _refingering = refingering;
    setKeys(0, semitones);
    return semitones != 0 && std::abs(semitones) <= MostSemitones && prepareAll(score, track);
}

bool TransposeTrack::isPossible() const
{
    return isPitched(*model().tracks()[_track]);
}

bool TransposeTrack::finish()
{
    TransposeNotes::finish();
    if (_refingering == Refingering::KeepStrings)
        return false;
    for (const auto &staff : model().tracks()[_track]->staves())
        if (fingering::canBeFingered(*staff))
            refinger(*staff);
    return true;
}

void TransposeTrack::refinger(const Staff &staff)
{
    std::vector<BeatSpan> spans;
    if (const auto range = places())
        for (const BeatSpan &span : beatSpans(model(), *range))
            if (span.staff == staff.index())
                spans.push_back(span);
    const auto read = fingering::readPassage(staff, spans, {});
    const auto found = fingering::FingeringSolver(read.passage).solve();
    for (const fingering::PassageSource &source : read.sources) {
        const auto &voice = staff.bars()[source.bar]->voices()[source.voice];
        Note &note = *voice->beats()[source.beat]->notes()[source.note];
        const auto &given = read.passage.notes[source.passageNote];
        const bool isFixed = given.string == note.string() && note.string() != Note::Unset
            && note.fret() != Note::Unset;
        if (isFixed)
            continue;
        note.setString(found.notes[source.passageNote].string);
        note.setFret(found.notes[source.passageNote].fret);
    }
}

} // namespace zarn::cmd
