// SPDX-License-Identifier: MIT
#include <ZarnCore/io/musicxml/signs/Lyrics.h>

#include <ZarnCore/io/musicxml/ImportContext.h>
#include <ZarnCore/io/musicxml/writer/XmlElement.h>
#include <ZarnCore/model/lyrics/ZarnLyricText.h>
#include <ZarnCore/utils/EnumTable.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <string_view>

namespace zarn::io {

namespace {

constexpr auto syllabicTexts = utils::enumTable<Syllabic>(utils::KeyMatch::Exact,
                                                          {
                                                              {Syllabic::Single, "single"},
                                                              {Syllabic::Begin, "begin"},
                                                              {Syllabic::Middle, "middle"},
                                                              {Syllabic::End, "end"},
                                                          });
static_assert(syllabicTexts.isConsistent());

constexpr int lineCount = static_cast<int>(Syllable::LineCount);

/// What stands between two syllables on one note.
constexpr char elision = '~';

/// The bows that stand for it in texts, in UTF-8: the undertie, and those of music fonts, narrow to
/// wide (SMuFL 1.4, U+E550 to U+E552).
constexpr std::array<std::string_view, 4> bows = {"\u203F", "\uE550", "\uE551", "\uE552"};

/// One sign for bows in a row: programs write several to make a wide one.
std::string withoutBows(std::string_view text)
{
    std::string plain;
    while (!text.empty()) {
        const auto bow = std::find_if(bows.begin(), bows.end(), [&](std::string_view known) {
            return text.substr(0, known.size()) == known;
        });
        if (bow == bows.end())
            plain += text.front();
        else if (plain.empty() || plain.back() != elision)
            plain += elision;
        text.remove_prefix(bow == bows.end() ? 1 : bow->size());
    }
    return plain;
}

/// The words of a syllable, with the bows between them.
void addSungWords(const std::string &text, pugi::xml_node lyric)
{
    bool isFirst = true;
    for (const std::string_view word : joinedWords(text)) {
        if (!isFirst)
            addElement(lyric, tagName(Tag::Elision), bows.front().data());
        addElement(lyric, tagName(Tag::Text), std::string(word));
        isFirst = false;
    }
}

/// Where one element has several syllables, the word goes on where the last of them does.
Syllabic joined(Syllabic first, Syllabic last)
{
    const bool begins = first == Syllabic::Single || first == Syllabic::Begin;
    const bool ends = last == Syllabic::Single || last == Syllabic::End;
    if (begins)
        return ends ? Syllabic::Single : Syllabic::Begin;
    return ends ? Syllabic::End : Syllabic::Middle;
}

} // namespace

unsigned writeLyrics(const Syllables &syllables, pugi::xml_node note)
{
    unsigned leftOut = 0;
    for (const auto &syllable : syllables) {
        const auto text = xmlText(syllable.text);
        if (text.find_first_not_of(" \t\r\n") == text.npos) {
            ++leftOut;
            continue;
        }
        auto lyric = addElement(note, tagName(Tag::Lyric));
        addAttribute(lyric, "number", syllable.line + 1);
        addElement(lyric, tagName(Tag::Syllabic),
                   syllabicTexts.textOrFirst(syllable.syllabic).data());
        addSungWords(text, lyric);
        if (syllable.hasMelisma)
            addElement(lyric, tagName(Tag::Extend));
    }
    return leftOut;
}

Syllable Lyrics::read(pugi::xml_node lyric)
{
    Syllable syllable;
    bool hasText = false;
    for (auto child = lyric.first_child(); child; child = child.next_sibling()) {
        switch (tagOf(child.name())) {
        case Tag::Text:
            syllable.text += withoutBows(child.child_value());
            hasText = true;
            break;
        case Tag::Syllabic: {
            const auto syllabic = syllabicTexts.valueOrFirst(child.child_value());
            syllable.syllabic = hasText ? joined(syllable.syllabic, syllabic) : syllabic;
            break;
        }
        case Tag::Elision:
            syllable.text += elision;
            break;
        case Tag::Extend:
            syllable.hasMelisma = std::strcmp(child.attribute("type").value(), "stop") != 0;
            break;
        default:
            break;
        }
    }
    return syllable;
}

/// The line of a name, from 0; `lineCount` when there is none for it.
int Lyrics::lineOf(const char *name)
{
    const auto found = _lines.find(name);
    if (found != _lines.end())
        return found->second;
    std::array<bool, Syllable::LineCount> taken = {};
    for (const auto &[other, line] : _lines)
        if (line < lineCount)
            taken[static_cast<std::size_t>(line)] = true;
    const auto number = parseInteger(*name == '\0' ? "1" : name);
    int line = number && *number >= 1 && *number <= lineCount ? *number - 1 : 0;
    if (!number || taken[static_cast<std::size_t>(line)])
        line = static_cast<int>(std::find(taken.begin(), taken.end(), false) - taken.begin());
    if (number && *number > lineCount)
        line = lineCount;
    constexpr std::size_t mostNames = 64;
    if (_lines.size() < mostNames)
        _lines.emplace(name, line);
    return line;
}

void Lyrics::add(pugi::xml_node lyric, const NotePlace &place)
{
    auto syllable = read(lyric);
    if (syllable.text.empty() && lyric.child(tagName(Tag::Extend)))
        return; // The line of a syllable that stands before goes on, as it does by itself.
    const int line = lineOf(lyric.attribute("number").value());
    if (syllable.text.empty() || line == lineCount) {
        _context.addUnheld(lyric, Tag::Lyric);
        if (line == lineCount)
            _context.addProblemInBar(place.bar, lyric,
                                     "\"" + syllable.text + "\" stands in a sixth line of lyrics "
                                         + "and was left out");
        return;
    }
    syllable.line = static_cast<std::uint8_t>(line);
    auto syllables = place.beat->lyrics();
    const auto at = std::lower_bound(
        syllables.begin(), syllables.end(), syllable,
        [](const Syllable &left, const Syllable &right) { return left.line < right.line; });
    if (at == syllables.end() || at->line != syllable.line) {
        syllables.insert(at, std::move(syllable));
    } else {
        // Two notes of a chord have a syllable each, or two voices that became one.
        at->text += elision + syllable.text;
        at->syllabic = joined(at->syllabic, syllable.syllabic);
        at->hasMelisma = syllable.hasMelisma;
    }
    place.beat->setLyrics(syllables);
}

} // namespace zarn::io
