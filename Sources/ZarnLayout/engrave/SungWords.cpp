// SPDX-License-Identifier: MIT
#include <ZarnLayout/engrave/SungWords.h>

#include <ZarnLayout/source/SungBeats.h>

#include <ZarnCore/model/lyrics/ZarnLyricText.h>

#include <QRegularExpression>
#include <QString>

#include <algorithm>
#include <utility>

namespace zarn::engraving {

namespace {

/// The length of the number that a verse begins with, with the space behind it: "1. ", "2.~",
/// "1.-3. ". A number that no words follow is sung.
int verseNumberLength(const QString &text)
{
    if (text.isEmpty() || !text.front().isDigit())
        return 0;
    static const QRegularExpression number(
        QStringLiteral("^(\\d{1,2}[.):]?(?:\\s*[-\u2013,+&/]?\\s*\\d{1,2}[.):]?)*"
                       "(?:(?<=[.):])[\\s~]*|[\\s~]+))[^\\w\\s]*[^\\W\\d]"),
        QRegularExpression::UseUnicodePropertiesOption);
    return number.match(text).capturedLength(1);
}

Inks wordInks(const Pen &pen, const std::string &words, double centre)
{
    return pen.words(MarkKind::Lyric, TextRole::Lyric, words, centre, 0, Pen::Align::Centre);
}

/// Where the numbers of the verses that begin at a beat end.
double numbersEnd(const Pen &pen, const Syllables &lyrics, double centre)
{
    constexpr double gap = 0.5; // a space between words
    double left = centre;
    for (const Syllable &syllable : lyrics)
        if (const SungText text = sungText(syllable); !text.number.empty())
            if (const Inks words = wordInks(pen, text.words, centre); !words.empty())
                left = std::min(left, boxOf(words).left);
    return left - gap;
}

} // namespace

SungText sungText(const Syllable &syllable)
{
    QString whole = QString::fromStdString(syllable.text).trimmed();
    const auto isDash = [](QChar letter) {
        constexpr ushort hyphen = 0x2010;
        constexpr ushort enDash = 0x2013;
        return letter == QLatin1Char('-')
            || (letter.unicode() >= hyphen && letter.unicode() <= enDash);
    };
    const bool goesOn = isWordUnfinished(syllable);
    const bool comesFromBefore =
        syllable.syllabic == Syllabic::End || syllable.syllabic == Syllabic::Middle;
    SungText sung;
    if (const int length = comesFromBefore ? 0 : verseNumberLength(whole); length > 0) {
        QString number = whole.left(length);
        while (number.back().isSpace() || number.back() == QLatin1Char('~'))
            number.chop(1);
        sung.number = number.toStdString();
        whole.remove(0, length);
    }
    int first = 0;
    int end = whole.size();
    while (comesFromBefore && first < end && (isDash(whole[first]) || whole[first].isSpace()))
        ++first;
    while (goesOn && end > first && (isDash(whole[end - 1]) || whole[end - 1].isSpace()))
        --end;
    const std::string plain = (end > first ? whole.mid(first, end - first) : whole).toStdString();
    constexpr const char *undertie = "\u203F";
    for (const std::string_view word : joinedWords(plain)) {
        if (!sung.words.empty())
            sung.words += undertie;
        sung.words += word;
    }
    return sung;
}

Inks sungInks(const Pen &pen, const Syllable &syllable, const Syllables &lyrics, double centre)
{
    const SungText text = sungText(syllable);
    Inks inks;
    if (!text.number.empty())
        inks.push_back(pen.text(MarkKind::Lyric, TextRole::Lyric, text.number,
                                numbersEnd(pen, lyrics, centre), 0, Pen::Align::End));
    for (Ink &ink : wordInks(pen, text.words, centre))
        inks.push_back(std::move(ink));
    return inks;
}

} // namespace zarn::engraving
