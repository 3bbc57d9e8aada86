// SPDX-License-Identifier: MIT
#include <ZarnCore/io/musicxml/JumpWords.h>

#include <ZarnCore/io/musicxml/writer/XmlElement.h>
#include <ZarnCore/model/ZarnMasterTrack.h>

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
    {"alcoda", Kind::ToCoda},     {"fine", Kind::Fine},         {"todoublecoda", Kind::ToCoda},
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

/// What is written of a mark: a sign or words, and an attribute of <sound>.
struct WrittenMark {
    DirectionMark mark;
    const char *words; ///< null for a sign, which has the name of the attribute
    const char *attribute;
    const char *value;
};

using Mark = DirectionMark;

// clang-format off
constexpr WrittenMark writtenMarks[] = {
    {Mark::Coda, nullptr, "coda", codaNames[0]},
    {Mark::DoubleCoda, nullptr, "coda", codaNames[1]},
    {Mark::Segno, nullptr, "segno", segnoNames[0]},
    {Mark::SegnoSegno, nullptr, "segno", segnoNames[1]},
    {Mark::Fine, "Fine", "fine", "yes"},
    {Mark::DaCapo, "D.C.", "dacapo", "yes"},
    {Mark::DaCapoAlCoda, "D.C. al Coda", "dacapo", "yes"},
    {Mark::DaCapoAlDoubleCoda, "D.C. al Double Coda", "dacapo", "yes"},
    {Mark::DaCapoAlFine, "D.C. al Fine", "dacapo", "yes"},
    {Mark::DaSegno, "D.S.", "dalsegno", segnoNames[0]},
    {Mark::DaSegnoAlCoda, "D.S. al Coda", "dalsegno", segnoNames[0]},
    {Mark::DaSegnoAlDoubleCoda, "D.S. al Double Coda", "dalsegno", segnoNames[0]},
    {Mark::DaSegnoAlFine, "D.S. al Fine", "dalsegno", segnoNames[0]},
    {Mark::DaSegnoSegno, "D.S.", "dalsegno", segnoNames[1]},
    {Mark::DaSegnoSegnoAlCoda, "D.S. al Coda", "dalsegno", segnoNames[1]},
    {Mark::DaSegnoSegnoAlDoubleCoda, "D.S. al Double Coda", "dalsegno", segnoNames[1]},
    {Mark::DaSegnoSegnoAlFine, "D.S. al Fine", "dalsegno", segnoNames[1]},
    {Mark::DaCoda, "To Coda", "tocoda", codaNames[0]},
    {Mark::DaDoubleCoda, "To Double Coda", "tocoda", codaNames[1]},
};
// clang-format on

/// The sign that a jump leads to; its own mark where it leads to none.
DirectionMark targetOf(const WrittenMark &jump)
{
    for (const auto &row : writtenMarks)
        if (!row.words && std::string_view(row.value) == jump.value)
            return row.mark;
    return jump.mark;
}

bool operator==(const SpokenJump &left, const SpokenJump &right)
{
    return left.kind == right.kind && left.until == right.until;
}

} // namespace

void writeJump(DirectionMark mark, pugi::xml_node measure)
{
    const auto *const row =
        std::find_if(std::begin(writtenMarks), std::end(writtenMarks),
                     [mark](const WrittenMark &other) { return other.mark == mark; });
    auto direction = addElement(measure, "direction");
    addAttribute(direction, "placement", "above");
    auto type = addElement(direction, "direction-type");
    if (row->words)
        addElement(type, "words", row->words);
    else
        addElement(type, row->attribute);
    addAttribute(addElement(direction, "sound"), row->attribute, row->value);
}

void writeFurtherJump(const std::string &words, const MasterTrack &master, int bar,
                      pugi::xml_node direction)
{
    const auto spoken = jumpOfWords(words);
    if (!spoken)
        return;
    for (const auto &row : writtenMarks) {
        if (!row.words || !(*jumpOfWords(row.words) == *spoken))
            continue;
        const int first = master.directionIndex(row.mark);
        if (first < 0 || first >= bar || master.directionIndex(targetOf(row)) < 0)
            continue;
        addAttribute(addElement(direction, "sound"), row.attribute, row.value);
        return;
    }
}

std::string plainJumpWords(const std::string &words)
{
    constexpr std::string_view spaces = " \t\n\r";
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
    const auto first = std::min(plain.find_first_not_of(spaces), plain.size());
    return plain.substr(first, plain.find_last_not_of(spaces) + 1 - first);
}

std::optional<SpokenJump> jumpOfWords(const std::string &words)
{
    std::string letters;
    for (const char letter : plainJumpWords(words)) {
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
