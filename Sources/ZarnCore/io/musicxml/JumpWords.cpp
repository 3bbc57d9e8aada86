// SPDX-License-Identifier: MIT
#include <ZarnCore/io/musicxml/JumpWords.h>

#include <algorithm>
#include <iterator>
#include <string_view>

namespace zarn::io {

namespace {

using Kind = WrittenJump::Kind;
using Until = WrittenJump::Until;

struct Phrase {
    std::string_view letters;
    Kind kind;
};

/// How the words begin once only their letters are left.
constexpr Phrase phrases[] = {
    {"dc", Kind::DaCapo},         {"dacapo", Kind::DaCapo},     {"ds", Kind::DalSegno},
    {"dalsegno", Kind::DalSegno}, {"delsegno", Kind::DalSegno}, {"tocoda", Kind::ToCoda},
    {"alcoda", Kind::ToCoda},     {"fine", Kind::Fine},
};

/// How they go on: nothing but one of these, or they are about something else.
struct Ending {
    std::string_view letters;
    Until until;
};

constexpr Ending endings[] = {
    {"", Until::End},         {"alfine", Until::Fine},   {"alcoda", Until::Coda},
    {"alafine", Until::Fine}, {"allafine", Until::Fine}, {"allacoda", Until::Coda},
};

} // namespace

std::optional<SpokenJump> jumpOfWords(const std::string &words)
{
    std::string letters;
    for (const char letter : words) {
        if (letter >= 'A' && letter <= 'Z')
            letters += static_cast<char>(letter - 'A' + 'a');
        else if (letter >= 'a' && letter <= 'z')
            letters += letter;
    }
    const std::string_view all = letters;
    for (const auto &phrase : phrases) {
        if (all.substr(0, phrase.letters.size()) != phrase.letters)
            continue;
        const auto rest = all.substr(phrase.letters.size());
        const auto *ending = std::find_if(std::begin(endings), std::end(endings),
                                          [&](const Ending &row) { return row.letters == rest; });
        if (ending != std::end(endings))
            return SpokenJump{phrase.kind, ending->until};
    }
    return std::nullopt;
}

} // namespace zarn::io
