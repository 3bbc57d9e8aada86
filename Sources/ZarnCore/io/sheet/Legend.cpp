// SPDX-License-Identifier: MIT
#include <ZarnCore/io/sheet/Legend.h>

#include <ZarnCore/io/sheet/Texts.h>

namespace zarn::sheet {

namespace {

/// By `Legend::Sign`.
constexpr const char *SignTexts[] = {
    ". dotted",
    "bracket 3 triplet",
    "r rest",
    "rest whole bar",
    "g grace note",
    "x dead note",
    "7' 7'' voices 2, 3",
    "7/5 two voices",
    "o drum",
    "x cross head",
    "b bell of a cymbal",
    "? no pitch",
    "% as the bar before",
    "%% as 2 bars before",
    "x3 three times",
};

} // namespace

void Legend::use(const RhythmValue &rhythm)
{
    _noteValues.insert(static_cast<int>(rhythm.getNoteValue()));
    if (rhythm.getAugmentationDot() != 0)
        use(Sign::Dot);
}

void Legend::use(const QString &explanation)
{
    if (!_explanations.contains(explanation))
        _explanations.append(explanation);
}

QStringList Legend::texts() const
{
    QStringList texts;
    for (const int value : _noteValues)
        texts.append(QStringLiteral("%1 %2").arg(QLatin1String(rhythmLetters()[value].letter),
                                                 QLatin1String(rhythmLetters()[value].name)));
    for (const Sign sign : _signs)
        texts.append(QLatin1String(SignTexts[static_cast<std::size_t>(sign)]));
    return texts + _explanations;
}

} // namespace zarn::sheet
