// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Track/ZarnTransposeNotes.h>

#include <ZarnCore/commands/NotePlaces.h>
#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/music/ZarnMusic.h>

namespace zarn {

TransposeNotes::TransposeNotes(const QString &name, Frets frets)
    : MoveNotes(name, {Homeless::WithoutPlace, Announced::Range}), _frets(frets)
{
}
TransposeNotes::~TransposeNotes() = default;

void TransposeNotes::setKeys(int before, int after) noexcept
{
    _before = before;
    _after = after;
    _key.reset();
}

bool TransposeNotes::isPitched(const Track &track) noexcept
{
    return !InstrumentSet::isUnpitched(track.type());
}

void TransposeNotes::setKey(const KeySignature &key)
{
    if (_key == key)
        return;
    _key = key;
    _transposition = KeyTransposition(Music::transposedKeySignature(key, _before % 12),
                                      Music::transposedKeySignature(key, _after % 12));
}

/// Nothing but the ends of the keys is in the way.
bool TransposeNotes::canMove()
{
    begin();
    const auto range = places();
    bool isInside = true;
    std::size_t noteCount = 0;
    const int by = semitones();
    if (range)
        visitBeats(model(), *range, [&](const MarkedPlace &place, const Beat &beat) {
            noteCount += beat.noteCount();
            if (!place.isPitched)
                return true;
            for (const auto &note : beat.notes()) {
                const int midi = note->midi();
                const bool isKey = midi + by >= 0 && midi + by <= highestKey;
                isInside = isInside && (isKey || midi == Note::Unset);
            }
            return isInside;
        });
    expectNotes(isInside ? noteCount : 0);
    return isInside;
}

void TransposeNotes::changeOthers()
{
    _chords.clear();
    changeSettings();
}

void TransposeNotes::restoreOthers()
{
    _chords.putBack(model());
}

void TransposeNotes::enterStaff(const Staff &staff)
{
    _isOnPitchedStaff = isPitched(*staff.track());
}

void TransposeNotes::enterBar(const Bar &bar)
{
    setKey(model().masterTrack()->masterBars()[bar.index()]->concertKeySignature());
}

void TransposeNotes::enterBeat(const BeatSpan &place, Beat &beat)
{
    if (_isOnPitchedStaff && beat.hasDetails() && !beat.chord().isEmpty())
        _chords.transpose(beat, place, _transposition.interval(), semitones(), diagrams());
}

TransposedChords::Diagrams TransposeNotes::diagrams() const noexcept
{
    return _frets == Frets::Stay ? TransposedChords::Diagrams::Stay
                                 : TransposedChords::Diagrams::Move;
}

/// Working sets stand at no bar: they go as the first one does.
bool TransposeNotes::finish()
{
    const auto bar = model().masterTrack()->masterBar(0);
    setKey(bar != nullptr ? bar->concertKeySignature() : KeySignature());
    for (const auto &track : model().tracks())
        if (isOf(*track) && isPitched(*track))
            for (const auto &staff : track->staves())
                _chords.transposeSets(*staff, track->index(), _transposition.interval(),
                                      semitones(), diagrams());
    return false;
}

bool TransposeNotes::takes(const MarkedPlace &place, const Note &) const
{
    return place.isPitched;
}

std::optional<NoteMove> TransposeNotes::moved(const MarkedPlace &, const Note &,
                                              const NotePosition &from) const
{
    const std::uint8_t spelling = _transposition.spelling(from.spelling);
    if (_frets == Frets::Follow)
        return repitched(from, semitones(), spelling);
    NoteMove move = {from, std::nullopt};
    if (from.midi != Note::Unset) {
        const int midi = from.midi + semitones();
        if (midi < 0 || midi > highestKey)
            return std::nullopt;
        move.to.midi = static_cast<std::int8_t>(midi);
    }
    move.to.spelling = spelling;
    return move;
}

std::optional<PitchShift> TransposeNotes::shift() const
{
    if (!_isOnPitchedStaff)
        return std::nullopt;
    return PitchShift{semitones(), &_transposition};
}

void TransposeNotes::announceChords()
{
    _chords.announce(score(), this);
}

void TransposeNotes::announce()
{
    MoveNotes::announce();
    announceChords();
}

} // namespace zarn
