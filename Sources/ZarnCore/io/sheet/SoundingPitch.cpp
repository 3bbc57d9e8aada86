// SPDX-License-Identifier: MIT
#include <ZarnCore/io/sheet/SoundingPitch.h>

#include <ZarnCore/io/sheet/Texts.h>
#include <ZarnCore/model/ZarnMasterBar.h>
#include <ZarnCore/model/ZarnTrack.h>
#include <ZarnCore/music/ZarnMusic.h>

namespace zarn::sheet {

namespace {

constexpr int Octave = 12;

PitchClass tonic(const KeySignature &key)
{
    return PitchClass::fromPitch(key.rootNote());
}

} // namespace

SoundingPitch::SoundingPitch(const Bar &bar)
{
    if (const auto master = bar.masterBar())
        _key = master->concertKeySignature();
    const auto staff = bar.parentStaff();
    const auto track = staff ? staff->track() : nullptr;
    _transposition = track ? track->transpositionOffset() : 0;
    if (_transposition % Octave != 0)
        _fromWritten = Music::simplestNoteQualification(
            tonic(Music::drawingKeySignatureForBar(bar)), tonic(_key));
}

int SoundingPitch::midi(const Note &note) const
{
    const int written = Music::midi(note);
    return written == Note::Unset ? Note::Unset : written + _transposition;
}

PitchClass SoundingPitch::spelling(const Note &note) const
{
    const int key = midi(note);
    auto spelling = note.spelling();
    if (spelling && _fromWritten)
        spelling = spelling->transposed(*_fromWritten);
    return spelling && spelling->tone() == Tone(key)
        ? *spelling
        : spelledInKey(Tone(key), _key.accidentalCount());
}

QString SoundingPitch::text(const Note &note, Signs signs) const
{
    const int key = midi(note);
    return key == Note::Unset ? QString() : pitchText(spelling(note), key, signs);
}

} // namespace zarn::sheet
