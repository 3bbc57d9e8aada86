// SPDX-License-Identifier: MIT
#include <ZarnCore/chords/ChordSymbolTokens.h>

#include <algorithm>

namespace zarn::chord {

namespace {

using Type = SymbolToken::Type;

struct Sign {
    std::string_view utf8;
    std::string_view ascii;
};

constexpr Sign signs[] = {
    {"♭", "b"},   {"♯", "#"},   {"♮", ""},  {"𝄫", "bb"}, {"𝄪", "##"},     {"−", "-"},  {"–", "-"},
    {"‑", "-"},   {"⁻", "-"},   {"⁺", "+"}, {"°", "o"},  {"º", "o"},      {"˚", "o"},  {"○", "o"},
    {"ᵒ", "o"},   {"ø", "h"},   {"Ø", "h"}, {"∅", "h"},  {"Δ", "^"},      {"∆", "^"},  {"△", "^"},
    {"▵", "^"},   {"²", "2"},   {"⁴", "4"}, {"⁵", "5"},  {"⁶", "6"},      {"⁷", "7"},  {"⁹", "9"},
    {"¹¹", "11"}, {"¹³", "13"}, {"⁽", "("}, {"⁾", ")"},  {"\u00a0", " "}, {"／", "/"}, {"＃", "#"},
};

struct Word {
    std::string_view text;
    Type type;
};

/// Longer words before those that they begin with. Words of one letter are read in their case.
/// "madd9" is a minor chord: its "ma" is no word.
constexpr Word words[] = {
    {"half diminished", Type::HalfDiminished},
    {"half-diminished", Type::HalfDiminished},
    {"half dim", Type::HalfDiminished},
    {"half-dim", Type::HalfDiminished},
    {"halfdim", Type::HalfDiminished},
    {"diminished", Type::Diminished},
    {"augmented", Type::Augmented},
    {"dominant", Type::Dominant},
    {"altered", Type::Altered},
    {"suspended", Type::Suspended},
    {"major", Type::Major},
    {"minor", Type::Minor},
    {"maj", Type::Major},
    {"min", Type::Minor},
    {"dim", Type::Diminished},
    {"aug", Type::Augmented},
    {"dom", Type::Dominant},
    {"alt", Type::Altered},
    {"sus", Type::Suspended},
    {"add", Type::Add},
    {"omit", Type::Omit},
    {"ma", Type::Major},
    {"mi", Type::Minor},
    {"no", Type::Omit},
    {"M", Type::Major},
    {"j", Type::Major},
    {"^", Type::Major},
    {"m", Type::Minor},
    {"-", Type::Minor},
    {"o", Type::Diminished},
    {"h", Type::HalfDiminished},
    {"+", Type::Augmented},
    {"(", Type::Open},
    {"[", Type::Open},
    {")", Type::Close},
    {"]", Type::Close},
    {",", Type::Comma},
    {"/", Type::Slash},
};

constexpr char lower(char letter) noexcept
{
    return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
}

bool beginsWith(std::string_view text, std::string_view word) noexcept
{
    if (word.size() == 1)
        return !text.empty() && text.front() == word.front();
    return text.size() >= word.size()
        && std::equal(word.begin(), word.end(), text.begin(),
                      [](char left, char right) { return left == lower(right); });
}

bool isDigit(char letter) noexcept
{
    return letter >= '0' && letter <= '9';
}

/// Takes the number of a degree: 10 to 13 when there are two such digits, else one digit.
int takeNumber(std::string_view &text) noexcept
{
    const bool hasTwo = text.size() >= 2 && text[0] == '1' && text[1] >= '0' && text[1] <= '3';
    const int number = hasTwo ? 10 + text[1] - '0' : text[0] - '0';
    text.remove_prefix(hasTwo ? 2 : 1);
    return number;
}

/// Whether a plus or minus stands for a sharp or flat: behind a number or inside of parentheses.
bool isAccidentalHere(const std::vector<SymbolToken> &before, std::string_view text) noexcept
{
    if (text.size() < 2 || !isDigit(text[1]) || before.empty())
        return false;
    const Type last = before.back().type;
    return last == Type::Number || last == Type::Open || last == Type::Comma || last == Type::Slash
        || last == Type::Suspended || (last == Type::Minor && text[1] == '5');
}

/// Takes the "rd" of "no 3rd".
void skipOrdinal(std::string_view &text) noexcept
{
    for (const std::string_view ending : {"th", "rd", "nd"})
        if (beginsWith(text, ending)) {
            text.remove_prefix(ending.size());
            return;
        }
}

/// Takes an accidental behind its number: "C7(9-)", "Cm7/5b", "C5+". Elsewhere "C9+" has the plus
/// of an augmented fifth.
int takeAccidentalBehind(std::string_view &text, int number,
                         const std::vector<SymbolToken> &before) noexcept
{
    const Type last = before.empty() ? Type::Number : before.back().type;
    const bool isApart = last == Type::Open || last == Type::Comma || last == Type::Slash;
    if (text.empty() || (text.size() > 1 && isDigit(text[1])) || number == 7
        || (!isApart && number != 5))
        return 0;
    const bool isRaised = text.front() == '+' || text.front() == '#';
    if (!isRaised && text.front() != '-' && text.front() != 'b')
        return 0;
    text.remove_prefix(1);
    return isRaised ? 1 : -1;
}

/// Takes a number with its accidentals; false when the text does not begin with one.
bool takeDegree(std::string_view &text, std::vector<SymbolToken> &tokens)
{
    std::string_view rest = text;
    int alteration = 0;
    if ((rest.front() == '+' || rest.front() == '-') && isAccidentalHere(tokens, rest)) {
        alteration = rest.front() == '+' ? 1 : -1;
        rest.remove_prefix(1);
    }
    while (!rest.empty() && (rest.front() == 'b' || rest.front() == '#')) {
        alteration += rest.front() == 'b' ? -1 : 1;
        rest.remove_prefix(1);
    }
    if (rest.empty() || !isDigit(rest.front()) || alteration < -4 || alteration > 4)
        return false;
    const int number = takeNumber(rest);
    if (number == 0 || number > Degree::lastNumber)
        return false;
    if (alteration == 0)
        alteration = takeAccidentalBehind(rest, number, tokens);
    skipOrdinal(rest);
    tokens.push_back(
        {Type::Number, {static_cast<std::uint8_t>(number), static_cast<std::int8_t>(alteration)}});
    text = rest;
    return true;
}

bool takeWord(std::string_view &text, std::vector<SymbolToken> &tokens)
{
    const bool isMinor = beginsWith(text, "madd") || beginsWith(text, "maug");
    for (const Word &word : words)
        if (beginsWith(text, word.text) && !(isMinor && word.text == "ma")) {
            tokens.push_back({word.type});
            text.remove_prefix(word.text.size());
            if (word.text.size() > 2 && !text.empty() && text.front() == '.')
                text.remove_prefix(1); // "Cmin."
            if (word.text == "^" && (text.empty() || !isDigit(text.front())))
                tokens.push_back({Type::Number, {7, 0}}); // the triangle has its seventh
            return true;
        }
    return false;
}

PitchClass pitchClassOf(char letter, int alteration) noexcept
{
    const int step = (letter - 'C' + spelling::letterCount) % spelling::letterCount;
    return PitchClass(static_cast<NoteName::Value>(step),
                      static_cast<NoteAccidental::Value>(alteration + 2));
}

std::string letterOf(Type type)
{
    return std::string(1, static_cast<char>('A' + static_cast<int>(type)));
}

} // namespace

std::optional<std::string> asciiSymbol(std::string_view text)
{
    std::string ascii;
    while (!text.empty()) {
        if (static_cast<unsigned char>(text.front()) < 0x80) {
            ascii += text.front();
            text.remove_prefix(1);
            continue;
        }
        const auto *const sign = std::find_if(std::begin(signs), std::end(signs), [&](Sign known) {
            return text.substr(0, known.utf8.size()) == known.utf8;
        });
        if (sign == std::end(signs))
            return std::nullopt;
        ascii += sign->ascii;
        text.remove_prefix(sign->utf8.size());
    }
    return ascii;
}

std::optional<std::vector<SymbolToken>> symbolTokens(std::string_view text)
{
    const auto ascii = asciiSymbol(text);
    if (!ascii)
        return std::nullopt;
    std::vector<SymbolToken> tokens;
    for (std::string_view rest = *ascii; !rest.empty();) {
        if (rest.front() == ' ')
            rest.remove_prefix(1);
        else if (!takeDegree(rest, tokens) && !takeWord(rest, tokens))
            return std::nullopt;
    }
    int depth = 0;
    for (const SymbolToken &token : tokens) {
        depth += int(token.type == Type::Open) - int(token.type == Type::Close);
        if (depth < 0 || depth > 1)
            return std::nullopt;
    }
    return depth == 0 ? std::make_optional(std::move(tokens)) : std::nullopt;
}

std::string symbolKey(const SymbolToken *begin, const SymbolToken *end)
{
    std::string key;
    for (const auto *token = begin; token != end; ++token) {
        if (token->type == Type::Number) {
            // "C7(13)" has an added thirteenth, but the fourth of "C7(4)" is a suspension, and
            // "Csus4(7)" has the seventh of a dominant.
            const bool isBare = token->degree.alteration == 0 && token->degree.number > 4
                && token->degree.number != 7 && token != begin
                && (token[-1].type == Type::Open || token[-1].type == Type::Comma);
            key += isBare ? letterOf(Type::Add) + token->degree.toText() : token->degree.toText();
            key += '.';
        } else if (token->type < Type::Number || token->type == Type::Slash) {
            key += letterOf(token->type);
        }
    }
    return key;
}

PitchClass takePitchClass(std::string_view &text)
{
    if (text.empty() || text.front() < 'A' || text.front() > 'G')
        return {};
    const char letter = text.front();
    text.remove_prefix(1);
    int alteration = 0;
    for (; !text.empty() && text.front() == '#' && alteration >= 0 && alteration < 2; ++alteration)
        text.remove_prefix(1);
    for (; !text.empty() && text.front() == 'b' && alteration <= 0 && alteration > -2; --alteration)
        text.remove_prefix(1);
    return pitchClassOf(letter, alteration);
}

PitchClass takeGermanPitchClass(std::string_view &text)
{
    if (text.empty() || text.front() < 'A' || text.front() > 'H')
        return {};
    const bool isH = text.front() == 'H';
    const char letter = isH ? 'B' : text.front();
    std::string_view rest = text.substr(1);
    int alteration = 0;
    if (beginsWith(rest, "is") || beginsWith(rest, "es")) {
        alteration = lower(rest.front()) == 'i' ? 1 : -1;
        rest.remove_prefix(2);
    } else if ((letter == 'A' || letter == 'E') && beginsWith(rest, "s")) {
        alteration = -1;
        rest.remove_prefix(1);
    } else if (!isH) {
        return {};
    }
    text = rest;
    return pitchClassOf(letter, alteration);
}

} // namespace zarn::chord
