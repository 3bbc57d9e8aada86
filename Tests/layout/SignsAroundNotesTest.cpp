// SPDX-License-Identifier: MIT
#include "support/LaidOut.h"
#include "support/ViolinPiece.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <string>
#include <vector>

namespace {

using namespace zarn;
using layout::MarkKind;
using ::test::LaidOut;
using Piece = ::test::ViolinPiece;
using NoteValue = RhythmValue::NoteValue;

} // namespace

/// Rests that are hidden, and those of whole bars, which stand in the middle, have no place of
/// their own among the notes: what hangs on them does.
TEST(SignsAroundNotesTest, signsOfRestsThatAreNotDrawnAreShown)
{
    Piece piece(3);
    piece.add({60}, NoteValue::Whole);
    Beat &wholeBar = piece.add({}, NoteValue::Whole, 0, 0, 1);
    wholeBar.setWholeBarRest(true);
    wholeBar.setText("con sord.");
    wholeBar.setDynamic(NoteDynamic::Value::PP);
    Beat &hidden = piece.add({}, NoteValue::Quarter, 0, 0, 2);
    hidden.setPlaceHolder(true);
    hidden.setText("senza sord.");
    hidden.setDynamic(NoteDynamic::Value::FFF);
    hidden.setHairpin(Hairpin::Decrescendo);
    piece.add({60}, NoteValue::Half, 0, 0, 2).setHairpin(Hairpin::Decrescendo);
    piece.add({60}, NoteValue::Quarter, 0, 0, 2).setDynamic(NoteDynamic::Value::P);
    const LaidOut laid(*piece.model);
    const auto rests = laid.of(MarkKind::Rest);
    ASSERT_EQ(rests.size(), 1U);
    const auto words = laid.of(MarkKind::Text);
    ASSERT_EQ(words.size(), 2U);
    EXPECT_EQ(words[0].text, "con sord.");
    EXPECT_EQ(words[0].place.bar, 1);
    EXPECT_LT(words[0].left, rests[0].left);
    EXPECT_EQ(words[1].text, "senza sord.");
    const auto notes = laid.of(MarkKind::NoteHead);
    ASSERT_EQ(notes.size(), 3U);
    EXPECT_LT(words[1].left, notes[1].left);
    const auto dynamics = laid.of(MarkKind::Dynamic);
    ASSERT_EQ(dynamics.size(), 3U);
    EXPECT_EQ(dynamics[0].glyph, "dynamicPP");
    EXPECT_EQ(dynamics[1].glyph, "dynamicFFF");
    // One hairpin, from the hidden beat to the last dynamic.
    const auto hairpins = laid.of(MarkKind::Hairpin);
    ASSERT_EQ(hairpins.size(), 2U);
    EXPECT_LT(hairpins[0].left, notes[1].left);
    EXPECT_GT(hairpins[0].right, notes[1].right);
}

/// Nor do they join hairpins between which a bar of other voices lies.
TEST(SignsAroundNotesTest, hairpinsOfHiddenBeatsEndInTheirBars)
{
    Piece piece(3);
    for (unsigned bar = 0; bar < 3; ++bar) {
        piece.add({60}, NoteValue::Whole, 0, 0, bar);
        if (bar == 1)
            continue;
        Beat &hidden = piece.add({}, NoteValue::Whole, 0, 1, bar);
        hidden.setPlaceHolder(true);
        hidden.setHairpin(Hairpin::Decrescendo);
    }
    const LaidOut laid(*piece.model);
    const auto hairpins = laid.of(MarkKind::Hairpin);
    const auto notes = laid.of(MarkKind::NoteHead);
    ASSERT_EQ(hairpins.size(), 4U);
    ASSERT_EQ(notes.size(), 3U);
    EXPECT_LT(hairpins[0].right, notes[1].left);
    EXPECT_GT(hairpins[2].right, notes[2].right);
}

/// A hairpin that begins within a note is carried by hidden beats of another voice, and goes on.
TEST(SignsAroundNotesTest, hairpinsGoOnInOtherVoices)
{
    Piece piece(2);
    piece.add({60}, NoteValue::Whole);
    for (const Hairpin kind : {Hairpin::NoHairpin, Hairpin::Crescendo}) {
        Beat &hidden = piece.add({}, NoteValue::Half, 0, 1);
        hidden.setPlaceHolder(true);
        hidden.setHairpin(kind);
    }
    piece.add({60}, NoteValue::Half, 0, 0, 1).setHairpin(Hairpin::Crescendo);
    piece.add({60}, NoteValue::Half, 0, 0, 1);
    const LaidOut laid(*piece.model);
    const auto hairpins = laid.of(MarkKind::Hairpin);
    const auto notes = laid.of(MarkKind::NoteHead);
    ASSERT_EQ(hairpins.size(), 2U);
    EXPECT_GT(hairpins[0].left, notes[0].right);
    EXPECT_LT(hairpins[0].left, notes[1].left);
    EXPECT_GT(hairpins[0].right, notes[1].right);
    EXPECT_LT(hairpins[0].right, notes[2].left);
}

/// To the end of the bar, where nothing of its voice is drawn behind it; a hidden beat that others
/// follow is there to end it.
TEST(SignsAroundNotesTest, hairpinsHoldToTheBarLineOrTheEndOfAHiddenBeat)
{
    for (const bool isHidden : {false, true})
        for (const bool hasMore : {false, true}) {
            Piece piece;
            for (unsigned i = 0; i < 4; ++i)
                piece.add({60}, NoteValue::Quarter);
            Beat &beat = piece.add({}, NoteValue::Quarter, 0, 1);
            beat.setPlaceHolder(isHidden);
            beat.setHairpin(Hairpin::Crescendo);
            if (hasMore)
                piece.add({}, NoteValue::Half, 1, 1).setPlaceHolder(true);
            const LaidOut laid(*piece.model);
            const auto hairpin = laid.of(MarkKind::Hairpin).at(0);
            const auto notes = laid.of(MarkKind::NoteHead);
            EXPECT_EQ(hairpin.right < notes[1].right, isHidden && hasMore);
            EXPECT_EQ(hairpin.right > notes[3].right, !isHidden || !hasMore);
        }
}

/// Several bars of rest make one sign, but for those that something hangs on.
TEST(SignsAroundNotesTest, restsWithSignsAreNotJoined)
{
    Piece piece(8);
    piece.add({60}, NoteValue::Whole);
    for (unsigned bar = 1; bar < 8; ++bar)
        piece.add({}, NoteValue::Whole, 0, 0, bar).setWholeBarRest(true);
    piece.model->track(0)->bar(4)->voice(0)->beat(0)->setDynamic(NoteDynamic::Value::PP);
    layout::LayoutOptions options;
    options.multiRest = true;
    const LaidOut laid(*piece.model, options);
    EXPECT_EQ(laid.of(MarkKind::Dynamic).size(), 1U);
    std::set<int> bars;
    for (const auto &mark : laid.of(MarkKind::MultiRest))
        bars.insert(mark.place.bar);
    EXPECT_EQ(bars, (std::set<int>{1, 5}));
}

/// Words as programs write them: characters and names of music fonts among letters, and tags.
TEST(SignsAroundNotesTest, signsAmongWordsAreOfTheMusicFont)
{
    Piece piece;
    Beat &beat = piece.add({72}, NoteValue::Whole);
    beat.setText("D.S. <font face=\"Text\">\uE047</font> al <sym>coda</sym><b>!</b> 2 < 3 \uF8F0");
    Syllable syllable;
    syllable.text = "ne\uE551en\u00A0 ";
    beat.setLyrics({syllable});
    const LaidOut laid(*piece.model);
    std::vector<std::string> words;
    double end = -1e9;
    for (const auto &mark : laid.of(MarkKind::Text)) {
        words.push_back(mark.glyph.empty() ? mark.text : mark.glyph);
        EXPECT_GE(mark.left, end - 0.05) << words.back();
        end = mark.right;
        EXPECT_LT(mark.bottom - mark.top, 3.0) << words.back();
    }
    EXPECT_EQ(words, (std::vector<std::string>{"D.S. ", "segno", " al ", "coda", "! 2 < 3 "}));
    ASSERT_EQ(laid.layout->problems().size(), 1U);
    EXPECT_EQ(laid.layout->problems()[0].message, "The music font has no sign U+F8F0.");

    const auto sung = laid.of(MarkKind::Lyric);
    ASSERT_EQ(sung.size(), 3U);
    EXPECT_EQ(sung[1].glyph, "lyricsElision");
    EXPECT_EQ(sung[2].text, "en");
    const auto head = laid.of(MarkKind::NoteHead).front();
    EXPECT_NEAR(sung.front().left + sung.back().right, head.left + head.right, 0.3);
}

TEST(SignsAroundNotesTest, theHeaviestAccentsStandAboveTheirNotes)
{
    for (const int key : {62, 79}) {
        Piece piece;
        Beat &beat = piece.add({key}, NoteValue::Quarter);
        NoteMarks marks = beat.notes()[0]->marks();
        marks.setAccents(AccentFlag::HeavyAccent);
        beat.notes()[0]->setMarks(marks);
        const LaidOut laid(*piece.model);
        const auto accents = laid.of(MarkKind::Articulation);
        ASSERT_EQ(accents.size(), 1U);
        EXPECT_LT(accents[0].bottom, laid.of(MarkKind::NoteHead)[0].top);
        EXPECT_LT(accents[0].bottom, 0.0);
    }
}

TEST(SignsAroundNotesTest, chordSymbolsShowSharpsAndFlats)
{
    for (const auto &[typed, printed] :
         std::vector<std::pair<std::string, std::string>>{{"Ebm7b5/Bb", "E\u266Dm7\u266D5/B\u266D"},
                                                          {"F#7#9", "F\u266F7\u266F9"},
                                                          {"Bbb", "B\u266D\u266D"},
                                                          {"Csub", "Csub"}}) {
        Piece piece;
        piece.add({60}, NoteValue::Whole).setChordSymbol(typed);
        const LaidOut laid(*piece.model);
        const auto symbols = laid.of(MarkKind::ChordSymbol);
        ASSERT_EQ(symbols.size(), 1U);
        EXPECT_EQ(symbols[0].text, printed);
    }
}

/// Voices that change chords together: one symbol where they agree, one above the other where they
/// do not.
TEST(SignsAroundNotesTest, chordSymbolsOfVoicesStandAboveOneAnother)
{
    Piece piece(2);
    for (const unsigned voice : {0U, 1U}) {
        piece.add({voice == 0 ? 72 : 60}, NoteValue::Whole, 0, voice).setChordSymbol("N.C.");
        piece.add({voice == 0 ? 72 : 60}, NoteValue::Whole, 0, voice, 1)
            .setChordSymbol(voice == 0 ? "Am7" : "F#7");
    }
    const auto symbols = LaidOut(*piece.model).of(MarkKind::ChordSymbol);
    ASSERT_EQ(symbols.size(), 3U);
    EXPECT_EQ(symbols[0].text, "N.C.");
    EXPECT_EQ(symbols[1].text, "Am7");
    EXPECT_EQ(symbols[2].text, "F\u266F7");
    EXPECT_NEAR(symbols[0].y, symbols[1].y, 0.01);
    EXPECT_LT(symbols[2].bottom, symbols[1].top);
}

/// A tuning that nobody would guess and a capo are named once, at the first system.
TEST(SignsAroundNotesTest, unusualStringsAreNamedInFrontOfTheMusic)
{
    const auto textsOf = [](std::initializer_list<unsigned> pitches, std::uint8_t capo) {
        ScoreModel model;
        model.createAndInsertTrack(0, InstrumentSet::steelGuitar);
        model.insertEmptyBarColumns(0, 60);
        model.track(0)->staff(0)->setTuning(GuitarTuning(pitches));
        model.track(0)->staff(0)->setCapoFret(capo);
        std::vector<std::string> texts;
        for (const auto &mark : LaidOut(model).of(MarkKind::Tuning))
            texts.push_back(mark.text);
        return texts;
    };
    using Texts = std::vector<std::string>;
    EXPECT_EQ(textsOf({40, 45, 50, 55, 59, 64}, 0), Texts());
    EXPECT_EQ(textsOf({40, 45, 50, 55, 59, 64}, 3), Texts{"Capo 3"});
    EXPECT_EQ(textsOf({38, 45, 50, 55, 59, 64}, 2), Texts{"Tuning: D A D G B E, capo 2"});
}

/// Dashes behind words lead over all systems up to their end.
TEST(SignsAroundNotesTest, dashesBehindWordsGoOnInTheNextSystems)
{
    Piece piece(4);
    for (unsigned bar = 0; bar < 4; ++bar)
        for (int i = 0; i < 4; ++i)
            piece.add({72}, NoteValue::Quarter, 0, 0, bar);
    const auto beat = [&](unsigned bar, unsigned index) {
        return piece.model->track(0)->bar(bar)->voice(0)->beat(index);
    };
    beat(0, 2)->setText("cresc.");
    beat(0, 2)->setTextSpan(TextSpan::Begin);
    beat(2, 1)->setTextSpan(TextSpan::End);
    piece.model->setFullScoreSystemsLayout({1, 1, 1, 1});
    const LaidOut laid(*piece.model);
    ASSERT_EQ(laid.systemCount, 4U);
    const auto notes = laid.of(MarkKind::NoteHead);
    std::vector<double> right(4, -1);
    for (const auto &mark : laid.of(MarkKind::Text))
        if (mark.text.empty())
            right[mark.system] = std::max(right[mark.system], mark.right);
    EXPECT_GT(right[0], notes[3].right);
    EXPECT_GT(right[1], notes[7].right);
    EXPECT_GT(right[2], notes[9].left);
    EXPECT_LT(right[2], notes[10].left);
    EXPECT_EQ(right[3], -1);

    // Behind words under the staff they are under it in all systems.
    beat(0, 2)->setText({});
    beat(0, 2)->setTextBelow("cresc.");
    beat(0, 2)->setTextSpan(TextSpan::BeginBelow);
    unsigned systems = 0;
    for (const auto &mark : LaidOut(*piece.model).of(MarkKind::Text)) {
        EXPECT_GT(mark.top, 4);
        systems |= 1U << mark.system;
    }
    EXPECT_EQ(systems, 7U);
}

/// An octave sign that goes on in the next system has no hook at its end, and a reminder there.
TEST(SignsAroundNotesTest, octaveSignsGoOnInTheNextSystem)
{
    Piece piece(3);
    for (unsigned bar = 0; bar < 3; ++bar)
        for (int i = 0; i < 4; ++i)
            piece.add({88}, NoteValue::Quarter, 0, 0, bar).setOttavia(Ottavia::_8va);
    piece.model->setFullScoreSystemsLayout({2, 1});
    const LaidOut laid(*piece.model);
    ASSERT_EQ(laid.systemCount, 2U);
    unsigned reminders = 0;
    for (const auto &mark : laid.of(MarkKind::Enclosure)) {
        EXPECT_EQ(mark.system, 1U);
        ++reminders;
    }
    EXPECT_EQ(reminders, 2U);
    unsigned hooks = 0;
    for (const auto &mark : laid.of(MarkKind::Ottava))
        if (mark.glyph.empty() && mark.bottom - mark.top > 1) {
            EXPECT_EQ(mark.system, 1U);
            ++hooks;
        }
    EXPECT_EQ(hooks, 1U);
}

/// An octave sign counts from what a clef with a number says, as that of a guitar.
TEST(SignsAroundNotesTest, octaveSignsCountFromTheNumberOfTheClef)
{
    Piece piece(1);
    piece.model->track(0)->bar(0)->setOttavia(Ottavia::_8vb);
    piece.add({64}, NoteValue::Half);
    piece.add({76}, NoteValue::Half).setOttavia(Ottavia::_8va);
    const LaidOut laid(*piece.model);
    const auto heads = laid.of(MarkKind::NoteHead);
    ASSERT_EQ(heads.size(), 2U);
    EXPECT_EQ(heads[0].top, heads[1].top);
}

/// What a beat shows is when it is played, behind repeats and at the tempo of the score.
TEST(SignsAroundNotesTest, beatsShowWhenTheyArePlayed)
{
    Piece piece(3);
    for (unsigned bar = 0; bar < 3; ++bar)
        piece.add({64}, NoteValue::Whole, 0, 0, bar).setTimer(bar != 1);
    piece.model->masterTrack()->masterBars()[1]->setRepeatCount(17);
    const LaidOut laid(*piece.model);
    std::vector<std::string> texts;
    for (const auto &mark : laid.of(MarkKind::Timer))
        texts.push_back(mark.text);
    // 34 bars of two seconds are played before the last one.
    EXPECT_EQ(texts, (std::vector<std::string>{"0:00", "1:08"}));
    EXPECT_TRUE(laid.layout->problems().empty());
}

/// One sign with its line goes over the notes of a key; another key, or one behind a rest, has its
/// own.
TEST(SignsAroundNotesTest, trillsOfOneKeyHaveOneSign)
{
    Piece piece(2);
    const auto add = [&](const std::vector<int> &keys, unsigned bar) {
        const Beat &beat = piece.add(keys, NoteValue::Quarter, 0, 0, bar);
        for (const auto &note : beat.notes())
            note->setTrill({2, Trill().speed});
    };
    for (const int key : {72, 72, 74, 74})
        add({key}, 0);
    add({74}, 1);
    add({}, 1);
    add({74}, 1);
    std::vector<std::pair<int, int>> signs;
    for (const auto &mark : LaidOut(*piece.model).of(MarkKind::Trill))
        if (mark.glyph == "ornamentTrill")
            signs.emplace_back(mark.place.bar, mark.place.beat);
    std::sort(signs.begin(), signs.end());
    EXPECT_EQ(signs, (std::vector<std::pair<int, int>>{{0, 0}, {0, 2}, {1, 2}}));
}
