// SPDX-License-Identifier: MIT
#include <ZarnCore/io/sheet/Texts.h>

#include <ZarnCore/model/form/ZarnTripletFeel.h>
#include <ZarnCore/music/ZarnKeySignature.h>
#include <ZarnCore/music/ZarnNoteDynamic.h>
#include <ZarnCore/music/ZarnPitchClass.h>
#include <ZarnCore/music/ZarnRhythmValue.h>

#include <QStringList>

#include <array>

namespace zarn::sheet {

namespace {

constexpr RhythmLetter Letters[] = {
    {"l", "long"},    {"b", "breve"},  {"w", "whole"}, {"h", "half"},
    {"q", "quarter"}, {"e", "eighth"}, {"s", "16th"},  {"t", "32nd"},
    {"x", "64th"},    {"y", "128th"},  {"z", "256th"},
};

/// By `TripletFeel`.
constexpr std::array<const char *, 7> FeelTexts = {
    "straight",           "swing 8ths (2:1)",    "swing 16ths (2:1)",    "dotted 8ths (3:1)",
    "dotted 16ths (3:1)", "Scottish 8ths (1:3)", "Scottish 16ths (1:3)",
};

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

QString quartersText(const utils::rational &length)
{
    if (length == utils::rational(1))
        return QStringLiteral("a quarter");
    return length.isInteger()
        ? QStringLiteral("%1 quarters").arg(length.numerator())
        : QStringLiteral("%1/%2 quarters").arg(length.numerator()).arg(length.denominator());
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

PitchClass spelledInKey(Tone tone, int fifths)
{
    // Places on the line of fifths: of the letters C D E F G A B, and seven further for each sharp.
    constexpr int letterPlaces[] = {0, 2, 4, -1, 1, 3, 5};
    for (int place = fifths - 3; place <= fifths + 8; ++place) {
        for (std::size_t letter = 0; letter < std::size(letterPlaces); ++letter) {
            const int distance = place - letterPlaces[letter];
            const int alteration = distance / 7;
            if (distance % 7 != 0 || alteration < -2 || alteration > 2)
                continue;
            const PitchClass spelling(
                NoteName(static_cast<NoteName::Value>(letter)),
                NoteAccidental(static_cast<NoteAccidental::Value>(alteration + 2)));
            if (spelling.tone() == tone)
                return spelling;
        }
    }
    return PitchClass::fromTone(tone, fifths < 0);
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
    return pitchClassText(PitchClass::fromPitch(key.rootNote()), signs)
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

QString feelText(TripletFeel feel)
{
    return QLatin1String(FeelTexts.at(static_cast<std::size_t>(feel)));
}

} // namespace zarn::sheet
