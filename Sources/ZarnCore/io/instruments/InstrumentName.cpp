// SPDX-License-Identifier: MIT
#include <ZarnCore/io/instruments/InstrumentName.h>

#include <ZarnCore/io/instruments/InstrumentWords.h>

#include <QString>

#include <algorithm>
#include <iterator>
#include <vector>

namespace zarn::io {

namespace {

using Set = InstrumentSet;

/// Longer names are texts; what stands behind is not read.
constexpr int mostLetters = 400;

/// How many words of a name may be one in the table: "flauto dolce", "viola da gamba".
constexpr std::size_t mostJoined = 3;

/// What traits make of an instrument; earlier rows count first.
struct Rule {
    Set::Type noun; ///< or any that `sameKind` puts beside it
    unsigned traits;
    Set::Type type;
};

// clang-format off
constexpr Rule rules[] = {
    {Set::steelGuitar, Low | Acoustic, Set::acousticBass}, {Set::steelGuitar, Low | Fretless, Set::fretlessBass},
    {Set::steelGuitar, Low, Set::electricBass}, {Set::steelGuitar, Nylon, Set::nylonGuitar},
    {Set::steelGuitar, Electric, Set::electricGuitar}, {Set::steelGuitar, Lead, Set::electricGuitar},
    {Set::steelGuitar, Acoustic, Set::steelGuitar},
    {Set::electricBass, Acoustic, Set::acousticBass}, {Set::electricBass, Fretless, Set::fretlessBass},
    {Set::acousticPiano, Electric, Set::electricPiano}, {Set::acousticPiano, Acoustic, Set::acousticPiano},
    {Set::pipeOrgan, Electric, Set::electricOrgan}, {Set::frenchHorn, English, Set::englishHorn},
    {Set::bassoon, Double, Set::contrabassoon}, {Set::drumKit, Synthetic, Set::synthDrum},
    {Set::unknown, Low | Double, Set::contrabass}, {Set::unknown, Low | Upright, Set::uprightBass},
    {Set::unknown, Low | Fretless, Set::fretlessBass}, {Set::unknown, Low | Synthetic, Set::synthBass},
    {Set::unknown, Low | Electric, Set::electricBass}, {Set::unknown, Low | Acoustic, Set::acousticBass},
    {Set::unknown, Synthetic | Lead, Set::leadSynthesizer}, {Set::unknown, Synthetic, Set::keySynthesizer},
};
// clang-format on

struct Token {
    QString word;           ///< small letters
    QString plain;          ///< and without accents
    bool begins = true;     ///< of another instrument: behind a line break, a slash, an ampersand
    bool isRemark = false;  ///< behind a comma, a colon or a bracket
    bool isCounted = false; ///< behind a number: "5-string", "2 Flauti"
};

QString withoutAccents(const QString &word)
{
    QString plain;
    for (const QChar letter : word.normalized(QString::NormalizationForm_KD))
        if (!letter.isMark())
            plain += letter;
    // Letters of their own, which do not decompose.
    plain.replace(QChar(0xF8), QLatin1Char('o'));
    plain.replace(QChar(0x142), QLatin1Char('l'));
    plain.replace(QChar(0xE6), QLatin1String("ae"));
    plain.replace(QChar(0x153), QLatin1String("oe"));
    plain.replace(QChar(0xDF), QLatin1String("ss"));
    return plain;
}

/// The words of a name; digits and signs part them and are not among them.
std::vector<Token> tokensOf(const std::string &name)
{
    const QString text =
        QString::fromUtf8(name.data(), static_cast<int>(std::min<std::size_t>(name.size(), 4096)))
            .left(mostLetters)
            .normalized(QString::NormalizationForm_KC)
            .toLower();
    std::vector<Token> tokens;
    Token next;
    const auto finish = [&] {
        if (next.word.isEmpty())
            return;
        next.plain = withoutAccents(next.word);
        // So many strings: not the "String Bass".
        if (!next.isCounted || !next.plain.startsWith(QLatin1String("string")))
            tokens.push_back(next);
        next.word.clear();
        next.begins = false;
        next.isCounted = false;
    };
    for (const QChar letter : text) {
        if (letter.isLetter() || letter.isMark()) {
            next.word += letter;
            continue;
        }
        finish();
        next.isCounted = letter.isDigit() || (next.isCounted && letter == QLatin1Char('-'));
        if (QStringLiteral("\n/&+;").contains(letter)) {
            next.begins = true;
            next.isRemark = false;
        } else if (QStringLiteral(",:([{").contains(letter)) {
            next.isRemark = true;
        }
    }
    finish();
    return tokens;
}

/// One instrument of a name that may list several.
class NameReader {
public:
    /// Takes the tokens from `at` as far as they belong to one instrument; returns the next place.
    std::size_t read(const std::vector<Token> &tokens, std::size_t at);

    NamedInstrument result() const;

private:
    static const InstrumentWord *longest(const std::vector<Token> &tokens, std::size_t at,
                                         std::size_t end, std::size_t &count);
    void take(const InstrumentWord &word);

    Set::Type _noun = Set::unknown;
    bool _isOpen = false;
    unsigned _traits = NoTrait;
    NamedInstrument::Range _range = NamedInstrument::Range::None;
    bool _hasUnknown = false;
};

const InstrumentWord *NameReader::longest(const std::vector<Token> &tokens, std::size_t at,
                                          std::size_t end, std::size_t &count)
{
    for (count = std::min(mostJoined, end - at); count > 0; --count) {
        QString word;
        QString plain;
        for (std::size_t i = at; i < at + count; ++i) {
            word += tokens[i].word;
            plain += tokens[i].plain;
        }
        if (const auto *found = findInstrumentWord(word.toStdString()))
            return found;
        if (const auto *found = findInstrumentWord(plain.toStdString()))
            return found;
    }
    count = 1;
    return nullptr;
}

std::size_t NameReader::read(const std::vector<Token> &tokens, std::size_t at)
{
    auto end = at + 1;
    while (end < tokens.size() && !tokens[end].begins)
        ++end;
    while (at < end) {
        std::size_t count = 1;
        if (const auto *word = longest(tokens, at, end, count))
            take(*word);
        else
            _hasUnknown = _hasUnknown || !tokens[at].isRemark;
        at += count;
    }
    return end;
}

void NameReader::take(const InstrumentWord &word)
{
    _traits |= word.trait;
    if (_range == NamedInstrument::Range::None)
        _range = word.range;
    if (_noun == Set::unknown && word.type != Set::unknown) {
        _noun = word.type;
        _isOpen = word.isOpen;
    }
}

NamedInstrument NameReader::result() const
{
    const auto isOf = [&](Set::Type noun) {
        return noun == _noun || (Set::isGuitar(noun) && Set::isGuitar(_noun) && _isOpen);
    };
    NamedInstrument named;
    named.isWhole = !_hasUnknown;
    const auto *rule = std::find_if(std::begin(rules), std::end(rules), [&](const Rule &row) {
        return isOf(row.noun) && (_traits & row.traits) == row.traits;
    });
    if (rule != std::end(rules)) {
        named.type = rule->type;
        named.isOpen = rule->type == Set::keySynthesizer;
    } else if (_noun != Set::unknown) {
        named.type = _noun;
        named.isOpen = _isOpen;
    } else {
        named.range = _range;
    }
    return named;
}

/// Parts of a choir are often named by one letter.
NamedInstrument letterOfChoir(const std::vector<Token> &tokens)
{
    using Range = NamedInstrument::Range;
    if (tokens.empty() || tokens.front().plain.size() != 1)
        return {};
    NamedInstrument named;
    named.isWhole = true;
    switch (tokens.front().plain[0].toLatin1()) {
    case 's':
        named.type = Set::voice;
        break;
    case 'a':
        named.range = Range::Alto;
        break;
    case 't':
        named.range = Range::Tenor;
        break;
    case 'b':
        named.range = Range::Bass;
        break;
    default:
        return {};
    }
    return named;
}

} // namespace

NamedInstrument readInstrumentName(const std::string &name)
{
    const auto tokens = tokensOf(name);
    bool isFirst = true;
    for (std::size_t at = 0; at < tokens.size(); isFirst = false) {
        NameReader reader;
        at = reader.read(tokens, at);
        auto named = reader.result();
        if (named.isKnown()) {
            named.isWhole = named.isWhole && isFirst;
            return named;
        }
    }
    return letterOfChoir(tokens);
}

} // namespace zarn::io
