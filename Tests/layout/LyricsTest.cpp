// SPDX-License-Identifier: MIT
#include "support/LaidOut.h"
#include "support/ViolinPiece.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

namespace {

using namespace zarn;
using layout::MarkKind;
using ::test::LaidOut;
using Piece = ::test::ViolinPiece;
using NoteValue = RhythmValue::NoteValue;

} // namespace

/// Dashes that a file writes in its syllables would stand beside the hyphens of the page.
TEST(LyricsTest, aWordHasOneHyphenBetweenItsSyllables)
{
    struct Sung {
        const char *text;
        Syllabic syllabic;
        const char *shown;
    };
    const Sung words[] = {{"com -", Syllabic::Begin, "com"},
                          {"- pri-", Syllabic::Middle, "pri"},
                          {"\u2013\u00A0se", Syllabic::End, "se"},
                          {"-re-", Syllabic::Single, "-re-"},
                          {"-", Syllabic::End, "-"}};
    Piece piece(5);
    for (unsigned bar = 0; bar < 5; ++bar) {
        Syllable syllable;
        syllable.text = words[bar].text;
        syllable.syllabic = words[bar].syllabic;
        piece.add({72}, NoteValue::Whole, 0, 0, bar).setLyrics({syllable});
    }
    const LaidOut laid(*piece.model);
    unsigned hyphens = 0;
    for (const auto &mark : laid.of(MarkKind::Lyric)) {
        if (mark.text.empty())
            ++hyphens;
        else
            EXPECT_EQ(mark.text, words[mark.place.bar].shown);
    }
    EXPECT_EQ(hyphens, 2U);
}

/// Where a long syllable pushes the end of the line to where it ends itself, too.
TEST(LyricsTest, aWordThatGoesOnHasAHyphenAtTheEndOfTheLine)
{
    for (std::size_t length = 12; length < 60; ++length) {
        const std::string text(length, 'o');
        Piece piece(2);
        Syllable syllable;
        syllable.text = text;
        syllable.syllabic = Syllabic::Begin;
        for (const unsigned bar : {0U, 1U})
            piece.add({72}, NoteValue::Whole, 0, 0, bar).setLyrics({syllable});
        const auto sung = LaidOut(*piece.model).of(MarkKind::Lyric);
        ASSERT_EQ(std::count_if(sung.begin(), sung.end(),
                                [](const auto &mark) { return !mark.text.empty(); }),
                  2);
        const auto last =
            std::max_element(sung.begin(), sung.end(), [](const auto &left, const auto &right) {
                return left.right < right.right;
            });
        EXPECT_EQ(last->text, "") << text;
    }
}

/// The line of a last syllable and the hyphens of a word, each over the end of a system and up to
/// where it ends in the next one; a rest there ends both.
TEST(LyricsTest, heldSyllablesLeadOverTheEndsOfSystems)
{
    for (const Syllabic syllabic : {Syllabic::Single, Syllabic::Begin})
        for (const bool rests : {false, true}) {
            Piece piece(2);
            Syllable syllable;
            syllable.text = "la";
            syllable.syllabic = syllabic;
            syllable.hasMelisma = syllabic == Syllabic::Single;
            piece.add({72}, NoteValue::Half).setLyrics({syllable});
            piece.add({74}, NoteValue::Half);
            piece.add(rests ? std::vector<int>{} : std::vector<int>{76}, NoteValue::Half, 0, 0, 1);
            piece.add({77}, NoteValue::Half, 0, 0, 1).setLyrics({syllable});
            piece.model->setFullScoreSystemsLayout({1, 1});
            const LaidOut laid(*piece.model);
            ASSERT_EQ(laid.systemCount, 2U);
            const auto of = [&](MarkKind kind, unsigned system) {
                std::vector<LaidOut::Mark> found;
                for (const auto &mark : laid.of(kind))
                    if (mark.system == system)
                        found.push_back(mark);
                return found;
            };
            const auto first = of(MarkKind::Lyric, 0);
            ASSERT_GE(first.size(), 2U);
            const LaidOut::Mark held = of(MarkKind::NoteHead, 0).back();
            if (syllabic == Syllabic::Single) {
                EXPECT_EQ(first[1].right > held.right + 2, !rests);
                EXPECT_GT(first[1].right, held.right - 0.1);
            }
            auto second = of(MarkKind::Lyric, 1);
            second.erase(std::remove_if(second.begin(), second.end(),
                                        [](const auto &mark) { return !mark.text.empty(); }),
                         second.end());
            // What follows the second word leads to the end; in front of it is what is held.
            const auto heads = of(MarkKind::NoteHead, 1);
            const auto inFront = std::count_if(second.begin(), second.end(), [&](const auto &mark) {
                return mark.right < heads.back().left;
            });
            EXPECT_EQ(inFront > 0, !rests);
        }
}

/// Of words that several grace notes and their main note sing, within a bar and behind a bar line.
TEST(LyricsTest, wordsOfGraceNotesKeepApart)
{
    constexpr unsigned bars = 2;
    Piece piece(bars);
    std::vector<std::string> texts;
    const auto add = [&](NoteValue value, unsigned bar, GraceType type) {
        Syllable syllable;
        syllable.text = "lang" + std::to_string(texts.size());
        texts.push_back(syllable.text);
        Beat &beat = piece.add({72}, value, 0, 0, bar);
        beat.setGraceType(type);
        beat.setLyrics({syllable});
    };
    for (unsigned bar = 0; bar < bars; ++bar)
        for (unsigned i = 0; i < 2; ++i) {
            add(NoteValue::Sixteenth, bar, GraceType::BeforeBeat);
            add(NoteValue::Sixteenth, bar, GraceType::BeforeBeat);
            add(NoteValue::Half, bar, GraceType::None);
        }
    const LaidOut laid(*piece.model);
    ASSERT_EQ(laid.systemCount, 1U);
    const auto words = laid.of(MarkKind::Lyric);
    const auto heads = laid.of(MarkKind::NoteHead);
    ASSERT_EQ(words.size(), texts.size());
    ASSERT_EQ(heads.size(), texts.size());
    for (std::size_t i = 0; i < texts.size(); ++i) {
        EXPECT_EQ(words[i].text, texts[i]);
        EXPECT_NEAR(words[i].left + words[i].right, heads[i].left + heads[i].right, 0.3);
        if (i > 0) {
            EXPECT_GT(words[i].left, words[i - 1].right + 0.3) << texts[i];
        }
    }
}

TEST(LyricsTest, dynamicsStandAboveWhatIsSung)
{
    for (const bool isSung : {false, true}) {
        Piece piece;
        Beat &beat = piece.add({72}, NoteValue::Whole);
        BeatMarks marks = beat.marks();
        marks.setDynamic(NoteDynamic(NoteDynamic::Value::F));
        beat.setMarks(marks);
        Syllable syllable;
        syllable.text = "la";
        if (isSung)
            beat.setLyrics({syllable});
        const auto dynamic = LaidOut(*piece.model).of(MarkKind::Dynamic).front();
        EXPECT_EQ(dynamic.bottom < 0, isSung);
        EXPECT_EQ(dynamic.top > 4, !isSung);
    }
}

TEST(LyricsTest, versesStandEvenlyBelowOneAnother)
{
    Piece piece;
    std::vector<Syllable> lyrics;
    for (const char *const text : {"plum", "sea", "moon", "glyph", "era"}) {
        Syllable syllable;
        syllable.text = text;
        syllable.line = static_cast<std::uint8_t>(lyrics.size());
        lyrics.push_back(syllable);
    }
    piece.add({72}, NoteValue::Whole).setLyrics(lyrics);
    const auto sung = LaidOut(*piece.model).of(MarkKind::Lyric);
    ASSERT_EQ(sung.size(), lyrics.size());
    for (std::size_t i = 1; i < sung.size(); ++i)
        EXPECT_NEAR(sung[i].y - sung[i - 1].y, sung[1].y - sung[0].y, 0.01) << sung[i].text;
}

/// A long word begins in front of the last note that is held: the line ends short of it.
TEST(LyricsTest, heldLinesEndInFrontOfTheNextWord)
{
    Piece piece;
    piece.add({72}, NoteValue::Half).setLyrics({{0, Syllabic::Single, true, "few"}});
    piece.add({72}, NoteValue::Quarter);
    piece.add({74}, NoteValue::Quarter).setLyrics({{0, Syllabic::Single, false, "strengths"}});
    const LaidOut laid(*piece.model);
    const auto sung = laid.of(MarkKind::Lyric);
    ASSERT_EQ(sung.size(), 3U);
    const auto text = [&](const char *word) {
        return *std::find_if(sung.begin(), sung.end(),
                             [&](const auto &mark) { return mark.text == word; });
    };
    const auto heads = laid.of(MarkKind::NoteHead);
    EXPECT_LT(text("strengths").left, (heads[1].left + heads[1].right) / 2);
    EXPECT_GT(text("").left, text("few").right);
    EXPECT_LT(text("").right, text("strengths").left);
}

/// A bow, under the gap between the words; a sign that joins nothing is one of the text.
TEST(LyricsTest, wordsThatShareANoteHaveABowBetweenThem)
{
    const std::pair<const char *, const char *> words[] = {
        {"ne~en", "ne\u203Fen"}, {"a~e~i", "a\u203Fe\u203Fi"}, {"~o ~ o~", "~o ~ o~"}};
    for (const auto &[text, shown] : words) {
        Piece piece;
        piece.add({72}, NoteValue::Whole).setLyrics({{0, Syllabic::Single, false, text}});
        const auto sung = LaidOut(*piece.model).of(MarkKind::Lyric);
        ASSERT_EQ(sung.size(), 1U);
        EXPECT_EQ(sung.front().text, shown);
    }
}

/// In a column, in front of the widest of the words, which stand below their note as all others do;
/// what a number belongs to, or ends with, is no number of a verse.
TEST(LyricsTest, numbersOfVersesHangToTheLeftOfTheWords)
{
    struct Sung {
        const char *text;
        const char *number;
        const char *words;
    };
    const Sung verses[] = {{"1. L\u00E0", "1.", "L\u00E0"},
                           {"2.~\u201EStrengths", "2.", "\u201EStrengths"},
                           {"3.-5.\u00A0Ah!", "3.-5.", "Ah!"},
                           {"12 a~e", "12", "a\u203Fe"},
                           {"4.", "", "4."}};
    const Sung others[] = {{"2nd", "", "2nd"}, {"3 !", "", "3 !"}, {"1789", "", "1789"}};
    Piece piece(2);
    const auto lyricsOf = [](const auto &sung) {
        Syllables lyrics;
        for (const Sung &verse : sung)
            lyrics.push_back(
                {static_cast<std::uint8_t>(lyrics.size()), Syllabic::Single, false, verse.text});
        return lyrics;
    };
    piece.add({72}, NoteValue::Whole).setLyrics(lyricsOf(verses));
    piece.add({72}, NoteValue::Whole, 0, 0, 1).setLyrics(lyricsOf(others));
    const LaidOut laid(*piece.model);
    const auto marks = laid.of(MarkKind::Lyric);
    const auto heads = laid.of(MarkKind::NoteHead);
    ASSERT_EQ(marks.size(), 12U);
    const auto markOf = [&](const std::string &text) {
        const auto found = std::find_if(marks.begin(), marks.end(),
                                        [&](const auto &mark) { return mark.text == text; });
        EXPECT_NE(found, marks.end()) << text;
        return found == marks.end() ? marks.front() : *found;
    };
    const auto widest = markOf(verses[1].words);
    for (const Sung &verse : verses) {
        const auto words = markOf(verse.words);
        EXPECT_NEAR(words.left + words.right, heads[0].left + heads[0].right, 0.3) << verse.text;
        if (*verse.number == '\0')
            continue;
        const auto number = markOf(verse.number);
        EXPECT_EQ(number.y, words.y) << verse.text;
        EXPECT_LT(number.right, widest.left - 0.2) << verse.text;
        EXPECT_NEAR(number.right, markOf("1.").right, 0.15) << verse.text;
    }
    for (const Sung &word : others)
        markOf(word.words);
}

/// Over whole systems, while the notes go on: not behind a rest, nor, but for hyphens, where
/// another verse is sung alone.
TEST(LyricsTest, heldSyllablesLeadOverWholeSystems)
{
    enum class Third { Note, Rest, OtherVerse };
    for (const Syllabic syllabic : {Syllabic::Single, Syllabic::Begin})
        for (const Third third : {Third::Note, Third::Rest, Third::OtherVerse}) {
            Piece piece(4);
            const bool isHeld = syllabic == Syllabic::Single;
            piece.add({72}, NoteValue::Whole).setLyrics({{1, syllabic, isHeld, "la"}});
            piece.add({72}, NoteValue::Whole, 0, 0, 1);
            Beat &beat = piece.add(third == Third::Rest ? std::vector<int>{} : std::vector<int>{72},
                                   NoteValue::Whole, 0, 0, 2);
            if (third == Third::OtherVerse)
                beat.setLyrics({{0, Syllabic::Single, false, "lo"}});
            piece.add({72}, NoteValue::Half, 0, 0, 3);
            piece.add({72}, NoteValue::Half, 0, 0, 3)
                .setLyrics({{1, isHeld ? Syllabic::Single : Syllabic::End, false, "li"}});
            piece.model->setFullScoreSystemsLayout({1, 1, 1, 1});
            const LaidOut laid(*piece.model);
            ASSERT_EQ(laid.systemCount, 4U);
            std::vector<int> lines(4, 0);
            for (const auto &mark : laid.of(MarkKind::Lyric))
                lines[mark.system] += mark.text.empty() ? 1 : 0;
            const bool reachesLast =
                third == Third::Note || (third == Third::OtherVerse && !isHeld);
            EXPECT_GT(lines[1], 0);
            EXPECT_EQ(lines[2] > 0, third != Third::Rest);
            EXPECT_EQ(lines[3] > 0, reachesLast);
        }
}
