// SPDX-License-Identifier: MIT
#include <ZarnCore/music/ZarnKeyTransposition.h>

#include <ZarnCore/music/ZarnMusic.h>
#include <ZarnCore/music/ZarnPitchClass.h>

namespace zarn {

KeyTransposition::KeyTransposition() : KeyTransposition(KeySignature(), KeySignature()) { }

KeyTransposition::KeyTransposition(const KeySignature &from, const KeySignature &to)
    : _interval(Music::simplestNoteQualification(PitchClass::fromPitch(from.rootNote()),
                                                 PitchClass::fromPitch(to.rootNote()))
                    .value_or(Interval(Interval::Value::Unison)))
{
    for (std::size_t i = 0; i < _spellings.size(); ++i) {
        const auto letter = static_cast<NoteName::Value>(i / spelling::accidentalCount);
        const auto accidental = static_cast<NoteAccidental::Value>(i % spelling::accidentalCount);
        const PitchClass moved = PitchClass(letter, accidental).transposed(_interval);
        _spellings[i] = static_cast<std::uint8_t>(
            static_cast<unsigned>(moved.note().value()) * spelling::accidentalCount
            + static_cast<unsigned>(moved.accidental().value()));
    }
}

} // namespace zarn
