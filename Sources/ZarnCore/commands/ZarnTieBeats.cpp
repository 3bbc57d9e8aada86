// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/ZarnTieBeats.h>

#include <ZarnCore/commands/EmptyBeats.h>
#include <ZarnCore/commands/ZarnMarkedPlace.h>
#include <ZarnCore/model/ZarnNoteAttribute.h>
#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/model/notes/Ties.h>

#include <algorithm>

namespace zarn {

namespace {

std::shared_ptr<Note> noteAtPlaceOf(const Beat &beat, const Note &note)
{
    for (const auto &other : beat.notes())
        if (sameLocation(note, *other))
            return other;
    return nullptr;
}

/// Of a held note, what belongs to all of its parts; a string that is bent stays bent.
std::shared_ptr<Note> continuationOf(const Note &held)
{
    auto note = held.clone();
    for (const NoteAttributeRow &row : noteAttributes())
        if (row.split != Split::All)
            reset(*note, row);
    note->setTied(true);
    const PitchCurve &bend = held.bend().curve;
    if (!bend.isEmpty() && bend.points().back().value != 0)
        note->setBend(Bend::of(BendType::HoldBend, bend.points().back().value));
    return note;
}

/// A beat like another one, that notes can be written on: of a rest that fills its bar, which has
/// no note value, as many as it takes; none where no note values fill it.
std::vector<std::shared_ptr<Beat>> writableBeats(const Beat &beat)
{
    std::optional<std::vector<RhythmValue>> rhythms = {{beat.rhythmValue()}};
    if (beat.isWholeBarRest())
        rhythms = rhythmsOf(beat.length());
    std::vector<std::shared_ptr<Beat>> beats;
    if (!rhythms)
        return beats;
    for (const RhythmValue &rhythm : *rhythms) {
        beats.push_back(beats.empty() ? beat.clone() : std::make_shared<Beat>());
        beats.back()->setRhythmValue(rhythm);
        beats.back()->setPlaceHolder(false);
        beats.back()->setWholeBarRest(false);
        beats.back()->setDeadSlapped(false);
    }
    return beats;
}

void takePlaceOf(Note &note, const Note &held)
{
    if (held.string() == Note::Unset || note.midi() == held.midi())
        return;
    note.setMidi(held.midi());
    note.setFret(held.fret());
    note.clearSpelling();
    if (const auto spelling = held.spelling())
        note.setSpelling(*spelling);
    note.setTieOrigin(false); // what it was held into is of another pitch
}

} // namespace

TieBeats::TieBeats(const QString &name) : ReplaceBeats(name) { }
TieBeats::~TieBeats() = default;

bool TieBeats::prepare(Score *score, const ScoreModelRange &range, bool checked)
{
    addArg(QStringLiteral("Range"), range.toQString());
    addArg(QStringLiteral("Checked"), checked ? QStringLiteral("true") : QStringLiteral("false"));
    _checked = checked;
    return ReplaceBeats::prepare(score, range);
}

bool TieBeats::isPossible() const
{
    return !replacements().empty();
}

/// The new beats for one; none when no note of it can be tied. `before` is the beat in front,
/// whose notes are told that they are held only if it is new itself.
ReplaceBeats::Beats TieBeats::tied(const MarkedPlace &place, const Beat &beat, Beat &before,
                                   bool isNew) const
{
    Beats beats;
    const auto start = [&] {
        if (beats.empty())
            beats = writableBeats(beat);
    };
    for (const auto &held : before.notes()) {
        const auto there = noteAtPlaceOf(beat, *held);
        const bool isTied = there ? isMeant(place, *there) : isCopied(place, beat, *held);
        if (!isTied)
            continue;
        start();
        if (beats.empty())
            return {};
        if (there) {
            Note &note = *beats.front()->notes()[static_cast<unsigned>(beat.indexOfNote(*there))];
            takePlaceOf(note, *held);
            note.setTied(true);
        } else {
            for (std::size_t i = 0; i < beats.size(); ++i) {
                beats[i]->addNote(continuationOf(*held));
                beats[i]->notes().back()->setTieOrigin(i + 1 < beats.size());
            }
        }
        if (isNew)
            held->setTieOrigin(true);
    }
    return beats;
}

ReplaceBeats::Beats TieBeats::untied(const MarkedPlace &place, const Beat &beat, Beat *before,
                                     bool isNew) const
{
    Beats beats;
    for (const auto &note : beat.notes()) {
        if (!note->isTied() || !isMeant(place, *note))
            continue;
        if (beats.empty())
            beats = {beat.clone()};
        strikeAnew(*beats.front()->notes()[static_cast<unsigned>(beat.indexOfNote(*note))]);
        if (isNew && before)
            if (const auto held = noteAtPlaceOf(*before, *note))
                held->setTieOrigin(false);
    }
    return beats;
}

/// Beats that follow each other and are replaced are one stretch.
void TieBeats::addSpan(const BeatSpan &span, Made &made, Replacements &all) const
{
    const auto &staff = model().tracks()[span.track]->staves()[span.staff];
    const MarkedPlace place(*staff);
    const Voice &voice = *voiceOf(model(), span);
    bool goesOn = false;
    for (unsigned i = span.firstBeat; i <= span.lastBeat; ++i) {
        const Beat &beat = *voice.beats()[i];
        Beat *before = beatInFrontOfJoint(voice, i);
        const auto found = before ? made.find(before) : made.end();
        const bool isNew = found != made.end();
        if (isNew)
            before = found->second.get();
        Beats beats;
        if (!_checked)
            beats = untied(place, beat, before, isNew);
        else if (before)
            beats = tied(place, beat, *before, isNew);
        if (beats.empty()) {
            goesOn = false;
            continue;
        }
        made[&beat] = beats.back();
        if (!goesOn) {
            all.push_back({span, 0, {}, _checked});
            all.back().place.firstBeat = i;
        }
        goesOn = true;
        ++all.back().count;
        for (auto &next : beats)
            all.back().beats.push_back(std::move(next));
    }
}

ReplaceBeats::Replacements TieBeats::replacements() const
{
    Replacements all;
    Made made;
    for (const BeatSpan &span : beatSpans(model(), range()))
        addSpan(span, made, all);
    return all;
}

} // namespace zarn
