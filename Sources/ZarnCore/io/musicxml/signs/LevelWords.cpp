// SPDX-License-Identifier: MIT
#include <ZarnCore/io/musicxml/signs/LevelWords.h>

#include <ZarnCore/music/ZarnNoteDynamic.h>

#include <algorithm>
#include <utility>

namespace zarn::io {

namespace {

constexpr std::string_view tie = "\u00A0";
constexpr std::string_view spaces = " \t\n\r";

bool beginsTied(std::string_view word)
{
    return word.substr(0, tie.size()) == tie;
}

bool endsTied(std::string_view word)
{
    return word.size() > tie.size() && word.substr(word.size() - tie.size()) == tie;
}

/// The words up to the first space that is none of theirs.
std::string_view firstWord(std::string_view text)
{
    return text.substr(0, text.find(' '));
}

std::string untied(std::string_view words)
{
    std::string plain;
    for (std::size_t at = 0; at < words.size();)
        if (words.substr(at, tie.size()) == tie) {
            plain += ' ';
            at += tie.size();
        } else {
            plain += words[at++];
        }
    return plain;
}

std::string_view withoutTie(std::string_view word, LevelSide side)
{
    return side == LevelSide::After ? word.substr(tie.size())
                                    : word.substr(0, word.size() - tie.size());
}

/// Where the other words of a text begin.
std::size_t endOfTied(std::string_view text)
{
    std::size_t end = 0;
    while (end < text.size()) {
        const auto word = firstWord(text.substr(end));
        if (!beginsTied(word) && !endsTied(word))
            break;
        end += word.size() + 1;
    }
    return std::min(end, text.size());
}

} // namespace

std::string tiedToLevel(std::string_view words, LevelSide side)
{
    std::string tied;
    const auto plain = untied(words);
    std::string_view rest = plain;
    for (;;) {
        const auto begin = rest.find_first_not_of(spaces);
        if (begin == std::string_view::npos)
            break;
        const auto end = rest.find_first_of(spaces, begin);
        if (!tied.empty())
            tied += tie;
        tied += rest.substr(begin, end - begin);
        rest.remove_prefix(std::min(end, rest.size()));
    }
    if (tied.empty())
        return tied;
    return side == LevelSide::After ? std::string(tie) + tied : tied + std::string(tie);
}

std::string joinedWords(const std::string &text, const std::string &more)
{
    if (text.empty() || more.empty())
        return text + more;
    const auto end = endOfTied(text);
    if (end == text.size())
        return text + " " + more;
    if (!beginsTied(more) && !endsTied(more))
        return text + "\n" + more;
    return text.substr(0, end) + more + " " + text.substr(end);
}

LevelWords levelWordsOf(const std::string &text, bool hasLevel)
{
    LevelWords words;
    std::string again;
    const auto end = endOfTied(text);
    for (std::string_view rest = std::string_view(text).substr(0, end); !rest.empty();) {
        const auto word = firstWord(rest);
        const auto side = beginsTied(word) ? LevelSide::After : LevelSide::Before;
        auto plain = untied(word);
        const auto bare = untied(withoutTie(word, side));
        const bool isOther =
            NoteDynamic::stringToInt(bare) <= 0 && (hasLevel || !areLikeLevel(bare));
        const bool isInOrder = side == LevelSide::After
            || (hasLevel && (words.tied.empty() || words.tied.back().side == side));
        if (tiedToLevel(plain, side) != word || !isOther || !isInOrder)
            return {{}, text};
        words.tied.push_back({std::move(plain), side});
        again = joinedWords(again, std::string(word));
        rest.remove_prefix(std::min(word.size() + 1, rest.size()));
    }
    words.others = text.substr(end);
    const bool isSame = joinedWords(again, words.others) == text
        && (words.others.empty() || spaces.find(words.others.front()) == spaces.npos);
    return isSame ? words : LevelWords{{}, text};
}

bool areLikeLevel(std::string_view words)
{
    if (words.size() < 2 || words.find_first_not_of("fmprsz") != words.npos
        || words.find_first_of("fp") == words.npos)
        return false;
    std::string name(words);
    for (auto &letter : name)
        letter = static_cast<char>(letter - 'a' + 'A');
    return NoteDynamic::stringToInt(name) <= 0;
}

} // namespace zarn::io
