// SPDX-License-Identifier: MIT
#include "support/LaidOut.h"
#include "support/RandomScore.h"
#include "support/ScoreFiles.h"
#include "support/SmallScore.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <set>

namespace {

using namespace zarn;
using layout::LayoutOptions;
using layout::MarkKind;
using ::test::LaidOut;
using NoteValue = RhythmValue::NoteValue;

using Place = std::tuple<int, int, int, int, int, int>;

Place placeOf(const layout::DrawPlace &place)
{
    return {place.track, place.bar, place.staff, place.voice, place.beat, place.note};
}

/// The notes of a score, each with how often it is to be drawn.
std::map<Place, int> notesOf(const ScoreModel &model, bool isTab)
{
    std::map<Place, int> notes;
    for (const auto &track : model.tracks())
        for (const auto &staff : track->staves()) {
            const bool hasTab = track->notations().tablature && staff->isFretted();
            const bool hasNotes = track->notations().standard
                || (track->notations().tablature && !hasTab && !track->notations().slash);
            if (isTab ? !hasTab : !hasNotes)
                continue;
            for (const auto &bar : staff->bars())
                for (const auto &voice : bar->voices())
                    if (voice && !bar->isSimile())
                        for (const auto &beat : voice->beats())
                            // One slash stands for all notes of a chord.
                            for (unsigned i = 0; i < beat->noteCount()
                                 && (isTab || !beat->marks().isSlashed() || beat->noteCount() == 1);
                                 ++i)
                                if (!beat->notes()[i]->isHidden())
                                    notes[{static_cast<int>(track->index()),
                                           static_cast<int>(bar->index()),
                                           static_cast<int>(staff->index()),
                                           static_cast<int>(voice->index()),
                                           static_cast<int>(beat->index()), static_cast<int>(i)}] =
                                        1;
        }
    return notes;
}

std::map<Place, int> drawn(const LaidOut &laid, MarkKind kind)
{
    std::map<Place, int> notes;
    for (const LaidOut::Mark &mark : laid.of(kind))
        ++notes[placeOf(mark.place)];
    return notes;
}

void expectInsideMargins(const LaidOut &laid, int tolerance = layout::staffSpace / 8)
{
    const layout::Layout &sheets = *laid.layout;
    for (const auto &page : sheets.pages()) {
        const auto left = sheets.fromMicrometres(page.leftMargin);
        const auto right = sheets.fromMicrometres(page.width - page.rightMargin);
        const auto top = sheets.fromMicrometres(page.topMargin);
        const auto bottom = sheets.fromMicrometres(page.height - page.bottomMargin);
        for (const auto &system : page.systems) {
            const auto box = system.drawing->marks.box(sheets.font()).movedBy(system.at);
            EXPECT_GE(box.left, left - tolerance);
            EXPECT_LE(box.right, right + tolerance);
            EXPECT_GE(box.top, top - tolerance);
            EXPECT_LE(box.bottom, bottom + tolerance);
        }
    }
}

/// One bar for a piano's right hand in one voice: keys of chords, none for a rest.
std::shared_ptr<ScoreModel> piece(const std::vector<std::vector<int>> &chords, NoteValue value)
{
    auto model = std::make_shared<ScoreModel>();
    model->createAndInsertTrack(0, InstrumentSet::violin);
    model->track(0)->setChosenNotations(TrackNotations());
    model->insertEmptyBarColumns(0, 1);
    Voice &voice = *model->track(0)->bar(0)->ensureVoice(0);
    for (const auto &keys : chords) {
        auto beat = std::make_shared<Beat>(RhythmValue(value));
        for (const int key : keys)
            beat->addNote(std::make_shared<Note>(key));
        voice.addBeat(beat);
    }
    return model;
}

std::vector<double> columnsOf(const LaidOut &laid)
{
    std::vector<double> places;
    for (const auto &page : laid.layout->pages())
        for (const auto &system : page.systems)
            for (const auto &bar : system.drawing->bars)
                for (const auto &column : bar.columns)
                    places.push_back(layout::toSpaces(column.x));
    return places;
}

} // namespace

/// What a reader counts on in every score: no note is lost or doubled, time runs to the right, and
/// nothing is cut off by the edge of the sheet.
TEST(ScoreLayoutTest, realScoresAreComplete)
{
    for (const std::string &path : scoreFiles()) {
        SCOPED_TRACE(path);
        const auto model = readScore(path);
        const LaidOut laid(*model);
        EXPECT_EQ(drawn(laid, MarkKind::NoteHead), notesOf(*model, false));
        EXPECT_EQ(drawn(laid, MarkKind::Fret), notesOf(*model, true));
        expectInsideMargins(laid);
        for (const auto &page : laid.layout->pages())
            for (const auto &system : page.systems) {
                layout::Unit x = -1;
                for (const auto &bar : system.drawing->bars)
                    for (const auto &column : bar.columns) {
                        EXPECT_GT(column.x, x);
                        x = column.x;
                    }
            }
    }
}

TEST(ScoreLayoutTest, randomScoresAreDrawnWhole)
{
    for (std::uint32_t seed = 1; seed <= 60; ++seed) {
        SCOPED_TRACE(seed);
        const auto model = ::test::RandomScore(seed).make();
        LayoutOptions options;
        options.multiRest = seed % 2 == 0;
        options.view = static_cast<ViewLayout>(seed % 3);
        const LaidOut laid(*model, options);
        EXPECT_EQ(drawn(laid, MarkKind::NoteHead), notesOf(*model, false));
        EXPECT_EQ(drawn(laid, MarkKind::Fret), notesOf(*model, true));
        EXPECT_EQ(*laid.layout, *layout::layOut(*model, options));
    }
}

TEST(ScoreLayoutTest, equalNotesAreEquallyFarApart)
{
    const std::vector<std::vector<int>> notes(8, {72});
    const auto places = columnsOf(LaidOut(*piece(notes, NoteValue::Eighth)));
    ASSERT_EQ(places.size(), 8U);
    for (std::size_t i = 2; i < places.size(); ++i)
        EXPECT_NEAR(places[i] - places[i - 1], places[1] - places[0], 0.01);

    // An accidental for which there is room moves nothing; a longer note is never narrower.
    const auto sharp = columnsOf(LaidOut(*piece({{72}, {73}, {74}, {76}}, NoteValue::Quarter)));
    EXPECT_NEAR(sharp[1] - sharp[0], sharp[3] - sharp[2], 0.01);
    const auto model = piece({{72}, {72}, {72}, {72}}, NoteValue::Quarter);
    model->track(0)->bar(0)->voice(0)->beat(1)->setRhythmValue(RhythmValue(NoteValue::Eighth));
    const auto mixed = columnsOf(LaidOut(*model));
    EXPECT_GT(mixed[1] - mixed[0], mixed[2] - mixed[1]);
}

struct Fact {
    const char *name;
    std::vector<std::vector<int>> chords;
    NoteValue value;
    MarkKind kind;
    std::size_t count;
    double x; ///< of the last such mark, from the first head; NaN for any
    double y; ///< from the top line; NaN for any
};

/// What a rule book answers with a number.
TEST(ScoreLayoutTest, smallPiecesFollowTheRules)
{
    const double any = std::nan("");
    const std::vector<Fact> facts = {
        {"middle C on a ledger line", {{60}}, NoteValue::Whole, MarkKind::NoteHead, 1, 0, 5},
        {"its ledger line", {{60}}, NoteValue::Whole, MarkKind::LedgerLine, 1, any, 5},
        {"two ledger lines above", {{84}}, NoteValue::Whole, MarkKind::LedgerLine, 2, any, -2},
        {"none in the space above the staff",
         {{79}},
         NoteValue::Whole,
         MarkKind::LedgerLine,
         0,
         any,
         any},
        {"a whole note has no stem", {{72}}, NoteValue::Whole, MarkKind::Stem, 0, any, any},
        {"a half has one", {{72}}, NoteValue::Half, MarkKind::Stem, 1, any, any},
        {"single eighths have flags", {{72}, {}}, NoteValue::Eighth, MarkKind::Flag, 1, any, any},
        {"neighbours have a beam", {{72}, {74}}, NoteValue::Eighth, MarkKind::Beam, 1, any, any},
        {"sixteenths have two", {{72}, {74}}, NoteValue::Sixteenth, MarkKind::Beam, 2, any, any},
        {"four eighths one",
         {{72}, {74}, {76}, {77}},
         NoteValue::Eighth,
         MarkKind::Beam,
         1,
         any,
         any},
        {"an accidental once in the bar",
         {{73}, {73}},
         NoteValue::Quarter,
         MarkKind::Accidental,
         1,
         any,
         1.5},
        {"and again in another octave",
         {{61}, {73}},
         NoteValue::Quarter,
         MarkKind::Accidental,
         2,
         any,
         any},
        {"a natural takes it back",
         {{73}, {72}},
         NoteValue::Quarter,
         MarkKind::Accidental,
         2,
         any,
         1.5},
        {"a quarter rest in the middle", {{}, {}}, NoteValue::Quarter, MarkKind::Rest, 2, any, 2},
        {"a whole rest under the fourth line", {{}}, NoteValue::Whole, MarkKind::Rest, 1, any, 1},
        {"a second to the right of an upward stem",
         {{64, 65}},
         NoteValue::Quarter,
         MarkKind::NoteHead,
         2,
         1.06,
         3.5},
        {"a second of whole notes too",
         {{72, 74}},
         NoteValue::Quarter,
         MarkKind::NoteHead,
         2,
         any,
         any},
        {"clef on its line", {{72}}, NoteValue::Quarter, MarkKind::Clef, 1, any, 3},
    };
    for (const Fact &fact : facts) {
        SCOPED_TRACE(fact.name);
        const LaidOut laid(*piece(fact.chords, fact.value));
        const auto marks = laid.of(fact.kind);
        ASSERT_EQ(marks.size(), fact.count);
        if (marks.empty())
            continue;
        if (!std::isnan(fact.x)) {
            EXPECT_NEAR(marks.back().x - marks.front().x, fact.x, 0.02);
        }
        if (!std::isnan(fact.y)) {
            EXPECT_NEAR(marks.back().y, fact.y, 0.001);
        }
    }
}

TEST(ScoreLayoutTest, stemsPointToTheMiddleAndAreLongEnough)
{
    for (const auto &[key, isUp] : std::vector<std::pair<int, bool>>{
             {60, true}, {69, true}, {71, false}, {72, false}, {84, false}, {48, true}}) {
        SCOPED_TRACE(key);
        const LaidOut laid(*piece({{key}}, NoteValue::Quarter));
        const auto stem = laid.of(MarkKind::Stem).at(0);
        const auto head = laid.of(MarkKind::NoteHead).at(0);
        EXPECT_EQ(stem.top < head.y - 1, isUp);
        EXPECT_GE(stem.bottom - stem.top, 2.5);
        // From ledger lines, stems reach the middle line.
        EXPECT_TRUE(isUp ? stem.top <= 2.01 : stem.bottom >= 1.99);
    }
    // Beams lean by half a space to two, and their stems are no shorter than others may be.
    for (const auto &keys :
         {std::vector<std::vector<int>>{{60}, {79}}, {{79}, {60}}, {{64}, {65}, {67}, {69}}}) {
        const LaidOut laid(*piece(keys, NoteValue::Eighth));
        for (const auto &stem : laid.of(MarkKind::Stem))
            EXPECT_GE(stem.bottom - stem.top, 2.4);
        for (const auto &beam : laid.of(MarkKind::Beam))
            EXPECT_LE(beam.bottom - beam.top, 2.01 + 0.5);
    }
}

TEST(ScoreLayoutTest, systemsEndWhereTheDocumentSays)
{
    SmallScore small;
    LayoutOptions options;
    small.model.setFullScoreSystemsLayout({1, 3, 2});
    EXPECT_EQ(LaidOut(small.model).systemCount, 3U);
    small.model.setFullScoreSystemsLayout({});
    small.model.setFullScoreDefaultBarCountBySystem(2);
    options.breaks = layout::SystemBreaks::AsDocument;
    EXPECT_EQ(LaidOut(small.model, options).systemCount, 3U);
    small.model.track(0)->setSystemsLayout({2, 4});
    options.tracks = {0};
    EXPECT_EQ(LaidOut(small.model, options).systemCount, 2U);
}

TEST(ScoreLayoutTest, emptyBarsAreJoinedWhenAskedFor)
{
    const auto model = piece({{72}}, NoteValue::Whole);
    model->insertEmptyBarColumns(1, 6);
    model->masterTrack()->masterBar(4)->setDoubleBar(true);
    LayoutOptions options;
    EXPECT_TRUE(LaidOut(*model, options).of(MarkKind::MultiRest).empty());
    options.multiRest = true;
    std::set<int> bars;
    for (const auto &mark : LaidOut(*model, options).of(MarkKind::MultiRest))
        bars.insert(mark.place.bar);
    EXPECT_EQ(bars, (std::set<int>{1, 5}));
}

/// A page that has room is filled by all gaps, those between staves too, and what joins staves
/// still reaches from the first line to the last.
TEST(ScoreLayoutTest, stavesMoveApartUntilPagesAreFull)
{
    SmallScore small;
    small.model.insertEmptyBarColumns(2, 150);
    LayoutOptions options;
    options.view = ViewLayout::Continuous;
    const LaidOut scroll(small.model, options);
    const LaidOut laid(small.model);
    const auto &closest = scroll.layout->pages()[0].systems;
    std::size_t number = 0;
    ASSERT_GT(laid.layout->pages().size(), 2U);
    for (const layout::LayoutPage &page : laid.layout->pages()) {
        const auto &last = page.systems.back();
        const auto end = last.drawing->marks.box(laid.layout->font()).movedBy(last.at).bottom;
        const auto room = laid.layout->fromMicrometres(page.height - page.bottomMargin);
        if (&page != &laid.layout->pages().back()) {
            EXPECT_NEAR(layout::toSpaces(end), layout::toSpaces(room), 0.5);
        }
        for (const auto &system : page.systems) {
            const auto &staves = system.drawing->staves;
            ASSERT_LT(number, closest.size());
            const auto &near = closest[number++].drawing->staves;
            EXPECT_GT(staves[1].top, near[1].top);
            EXPECT_GT(staves[2].top, near[2].top);
            EXPECT_GT(staves[3].top - staves[2].top, near[3].top - near[2].top);
            for (const layout::DrawMark &mark : system.drawing->marks.marks()) {
                const auto box = system.drawing->marks.box(mark, laid.layout->font());
                if (mark.kind == MarkKind::BarLine && mark.shape == layout::MarkShape::Line) {
                    EXPECT_TRUE(mark.at.y == staves[0].top || mark.at.y == staves[2].top);
                    EXPECT_TRUE(mark.to.y == staves[1].bottom || mark.to.y == staves[3].bottom);
                } else if (mark.kind == MarkKind::Brace) {
                    EXPECT_NEAR(box.top, staves[2].top, 8);
                    EXPECT_NEAR(box.bottom, staves[3].bottom, 8);
                } else if (mark.kind == MarkKind::TrackName && mark.place.track == 1) {
                    EXPECT_NEAR((box.top + box.bottom) / 2, (staves[2].top + staves[3].bottom) / 2,
                                layout::staffSpace);
                }
            }
        }
    }
}

/// Where the score says nothing of it, its copyright stands below the first page and numbers below
/// the others, on no page of which there is but one; what the score says stands in their stead.
TEST(ScoreLayoutTest, pagesHaveNumbersAndTheFirstOneTheCopyright)
{
    const auto footers = [](const ScoreModel &model) {
        std::vector<std::string> found;
        const LaidOut laid(model);
        for (const layout::LayoutPage &page : laid.layout->pages()) {
            std::string texts;
            // In the middle of the margin, at one place on all pages.
            const auto bottom = laid.layout->fromMicrometres(page.height - page.bottomMargin / 2);
            for (const layout::DrawMark &mark : page.marks->marks())
                if (mark.kind == MarkKind::Footer) {
                    texts += page.marks->characters(mark);
                    EXPECT_NEAR(page.marks->box(mark, laid.layout->font()).bottom, bottom, 8);
                    const auto &system = page.systems.back();
                    EXPECT_LE(
                        system.drawing->marks.box(laid.layout->font()).movedBy(system.at).bottom,
                        page.marks->box(mark, laid.layout->font()).top - layout::staffSpace);
                }
            found.push_back(texts);
        }
        return found;
    };
    SmallScore small;
    EXPECT_EQ(footers(small.model), std::vector<std::string>{""});
    small.model.setScoreProperty(ScoreProperty::Copyright, "(c) 1899");
    EXPECT_EQ(footers(small.model), std::vector<std::string>{"(c) 1899"});
    small.model.insertEmptyBarColumns(2, 150);
    const auto numbered = footers(small.model);
    ASSERT_GT(numbered.size(), 2U);
    EXPECT_EQ(numbered[0], "(c) 1899");
    EXPECT_EQ(numbered[1], "2");
    EXPECT_EQ(numbered.back(), std::to_string(numbered.size()));
    small.model.setHeaderAndFooter(HeaderAndFooter::FooterRight, "p. %Page%");
    const auto own = footers(small.model);
    EXPECT_EQ(own[0], "");
    EXPECT_EQ(own[1], "p. 2");
}

/// Names that are wider than a narrow page are set smaller, wherever they stand.
TEST(ScoreLayoutTest, textsOfTheTitleStayBetweenTheMargins)
{
    SmallScore small;
    const std::string names = "Henry Pacory, English text by Robert Hess, and others besides";
    for (const ScoreProperty property :
         {ScoreProperty::Title, ScoreProperty::Subtitle, ScoreProperty::Artist,
          ScoreProperty::Words, ScoreProperty::Music})
        small.model.setScoreProperty(property, names);
    LayoutOptions options;
    options.page = PageSetup();
    options.page->width = 80000;
    const LaidOut laid(small.model, options);
    const layout::LayoutPage &page = laid.layout->pages().front();
    unsigned titles = 0;
    for (const layout::DrawMark &mark : page.marks->marks())
        if (mark.kind == MarkKind::Title) {
            const layout::Box box = page.marks->box(mark, laid.layout->font());
            EXPECT_GE(box.left, laid.layout->fromMicrometres(page.leftMargin) - 8);
            EXPECT_LE(box.right, laid.layout->fromMicrometres(page.width - page.rightMargin) + 8);
            ++titles;
        }
    EXPECT_EQ(titles, 5U);
}

/// Whatever is asked for, notes are drawn and what is wrong is told with its place.
TEST(ScoreLayoutTest, whatHasNoRoomIsDrawnAndTold)
{
    const auto tells = [](const LaidOut &laid, const std::string &text) {
        const auto &problems = laid.layout->problems();
        return std::any_of(problems.begin(), problems.end(), [&](const auto &problem) {
            return problem.message.find(text) != std::string::npos;
        });
    };
    const std::vector<std::vector<int>> many(120, {61, 66, 70});
    LayoutOptions options;
    options.page = PageSetup();
    options.page->width = 60000;
    const LaidOut wide(*piece(many, NoteValue::SixtyFourth), options);
    EXPECT_TRUE(tells(wide, "wider than the line"));
    EXPECT_TRUE(tells(wide, "longer than its bar") || wide.of(MarkKind::NoteHead).size() == 360);
    expectInsideMargins(wide, layout::staffSpace);

    options.page->width = 20000;
    options.page->height = 10000;
    EXPECT_TRUE(tells(LaidOut(*piece({{72}}, NoteValue::Whole), options), "too small"));

    const auto model = piece({{72}, {72}, {72}, {72}, {72}}, NoteValue::Quarter);
    EXPECT_TRUE(tells(LaidOut(*model), "longer than its bar"));

    SmallScore small;
    small.beat(0, 0).notes()[0]->setString(9);
    const LaidOut broken(small.model);
    EXPECT_TRUE(tells(broken, "lacks the string"));
    EXPECT_EQ(drawn(broken, MarkKind::Fret), notesOf(small.model, true));

    options.page->width = 210000;
    options.page->height = 80000;
    small.model.setHeaderAndFooter(HeaderAndFooter::FirstPageFooterLeft, "below all");
    const LaidOut tall(small.model, options);
    EXPECT_TRUE(tells(tall, "taller than the page"));
    expectInsideMargins(tall);
    const layout::LayoutPage &grown = tall.layout->pages().front();
    const auto music = grown.systems.front().drawing->marks.box(tall.layout->font());
    for (const layout::DrawMark &mark : grown.marks->marks())
        if (mark.kind == MarkKind::Footer) {
            EXPECT_GT(mark.at.y, music.movedBy(grown.systems.front().at).bottom);
        }

    small.model.track(0)->staff(0)->setTuning(GuitarTuning());
    small.model.setScoreProperty(ScoreProperty::Title, "\xe5\xa4\x9c"); // Chinese
    small.beat(0, 0).setText("\xd9\x85");                               // Arabic
    options.notations = TrackNotations();
    options.notations->tablature = true;
    const LaidOut foreign(small.model, options);
    EXPECT_EQ(drawn(foreign, MarkKind::NoteHead), notesOf(small.model, false));
    EXPECT_TRUE(tells(foreign, "has no tuning"));
    EXPECT_TRUE(tells(foreign, "lacks characters of \"\xe5\xa4\x9c\""));
    EXPECT_TRUE(tells(foreign, "lacks characters of \"\xd9\x85\""));
    EXPECT_EQ(LaidOut(ScoreModel()).layout->pages().size(), 1U);
}
