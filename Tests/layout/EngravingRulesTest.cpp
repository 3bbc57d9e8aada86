// SPDX-License-Identifier: MIT
#include "support/LaidOut.h"
#include "support/ScoreFiles.h"

#include <ZarnCore/instruments/sets/ZarnInstrumentSetLibrary.h>
#include <ZarnLayout/draw/ZarnPolygons.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <string>

namespace {

using namespace zarn;
using layout::MarkKind;
using ::test::LaidOut;
using NoteValue = RhythmValue::NoteValue;

/// Bars for a violin that are filled voice by voice.
class Piece {
public:
    explicit Piece(unsigned bars = 1)
    {
        model->createAndInsertTrack(0, InstrumentSet::violin);
        model->track(0)->setChosenNotations(TrackNotations());
        model->insertEmptyBarColumns(0, bars);
    }

    /// Written keys; none for a rest.
    Beat &add(const std::vector<int> &keys, NoteValue value, unsigned dots = 0, unsigned voice = 0,
              unsigned bar = 0)
    {
        auto beat = std::make_shared<Beat>(RhythmValue(value, dots));
        for (const int key : keys)
            beat->addNote(std::make_shared<Note>(key));
        model->track(0)->bar(bar)->ensureVoice(voice)->addBeat(beat);
        return *beat;
    }

    static void tie(Beat &from, Beat &to, unsigned note = 0)
    {
        from.notes()[note]->setTieOrigin(true);
        to.notes()[note]->setTied(true);
    }

    std::shared_ptr<ScoreModel> model = std::make_shared<ScoreModel>();
};

std::vector<double> heightsOf(const LaidOut &laid, MarkKind kind)
{
    std::vector<double> heights;
    for (const auto &mark : laid.of(kind))
        heights.push_back(mark.y);
    std::sort(heights.begin(), heights.end());
    return heights;
}

} // namespace

TEST(EngravingRulesTest, tiesBowAwayFromStemsAndVoicesFromEachOther)
{
    for (const auto &[key, isAbove] : {std::pair<int, bool>{64, false}, {76, true}}) {
        Piece piece;
        Beat &first = piece.add({key}, NoteValue::Half);
        Piece::tie(first, piece.add({key}, NoteValue::Half));
        const LaidOut laid(*piece.model);
        const auto ties = laid.of(MarkKind::Tie);
        ASSERT_EQ(ties.size(), 1U);
        const auto head = laid.of(MarkKind::NoteHead).front();
        EXPECT_EQ(ties[0].bottom < head.y, isAbove);
        EXPECT_EQ(ties[0].top > head.y, !isAbove);
        EXPECT_NEAR(ties[0].left, head.left + (head.right - head.left) * 0.62, 0.02);
    }
    Piece piece;
    for (unsigned voice = 0; voice < 2; ++voice) {
        const int key = voice == 0 ? 76 : 65;
        Beat &first = piece.add({key}, NoteValue::Half, 0, voice);
        Piece::tie(first, piece.add({key}, NoteValue::Half, 0, voice));
    }
    const LaidOut laid(*piece.model);
    const auto ties = laid.of(MarkKind::Tie);
    ASSERT_EQ(ties.size(), 2U);
    EXPECT_LT(ties[0].bottom, 0.5);
    EXPECT_GT(ties[1].top, 3.5);
}

/// A tie may lead from one voice to another: it is one curve, not two that end nowhere.
TEST(EngravingRulesTest, tiesFindTheirEndsInOtherVoices)
{
    Piece piece(2);
    piece.add({76}, NoteValue::Whole);
    Beat &from = piece.add({65}, NoteValue::Whole, 0, 1);
    Beat &to = piece.add({65}, NoteValue::Whole, 0, 0, 1);
    Piece::tie(from, to);
    const LaidOut laid(*piece.model);
    const auto ties = laid.of(MarkKind::Tie);
    const auto heads = laid.of(MarkKind::NoteHead);
    ASSERT_EQ(ties.size(), 1U);
    EXPECT_LT(ties[0].left, heads[1].right + 0.5);
    EXPECT_GT(ties[0].right, heads.back().left - 0.5);
}

/// F sharp that is tied from G flat is written as what it is, and so is what differs from another
/// voice at once on its line.
TEST(EngravingRulesTest, accidentalsTellWhatNobodyCanGuess)
{
    Piece tied(2);
    Beat &flat = tied.add({66}, NoteValue::Whole);
    Beat &sharp = tied.add({66}, NoteValue::Whole, 0, 0, 1);
    flat.notes()[0]->setSpelling(PitchClass::fromString(QStringLiteral("Gb")));
    sharp.notes()[0]->setSpelling(PitchClass::fromString(QStringLiteral("F#")));
    Piece::tie(flat, sharp);
    const LaidOut laid(*tied.model);
    std::vector<std::string> glyphs;
    for (const auto &mark : laid.of(MarkKind::Accidental))
        glyphs.push_back(mark.glyph);
    EXPECT_EQ(glyphs, (std::vector<std::string>{"accidentalFlat", "accidentalSharp"}));
    EXPECT_EQ(laid.of(MarkKind::Tie).size(), 1U);

    Piece voices;
    voices.add({72}, NoteValue::Whole);
    voices.add({73}, NoteValue::Whole, 0, 1);
    EXPECT_EQ(LaidOut(*voices.model).of(MarkKind::Accidental).size(), 2U);
}

TEST(EngravingRulesTest, dotsStandInSpacesOneInEach)
{
    const auto dots = [](const std::vector<int> &upper, const std::vector<int> &lower) {
        Piece piece;
        piece.add(upper, NoteValue::Half, 1);
        if (!lower.empty())
            piece.add(lower, NoteValue::Half, 1, 1);
        return heightsOf(LaidOut(*piece.model), MarkKind::AugmentationDot);
    };
    EXPECT_EQ(dots({72}, {}), (std::vector<double>{1.5})) << "beside a head in a space";
    EXPECT_EQ(dots({71}, {}), (std::vector<double>{1.5})) << "above that of a head on a line";
    EXPECT_EQ(dots({71, 72}, {}), (std::vector<double>{1.5, 2.5})) << "of a second";
    EXPECT_EQ(dots({64, 67, 71}, {}), (std::vector<double>{1.5, 2.5, 3.5}));
    EXPECT_EQ(dots({76}, {64}), (std::vector<double>{0.5, 4.5})) << "of a lower voice below";
    EXPECT_EQ(dots({71}, {71}), (std::vector<double>{1.5})) << "one for a head of two voices";
    EXPECT_EQ(dots({72}, {71}), (std::vector<double>{1.5, 2.5})) << "never two in a space";
}

TEST(EngravingRulesTest, voicesKeepToTheirSides)
{
    Piece piece;
    piece.add({72}, NoteValue::Quarter);
    piece.add({}, NoteValue::Quarter);
    piece.add({72}, NoteValue::Half);
    piece.add({}, NoteValue::Quarter, 0, 1);
    piece.add({69}, NoteValue::Quarter, 0, 1);
    piece.add({69}, NoteValue::Half, 0, 1);
    const LaidOut laid(*piece.model);
    for (const auto &stem : laid.of(MarkKind::Stem))
        EXPECT_EQ(stem.bottom < 2.5, stem.place.voice == 0);
    for (const auto &rest : laid.of(MarkKind::Rest))
        EXPECT_EQ(rest.y < 2, rest.place.voice == 0);
    // A third apart, the heads of both stand in one column.
    const auto heads = laid.of(MarkKind::NoteHead);
    EXPECT_NEAR(heads[1].x, heads.back().x, 0.001);
}

TEST(EngravingRulesTest, theFlagEndsAboveAHeadOnItsSide)
{
    Piece piece;
    piece.add({65, 67, 69}, NoteValue::Eighth);
    piece.add({}, NoteValue::Eighth);
    const LaidOut laid(*piece.model);
    const auto flag = laid.of(MarkKind::Flag).at(0);
    for (const auto &head : laid.of(MarkKind::NoteHead))
        if (head.x > flag.left - 0.2) {
            EXPECT_LE(flag.bottom, head.top);
        }
}

TEST(EngravingRulesTest, aTremoloBetweenTwoNotesNeedsNoTupletNumber)
{
    Piece piece;
    const auto add = [&](unsigned strokes) {
        RhythmValue rhythm(NoteValue::Quarter);
        rhythm.setPrimaryTupletRatio({4, 2});
        for (const unsigned between : {strokes, 0U}) {
            Beat &beat = piece.add({72}, NoteValue::Quarter);
            beat.setRhythmValue(rhythm);
            BeatMarks marks = beat.marks();
            marks.setTremoloToNext(between);
            beat.setMarks(marks);
        }
    };
    add(3);
    add(3);
    EXPECT_TRUE(LaidOut(*piece.model).of(MarkKind::Tuplet).empty());
}

/// However close together the notes would stand, their strokes are strokes and no dots.
TEST(EngravingRulesTest, tremolosBetweenNotesHaveRoom)
{
    Piece piece;
    for (int i = 0; i < 8; ++i) {
        Beat &beat = piece.add({i % 2 == 0 ? 76 : 66}, NoteValue::Eighth);
        BeatMarks marks = beat.marks();
        marks.setTremoloToNext(i % 2 == 0 ? 3 : 0);
        beat.setMarks(marks);
    }
    const auto strokes = LaidOut(*piece.model).of(MarkKind::Tremolo);
    ASSERT_EQ(strokes.size(), 12U);
    for (const auto &stroke : strokes)
        EXPECT_GT(stroke.right - stroke.left, 1.0);
}

TEST(EngravingRulesTest, noBarIsLeftAloneOnTheLastLine)
{
    for (unsigned bars = 8; bars <= 40; bars += 3) {
        SCOPED_TRACE(bars);
        Piece piece(bars);
        for (unsigned bar = 0; bar < bars; ++bar)
            for (int i = 0; i < 4; ++i)
                piece.add({67 + i}, NoteValue::Quarter, 0, 0, bar);
        layout::LayoutOptions options;
        options.breaks = layout::SystemBreaks::ByThemselves;
        const LaidOut laid(*piece.model, options);
        const auto &systems = laid.layout->pages().back().systems;
        if (laid.systemCount > 1) {
            EXPECT_GE(systems.back().drawing->bars.size(), 2U);
        }
    }
}

/// Ties and slurs lie on no head, rest, dot or accidental, by the outlines of both.
TEST(EngravingRulesTest, curvesLieOnNoInk)
{
    for (const std::string &path : scoreFiles()) {
        SCOPED_TRACE(path);
        const LaidOut laid(*readScore(path));
        const layout::Layout &sheets = *laid.layout;
        for (const auto &page : sheets.pages())
            for (const auto &system : page.systems) {
                const auto &list = system.drawing->marks;
                std::vector<layout::Box> heads;
                for (const auto &mark : list.marks())
                    if (mark.kind == MarkKind::NoteHead || mark.kind == MarkKind::AugmentationDot)
                        heads.push_back(list.box(mark, sheets.font()));
                std::sort(
                    heads.begin(), heads.end(),
                    [](const layout::Box &a, const layout::Box &b) { return a.left < b.left; });
                for (const auto &mark : list.marks()) {
                    if (mark.kind != MarkKind::Tie && mark.kind != MarkKind::Slur)
                        continue;
                    const auto box = list.box(mark, sheets.font());
                    const auto polygons = polygonsOf(list, mark, 24);
                    for (const layout::Box &head : heads) {
                        if (head.left > box.right)
                            break;
                        // The middle of a head, which its ink fills whatever its shape is.
                        const double x = (head.left + head.right) / 2.0;
                        const double y = (head.top + head.bottom) / 2.0;
                        const double width = (head.right - head.left) * 0.3;
                        const double height = (head.bottom - head.top) * 0.3;
                        for (const auto &polygon : polygons)
                            for (const layout::Point &point : polygon)
                                EXPECT_FALSE(std::abs(point.x - x) < width
                                             && std::abs(point.y - y) < height)
                                    << "bar " << mark.place.bar << ", track " << mark.place.track;
                    }
                }
            }
    }
}

/// A rest that fills its bar stands in the middle, whether it was written so or meant so.
TEST(EngravingRulesTest, restsThatFillTheirBarStandInItsMiddle)
{
    Piece piece(3);
    piece.add({}, NoteValue::Whole);
    piece.add({}, NoteValue::Whole, 0, 0, 1).setWholeBarRest(true);
    piece.add({}, NoteValue::Half, 0, 0, 2);
    piece.add({}, NoteValue::Half, 0, 0, 2);
    const LaidOut laid(*piece.model);
    const auto rests = laid.of(MarkKind::Rest);
    const auto &bars = laid.layout->pages()[0].systems[0].drawing->bars;
    ASSERT_EQ(rests.size(), 4U);
    for (const auto &rest : rests) {
        const auto &bar = bars[static_cast<std::size_t>(rest.place.bar)];
        const double middle = layout::toSpaces(bar.left + bar.right) / 2;
        const double offset = std::abs((rest.left + rest.right) / 2 - middle);
        EXPECT_EQ(offset < 0.01, rest.place.bar < 2) << rest.place.bar << ' ' << offset;
    }
}

/// A slur from a grace note runs beside the heads, whatever the stem of the main note.
TEST(EngravingRulesTest, slursOfGraceNotesStayAtTheHeads)
{
    for (const int key : {67, 76}) {
        Piece piece;
        Beat &grace = piece.add({key + 2}, NoteValue::Eighth);
        grace.setGraceType(GraceType::BeforeBeat);
        grace.setSlurredToNext(true);
        piece.add({key}, NoteValue::Whole).setSlurredToPrevious(true);
        Piece down;
        Beat &other = down.add({key + 2}, NoteValue::Eighth);
        other.setGraceType(GraceType::BeforeBeat);
        other.setSlurredToNext(true);
        down.add({key}, NoteValue::Quarter).setSlurredToPrevious(true);
        for (const Piece *each : {&piece, &down}) {
            const LaidOut laid(*each->model);
            const auto slurs = laid.of(MarkKind::Slur);
            const auto heads = laid.of(MarkKind::NoteHead);
            ASSERT_EQ(slurs.size(), 1U);
            ASSERT_EQ(heads.size(), 2U);
            EXPECT_LT(slurs[0].bottom, std::max(heads[0].bottom, heads[1].bottom) + 1.5) << key;
            EXPECT_GT(slurs[0].top, std::min(heads[0].top, heads[1].top)) << key;
            EXPECT_LT(slurs[0].right, heads[1].right) << key;
        }
    }
}

/// Words as programs write them: characters and names of music fonts among letters, and tags.
TEST(EngravingRulesTest, signsAmongWordsAreOfTheMusicFont)
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
        EXPECT_LT(mark.bottom - mark.top, 2.5) << words.back();
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

TEST(EngravingRulesTest, dynamicsStandAboveWhatIsSung)
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

/// Halves and wholes hang on a line: outside the staff on one of their own.
TEST(EngravingRulesTest, restsOutsideTheStaffBringTheirLine)
{
    Piece piece;
    piece.add({60}, NoteValue::Half);
    piece.add({72}, NoteValue::Half);
    piece.add({}, NoteValue::Half, 0, 1);
    piece.add({65}, NoteValue::Half, 0, 1);
    const auto rests = LaidOut(*piece.model).of(MarkKind::Rest);
    ASSERT_EQ(rests.size(), 1U);
    EXPECT_EQ(rests[0].glyph, "restHalfLegerLine");
    EXPECT_GT(rests[0].y, 4.1);
}

TEST(EngravingRulesTest, theHeaviestAccentsStandAboveTheirNotes)
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

TEST(EngravingRulesTest, chordSymbolsShowSharpsAndFlats)
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

/// A tuning that nobody would guess and a capo are named once, at the first system.
TEST(EngravingRulesTest, unusualStringsAreNamedInFrontOfTheMusic)
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

TEST(EngravingRulesTest, emptyBarsHaveARestWhereRestsAreDrawn)
{
    Piece piece(2);
    piece.add({64}, NoteValue::Whole);
    const LaidOut laid(*piece.model);
    const auto rests = laid.of(MarkKind::Rest);
    ASSERT_EQ(rests.size(), 1U);
    EXPECT_EQ(rests[0].glyph, "restWhole");
    EXPECT_EQ(rests[0].place.bar, 1);
    EXPECT_EQ(rests[0].place.voice, -1) << "it stands for no beat";
}

/// Voices that rest for as long at once share one sign, but not beside a third that sounds.
TEST(EngravingRulesTest, voicesShareEqualRests)
{
    const auto rests = [](bool withThird, NoteValue lower) {
        Piece piece;
        for (unsigned voice = 0; voice < 2; ++voice) {
            piece.add({voice == 0 ? 76 : 65}, NoteValue::Half, 0, voice);
            piece.add({}, voice == 0 ? NoteValue::Half : lower, 0, voice);
        }
        if (lower == NoteValue::Quarter)
            piece.add({65}, NoteValue::Quarter, 0, 1);
        if (withThird)
            piece.add({71}, NoteValue::Whole, 0, 2);
        return LaidOut(*piece.model).of(MarkKind::Rest);
    };
    const auto shared = rests(false, NoteValue::Half);
    ASSERT_EQ(shared.size(), 1U);
    EXPECT_NEAR(shared[0].y, 2, 0.01) << "on the middle line";
    EXPECT_EQ(rests(false, NoteValue::Quarter).size(), 2U);
    EXPECT_EQ(rests(true, NoteValue::Half).size(), 2U);
}

/// An octave sign that goes on in the next system has no hook at its end, and a reminder there.
TEST(EngravingRulesTest, octaveSignsGoOnInTheNextSystem)
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

/// What a beat shows is when it is played, behind repeats and at the tempo of the score.
TEST(EngravingRulesTest, beatsShowWhenTheyArePlayed)
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

/// Drums that are typed or played have a key and no place: the instrument set knows it.
TEST(EngravingRulesTest, drumsThatOnlyHaveAKeyStandWhereItEntersThem)
{
    InstrumentSet kit(InstrumentSet::drumKit);
    InstrumentArticulation hiHat;
    hiHat.setStaffLine(9);
    hiHat.setInputMidiNumbers({42});
    kit.setArticulations({hiHat});
    InstrumentSetLibrary library;
    library.setInstrumentSets({std::make_shared<const InstrumentSet>(kit)});
    ScoreModel model;
    model.createAndInsertTrack(0, InstrumentSet::drumKit);
    model.insertEmptyBarColumns(0, 1);
    auto beat = std::make_shared<Beat>(RhythmValue(NoteValue::Whole));
    beat->addNote(std::make_shared<Note>(42));
    model.track(0)->bar(0)->ensureVoice(0)->addBeat(beat);
    InstrumentSetLibrary::install(&library);
    const LaidOut laid(model);
    InstrumentSetLibrary::install(nullptr);
    ASSERT_EQ(laid.of(MarkKind::NoteHead).size(), 1U);
    EXPECT_EQ(laid.of(MarkKind::NoteHead)[0].y, -0.5) << "above the top line";
    EXPECT_TRUE(laid.layout->problems().empty());
}
