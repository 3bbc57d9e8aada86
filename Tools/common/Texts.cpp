// SPDX-License-Identifier: MIT
#include "common/Texts.h"

#include <ZarnCore/model/ZarnNote.h>
#include <ZarnCore/music/ZarnKeySignature.h>
#include <ZarnCore/music/ZarnNoteDynamic.h>
#include <ZarnCore/music/ZarnPitchClass.h>
#include <ZarnCore/music/ZarnRhythmValue.h>

#include <QStringList>

namespace zarn::tool {

namespace {

constexpr RhythmLetter Letters[] = {
    {"l", "long"},    {"b", "breve"},  {"w", "whole"}, {"h", "half"},
    {"q", "quarter"}, {"e", "eighth"}, {"s", "16th"},  {"t", "32nd"},
    {"x", "64th"},    {"y", "128th"},  {"z", "256th"},
};

/// Places on the line of fifths of the natural letters C D E F G A B.
constexpr int FifthsOfLetter[] = {0, 2, 4, -1, 1, 3, 5};
constexpr int SemitonesOfLetter[] = {0, 2, 4, 5, 7, 9, 11};
constexpr int LetterCount = 7;

/// The spelling of a pitch class that lies nearest to a key on the line of fifths: a key of n
/// fifths holds the spellings from n - 1 to n + 5; around it sharps up to n + 8, flats from n - 3.
PitchClass spelledInKey(int pitchClass, int fifths)
{
    for (int place = fifths - 3; place <= fifths + 8; ++place) {
        for (int letter = 0; letter < LetterCount; ++letter) {
            const int distance = place - FifthsOfLetter[letter];
            if (distance % LetterCount != 0)
                continue;
            const int alteration = distance / LetterCount;
            if (alteration < -2 || alteration > 2)
                continue;
            if ((SemitonesOfLetter[letter] + alteration + 12) % 12 == pitchClass)
                return PitchClass(
                    NoteName(static_cast<NoteName::Value>(letter)),
                    NoteAccidental(static_cast<NoteAccidental::Value>(alteration + 2)));
        }
    }
    return PitchClass::fromPitch(pitchClass, fifths < 0);
}

QString accidentalText(int alteration, Signs signs)
{
    const bool isFlat = alteration < 0;
    const QString sign = signs == Signs::Letters
        ? (isFlat ? QStringLiteral("b") : QStringLiteral("#"))
        : (isFlat ? QStringLiteral("\u266d") : QStringLiteral("\u266f"));
    return sign.repeated(isFlat ? -alteration : alteration);
}

} // namespace

const RhythmLetter *rhythmLetters()
{
    return Letters;
}

QString rhythmText(const RhythmValue &rhythm)
{
    const auto value = static_cast<std::size_t>(rhythm.getNoteValue());
    const QString letter =
        value < std::size(Letters) ? QLatin1String(Letters[value].letter) : QStringLiteral("?");
    return letter + QString(static_cast<int>(rhythm.getAugmentationDot()), QLatin1Char('.'));
}

QString tupletText(unsigned notes, unsigned inTimeOf)
{
    unsigned usual = 1;
    while (usual * 2 < notes)
        usual *= 2;
    if (inTimeOf == usual)
        return QString::number(notes);
    return QStringLiteral("%1:%2").arg(notes).arg(inTimeOf);
}

PitchClass spellingOf(const Note &note, const KeySignature &key)
{
    if (const auto spelling = note.spelling())
        return *spelling;
    return spelledInKey(note.midi() % 12, key.accidentalCount());
}

QString pitchClassText(const PitchClass &pitch, Signs signs)
{
    return pitch.note().toString() + accidentalText(pitch.alterationSemitones(), signs);
}

QString pitchText(const PitchClass &spelling, int midi, Signs signs)
{
    const int natural = midi - spelling.alterationSemitones();
    return pitchClassText(spelling, signs) + QString::number(natural / 12 - 1);
}

QString keyText(const KeySignature &key, Signs signs)
{
    // The tonic of a major key of n fifths lies at n on the line of fifths, of a minor at n + 3.
    const int place = key.accidentalCount() + (key.isMajor() ? 0 : 3);
    const int letters[] = {3, 0, 4, 1, 5, 2, 6}; // F C G D A E B from -1 on
    const int fromF = place + 1;
    const int letter = letters[((fromF % LetterCount) + LetterCount) % LetterCount];
    const int alteration = (place - FifthsOfLetter[letter]) / LetterCount;
    return NoteName(static_cast<NoteName::Value>(letter)).toString()
        + accidentalText(alteration, signs)
        + (key.isMajor() ? QStringLiteral(" major") : QStringLiteral(" minor"));
}

QString dynamicText(const NoteDynamic &dynamic)
{
    const int value = static_cast<int>(dynamic.value());
    if (value <= 0)
        return QString();
    if (value == static_cast<int>(NoteDynamic::Value::MP)
        || value == static_cast<int>(NoteDynamic::Value::MF))
        return value == static_cast<int>(NoteDynamic::Value::MP) ? QStringLiteral("mp")
                                                                 : QStringLiteral("mf");
    const int softest = static_cast<int>(NoteDynamic::Value::P);
    return value <= softest
        ? QString(softest + 1 - value, QLatin1Char('p'))
        : QString(value - static_cast<int>(NoteDynamic::Value::MF), QLatin1Char('f'));
}

QString endingText(std::uint32_t passes)
{
    QStringList numbers;
    for (int pass = 0; pass < 32; ++pass)
        if ((passes >> pass & 1u) != 0)
            numbers.append(QStringLiteral("%1.").arg(pass + 1));
    return numbers.join(QLatin1Char(' '));
}

} // namespace zarn::tool
