// SPDX-License-Identifier: MIT
#include <ZarnCore/io/musicxml/signs/Lyrics.h>

#include <ZarnCore/io/musicxml/ImportContext.h>
#include <ZarnCore/io/musicxml/writer/XmlElement.h>
#include <ZarnCore/utils/EnumTable.h>

#include <algorithm>
#include <array>
#include <cstring>

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
        addElement(lyric, tagName(Tag::Text), text);
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
            syllable.text += child.child_value();
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
