// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/ZarnMoveNotes.h>

#include <ZarnCore/commands/NoteMover.h>
#include <ZarnCore/commands/ZarnRangeNodes.h>
#include <ZarnCore/fingering/ZarnFingeringSolver.h>
#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/model/notes/Links.h>

namespace zarn {

MoveNotes::MoveNotes(const QString &name, const Options &options)
    : ScoreCommand(name), _options(options), _kept(options.kept), _keptTied(options.kept)
{
}
MoveNotes::~MoveNotes() = default;

bool MoveNotes::prepare(Score *score, const ScoreModelRange &range)
{
    setScore(score);
    _range = range;
    return canExist(range) && expectPlace([this] { return exists() && canMove(); });
}

bool MoveNotes::prepareAll(Score *score, std::optional<unsigned> track,
                           std::optional<unsigned> staff)
{
    setScore(score);
    _track = track;
    _staff = staff;
    return expectPlace([this] { return exists() && canMove(); });
}

bool MoveNotes::exists() const
{
    const auto &tracks = model().tracks();
    const bool isTrack = _track ? *_track < tracks.size() : !tracks.empty();
    const bool isThere =
        _range || (isTrack && (!_staff || *_staff < tracks[*_track]->staffCount()));
    return isThere && isPossible();
}

std::optional<ScoreModelRange> MoveNotes::places() const
{
    if (_range)
        return _range;
    ScoreModel &score = model();
    const auto barCount = static_cast<int>(score.masterTrack()->masterBarCount());
    if (barCount == 0)
        return std::nullopt;
    const unsigned number = _track.value_or(0);
    const unsigned first = _staff.value_or(0);
    const unsigned last = _staff ? first : score.tracks()[number]->staffCount() - 1;
    const int track = static_cast<int>(number);
    auto mode = SelectionMode::MultiSelection | SelectionMode::MultiVoice;
    if (!_track)
        mode = mode | SelectionMode::MultiTrack;
    return ScoreModelRange({&score, track, 0, -1, 0, first},
                           {&score, track, barCount - 1, -1, 0, last}, mode);
}

bool MoveNotes::isOf(const Track &track) const noexcept
{
    return !_range && (!_track || *_track == track.index());
}

bool MoveNotes::canMove()
{
    begin();
    const auto range = places();
    if (!range)
        return true;
    NoteMover mover(*this, NoteMover::Mode::Check, *range);
    return mover.run() && (mover.isAnyTaken() || !_range);
}

void MoveNotes::apply()
{
    requirePlace(exists());
    begin();
    _kept.clear();
    _tied.clear();
    _keptTied.clear();
    _stretches.clear();
    _links = {};
    _touched.clear();
    changeOthers();
    try {
        if (const auto range = places()) {
            NoteMover mover(*this, NoteMover::Mode::Change, *range);
            const bool isDone = mover.run();
            requirePlace(isDone && (mover.isAnyTaken() || !_range));
            if (_options.announced == Announced::Range)
                _touched.add(*range);
        }
        _kept.shrink();
        if (finish())
            for (Stretch &stretch : _stretches)
                stretch.areStringsChanged = true;
        mendStringLinks();
    } catch (...) {
        putBack();
        restoreOthers();
        throw;
    }
}

/// Where all notes of a track moved by the same and kept their strings, all links hold.
void MoveNotes::mendStringLinks()
{
    const auto mayBreak = [this](const Stretch &stretch) {
        return _range || stretch.areStringsChanged;
    };
    for (const Stretch &stretch : _stretches)
        if (mayBreak(stretch))
            keepStringLinks(*model().tracks()[stretch.track]->staves()[stretch.staff],
                            stretch.firstBar, stretch.lastBar, stretch.track, _links);
    for (const Stretch &stretch : _stretches)
        if (mayBreak(stretch))
            zarn::mendStringLinks(*model().tracks()[stretch.track]->staves()[stretch.staff],
                                  stretch.firstBar, stretch.lastBar);
    _links.settle();
    for (const KeptBeats::Place &place : _links.changed())
        _touched.add(place.track, place.staff, place.bar, place.bar);
}

void MoveNotes::revert()
{
    putBack();
    restoreOthers();
}

Note &MoveNotes::noteAt(const Tied &place) const
{
    const auto &bar = model().tracks()[place.track]->staves()[place.staff]->bars()[place.bar];
    return *bar->voices()[place.voice]->beats()[place.beat]->notes()[place.note];
}

/// Walks as the change did, which moved no beat: as far as it came.
void MoveNotes::putBack()
{
    _links.putBack([this](const KeptBeats::Place &place) {
        const BeatSpan span = {place.track, place.staff, place.bar, place.voice};
        return voiceOf(model(), span)->beats()[place.beat].get();
    });
    for (std::size_t i = _tied.size(); i > 0; --i)
        _keptTied.giveTo(i - 1, noteAt(_tied[i - 1]));
    const auto range = places();
    if (!range)
        return;
    std::size_t number = 0;
    visitBeats(model(), *range, [&](const MarkedPlace &, const Beat &beat) {
        for (const auto &note : beat.notes()) {
            if (number == _kept.count())
                return false;
            _kept.giveTo(number++, *note);
        }
        return true;
    });
}

void MoveNotes::touch(const BeatSpan &place)
{
    _touched.add(place.track, place.staff, place.bar, place.bar);
}

void MoveNotes::announce()
{
    _touched.announce(score(), this);
}

std::optional<NoteMove> MoveNotes::repitched(const NotePosition &from, int semitones,
                                             std::uint8_t spelling) const
{
    NoteMove move = {from, std::nullopt};
    if (from.midi != Note::Unset) {
        const int midi = from.midi + semitones;
        if (midi < 0 || midi > highestKey)
            return std::nullopt;
        move.to.midi = static_cast<std::int8_t>(midi);
    }
    move.to.spelling = spelling;
    if (from.string == Note::Unset || !_fretboard)
        return move;
    const int pitch = _fretboard->pitch(from.string, from.fret);
    const int sounding = (pitch >= 0 ? pitch : from.midi) + semitones;
    const int fret = _fretboard->fret(from.string, sounding);
    if (fret >= 0)
        move.to.fret = static_cast<std::int8_t>(fret);
    else
        move.soughtPitch = sounding;
    return move;
}

std::optional<NoteMove> MoveNotes::refretted(const NotePosition &from, int string, int fret) const
{
    const int pitch = _fretboard->pitch(string, fret);
    const int pitchBefore = _fretboard->pitch(from.string, from.fret);
    // Editions may write a pitch an octave above what the fret sounds.
    const bool isOffset = pitchBefore >= 0 && from.midi != Note::Unset;
    const int midi = isOffset ? from.midi + pitch - pitchBefore : pitch;
    if (pitch < 0 || midi < 0 || midi > highestKey)
        return std::nullopt;
    NoteMove move = {from, std::nullopt};
    if (midi != from.midi)
        move.to.spelling = NotePosition::NoSpelling;
    move.to.midi = static_cast<std::int8_t>(midi);
    move.to.string = static_cast<std::int8_t>(string);
    move.to.fret = static_cast<std::int8_t>(fret);
    return move;
}

void MoveNotes::refinger(const Staff &staff, const fingering::FingeringOptions &options)
{
    std::vector<BeatSpan> spans;
    if (const auto range = places())
        for (const BeatSpan &span : beatSpans(model(), *range))
            if (model().tracks()[span.track]->staves()[span.staff].get() == &staff)
                spans.push_back(span);
    if (spans.empty() || !fingering::canBeFingered(staff))
        return;
    const auto read = fingering::readPassage(staff, spans, options);
    const auto found = fingering::FingeringSolver(read.passage).solve();
    for (const fingering::PassageSource &source : read.sources) {
        const auto &voice = staff.bars()[source.bar]->voices()[source.voice];
        Note &note = *voice->beats()[source.beat]->notes()[source.note];
        const auto &given = read.passage.notes[source.passageNote];
        const bool isFixed = given.string == note.string() && note.string() != Note::Unset
            && note.fret() != Note::Unset;
        const fingering::Placement &place = found.notes[source.passageNote];
        if (isFixed || (note.string() == place.string && note.fret() == place.fret))
            continue;
        note.setString(place.string);
        note.setFret(place.fret);
        _touched.add(spans.front().track, spans.front().staff, source.bar, source.bar);
    }
}

} // namespace zarn
