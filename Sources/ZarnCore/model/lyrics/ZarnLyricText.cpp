// SPDX-License-Identifier: MIT
#include <ZarnCore/model/lyrics/ZarnLyricText.h>

namespace zarn {

namespace {

constexpr std::string_view blanks = " \t\r\n";
constexpr std::string_view signs = " \t\r\n-_\\";

constexpr bool isIn(std::string_view letters, char letter) noexcept
{
    return letters.find(letter) != std::string_view::npos;
}

bool beginsInWord(Syllabic syllabic) noexcept
{
    return syllabic == Syllabic::Middle || syllabic == Syllabic::End;
}
bool goesOn(Syllabic syllabic) noexcept
{
    return syllabic == Syllabic::Begin || syllabic == Syllabic::Middle;
}

class LyricReader {
public:
    LyricSyllables read(std::string_view text)
    {
        for (std::size_t i = 0; i < text.size(); ++i) {
            const bool isTaken = text[i] == '\\' && i + 1 < text.size();
            if (isTaken)
                addLetter(text[++i]);
            else if (isIn(blanks, text[i]))
                _isBehindBlank = true;
            else if (text[i] == '-')
                addHyphen();
            else if (text[i] == '_')
                addNote();
            else
                addLetter(text[i]);
        }
        return std::move(_syllables);
    }

private:
    void addLetter(char letter)
    {
        if (_syllables.empty() || _isClosed || _isBehindBlank) {
            _syllables.emplace_back();
            _syllables.back().syllabic = _isInWord ? Syllabic::End : Syllabic::Single;
            _isInWord = false;
            _isClosed = false;
            _isBehindBlank = false;
        }
        _syllables.back().text += letter;
    }

    /// The first one behind a syllable says that its word goes on.
    void addHyphen()
    {
        if (_isInWord && !_syllables.empty())
            ++_syllables.back().notes;
        else if (!_syllables.empty() && !_syllables.back().text.empty())
            _syllables.back().syllabic =
                beginsInWord(_syllables.back().syllabic) ? Syllabic::Middle : Syllabic::Begin;
        _isInWord = true;
        _isClosed = true;
    }

    void addNote()
    {
        if (_syllables.empty()) {
            _syllables.emplace_back();
        } else {
            ++_syllables.back().notes;
            if (!_isBehindBlank && !_syllables.back().text.empty())
                _syllables.back().hasMelisma = true;
        }
        _isClosed = true;
    }

    LyricSyllables _syllables;
    bool _isInWord = false;      ///< a hyphen stands behind the last syllable
    bool _isClosed = false;      ///< a sign does
    bool _isBehindBlank = false; ///< a blank stands in front
};

void addEscaped(std::string &text, const std::string &word)
{
    for (const char letter : word) {
        if (isIn(signs, letter))
            text += '\\';
        text += letter;
    }
}

} // namespace

LyricSyllables lyricsFromText(std::string_view text)
{
    return LyricReader().read(text);
}

std::string lyricsToText(const LyricSyllables &syllables)
{
    std::string text;
    bool isFirst = true;
    bool isInWord = false;
    for (const LyricSyllable &syllable : syllables) {
        if (isFirst && beginsInWord(syllable.syllabic))
            text += '-';
        else if (!isFirst && !isInWord)
            text += ' ';
        isFirst = false;
        isInWord = goesOn(syllable.syllabic) && !syllable.text.empty();
        addEscaped(text, syllable.text);
        const unsigned more = syllable.notes - 1;
        if (syllable.text.empty()) {
            text += '_';
            for (unsigned i = 0; i < more; ++i)
                text += " _";
        } else if (syllable.hasMelisma) {
            text.append(more, '_');
        } else if (isInWord) {
            text.append(more, '-');
        } else {
            for (unsigned i = 0; i < more; ++i)
                text += " _";
        }
        if (isInWord)
            text += '-';
    }
    return text;
}

std::vector<std::string_view> joinedWords(std::string_view text)
{
    constexpr char joint = '~';
    const auto isOfWord = [&](std::size_t at) {
        return text[at] != joint && !isIn(blanks, text[at]);
    };
    std::vector<std::string_view> words;
    std::size_t start = 0;
    for (std::size_t at = 1; at + 1 < text.size(); ++at)
        if (text[at] == joint && isOfWord(at - 1) && isOfWord(at + 1)) {
            words.push_back(text.substr(start, at - start));
            start = at + 1;
        }
    words.push_back(text.substr(start));
    return words;
}

} // namespace zarn
