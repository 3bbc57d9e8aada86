// SPDX-License-Identifier: MIT
#include <ZarnCore/io/musicxml/JumpWords.h>

#include <ZarnCore/io/musicxml/writer/XmlElement.h>
#include <ZarnCore/model/form/ZarnFormWords.h>

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
    {"dc", Kind::DaCapo},           {"dacapo", Kind::DaCapo}, {"ds", Kind::DalSegno},
    {"dalsegno", Kind::DalSegno},   {"dss", Kind::DalSegno},  {"delsegno", Kind::DalSegno},
    {"tocoda", Kind::ToCoda},       {"alcoda", Kind::ToCoda}, {"fine", Kind::Fine},
    {"todoublecoda", Kind::ToCoda},
};

/// How they go on: nothing but one of these, or they are about something else.
struct Ending {
    std::string_view letters;
    Until until;
};

constexpr Ending endings[] = {
    {"", Until::End},
    {"alfine", Until::Fine},
    {"alcoda", Until::Coda},
    {"alafine", Until::Fine},
    {"allafine", Until::Fine},
    {"allacoda", Until::Coda},
    {"aldoublecoda", Until::DoubleCoda},
};

/// What is written of a mark besides its words or its sign, which has the name of the attribute.
struct SoundOfMark {
    const char *attribute;
    const char *value;
};

SoundOfMark soundOf(DirectionMark mark)
{
    using Mark = DirectionMark;
    if (mark == Mark::Coda || mark == Mark::DoubleCoda)
        return {"coda", codaNames[mark == Mark::DoubleCoda ? 1 : 0]};
    if (mark == Mark::Segno || mark == Mark::SegnoSegno)
        return {"segno", segnoNames[mark == Mark::SegnoSegno ? 1 : 0]};
    if (mark == Mark::Fine)
        return {"fine", "yes"};
    switch (targetOfDirection(mark)) {
    case Mark::Coda:
        return {"tocoda", codaNames[0]};
    case Mark::DoubleCoda:
        return {"tocoda", codaNames[1]};
    case Mark::Segno:
        return {"dalsegno", segnoNames[0]};
    case Mark::SegnoSegno:
        return {"dalsegno", segnoNames[1]};
    default:
        return {"dacapo", "yes"};
    }
}

/// The words of a jump without markup, and without signs that only music fonts have.
std::string plainWords(const std::string &words)
{
    std::string plain;
    for (std::size_t at = 0; at < words.size();) {
        const auto end = words[at] == '<' ? words.find('>', at) : std::string::npos;
        const auto first = static_cast<unsigned char>(words[at]);
        const auto second = at + 2 < words.size() ? static_cast<unsigned char>(words[at + 1]) : 0;
        // U+E000 to U+F8FF are for private use.
        const bool isPrivate =
            (first == 0xEE && second != 0) || (first == 0xEF && second >= 0x80 && second < 0xA4);
        if (end != std::string::npos)
            at = end + 1;
        else if (isPrivate)
            at += 3;
        else
            plain += words[at++];
    }
    return plain;
}

} // namespace

void writeJump(DirectionMark mark, const std::string &words, pugi::xml_node measure)
{
    const auto sound = soundOf(mark);
    auto direction = addElement(measure, "direction");
    addAttribute(direction, "placement", "above");
    auto type = addElement(direction, "direction-type");
    if (isAtBarEnd(mark))
        addElement(type, "words", words);
    else
        addElement(type, sound.attribute);
    addAttribute(addElement(direction, "sound"), sound.attribute, sound.value);
}

std::optional<SpokenJump> jumpOfWords(const std::string &words)
{
    std::string letters;
    for (const char letter : plainWords(words)) {
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
