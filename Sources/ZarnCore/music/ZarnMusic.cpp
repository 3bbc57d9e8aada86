// SPDX-License-Identifier: MIT
#include <ZarnCore/music/ZarnMusic.h>

#include <ZarnCore/ZarnAssert.h>
#include <ZarnCore/music/StaffPlaces.h>
#include <ZarnCore/music/ZarnSpellingTables.h>
#include <ZarnCore/music/ZarnTone.h>

#include <QStringList>

namespace zarn {

using namespace staffPlaces;

NoteName Music::noteNameFromMidi(int midi, bool preferSharp, NoteAccidental *accidental) noexcept
{
    const Tone tone(midi);
    if (accidental != nullptr)
        *accidental = tone.accidental(preferSharp);
    return tone.noteName(preferSharp);
}

NoteAccidental Music::accidentalFromMidi(int midi, bool preferSharp) noexcept
{
    return Tone(midi).accidental(preferSharp);
}

QString Music::noteNameToString(NoteName name)
{
    return name.toString();
}

NoteName Music::noteNameFromString(const char *text)
{
    ZARN_ASSERT_IN("zarn::Music::noteNameFromString", text != NULL);
    return NoteName::fromString(QString::fromUtf8(text));
}

QString Music::noteAndAccidentalsToString(const std::vector<NoteAndAccidental> &notes)
{
    QStringList texts;
    for (const NoteAndAccidental &note : notes)
        texts.append(note.note.toString() + note.accidental.toString(true));
    return texts.join(QLatin1Char(' '));
}

std::optional<Interval> Music::simplestNoteQualification(const PitchClass &from,
                                                         const PitchClass &to)
{
    const std::vector<Interval> &intervals = from.interval(to); // in their order
    return intervals.empty() ? std::nullopt : std::optional<Interval>(intervals.front());
}

int Music::getNumberOfBeamsByValue(RhythmValue::NoteValue noteValue)
{
    ZARN_ASSERT_IN("zarn::Music::getNumberOfBeamsByValue",
                   noteValue < RhythmValue::NoteValue::Invalid);
    const int beams =
        static_cast<int>(noteValue) - static_cast<int>(RhythmValue::NoteValue::Quarter);
    return beams > 0 ? beams : 0;
}

KeySignature Music::transposedKeySignature(const KeySignature &key, int semitones) noexcept
{
    if (semitones % 12 == 0)
        return key;
    // A semitone is seven fifths; twelve fifths lead to the same key.
    int count = spelling::wrapped(key.accidentalCount() + 7 * (semitones % 12), 12);
    if (count > 6 || (count == 6 && !key.transposeAsSharps()))
        count -= 12;
    return KeySignature(count, key.isMajor(), key.transposeAsSharps());
}

Accidental Music::validateForcedAccidentalForMidi(int midi, Accidental forced, bool preferSharp,
                                                  int keyAccidentalCount)
{
    const auto spells = [tone = Tone(midi)](NoteName name, NoteAccidental accidental) {
        return Tone(name, accidental) == tone;
    };
    if (forced != Accidental::None)
        for (int letter = 0; letter < spelling::letterCount; ++letter)
            if (spells(static_cast<NoteName::Value>(letter), NoteAccidental(forced)))
                return forced;
    const KeySignature key(keyAccidentalCount);
    for (int letter = 0; letter < spelling::letterCount; ++letter) {
        const NoteName name(static_cast<NoteName::Value>(letter));
        if (spells(name, key.accidentalWithStep(name)))
            return key.accidentalWithStep(name).accidentalValue();
    }
    return accidentalFromMidi(midi, preferSharp).accidentalValue();
}

int Music::ottaviaOctaves(Ottavia ottavia) noexcept
{
    return ottavia <= Ottavia::_15mb ? static_cast<int>(Ottavia::None) - static_cast<int>(ottavia)
                                     : 0;
}

int Music::lineOffsetFromClefAndOttavia(ClefType clef, int ottavia)
{
    ZARN_ASSERT_IN("zarn::Music::lineOffsetFromClefAndOttavia", clef <= ClefType::Neutral);
    return bottomLines[static_cast<std::size_t>(clef)] + spelling::letterCount * ottavia;
}

NoteName Music::noteNameFromStaffLine(int staffLine, ClefType clef)
{
    return static_cast<NoteName::Value>(
        letterOf(staffLine + lineOffsetFromClefAndOttavia(clef, 0)));
}

int Music::octaveFromStaffLine(int staffLine, ClefType clef, int ottavia)
{
    return octaveOf(staffLine + lineOffsetFromClefAndOttavia(clef, ottavia));
}

int Music::midiFromStaffLine(int staffLine, ClefType clef, int ottavia)
{
    return midiOf(staffLine + lineOffsetFromClefAndOttavia(clef, ottavia));
}

int Music::staffLineOfNote(NoteName name, ClefType clef, int octave)
{
    ZARN_ASSERT_IN("zarn::Music::staffLineOfNote", name.isValid());
    return placeOf(static_cast<int>(name.value()), octave) - lineOffsetFromClefAndOttavia(clef, 0);
}

int Music::computeStaffLineWithMidi(int midi, ClefType clef, int ottavia)
{
    const int alteration = accidentalFromMidi(midi, true).alteration();
    return placeOfMidi(midi, alteration).value() - lineOffsetFromClefAndOttavia(clef, ottavia);
}

int Music::staffLineFromMidiAndAccidental(int midi, ClefType clef, int ottavia,
                                          Accidental accidental)
{
    if (accidental != Accidental::None)
        if (const auto place = placeOfMidi(midi, NoteAccidental(accidental).alteration()))
            return *place - lineOffsetFromClefAndOttavia(clef, ottavia);
    return computeStaffLineWithMidi(midi, clef, ottavia);
}

} // namespace zarn
