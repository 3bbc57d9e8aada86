// SPDX-License-Identifier: MIT
#include <ZarnCore/io/midi/LyricPlacer.h>

#include <ZarnCore/io/midi/MidiText.h>
#include <ZarnCore/model/ZarnBeat.h>

#include <algorithm>

namespace zarn::io {

namespace {

/// Words stand so near to the onset of their note.
constexpr MidiTime nearNote = midiQuarter / 6;

bool startsWith(const std::string &text, const char *signs)
{
    return !text.empty() && std::string(signs).find(text.front()) != std::string::npos;
}

bool isSpace(char letter)
{
    return letter == ' ' || letter == '\n' || letter == '\r' || letter == '\t';
}

/// One syllable as it is sung.
struct Word {
    MidiTime time;
    std::string text;
    bool beginsWord = true;
    bool endsWord = true;
};

std::vector<Word> wordsOf(const std::vector<MidiText> &lyrics)
{
    // Where texts bring their own spaces, those without belong together.
    const bool hasSpaces = std::any_of(lyrics.begin(), lyrics.end(), [](const MidiText &lyric) {
        return lyric.text.size() > 1 && (isSpace(lyric.text.front()) || isSpace(lyric.text.back()));
    });
    std::vector<Word> words;
    bool goesOn = false;
    for (const MidiText &lyric : lyrics) {
        std::string text = lyric.text;
        const bool beginsLine = startsWith(text, "/\\");
        if (beginsLine)
            text.erase(0, 1);
        const bool spaceBefore = beginsLine || startsWith(text, " \r\n\t");
        const bool spaceBehind = !text.empty() && isSpace(text.back());
        std::string plain = textOfMidi(text);
        const bool hyphenBehind = plain.size() > 1 && plain.back() == '-';
        if (hyphenBehind)
            plain.pop_back();
        if (plain.empty() || plain == "-" || plain == "_") {
            goesOn = goesOn && plain == "-";
            if (spaceBefore && !words.empty())
                words.back().endsWord = true;
            continue;
        }
        Word word = {lyric.time, plain};
        word.beginsWord = !goesOn || spaceBefore;
        if (!words.empty() && goesOn && spaceBefore)
            words.back().endsWord = true;
        word.endsWord = !hyphenBehind && (!hasSpaces || spaceBehind);
        goesOn = !word.endsWord;
        words.push_back(std::move(word));
    }
    if (!words.empty())
        words.back().endsWord = true;
    return words;
}

} // namespace

std::size_t placeLyrics(const std::vector<MidiText> &lyrics,
                        const std::vector<StaffBuilder::Onset> &onsets)
{
    std::size_t lost = 0;
    std::size_t next = 0;
    for (const Word &word : wordsOf(lyrics)) {
        while (next < onsets.size()
               && std::min(onsets[next].time, onsets[next].playedTime) + nearNote < word.time
               && std::max(onsets[next].time, onsets[next].playedTime) + nearNote < word.time)
            ++next;
        if (next == onsets.size()
            || std::min(onsets[next].time, onsets[next].playedTime) > word.time + nearNote) {
            ++lost;
            continue;
        }
        Syllable syllable;
        syllable.text = word.text;
        syllable.syllabic = word.beginsWord ? (word.endsWord ? Syllabic::Single : Syllabic::Begin)
                                            : (word.endsWord ? Syllabic::End : Syllabic::Middle);
        onsets[next].beat->setLyrics({syllable});
        ++next;
    }
    return lost;
}

} // namespace zarn::io
