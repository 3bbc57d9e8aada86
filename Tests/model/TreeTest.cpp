// SPDX-License-Identifier: MIT
#include "ModelSamples.h"

#include <ZarnCore/ZarnException.h>

#include <atomic>
#include <functional>
#include <thread>

using namespace zarn;
using NoteValue = RhythmValue::NoteValue;

TEST(Tree, columnsStayAlignedAndParentsAreKnown)
{
    auto model = std::make_shared<ScoreModel>();
    model->insertEmptyBarColumns(0, 3);
    const auto piano = model->createAndInsertTrack(0, InstrumentSet::acousticPiano);
    const auto guitar = model->createAndInsertTrack(7, InstrumentSet::steelGuitar);
    EXPECT_EQ(guitar->index(), 1u);
    EXPECT_EQ(piano->staffCount(), 2u);
    EXPECT_EQ(piano->barCount(), 3u);
    EXPECT_EQ(piano->bar(0, 0)->clef(), ClefType::G2);
    EXPECT_EQ(piano->bar(0, 1)->clef(), ClefType::F4);
    EXPECT_EQ(guitar->staff(0)->tuning().midiNumbers(), (std::vector<int>{40, 45, 50, 55, 59, 64}));
    model->insertEmptyBarColumns(1, 2);
    model->insertEmptyBarColumns(99, 1);
    EXPECT_EQ(model->masterTrack()->masterBarCount(), 6u);
    EXPECT_EQ(guitar->bar(5)->masterBar(), model->masterTrack()->masterBar(5));
    EXPECT_EQ(model->masterTrack()->masterBar(4)->barOfTrack(1), guitar->bar(4));
    piano->setStaffCount(3);
    piano->setStaffCount(2);
    EXPECT_TRUE(isSound(*model));
}

TEST(Tree, detachedNodesKeepTheirContentAndForgetTheirPlace)
{
    const auto model = makeBand(4);
    const auto guitar = model->track(0);
    const auto bar = guitar->staff(0)->removeBar(2);
    ASSERT_TRUE(bar);
    EXPECT_EQ(bar->parentStaff(), nullptr);
    EXPECT_EQ(bar->masterBar(), nullptr);
    EXPECT_EQ(bar->index(), 0u);
    EXPECT_EQ(bar->voice(0)->beatCount(), 3u);
    EXPECT_EQ(bar->voice(0)->parentBar(), bar);
    EXPECT_EQ(guitar->bar(2)->index(), 2u);

    const auto voice = guitar->bar(0)->voice(0);
    const auto beat = voice->beat(1);
    const auto note = beat->note(1);
    EXPECT_EQ(note->parentBeat(), beat);
    EXPECT_TRUE(beat->removeNote(note));
    EXPECT_FALSE(beat->removeNote(note));
    EXPECT_EQ(note->parentBeat(), nullptr);
    EXPECT_EQ(voice->removeBeat(7), nullptr);
    EXPECT_EQ(voice->removeBeat(1), beat);
    EXPECT_EQ(beat->parentVoice(), nullptr);
    EXPECT_EQ(voice->beat(1)->index(), 1u);

    const auto track = model->removeTrack(0);
    EXPECT_EQ(track->parentScoreModel(), nullptr);
    EXPECT_EQ(model->track(0)->index(), 0u);
    EXPECT_EQ(model->track(5), nullptr);
}

TEST(Tree, aChildCannotHaveTwoParents)
{
    auto first = std::make_shared<Voice>();
    auto second = std::make_shared<Voice>();
    const auto beat = makeBeat(NoteValue::Quarter, {60});
    first->addBeat(beat);
    EXPECT_THROW(second->addBeat(beat), CoreException);
    EXPECT_THROW(first->addBeat(beat), CoreException);
    EXPECT_THROW(first->addBeat(nullptr), CoreException);
    EXPECT_EQ(first->beatCount(), 1u);
    EXPECT_EQ(second->beatCount(), 0u);
    // A parent that is gone holds nobody.
    first.reset();
    EXPECT_EQ(beat->parentVoice(), nullptr);
    second->addBeat(beat);
    EXPECT_EQ(beat->parentVoice(), second);
}

TEST(Tree, copiesAreDeepAndLinkedOnceTheyAreAttached)
{
    const auto model = makeBand(3);
    const auto copy = model->clone();
    EXPECT_EQ(*copy, *model);
    EXPECT_TRUE(isSound(*copy));
    copy->track(0)->bar(1)->voice(0)->beat(1)->note(0)->setFret(3);
    EXPECT_NE(*copy, *model);

    // A plain copy, attached elsewhere, is linked in its whole subtree.
    const auto bar = std::make_shared<Bar>(*model->track(0)->bar(0));
    EXPECT_EQ(bar->parentStaff(), nullptr);
    const auto other = model->clone();
    other->track(0)->staff(0)->replaceBar(2, bar);
    EXPECT_EQ(bar->parentStaff(), other->track(0)->staff(0));
    EXPECT_EQ(bar->index(), 2u);
    EXPECT_TRUE(isSound(*other));

    const auto staff = std::make_shared<Staff>(*model->track(0)->staff(0));
    EXPECT_EQ(staff->bar(1)->parentStaff(), staff);
    *other = *model;
    EXPECT_EQ(*other, *model);
    EXPECT_TRUE(isSound(*other));

    // Equality is about the music: a slot without a voice is as silent as an empty voice.
    other->track(1)->bar(0)->ensureVoice(2);
    EXPECT_EQ(*other, *model);
    other->masterTrack()->masterBar(1)->setDoubleBar(true);
    EXPECT_NE(*other, *model);
}

TEST(Tree, childrenOfMadeAndCopiedNodesKnowTheirParentWhateverIsAskedFirst)
{
    const auto contrabass = std::make_shared<Track>(InstrumentSet::contrabass);
    contrabass->staves()[0]->addEmptyBars(1);
    EXPECT_EQ(contrabass->bar(0)->clef(), ClefType::F4);

    // Each level copied by itself, its children reached by every way.
    const auto model = makeBand(3);
    const auto copy = std::make_shared<const ScoreModel>(*model);
    EXPECT_EQ(copy->tracks()[1]->parentScoreModel(), copy);
    EXPECT_EQ(copy->masterTrack()->parentScoreModel(), copy);
    EXPECT_TRUE(isSound(*copy));
    const auto master = std::make_shared<const MasterTrack>(*model->masterTrack());
    EXPECT_EQ(master->masterBar(2)->parentMasterTrack(), master);
    const auto track = std::make_shared<const Track>(*model->track(0));
    EXPECT_EQ(track->bar(1)->parentStaff()->track(), track);
    const auto staff = std::make_shared<const Staff>(*model->track(0)->staff(0));
    EXPECT_EQ(staff->bars()[1]->parentStaff(), staff);
    const auto bar = std::make_shared<const Bar>(*model->track(0)->bar(0));
    EXPECT_EQ(bar->voices()[0]->parentBar(), bar);
    const auto voice = std::make_shared<const Voice>(*bar->voice(0));
    EXPECT_EQ(voice->beatAt(0)->parentVoice(), voice);
    const auto beat = std::make_shared<const Beat>(*voice->beat(1));
    EXPECT_EQ(beat->notes()[0]->parentBeat(), beat);

    // A node that is filled before a shared pointer holds it, and one that is overwritten.
    auto unshared = std::make_unique<Staff>();
    unshared->addEmptyBars(2);
    const std::shared_ptr<Staff> shared = std::move(unshared);
    EXPECT_EQ(shared->bar(1)->parentStaff(), shared);
    *shared = *staff;
    EXPECT_EQ(shared->bars().front()->parentStaff(), shared);
}

TEST(Tree, severalThreadsMayBeTheFirstToAskACopy)
{
    const auto model = makeBand(40);
    for (int run = 0; run < 20; ++run) {
        const auto copy = std::make_shared<const Track>(*model->track(0));
        std::atomic<int> strangers = 0;
        std::vector<std::thread> readers;
        for (int i = 0; i < 4; ++i)
            readers.emplace_back([&] {
                for (const auto &staff : copy->staves())
                    strangers += staff->track() == copy ? 0 : 1;
            });
        for (auto &reader : readers)
            reader.join();
        EXPECT_EQ(strangers, 0);
    }
}

TEST(Tree, fourVoiceSlots)
{
    const auto bar = std::make_shared<Bar>();
    EXPECT_EQ(bar->voices().size(), 4u);
    EXPECT_EQ(bar->voiceCount(), 0u);
    EXPECT_EQ(bar->voice(4), nullptr);
    const auto voice = bar->ensureVoice(3);
    EXPECT_EQ(bar->ensureVoice(3), voice);
    EXPECT_EQ(voice->index(), 3u);
    EXPECT_EQ(bar->voiceCount(), 1u);
    EXPECT_THROW(bar->setVoice(4, std::make_shared<Voice>()), CoreException);
    EXPECT_THROW(bar->setVoice(0, voice), CoreException);
    bar->setVoice(3, nullptr);
    EXPECT_EQ(voice->parentBar(), nullptr);
    bar->setVoice(0, voice);
    EXPECT_EQ(voice->index(), 0u);
}

TEST(Tree, insertedBarsTakeClefAndOttaviaOfTheirPlace)
{
    const auto model = makeBand(3);
    const auto staff = model->track(0)->staff(0);
    staff->bar(0)->setOttavia(Ottavia::_8vb);
    staff->bar(1)->setClef(ClefType::F4);
    staff->bar(1)->setClefChanges({{2, ClefType::C4}, {1, ClefType::C3}});
    EXPECT_EQ(staff->bar(1)->clefAt(utils::rational(3, 2)), ClefType::C3);

    const auto bar = std::make_shared<Bar>();
    bar->setClef(ClefType::Neutral);
    staff->insertBar(2, bar, LinkMode::None);
    EXPECT_EQ(bar->clef(), ClefType::C4);
    staff->insertEmptyBars(0, 1);
    EXPECT_EQ(staff->bar(0)->ottavia(), Ottavia::_8vb);

    Staff drums;
    EXPECT_EQ(drums.deduceBarClefAndOttavia(5).clef, ClefType::G2);
    const auto kit = ScoreModel::createTrack(InstrumentSet::drumKit);
    EXPECT_EQ(kit->staff(0)->deduceBarClefAndOttavia(0).clef, ClefType::Neutral);
}

TEST(Tree, similesAreUnmarkedWhenWhatTheyRepeatChanges)
{
    const auto mark = [](const Staff &staff) {
        std::string text;
        for (const auto &bar : staff.bars())
            text += bar->simileMark() == SimileMark::None         ? '-'
                : bar->simileMark() == SimileMark::FirstOfDouble  ? '1'
                : bar->simileMark() == SimileMark::SecondOfDouble ? '2'
                                                                  : 's';
        return text;
    };
    const auto make = [] {
        auto staff = std::make_shared<Staff>();
        staff->addEmptyBars(6);
        staff->bar(1)->setSimileMark(SimileMark::Simple);
        staff->bar(4)->setSimileMark(SimileMark::FirstOfDouble);
        staff->bar(5)->setSimileMark(SimileMark::SecondOfDouble);
        return staff;
    };
    auto staff = make();
    EXPECT_EQ(mark(*staff), "-s--12");
    staff->insertBar(1, std::make_shared<Bar>());
    EXPECT_EQ(mark(*staff), "-----12");
    staff = make();
    staff->insertEmptyBars(5, 2);
    EXPECT_EQ(mark(*staff), "-s------");
    staff = make();
    staff->insertBar(4, std::make_shared<Bar>());
    EXPECT_EQ(mark(*staff), "-s-----");
    staff = make();
    staff->takeBars(2, 2);
    EXPECT_EQ(mark(*staff), "-s-12");
    staff->takeBars(4, 4, LinkMode::Mend);
    EXPECT_EQ(mark(*staff), "-s--");
    staff->takeBars(0, 0, LinkMode::Mend);
    EXPECT_EQ(mark(*staff), "---");
}

TEST(Tree, beatAttributesRoundTrip)
{
    Beat beat;
    EXPECT_TRUE(beat.isRest());
    beat.setPlaceHolder(true);
    EXPECT_TRUE(beat.isPlaceHolder());
    EXPECT_FALSE(beat.isRest());
    beat.addNote(std::make_shared<Note>(60));
    EXPECT_FALSE(beat.isPlaceHolder());
    beat.setText("dolce");
    beat.setChordSymbol("C#m7/G#");
    beat.setText({});
    EXPECT_EQ(beat.chordSymbol(), "C#m7/G#");
    Beat copy = beat;
    EXPECT_EQ(copy, beat);
    copy.setChordSymbol({});
    EXPECT_NE(copy, beat);

    Note note;
    EXPECT_FALSE(note.spelling());
    for (int name = 0; name < 7; ++name)
        for (int accidental = 0; accidental < 5; ++accidental) {
            const PitchClass spelling(
                NoteName(static_cast<NoteName::Value>(name)),
                NoteAccidental(static_cast<NoteAccidental::Value>(accidental)));
            note.setSpelling(spelling);
            ASSERT_TRUE(note.spelling());
            EXPECT_TRUE(*note.spelling() == spelling);
        }
    note.setPercussionArticulation(2047);
    note.setNoteHead(NoteHead::Ti);
    note.setStaffLine(-3);
    note.setString(0);
    EXPECT_EQ(note.percussionArticulation(), 2047);
    EXPECT_EQ(note.noteHead(), NoteHead::Ti);
    EXPECT_EQ(note.staffLine(), -3);
    EXPECT_FALSE(note.isTied() || note.isTieOrigin() || note.isDead() || note.isGhost());
    EXPECT_THROW(note.setMidi(128), CoreException);
    EXPECT_THROW(note.setPercussionArticulation(2048), CoreException);
}

TEST(Tree, removingPlaceHoldersKeepsTheRest)
{
    Voice voice;
    for (int i = 0; i < 6; ++i) {
        voice.addBeat(makeBeat(NoteValue::Quarter));
        voice.beat(static_cast<unsigned>(i))->setPlaceHolder(i % 2 == 0);
    }
    EXPECT_EQ(voice.removePlaceHolderBeats(4, 1), 0u);
    EXPECT_EQ(voice.removePlaceHolderBeats(1, 99), 2u);
    ASSERT_EQ(voice.beatCount(), 4u);
    EXPECT_TRUE(voice.beat(0)->isPlaceHolder());
    EXPECT_EQ(voice.beat(3)->index(), 3u);
}

TEST(Tree, headersAreFilledWithTheProperties)
{
    ScoreModel model;
    model.setScoreProperty(ScoreProperty::Title, "100% Blues");
    model.setScoreProperty(ScoreProperty::Artist, "%Title%");
    model.setHeaderAndFooter(HeaderAndFooter::FooterCenter, "%Title% by %Artist%: %Page%/%Pages%");
    EXPECT_EQ(model.formatedHeaderAndFooter(HeaderAndFooter::FooterCenter, 2, 5),
              "100% Blues by %Title%: 2/5");
    EXPECT_EQ(model.formatHeaderAndFooter("50%% of %Nobody% %Title%"),
              "50% of %Nobody% 100% Blues");
    EXPECT_EQ(model.formatHeaderAndFooter("5% off"), "5% off");
}

TEST(Tree, audioTracksAndSounds)
{
    const auto model = makeBand(1);
    std::shared_ptr<AudioTrack> found;
    EXPECT_FALSE(model->tryGetAudioTrack(0, found));
    model->addAudioTrack(std::make_shared<AudioTrack>("drums"));
    model->insertAudioTrack(0, std::make_shared<AudioTrack>("voice"));
    model->swapAudioTrack(0, 1);
    ASSERT_TRUE(model->tryGetAudioTrack(0, found));
    EXPECT_EQ(found->name(), "drums");
    EXPECT_THROW(model->addAudioTrack(nullptr), CoreException);
    const auto copy = model->clone();
    copy->audioTracks()[0]->setName("bass");
    EXPECT_EQ(found->name(), "drums");

    Track &track = *model->track(0);
    track.addSound(std::make_shared<Sound>("clean"));
    track.insertSound(0, std::make_shared<Sound>("lead"));
    EXPECT_EQ(track.indexOfSound(Sound("clean")), 1);
    EXPECT_EQ(track.removeSoundAtIndex(9), nullptr);
    EXPECT_EQ(track.removeSoundAtIndex(0)->name(), "lead");
    EXPECT_EQ(track.indexOfSound(Sound("lead")), -1);
}

std::shared_ptr<Voice> makeVoice(unsigned beatCount)
{
    auto voice = std::make_shared<Voice>();
    for (unsigned i = 0; i < beatCount; ++i)
        voice->addBeat(makeBeat(NoteValue::Quarter, {60}));
    return voice;
}

TEST(Tree, aVoiceKnowsOfMarksThatLeadOnWhicheverWayTheyCome)
{
    const SlurEnds ends = {{1, true}};
    const Syllables syllables = {{0, Syllabic::Single, false, "la"}};
    BeatMarks pressed;
    pressed.setPedal(PedalChange::Start);
    BeatDetails sung;
    sung.lyrics = syllables;
    const std::vector<std::function<void(Beat &)>> ways = {
        [](Beat &beat) { beat.setPedal(PedalChange::Stop); },
        [](Beat &beat) { beat.setTextSpan(TextSpan::Begin); },
        [&](Beat &beat) { beat.setSlurEnds(ends); },
        [&](Beat &beat) { beat.setLyrics(syllables); },
        [&](Beat &beat) { beat.setMarks(pressed); },
        [&](Beat &beat) { beat.setDetails(sung); },
        [&](Beat &beat) {
            Beat other;
            other.setLyrics(syllables);
            beat = other;
        },
    };
    for (std::size_t i = 0; i < ways.size(); ++i) {
        SCOPED_TRACE(i);
        const auto voice = makeVoice(2);
        EXPECT_FALSE(voice->mayHoldSpans());
        voice->beat(1)->setText("no span");
        EXPECT_FALSE(voice->mayHoldSpans());
        ways[i](*voice->beat(1));
        EXPECT_TRUE(voice->mayHoldSpans());
        EXPECT_TRUE(voice->clone()->mayHoldSpans());
        // With the beat, on its way into other voices.
        const auto beat = voice->removeBeat(1);
        const auto one = makeVoice(1);
        one->addBeat(beat->clone());
        EXPECT_TRUE(one->mayHoldSpans());
        const auto block = makeVoice(1);
        block->insertBeats(0, {beat->clone(), makeBeat(NoteValue::Quarter, {60})});
        EXPECT_TRUE(block->mayHoldSpans());
        // The beats of a voice that nobody shares do not know it.
        Voice own(*makeVoice(1));
        ways[i](*own.beat(0));
        EXPECT_TRUE(own.mayHoldSpans());
        EXPECT_TRUE(std::make_shared<Voice>(own)->mayHoldSpans());
        EXPECT_FALSE(voice->clone()->mayHoldSpans()) << "what went is forgotten";
    }
}
