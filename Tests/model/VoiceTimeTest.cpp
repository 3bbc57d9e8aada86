// SPDX-License-Identifier: MIT
#include "ModelSamples.h"

#include <ZarnCore/ZarnException.h>

#include <functional>
#include <random>
#include <thread>

using namespace zarn;
using utils::rational;
using NoteValue = RhythmValue::NoteValue;

namespace {

/// "1/2:60,64 1/2 1/4:60" with "~" in front of a tied note and "." for a place holder.
std::string written(const Voice &voice)
{
    std::string text;
    for (const auto &beat : voice.beats()) {
        const rational length = beat->length();
        text += text.empty() ? "" : " ";
        text += std::to_string(length.numerator());
        if (length.denominator() != 1)
            text += "/" + std::to_string(length.denominator());
        if (beat->isPlaceHolder())
            text += ".";
        for (unsigned i = 0; i < beat->noteCount(); ++i) {
            const Note &note = *beat->note(i);
            text += i == 0 ? ":" : ",";
            text += (note.isTied() ? "~" : "") + std::to_string(note.midi());
            text += note.isTieOrigin() ? "~" : "";
        }
    }
    return text;
}

} // namespace

TEST(VoiceTime, graceBeatsTakeNoTime)
{
    auto voice = std::make_shared<Voice>();
    voice->addBeat(makeBeat(NoteValue::Quarter, {60}));
    voice->addBeat(makeBeat(NoteValue::Eighth, {61}));
    voice->beat(1)->setGraceType(GraceType::BeforeBeat);
    voice->addBeat(makeBeat(NoteValue::Half, {62}));
    EXPECT_EQ(voice->length(), rational(3));
    EXPECT_EQ(voice->beatDrawingOffset(*voice->beat(1)), rational(1));
    EXPECT_EQ(voice->beatDrawingOffset(*voice->beat(2)), rational(1));
    EXPECT_EQ(voice->beatStartingAt(1), voice->beat(2));
    EXPECT_EQ(voice->beatStartingAt(2), nullptr);
    EXPECT_EQ(voice->beatAt(rational(5, 2)), voice->beat(2));
    EXPECT_EQ(voice->beatAt(3), nullptr);
    EXPECT_EQ(voice->beatAt(-1), nullptr);
    EXPECT_EQ(voice->beatSoundingLength(*voice->beat(1)), rational(0));
    EXPECT_EQ(voice->beatSoundingLength(*voice->beat(0)), rational(1));
    EXPECT_THROW(voice->beatDrawingOffset(Beat()), CoreException);
}

TEST(VoiceTime, tripletFeelMovesTheMiddleOfPairs)
{
    const auto model = makeBand(1);
    const auto bar = model->track(0)->bar(0);
    bar->setVoice(0, nullptr);
    const auto voice = bar->ensureVoice(0);
    for (int i = 0; i < 2; ++i)
        voice->addBeat(makeBeat(NoteValue::Eighth, {60}));
    for (int i = 0; i < 4; ++i)
        voice->addBeat(makeBeat(NoteValue::Sixteenth, {60}));
    const auto offset = [&](unsigned beat) {
        return voice->beatSoundingOffset(*voice->beat(beat));
    };
    EXPECT_EQ(offset(1), rational(1, 2));
    const auto master = bar->masterBar();
    master->setTripletFeel(TripletFeel::Triplet8th);
    EXPECT_EQ(offset(1), rational(2, 3));
    EXPECT_EQ(offset(2), rational(1));
    EXPECT_EQ(offset(4), rational(3, 2)) << "sixteenths are not swung by eighths";
    EXPECT_EQ(voice->beatSoundingLength(*voice->beat(1)), rational(1, 3));
    master->setTripletFeel(TripletFeel::Dotted16th);
    EXPECT_EQ(offset(1), rational(1, 2));
    EXPECT_EQ(offset(3), rational(11, 8));
    EXPECT_EQ(voice->beatDrawingOffset(*voice->beat(3)), rational(5, 4));
}

TEST(VoiceTime, wholeBarRestsFillTheirBar)
{
    const auto model = makeBand(1);
    model->masterTrack()->masterBar(0)->setTimeSignature(TimeSignature(5, 4));
    const auto voice = model->track(1)->bar(0)->ensureVoice(0);
    const auto beat = makeBeat(NoteValue::Whole);
    beat->setWholeBarRest(true);
    EXPECT_EQ(beat->length(), rational(4));
    voice->addBeat(beat);
    EXPECT_EQ(beat->length(), rational(5));
    model->masterTrack()->masterBar(0)->setOwnLength(rational(3, 2));
    EXPECT_EQ(beat->length(), rational(3, 2));
    voice->insertNoteWithCut(std::make_shared<Note>(60), 0, rational(3, 2));
    EXPECT_EQ(written(*voice), "3/2:60");
}

TEST(VoiceTime, placedNotesCutWhatIsInTheWay)
{
    auto voice = std::make_shared<Voice>();
    const auto note = std::make_shared<Note>(60);
    auto beats = voice->insertNoteWithCut(note, 1, 2);
    EXPECT_EQ(written(*voice), "1. 2:60");
    ASSERT_EQ(beats.size(), 1u);
    EXPECT_EQ(beats[0]->note(0), note) << "the note itself, not a copy";

    voice->beat(1)->setText("here");
    voice->insertNoteWithCut(std::make_shared<Note>(64), 2, 2);
    EXPECT_EQ(written(*voice), "1. 1:60~ 1:~60,64~ 1:~64");
    EXPECT_EQ(voice->beat(1)->text(), "here");
    EXPECT_EQ(voice->beat(2)->text(), "");

    voice->insertNotesInBeatsBetween({std::make_shared<Note>(48), std::make_shared<Note>(52)},
                                     rational(1, 3), rational(2, 3));
    EXPECT_EQ(written(*voice), "1/3. 1/3:48,52 1/3. 1:60~ 1:~60,64~ 1:~64");

    // The same key again replaces the note and the tie that led to it.
    voice->insertNoteWithCut(std::make_shared<Note>(60), 2, 1);
    EXPECT_EQ(written(*voice), "1/3. 1/3:48,52 1/3. 1:60 1:64~,60 1:~64");
}

TEST(VoiceTime, placingNothingChangesNothing)
{
    auto voice = std::make_shared<Voice>();
    voice->addBeat(makeBeat(NoteValue::Whole, {60}));
    EXPECT_TRUE(voice->insertNoteWithCut(std::make_shared<Note>(61), -1, 2).empty());
    EXPECT_TRUE(voice->insertNoteWithCut(std::make_shared<Note>(61), 1, 0).empty());
    EXPECT_TRUE(voice->insertNotesInBeatsBetween({}, 0, 2).empty());
    EXPECT_THROW(voice->insertNoteWithCut(voice->beat(0)->note(0), 1, 1), CoreException);
    EXPECT_EQ(written(*voice), "4:60");
}

/// Whatever is placed, the voice stays a seamless line: the notes sound where they were put, and
/// what stood there keeps its time.
TEST(VoiceTime, randomPlacementsKeepTheTime)
{
    std::mt19937 random(7);
    for (int round = 0; round < 300; ++round) {
        auto voice = std::make_shared<Voice>();
        rational end;
        for (int step = 0; step < 6; ++step) {
            const rational start(static_cast<int>(random() % 24), random() % 2 == 0 ? 8 : 6);
            const rational length(1 + static_cast<int>(random() % 16), random() % 2 == 0 ? 8 : 12);
            const int midi = 40 + step;
            const auto beats =
                voice->insertNoteWithCut(std::make_shared<Note>(midi), start, length);
            end = std::max(end, start + length);
            ASSERT_EQ(voice->length(), end);
            ASSERT_EQ(voice->beatDrawingOffset(*beats.front()), start);
            rational sum;
            for (const auto &beat : beats) {
                ASSERT_TRUE(beat->noteWithMidi(midi));
                ASSERT_EQ(beat->noteWithMidi(midi)->isTied(), beat != beats.front());
                ASSERT_EQ(beat->noteWithMidi(midi)->isTieOrigin(), beat != beats.back());
                sum += beat->length();
            }
            ASSERT_EQ(sum, length);
        }
    }
}

/// Offsets are kept between changes: every way to change a length must be noticed.
TEST(VoiceTime, offsetsFollowEveryChange)
{
    const auto model = makeBand(1);
    const auto voice = model->track(0)->bar(0)->voice(0);
    std::mt19937 random(11);
    const auto below = [&](unsigned count) { return static_cast<unsigned>(random() % count); };
    const std::function<void()> changes[] = {
        [&] { voice->insertBeat(below(9), makeBeat(NoteValue::Eighth, {60})); },
        [&] {
            voice->insertBeats(below(9), {makeBeat(NoteValue::Half), makeBeat(NoteValue::Long)});
        },
        [&] { voice->removeBeat(below(9)); },
        [&] { voice->removePlaceHolderBeats(0, below(4)); },
        [&] { *voice = Voice(*voice); },
        [&] { voice->insertNoteWithCut(std::make_shared<Note>(62), below(3), rational(2, 3)); },
        [&] { model->masterTrack()->masterBar(0)->setOwnLength(rational(1 + below(9), 4)); },
        [&] {
            voice->beats()[below(voice->beatCount())]->setRhythmValue(
                RhythmValue(NoteValue::Sixteenth, 1));
        },
        [&] {
            voice->beats()[below(voice->beatCount())]->setGraceType(
                static_cast<GraceType>(below(3)));
        },
        [&] { voice->beats()[below(voice->beatCount())]->setWholeBarRest(below(2) == 0); },
        [&] { voice->beats()[below(voice->beatCount())]->setPlaceHolder(below(2) == 0); },
        [&] { voice->beats()[below(voice->beatCount())]->takeNotes(); },
        [&] { voice->beats()[below(voice->beatCount())]->removeNote(0u); },
        [&] { voice->beats()[below(voice->beatCount())]->addNote(std::make_shared<Note>(61)); },
        [&] { *voice->beats()[below(voice->beatCount())] = Beat(RhythmValue(NoteValue::Half)); },
    };
    for (int step = 0; step < 4000; ++step) {
        if (voice->isEmpty() || voice->beatCount() > 12) {
            voice->clear();
            voice->addBeat(makeBeat(NoteValue::Quarter));
        }
        changes[below(std::size(changes))]();
        rational offset;
        for (const auto &beat : voice->beats()) {
            ASSERT_EQ(voice->beatDrawingOffset(*beat), offset) << step;
            ASSERT_EQ(voice->beatSoundingOffset(*beat), offset);
            if (!beat->isGrace()) {
                ASSERT_EQ(voice->beatStartingAt(offset), beat);
                ASSERT_EQ(voice->beatAt(offset + beat->length() / 3), beat);
            }
            offset += beat->length();
        }
        ASSERT_EQ(voice->beatAt(offset), nullptr);
    }
    // In a copy that nobody holds yet the beats cannot tell.
    Voice copy(*voice);
    copy.beatDrawingOffset(*copy.beats().back());
    const rational before = copy.length() - copy.beats().front()->length();
    copy.beats().front()->setGraceType(GraceType::OnBeat);
    EXPECT_EQ(copy.beatDrawingOffset(*copy.beats().back()) + copy.beats().back()->length(), before);
}

TEST(VoiceTime, threadsMayAskAtOnce)
{
    const auto model = makeBand(200);
    const auto ask = [&] {
        rational sum;
        for (const auto &bar : model->track(0)->bars())
            for (const auto &beat : bar->voices()[0]->beats())
                sum += bar->voices()[0]->beatSoundingOffset(*beat);
        EXPECT_EQ(sum, rational(200 * 5));
    };
    std::vector<std::thread> threads;
    for (int i = 0; i < 4; ++i)
        threads.emplace_back(ask);
    for (std::thread &thread : threads)
        thread.join();
}

TEST(VoiceTime, mendedTies)
{
    const auto model = makeBand(2);
    const auto first = model->track(0)->bar(0)->voice(0);
    const auto second = model->track(0)->bar(1)->voice(0);
    first->takeBeats(0, 9);
    second->takeBeats(0, 9);
    for (const auto &voice : {first, first, second})
        voice->addBeat(makeBeat(NoteValue::Quarter, {60}));
    first->beat(0)->note(0)->setTieOrigin(true);
    first->beat(1)->note(0)->setTied(true);
    first->beat(1)->note(0)->setTieOrigin(true);
    second->beat(0)->note(0)->setTied(true);
    EXPECT_EQ(written(*first), "1:60~ 1:~60~");
    first->insertBeat(2, makeBeat(NoteValue::Quarter, {62}), LinkMode::Mend);
    EXPECT_EQ(written(*first), "1:60~ 1:~60 1:62");
    EXPECT_EQ(written(*second), "1:60") << "over the bar line";
    first->removeBeat(1, LinkMode::None);
    EXPECT_EQ(written(*first), "1:60~ 1:62");
    first->removeBeat(1, LinkMode::Mend);
    EXPECT_EQ(written(*first), "1:60");
}
