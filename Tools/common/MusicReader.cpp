// SPDX-License-Identifier: MIT
#include "common/MusicReader.h"

#include "common/Texts.h"

#include <QRegularExpression>
#include <QStringList>

namespace zarn::tool {

namespace {

constexpr int NoteValueCount = 11;
constexpr int LargestPass = 31;
constexpr int LargestMidi = 127;

QRegularExpressionMatch match(const char *pattern, const QString &text)
{
    return QRegularExpression(QStringLiteral("^(?:%1)$").arg(QLatin1String(pattern))).match(text);
}

/// "3" or "3:2".
std::optional<RhythmValue::TupletRatio> parseRatio(const QString &text)
{
    const auto parts = match("([0-9]{1,3})(?::([0-9]{1,3}))?", text);
    const int notes = parts.captured(1).toInt();
    int inTimeOf = parts.captured(2).toInt();
    if (parts.captured(2).isEmpty())
        for (inTimeOf = 1; inTimeOf * 2 < notes;)
            inTimeOf *= 2;
    if (!parts.hasMatch() || notes < 2 || inTimeOf < 2 || notes > 255 || inTimeOf > 255)
        return std::nullopt;
    return RhythmValue::TupletRatio(notes, inTimeOf);
}

std::optional<RhythmValue::NoteValue> parseNoteValue(const QString &text)
{
    static const QRegularExpression fraction(
        QStringLiteral("^(?:1/([0-9]+)|([0-9]+)(?:st|nd|rd|th))$"));
    const auto parts = fraction.match(text);
    const unsigned part = (parts.captured(1) + parts.captured(2)).toUInt();
    if (part != 0) {
        const auto value =
            RhythmValue::noteValueFromTimeUnit(utils::rational(4, static_cast<int>(part)));
        return value == RhythmValue::NoteValue::Invalid ? std::nullopt : std::optional(value);
    }
    for (int value = 0; value < NoteValueCount; ++value)
        if (text == QLatin1String(rhythmLetters()[value].letter)
            || text == QLatin1String(rhythmLetters()[value].name))
            return static_cast<RhythmValue::NoteValue>(value);
    return std::nullopt;
}

std::optional<PitchClass> parsePitchClass(const QString &text)
{
    const auto parts = match("([A-Ga-g])(|b|bb|#|##)", text);
    if (!parts.hasMatch())
        return std::nullopt;
    return PitchClass::fromString(parts.captured(1).toUpper() + parts.captured(2));
}

} // namespace

std::optional<RhythmValue> parseRhythm(const QString &text)
{
    const auto parts = match("(1/[0-9]{1,3}|[0-9]*[a-z]+)(\\.{0,3})((?:/[0-9:]+){0,2})", text);
    const auto noteValue = parseNoteValue(parts.captured(1));
    if (!parts.hasMatch() || !noteValue)
        return std::nullopt;
    RhythmValue rhythm(*noteValue, static_cast<unsigned>(parts.captured(2).size()));
    const QStringList ratios = parts.captured(3).split(QLatin1Char('/'), Qt::SkipEmptyParts);
    for (int i = 0; i < ratios.size(); ++i) {
        const auto ratio = parseRatio(ratios.at(i));
        if (!ratio)
            return std::nullopt;
        if (i == 0)
            rhythm.setPrimaryTupletRatio(*ratio);
        else
            rhythm.setSecondaryTupletRatio(*ratio);
    }
    return rhythm;
}

QString writtenRhythm(const RhythmValue &rhythm)
{
    const auto value = static_cast<int>(rhythm.getNoteValue());
    if (value < 0 || value >= NoteValueCount)
        return rhythm.toQString();
    QString text = QLatin1String(rhythmLetters()[value].name)
        + QString(static_cast<int>(rhythm.getAugmentationDot()), QLatin1Char('.'));
    const auto add = [&text](const RhythmValue::TupletRatio &ratio) {
        text += QLatin1Char('/') + tupletText(ratio.first, ratio.second);
    };
    if (rhythm.hasPrimaryTuplet())
        add(rhythm.getPrimaryTupletRatio());
    if (rhythm.hasSecondaryTuplet())
        add(rhythm.getSecondaryTupletRatio());
    return text;
}

std::optional<TimeSignature> parseTime(const QString &text)
{
    const auto parts = match("([0-9]{1,2})/(1|2|4|8|16|32|64)", text);
    const unsigned numerator = parts.captured(1).toUInt();
    if (!parts.hasMatch() || numerator == 0)
        return std::nullopt;
    return TimeSignature(numerator, parts.captured(2).toUInt());
}

std::optional<KeySignature> parseKey(const QString &text)
{
    const auto parts = match("([A-Ga-g](?:b|#)?)(m?)", text);
    const auto root = parsePitchClass(parts.captured(1));
    if (!parts.hasMatch() || !root)
        return std::nullopt;
    const bool isMajor = parts.captured(2).isEmpty();
    for (int count = -7; count <= 7; ++count) {
        const KeySignature key(count, isMajor, true);
        if (PitchClass::fromPitch(key.rootNote()) == *root)
            return key;
    }
    return std::nullopt;
}

std::optional<PitchValue> parsePitch(const QString &text)
{
    bool isNumber = false;
    const int key = text.toInt(&isNumber);
    if (isNumber)
        return key >= 0 && key <= LargestMidi ? std::optional<PitchValue>({key, std::nullopt})
                                              : std::nullopt;
    const auto parts = match("([A-Ga-g](?:bb|##|b|#)?)(-1|[0-9])", text);
    const auto spelling = parsePitchClass(parts.captured(1));
    if (!parts.hasMatch() || !spelling)
        return std::nullopt;
    const int midi = spelling->midi(parts.captured(2).toInt() + 1);
    if (midi < 0 || midi > LargestMidi)
        return std::nullopt;
    return PitchValue{midi, spelling};
}

std::optional<int> parsePasses(const QString &text)
{
    if (text == QStringLiteral("none"))
        return 0;
    std::uint32_t passes = 0;
    for (const QString &part : text.split(QLatin1Char(','))) {
        const auto ends = match("([0-9]{1,2})(?:-([0-9]{1,2}))?", part);
        const int first = ends.captured(1).toInt();
        const int last = ends.captured(2).isEmpty() ? first : ends.captured(2).toInt();
        if (!ends.hasMatch() || first < 1 || last < first || last > LargestPass)
            return std::nullopt;
        for (int pass = first; pass <= last; ++pass)
            passes |= 1u << (pass - 1);
    }
    return static_cast<int>(passes);
}

} // namespace zarn::tool
