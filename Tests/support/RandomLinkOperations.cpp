// SPDX-License-Identifier: MIT
#include "RandomOperations.h"

#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/score/ZarnScore.h>

using namespace zarn;

namespace {

/// On more often than off, so that there is something to take off.
bool checked(EditedScore &e)
{
    return e.random.percent(75);
}

/// A stretch, or one note by its string.
ScoreModelRange notes(EditedScore &e)
{
    ScoreModelRange range = e.places.range();
    if (e.random.percent(40)) {
        ScoreModelIndex place = range.first();
        place.setNoteString(e.random.below(6));
        range = ScoreModelRange(place);
    }
    return range;
}

/// Mostly a beat behind another one with notes, by a string or a key that the other one has; where
/// chance finds none, any.
ScoreModelIndex behindNotes(EditedScore &e, bool hasNote)
{
    constexpr int looks = 60;
    for (int i = 0; i < looks; ++i) {
        ScoreModelIndex place = e.places.beat();
        const auto beat = place.beat();
        const auto before =
            beat && beat->index() > 0 ? place.voice()->beat(beat->index() - 1) : nullptr;
        if (!before)
            continue;
        for (const auto &held : before->notes()) {
            const auto note = beat->noteWithMidi(held->midi());
            if (hasNote ? note == nullptr || note->string() != held->string()
                        : held->string() == Note::Unset)
                continue;
            place.setNoteString(static_cast<std::uint32_t>(held->string()));
            place.setNoteMidi(static_cast<std::uint32_t>(held->midi()));
            return place;
        }
    }
    return e.places.beat();
}

bool setStringedNoteSlide(EditedScore &e)
{
    std::optional<SlideIn> in;
    std::optional<SlideOut> out;
    if (e.random.percent(40))
        in = static_cast<SlideIn>(e.random.below(3));
    if (e.random.percent(80))
        out = static_cast<SlideOut>(e.random.below(7));
    return e.score.setStringedNoteSlide(notes(e), in, out);
}

const std::vector<RandomOperation> operations = {
    {"setBeatTied", 3,
     [](EditedScore &e) { return e.score.setBeatTied(e.places.range(), checked(e)); }},
    {"setNoteTied", 3,
     [](EditedScore &e) {
         return e.score.setNoteTied(ScoreModelRange(behindNotes(e, false)), checked(e));
     }},
    {"setBeatTiedOnly", 2,
     [](EditedScore &e) {
         return e.score.setBeatTiedOnly(ScoreModelRange(behindNotes(e, true)), checked(e));
     }},
    {"setNoteTiedOnly", 2,
     [](EditedScore &e) {
         return e.score.setNoteTiedOnly(ScoreModelRange(behindNotes(e, true)), checked(e));
     }},
    {"setBeatLegato", 4,
     [](EditedScore &e) { return e.score.setBeatLegato(e.places.range(), checked(e)); }},
    {"setBeatHairpin", 4,
     [](EditedScore &e) {
         return e.score.setBeatHairpin(e.places.range(), static_cast<Hairpin>(e.random.below(4)));
     }},
    {"setStringedNoteHopo", 5,
     [](EditedScore &e) { return e.score.setStringedNoteHopo(notes(e), checked(e)); }},
    {"setStringedNoteSlide", 5, setStringedNoteSlide},
    {"setBeatGraceNotes", 1,
     [](EditedScore &e) {
         return e.score.setBeatGraceNotes(e.places.range(),
                                          static_cast<GraceType>(e.random.below(3)));
     }},
    {"clearBeats", 1, [](EditedScore &e) { return e.score.clearBeats(e.places.range()); }},
    {"copyBeatToEOB", 3, [](EditedScore &e) { return e.score.copyBeatToEOB(e.places.beat()); }},
    {"setBeatDeadSlapped", 1,
     [](EditedScore &e) { return e.score.setBeatDeadSlapped(e.places.range(), e.random.coin()); }},
};

} // namespace

const std::vector<RandomOperation> &randomLinkOperations()
{
    return operations;
}
