// SPDX-License-Identifier: MIT
#include "ModelSamples.h"
#include "io/Scores.h"
#include "support/PlainWalk.h"
#include "support/Random.h"
#include "support/RandomScore.h"

#include <ZarnCore/commands/ZarnRangeNodes.h>
#include <ZarnCore/model/places/ZarnFlatten.h>

using namespace zarn;

namespace {

constexpr auto multi = SelectionMode::MultiSelection;

std::vector<std::shared_ptr<Bar>> stepsOf(RangeBarIterator it)
{
    std::vector<std::shared_ptr<Bar>> found;
    while (it.oneStep())
        found.push_back(it.bar());
    return found;
}

/// By hand, as views do it.
std::vector<std::shared_ptr<Beat>> stepsOf(RangeBeatIterator it)
{
    std::vector<std::shared_ptr<Beat>> found;
    for (; it.iterate(); it.advance())
        found.push_back(it.beat());
    return found;
}

std::vector<std::shared_ptr<Note>> stepsOf(RangeNoteIterator it)
{
    std::vector<std::shared_ptr<Note>> found;
    while (it.oneStep())
        found.push_back(it.note());
    return found;
}

/// Answers whether the range selects any beat.
bool expectPlainWalk(ScoreModel &model, const ScoreModelRange &range)
{
    const PlainWalk plain = PlainWalk::of(range);
    EXPECT_TRUE(stepsOf(RangeBarIterator(range)) == plain.bars) << range.toQString().toStdString();
    EXPECT_TRUE(stepsOf(RangeBeatIterator(range)) == plain.beats)
        << range.toQString().toStdString();
    EXPECT_TRUE(stepsOf(RangeNoteIterator(range)) == plain.notes)
        << range.toQString().toStdString();
    EXPECT_TRUE(nodesInRange<Beat>(model, range) == plain.beats);
    unsigned count = 0;
    for (const BeatSpan &span : beatSpans(model, range))
        count += span.count();
    EXPECT_EQ(count, plain.beats.size());
    return !plain.beats.empty();
}

/// Any numbers, most of them of places that are there.
ScoreModelIndex randomPlace(ScoreModel &model, Random &random)
{
    const auto wild = [&random](unsigned count) {
        if (!random.percent(3))
            return static_cast<int>(random.below(count));
        constexpr int numbers[] = {-2, -1, 70000, 0x7FFFFFFF};
        return random.coin() ? static_cast<int>(count) : numbers[random.below(4)];
    };
    ScoreModelIndex place(&model, wild(model.trackCount()), 0, -1, 0, 0);
    const auto track = place.track();
    place.setStaffIndex(static_cast<unsigned>(wild(track ? track->staffCount() : 1)));
    place.setBarIndex(wild(model.masterTrack()->masterBarCount()));
    place.setVoiceIndex(random.percent(60) ? 0 : random.below(Bar::MaxVoices + 1));
    const auto voice = place.voice();
    if (random.percent(85))
        place.setBeatIndex(wild(voice ? voice->beatCount() : 1));
    if (random.percent(10) && place.isBeatValid() && place.beat()->hasNotes()) {
        const Note &note = *place.beat()->notes().back();
        place.setNoteMidi(static_cast<unsigned>(note.midi()));
        place.setNoteString(static_cast<unsigned>(note.string()));
    } else if (random.percent(10)) {
        place.setNoteString(random.below(7));
    }
    return place;
}

/// A random one; its ends often lie in one staff, as selections mostly do.
ScoreModelRange randomRange(ScoreModel &model, Random &random)
{
    ScoreModelRange range(randomPlace(model, random));
    if (random.percent(80)) {
        ScoreModelIndex second = randomPlace(model, random);
        if (random.percent(70)) {
            second.setTrackIndex(range.first().trackIndex());
            second.setStaffIndex(range.first().staffIndex());
        }
        if (random.percent(30))
            second.setVoiceIndex(range.first().voiceIndex());
        if (random.percent(30))
            second.setBarIndex(range.first().barIndex());
        range.setSecond(second);
    }
    range.setSelectionMode(static_cast<SelectionMode>(random.below(8)));
    return range;
}

void expectPlainWalks(ScoreModel &model, std::uint64_t seed, int count)
{
    Random random(seed);
    int withBeats = 0;
    for (int i = 0; i < count && !testing::Test::HasFailure(); ++i)
        withBeats += expectPlainWalk(model, randomRange(model, random)) ? 1 : 0;
    EXPECT_GT(withBeats, flatten::beatCount(model) == 0 ? -1 : count / 6);
}

ScoreModelRange everything(ScoreModel &model)
{
    const int last = static_cast<int>(model.masterTrack()->masterBarCount()) - 1;
    return {{&model, 0, 0, -1, 0, 0}, {&model, 0, last, -1, 0, 0}, static_cast<SelectionMode>(7)};
}

/// The whole score, by iterator, flattened at once, and flattened level by level.
void expectWholeWalk(ScoreModel &model)
{
    const PlainWalk plain = PlainWalk::whole(model);
    if (!plain.bars.empty()) {
        EXPECT_TRUE(stepsOf(RangeBarIterator(everything(model))) == plain.bars);
        EXPECT_TRUE(stepsOf(RangeBeatIterator(everything(model))) == plain.beats);
        EXPECT_TRUE(stepsOf(RangeNoteIterator(everything(model))) == plain.notes);
    }
    EXPECT_TRUE(flatten::beats(model) == plain.beats);
    EXPECT_TRUE(flatten::notes(model) == plain.notes);
    EXPECT_EQ(flatten::beatCount(model), plain.beats.size());
    EXPECT_EQ(flatten::noteCount(model), plain.notes.size());

    flatten::Beats beats[4];
    flatten::Notes notes[5];
    unsigned beatCounts[4] = {};
    unsigned noteCounts[5] = {};
    const auto add = [](auto &all, const auto &more) {
        all.insert(all.end(), more.begin(), more.end());
    };
    const auto take = [&](unsigned depth, const auto &level) {
        add(beats[depth], flatten::beats(level));
        add(notes[depth], flatten::notes(level));
        beatCounts[depth] += flatten::beatCount(level);
        noteCounts[depth] += flatten::noteCount(level);
    };
    for (const auto &track : model.tracks()) {
        take(0, *track);
        EXPECT_EQ(flatten::staves(*track).size(), flatten::staffCount(*track));
        for (const auto &staff : flatten::staves(*track)) {
            take(1, *staff);
            for (const auto &bar : staff->bars()) {
                take(2, *bar);
                for (const auto &voice : bar->voices())
                    if (voice)
                        take(3, *voice);
            }
        }
    }
    for (const auto &beat : plain.beats) {
        add(notes[4], flatten::notes(*beat));
        noteCounts[4] += flatten::noteCount(*beat);
    }
    for (unsigned depth = 0; depth < 4; ++depth) {
        EXPECT_TRUE(beats[depth] == plain.beats) << depth;
        EXPECT_EQ(beatCounts[depth], plain.beats.size());
    }
    for (unsigned depth = 0; depth < 5; ++depth) {
        EXPECT_TRUE(notes[depth] == plain.notes) << depth;
        EXPECT_EQ(noteCounts[depth], plain.notes.size());
    }
}

/// A bar with four quarters in voice 0, a half and two grace beats before a half in voice 1.
std::shared_ptr<ScoreModel> makeVoices(unsigned barCount)
{
    using NoteValue = RhythmValue::NoteValue;
    auto model = std::make_shared<ScoreModel>();
    model->insertEmptyBarColumns(0, barCount);
    model->createAndInsertTrack(0, InstrumentSet::acousticPiano);
    for (unsigned i = 0; i < barCount; ++i) {
        const auto bar = model->track(0)->bar(i);
        for (int beat = 0; beat < 4; ++beat)
            bar->ensureVoice(0)->addBeat(makeBeat(NoteValue::Quarter, {60, 64}));
        const auto lower = bar->ensureVoice(1);
        lower->addBeat(makeBeat(NoteValue::Half, {48}));
        for (int beat = 0; beat < 2; ++beat) {
            lower->addBeat(makeBeat(NoteValue::Eighth, {50}));
            lower->beats().back()->setGraceType(GraceType::BeforeBeat);
        }
        lower->addBeat(makeBeat(NoteValue::Half));
    }
    return model;
}

/// "bar:beat" of every step.
std::string numbersOf(RangeBeatIterator it)
{
    std::string text;
    while (it.oneStep())
        text += std::to_string(it.beat()->parentVoice()->parentBar()->index()) + ":"
            + std::to_string(it.beat()->index()) + " ";
    return text;
}

} // namespace

TEST(RangeWalk, agreesWithAPlainWalkOnEverySelection)
{
    for (std::uint32_t seed = 1; seed <= 8; ++seed) {
        SCOPED_TRACE(seed);
        const auto model = test::RandomScore(seed).make(1 + seed % 4, 1 + seed % 5);
        expectPlainWalks(*model, seed, 400);
        expectWholeWalk(*model);
    }
    const auto empty = std::make_shared<ScoreModel>();
    expectWholeWalk(*empty);
}

TEST(RangeWalk, agreesWithAPlainWalkOnRealScores)
{
    SKIP_WITHOUT_SCORES();
    const auto files =
        QDir(scores::folder() + QStringLiteral("/musicxml"))
            .entryInfoList({QStringLiteral("*xml"), QStringLiteral("*.mxl")}, QDir::Files);
    ASSERT_FALSE(files.isEmpty());
    for (const QFileInfo &file : files) {
        SCOPED_TRACE(file.fileName().toStdString());
        io::ImportReport report;
        const auto model = scores::importFile(file.filePath(), report);
        expectPlainWalks(*model, 5, 60);
        expectWholeWalk(*model);
    }
}

TEST(RangeWalk, stepsAndEndsByHand)
{
    const auto model = makeVoices(2);
    const ScoreModelIndex first(model.get(), 0, 0, 1, 0, 0);
    const ScoreModelRange range(first, {model.get(), 0, 0, 3, 0, 0}, multi);
    const auto &beats = model->track(0)->bar(0)->voice(0)->beats();

    RangeBeatIterator it(range);
    EXPECT_EQ(it.beat(), beats[1]);
    ASSERT_TRUE(it.oneStep());
    EXPECT_EQ(it.beat(), beats[1]);
    it.leaveStep();
    RangeBeatIterator copy = it;
    ASSERT_TRUE(it.oneStep());
    EXPECT_EQ(it.beat(), beats[1]) << "the step was left to the next loop";
    it.advance();
    ASSERT_TRUE(it.oneStep());
    EXPECT_EQ(it.beat(), beats[3]) << "one passed over";
    EXPECT_FALSE(it.oneStep());
    EXPECT_FALSE(it.iterate());
    EXPECT_FALSE(it.beat());
    it.advance();
    EXPECT_FALSE(it.oneStep());
    EXPECT_EQ(numbersOf(std::move(copy)), "0:1 0:2 0:3 ");

    RangeNoteIterator notes(ScoreModelRange{first});
    RangeBarIterator bars(ScoreModelRange{first});
    while (notes.iterate())
        notes.advance();
    while (bars.oneStep())
        EXPECT_EQ(bars.bar(), model->track(0)->bar(0));
    EXPECT_FALSE(notes.note());
    EXPECT_FALSE(bars.bar());
}

TEST(RangeWalk, endsReachAsFarAsTheirPlacesSay)
{
    const auto model = makeVoices(3);
    const auto walk = [&](int bar, int beat, unsigned voice, int lastBar, int lastBeat,
                          unsigned lastVoice) {
        ScoreModelRange range;
        range.setSelectionMode(multi);
        range.setFirst({model.get(), 0, bar, beat, voice, 0});
        range.setSecond({model.get(), 0, lastBar, lastBeat, lastVoice, 0});
        return numbersOf(RangeBeatIterator(range));
    };
    EXPECT_EQ(walk(0, 2, 0, 1, 1, 0), "0:2 0:3 1:0 1:1 ");
    EXPECT_EQ(walk(1, 1, 0, 0, 2, 0), "0:2 0:3 1:0 1:1 ") << "swapped";
    EXPECT_EQ(walk(0, 2, 0, 1, -1, 0), "0:2 0:3 1:0 1:1 1:2 1:3 ");
    EXPECT_EQ(walk(0, -1, 0, 0, 2, 0), "0:0 0:1 0:2 0:3 ") << "an end that is the whole bar";
    EXPECT_EQ(walk(0, 2, 0, 0, -1, 0), "0:0 0:1 0:2 0:3 ");
    EXPECT_EQ(walk(0, 3, 0, 1, 0, 1), "0:3 1:0 ") << "up to the time of the other voice";
    EXPECT_EQ(walk(0, 3, 0, 1, 1, 1), "0:3 1:0 1:1 1:2 ") << "a grace beat's time";
    EXPECT_EQ(walk(1, 0, 0, 0, 3, 1), "0:2 0:3 1:0 ") << "from the time of the other voice";
    EXPECT_EQ(walk(1, 1, 1, 1, 1, 0), "1:0 1:1 ") << "the beat that sounds there";
    EXPECT_EQ(walk(1, 0, 1, 1, 2, 0), "1:0 1:1 1:2 1:3 ") << "with its grace beats";
    EXPECT_EQ(walk(0, 2, 0, 1, 4, 0), "") << "a beat that is not there";
    EXPECT_EQ(walk(0, 2, 0, 1, -2, 0), "");
    EXPECT_EQ(walk(0, -1, 2, 2, -1, 2), "") << "no such voice";

    // A bar that the voice skips; the time of an end behind what the voice holds.
    model->track(0)->bar(1)->setVoice(0, nullptr);
    model->track(0)->bar(2)->voice(0)->takeBeats(1, 3);
    EXPECT_EQ(walk(0, 3, 0, 2, 3, 1), "0:3 2:0 ");
    EXPECT_EQ(walk(2, 3, 0, 2, 3, 1), "") << "a beat that is not there any more";
    EXPECT_EQ(walk(0, 3, 0, 1, 3, 1), "0:3 ");

    ScoreModelRange bars({model.get(), 0, 0, 9, 0, 0}, {model.get(), 0, 1, -1, 0, 0}, multi);
    EXPECT_EQ(stepsOf(RangeBarIterator(bars)).size(), 2U) << "bars ask for no beat";
    const auto other = makeVoices(3);
    bars.mutableSecond().setModel(other.get());
    EXPECT_FALSE(RangeBarIterator(bars).oneStep()) << "ends in two models";
    EXPECT_FALSE(RangeNoteIterator(ScoreModelRange()).oneStep());
}

TEST(RangeWalk, aPlaceThatNamesANoteIsThatNote)
{
    const auto model = makeVoices(1);
    const auto &notes = model->track(0)->bar(0)->voice(0)->beats()[0]->notes();
    notes[0]->setString(0);
    notes[1]->setString(1);
    notes[1]->setPercussionArticulation(9);
    ScoreModelIndex place(model.get(), 0, 0, 0, 0, 0);
    const auto selected = [&](SelectionMode mode = SelectionMode::None) {
        return stepsOf(RangeNoteIterator(ScoreModelRange(place, mode)));
    };
    const Beat::Notes second{notes[1]};
    EXPECT_EQ(selected(), notes) << "string 0 alone names none";
    place.setNoteString(1);
    EXPECT_EQ(selected(), second);
    EXPECT_EQ(selected(multi), notes);
    EXPECT_EQ(selected(SelectionMode::MultiVoice).size(), 11U) << "the whole bar";
    place.setNoteString(2);
    EXPECT_TRUE(selected().empty());
    place.invalidateNote();
    EXPECT_EQ(selected(), notes);
    place.setNoteMidi(64);
    EXPECT_EQ(selected(), second);
    place.invalidateNote();
    place.setNotePercussionActiculation(9);
    EXPECT_EQ(selected(), second);
}
