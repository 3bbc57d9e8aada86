// SPDX-License-Identifier: MIT
#include "PlaybackSamples.h"

#include <ZarnCore/instruments/automations/ZarnChannelStrip.h>
#include <ZarnCore/instruments/sounds/ZarnSound.h>

#include <set>
#include <utility>

namespace zarn::playback {

using Level = NoteDynamic::Value;

TEST(NoteVelocity, hairpinsRunToTheDynamicBehindThem)
{
    Sample sample;
    for (int i = 0; i < 4; ++i)
        sample.add(Value::Quarter, {60 + i});
    const auto voice = sample.track().bar(0)->voice(0);
    voice->beat(0)->setDynamic(Level::P);
    voice->beat(0)->setHairpin(Hairpin::Crescendo);
    voice->beat(1)->setHairpin(Hairpin::Crescendo);
    voice->beat(2)->setDynamic(Level::F);
    EXPECT_EQ(velocities(sample.plan()), "49 73 96 96"); // 49 to 96 over two quarters
    voice->beat(2)->setDynamic(Level::None);
    EXPECT_EQ(velocities(sample.plan()), "49 57 65 65") << "a step without a dynamic";
    voice->beat(1)->setDynamic(Level::MF);
    EXPECT_EQ(velocities(sample.plan()), "49 80 80 80") << "a dynamic inside ends it";
}

TEST(NoteVelocity, aDynamicPartsHairpinsOfTwoVoices)
{
    Sample sample(2);
    for (int i = 0; i < 4; ++i)
        sample.add(Value::Quarter, {60}, 0, 1)
            .setHairpin(i < 2 ? Hairpin::NoHairpin : Hairpin::Decrescendo);
    Beat &first = sample.add(Value::Quarter, {72}, 1);
    first.setHairpin(Hairpin::Decrescendo);
    sample.add(Value::Quarter, {73}, 1).setHairpin(Hairpin::Decrescendo);
    sample.add(Value::Half, {74}, 1).setDynamic(Level::P);
    EXPECT_EQ(velocities(sample.plan()), "80 80 80 72 65 57 49") << "one, over both voices";
    first.setDynamic(Level::F);
    EXPECT_EQ(velocities(sample.plan()), "80 80 80 72 96 73 49");
}

TEST(NoteVelocity, dynamicsHoldForAllVoicesButThoseWithTheirOwn)
{
    Sample sample;
    sample.add(Value::Half, {72}).setDynamic(Level::F);
    sample.add(Value::Half, {74});
    sample.add(Value::Half, {60}, 0, 1);
    sample.add(Value::Half, {62}, 0, 1);
    EXPECT_EQ(velocities(sample.plan()), "96 96 96 96");
    sample.track().bar(0)->voice(1)->beat(0)->setDynamic(Level::PP);
    EXPECT_EQ(velocities(sample.plan()), "96 33 96 33");
}

TEST(NoteVelocity, signsMakeNotesLouderAndSofter)
{
    const auto heard = [](auto mark) {
        Sample sample;
        Beat &beat = sample.add(Value::Quarter, {60});
        mark(beat, *beat.note(0));
        return int(sample.plan().notes().at(0).velocity);
    };
    EXPECT_EQ(heard([](Beat &, Note &note) { note.setAccents(AccentFlag::Accent); }), 96);
    EXPECT_EQ(heard([](Beat &, Note &note) { note.setAccents(AccentFlag::HeavyAccent); }), 112);
    EXPECT_EQ(heard([](Beat &, Note &note) { note.setAccents(AccentFlag::SoftAccent); }), 88);
    EXPECT_EQ(heard([](Beat &, Note &note) { note.setGhost(true); }), 60);
    EXPECT_EQ(heard([](Beat &, Note &note) { note.setVelocity(31); }), 31);
    EXPECT_EQ(heard([](Beat &, Note &note) {
                  note.setVelocity(3);
                  note.setAntiAccent(AntiAccent::Strong);
              }),
              1);
    EXPECT_EQ(heard([](Beat &beat, Note &) { beat.setAttackDynamic(AttackDynamic::Sfz); }), 112);
    EXPECT_EQ(heard([](Beat &beat, Note &) { beat.setAttackDynamic(AttackDynamic::Fp); }), 96);
    EXPECT_EQ(heard([](Beat &beat, Note &) { beat.setPickStroke(Direction::Up); }), 72);
}

TEST(NoteVelocity, softAttackSignsGoOnSoftly)
{
    Sample sample;
    sample.add(Value::Half, {60}).setAttackDynamic(AttackDynamic::Fp);
    sample.add(Value::Half, {62});
    EXPECT_EQ(velocities(sample.plan()), "96 49");
}

TEST(NoteVelocity, autoAccentuationFollowsTheMeter)
{
    Sample sample;
    for (int i = 0; i < 6; ++i)
        sample.add(Value::Eighth, {60});
    sample.master(0).setTimeSignature({6, 8});
    sample.track().setAutoAccentuation(true);
    EXPECT_EQ(velocities(sample.plan()), "96 80 80 88 80 80");
    sample.master(0).setBeamGroups(BeamGroups({2, 4}));
    EXPECT_EQ(velocities(sample.plan()), "96 80 88 80 80 80");
}

TEST(NoteVelocity, hammeredAndPulledNotesAreNotPlucked)
{
    Sample sample(1, InstrumentSet::steelGuitar);
    sample.track().setTranspositionOffset(0);
    sample.addFretted(Value::Quarter, 5, 5, 69).setHopo(true);
    sample.addFretted(Value::Quarter, 5, 7, 71).setHopo(true);
    sample.addFretted(Value::Quarter, 5, 5, 69);
    const auto plan = sample.plan();
    EXPECT_EQ(velocities(plan), "80 64 48");
    EXPECT_EQ(plan.notes()[0].end, utils::rational(1)) << "no gap";
    EXPECT_EQ(plan.notes()[1].technique, Technique::HammeredOn);
    EXPECT_EQ(plan.notes()[2].technique, Technique::PulledOff);
}

TEST(NoteKey, soundsTransposedAndWithinMidi)
{
    Sample sample;
    sample.add(Value::Quarter, {60});
    sample.add(Value::Quarter, {127});
    sample.track().setTranspositionOffset(-2);
    EXPECT_EQ(starts(sample.plan()), "58:0 125:1");
    sample.track().setTranspositionOffset(12);
    EXPECT_EQ(starts(sample.plan()), "72:0 127:1");
}

TEST(NoteKey, harmonicsSoundTheirPartials)
{
    const auto keys = [](HarmonicType type, std::uint8_t partial) {
        Sample sample(1, InstrumentSet::steelGuitar);
        sample.track().setTranspositionOffset(0);
        sample.track().staff(0)->setTuning(GuitarTuning({40, 45, 50, 55, 59, 64}));
        Note &note = sample.addFretted(Value::Half, 5, 7, 71);
        note.setHarmonic({type, partial});
        return starts(sample.plan());
    };
    EXPECT_EQ(keys(HarmonicType::Natural, 3), "83:0") << "E4 and a twelfth";
    EXPECT_EQ(keys(HarmonicType::Artificial, 2), "83:0");
    EXPECT_EQ(keys(HarmonicType::Semi, 2), "71:0 83:0");
    EXPECT_EQ(keys(HarmonicType::Feedback, 2), "71:0 83:31/32");
}

TEST(NoteKey, percussionWithoutASoundIsTold)
{
    Sample sample(1, InstrumentSet::drumKit);
    Note &known = *sample.add(Value::Half, {38}).note(0);
    known.setStaffLine(4);
    const auto unknown = std::make_shared<Note>();
    unknown->setStaffLine(2);
    sample.add(Value::Half).addNote(unknown);
    const auto plan = sample.plan();
    EXPECT_EQ(starts(plan), "38:0 37:2");
    ASSERT_EQ(plan.unknownSounds().size(), 1U);
    EXPECT_EQ(plan.lanes()[plan.notes()[0].lane].channel, 9);
}

// Pitch.

TEST(PitchMotion, bendsFollowTheirCurve)
{
    Sample sample(1, InstrumentSet::steelGuitar);
    sample.addFretted(Value::Whole, 3, 7, 62).setBend(Bend::of(BendType::Bend, 4));
    const auto plan = sample.plan();
    const auto *const motion = plan.motionOf(plan.notes().at(0));
    ASSERT_NE(motion, nullptr);
    EXPECT_DOUBLE_EQ(motion->semitonesAt(0), 0);
    EXPECT_DOUBLE_EQ(motion->semitonesAt(1), 1) << "halfway up a whole tone in half the time";
    EXPECT_DOUBLE_EQ(motion->semitonesAt(2), 2);
    EXPECT_DOUBLE_EQ(motion->semitonesAt(3), 2);
}

TEST(PitchMotion, aBendSpansTheNotesThatAreTiedToIt)
{
    Sample sample(2, InstrumentSet::steelGuitar);
    Note &first = sample.addFretted(Value::Whole, 3, 7, 62);
    first.setBend(Bend::of(BendType::Bend, 4));
    first.setTieOrigin(true);
    sample.addFretted(Value::Whole, 3, 7, 62, 1).setTied(true);
    const auto plan = sample.plan();
    ASSERT_EQ(plan.notes().size(), 1U);
    EXPECT_DOUBLE_EQ(plan.motionOf(plan.notes()[0])->semitonesAt(2), 1);
    sample.track().bar(1)->voice(0)->beat(0)->note(0)->setBend(Bend::of(BendType::Release, 4));
    const auto released = sample.plan();
    const auto *const motion = released.motionOf(released.notes()[0]);
    EXPECT_DOUBLE_EQ(motion->semitonesAt(2), 2) << "its own time now";
    EXPECT_DOUBLE_EQ(motion->semitonesAt(5), 1);
    EXPECT_DOUBLE_EQ(motion->semitonesAt(7), 0);
}

TEST(PitchMotion, legatoSlidesGoOnWithoutAnAttack)
{
    Sample sample(1, InstrumentSet::steelGuitar);
    sample.track().setTranspositionOffset(0);
    Note &from = sample.addFretted(Value::Half, 3, 5, 60);
    sample.addFretted(Value::Half, 3, 7, 62);
    from.setSlideOut(SlideOut::Legato);
    const auto legato = sample.plan();
    EXPECT_EQ(times(legato), "60:0-63/16");
    EXPECT_DOUBLE_EQ(legato.motionOf(legato.notes()[0])->semitonesAt({4, 3}), 0);
    EXPECT_DOUBLE_EQ(legato.motionOf(legato.notes()[0])->semitonesAt({5, 3}), 1);
    EXPECT_DOUBLE_EQ(legato.motionOf(legato.notes()[0])->semitonesAt(3), 2);
    from.setSlideOut(SlideOut::Shift);
    const auto shift = sample.plan();
    EXPECT_EQ(times(shift), "60:0-2 62:2-63/16");
    EXPECT_EQ(shift.motionOf(shift.notes()[1]), nullptr);
}

TEST(PitchMotion, vibratoIsASineOfItsWidth)
{
    Sample sample(1, InstrumentSet::steelGuitar);
    sample.addFretted(Value::Whole, 3, 5, 60).setVibrato(Vibrato::Wide);
    const auto plan = sample.plan();
    const auto *const motion = plan.motionOf(plan.notes().at(0));
    EXPECT_NEAR(motion->reach(), 0.5, 1e-9);
    int peaks = 0;
    for (const auto &point : motion->points)
        peaks += point.semitones > 0.4999 ? 1 : 0;
    EXPECT_EQ(peaks, 10) << "5.5 Hz over nine tenths of two seconds";
    EXPECT_DOUBLE_EQ(motion->semitonesAt({1, 5}), 0) << "not before a tenth";
}

TEST(PitchMotion, onlyNotesThatMoveApartNeedAChannelMore)
{
    Sample sample(1, InstrumentSet::steelGuitar);
    Beat &beat = sample.add(Value::Whole, {60, 64});
    beat.note(0)->setString(3);
    beat.note(1)->setString(4);
    beat.setWhammyBar(WhammyBar::of(WhammyBarType::Dive));
    const auto together = sample.plan();
    EXPECT_EQ(together.lanes().size(), 1U);
    EXPECT_EQ(together.notes()[0].motion, together.notes()[1].motion);
    beat.note(0)->setBend(Bend::of(BendType::Bend));
    const auto apart = sample.plan();
    EXPECT_NE(apart.notes()[0].lane, apart.notes()[1].lane);
    PlanOptions options;
    options.channels = Channels::OnePerString;
    const auto strings = sample.plan(options);
    EXPECT_EQ(strings.lanes()[strings.notes()[0].lane].role, Lane::Role::String);
    EXPECT_NE(strings.lanes()[strings.notes()[0].lane].channel,
              strings.lanes()[strings.notes()[1].lane].channel);
}

TEST(ChannelPlan, moreTracksThanChannelsGoToFurtherPorts)
{
    Sample sample;
    for (unsigned i = 1; i < 20; ++i)
        sample.model->createAndInsertTrack(i, InstrumentSet::acousticPiano);
    sample.model->track(3)->setMidiConnection(MidiConnection{0, 0, 1});
    std::set<std::pair<int, int>> channels;
    const auto plan = sample.plan();
    for (const Lane &lane : plan.lanes()) {
        EXPECT_NE(lane.channel, 9);
        channels.insert({lane.port, lane.channel});
    }
    EXPECT_EQ(channels.size(), 20U) << "each track has its own";
    EXPECT_EQ(plan.lanes()[3].channel, 0) << "the one that was chosen";
    EXPECT_EQ(plan.lanes()[19].port, 1);
}

// Changes of sound.

namespace {

/// "64=127@4" for each change of a controller.
std::string changes(const PlaybackPlan &plan, int controller)
{
    std::string text;
    for (const PlannedControl &control : plan.controls())
        if (control.kind == PlannedControl::Kind::Controller && control.number == controller)
            text += (text.empty() ? "" : " ") + std::to_string(control.value) + "@"
                + control.time.toString();
    return text;
}

} // namespace

TEST(PlanControls, aJumpSendsTheStateOfItsTarget)
{
    Sample sample(3); // 1 2 1 2 3
    sample.master(1).setRepeatCount(2);
    sample.add(Value::Whole, {60}).setPedal(PedalChange::Start);
    sample.add(Value::Half, {60}, 1);
    sample.add(Value::Half, {62}, 1).setPedal(PedalChange::Stop);
    auto volume = Automation::create(channelStripType(ChannelStripParameter::Volume));
    volume->setIndex(1);
    volume->setValue(0.25F);
    sample.track().mutableAutomations().insertAutomation(std::move(volume));
    const auto plan = sample.plan();
    EXPECT_EQ(changes(plan, SustainController), "127@0 0@6 127@8 0@14");
    EXPECT_EQ(changes(plan, VolumeController), "127@0 64@4 127@8 64@12");
}

TEST(PlanControls, aJumpSendsNothingThatItsTargetChangesAtOnce)
{
    Sample sample(2); // 1 2 2
    sample.master(1).setRepeatStart(true);
    sample.master(1).setRepeatCount(2);
    sample.add(Value::Whole, {60});
    sample.add(Value::Whole, {60}, 1);
    auto pan = Automation::create(channelStripType(ChannelStripParameter::Pan));
    pan->setIndex(1);
    pan->setValue(-1);
    sample.track().mutableAutomations().insertAutomation(std::move(pan));
    const auto plan = sample.plan();
    EXPECT_EQ(changes(plan, PanController), "64@0 0@4 0@8");
    EXPECT_EQ(changes(plan, VolumeController), "127@0 127@8");
}

TEST(PlanControls, levelsThatSlideGoStepByStep)
{
    Sample sample(2);
    sample.add(Value::Whole, {60});
    sample.add(Value::Whole, {60}, 1);
    const auto add = [&](ChannelStripParameter parameter, unsigned bar, float position,
                         float value) {
        auto level = Automation::create(channelStripType(parameter));
        level->setIndex(bar);
        level->setPosition(position);
        level->setValue(value);
        level->setLinear(bar == 0);
        sample.track().mutableAutomations().insertAutomation(std::move(level));
    };
    add(ChannelStripParameter::Pan, 0, 3, -1);
    add(ChannelStripParameter::Pan, 1, 0, 1);
    add(ChannelStripParameter::Volume, 0, 3.5F, 1);
    add(ChannelStripParameter::Volume, 1, 0.5F, 0);
    const auto plan = sample.plan();
    EXPECT_EQ(changes(plan, PanController), "64@0 0@3 32@13/4 64@7/2 96@15/4 127@4");
    EXPECT_EQ(changes(plan, VolumeController), "127@0 127@7/2 110@15/4 90@4 64@17/4 0@9/2");
}

TEST(PlanControls, aPedalChangeLiftsItForAMomentAndTheEndLiftsIt)
{
    Sample sample;
    sample.add(Value::Half, {60}).setPedal(PedalChange::Start);
    sample.add(Value::Half, {62}).setPedal(PedalChange::Change);
    EXPECT_EQ(changes(sample.plan(), SustainController), "127@0 0@2 127@33/16 0@4");
}

TEST(PlanControls, palmMutedRunsAreDull)
{
    Sample sample(1, InstrumentSet::steelGuitar);
    sample.addFretted(Value::Quarter, 0, 0, 40);
    sample.addFretted(Value::Quarter, 0, 0, 40).setPalmMute(true);
    sample.addFretted(Value::Quarter, 0, 0, 40).setPalmMute(true);
    sample.addFretted(Value::Quarter, 0, 0, 40);
    const auto plan = sample.plan();
    EXPECT_EQ(changes(plan, BrightnessController), "32@1 64@3");
    EXPECT_EQ(velocities(plan), "80 72 72 80");
    EXPECT_EQ(plan.notes()[1].length(), utils::rational(3, 5));
}

TEST(PlanControls, fadesAreExpressionFromSilence)
{
    Sample sample;
    sample.add(Value::Whole, {60}).setFadding(Fadding::FadeIn);
    const std::string values = changes(sample.plan(), ExpressionController);
    EXPECT_EQ(values.substr(0, 4), "0@0 ");
    EXPECT_EQ(values.substr(values.size() - 5), "127@4");
}

TEST(PlanControls, notesThatSlideAwayFadeWhereNothingElseIsHeard)
{
    const auto planOf = [](std::initializer_list<SlideOut> slides, bool isAlone) {
        Sample sample(1, InstrumentSet::steelGuitar);
        Beat &beat = sample.add(Value::Half, {});
        int string = 0;
        for (const SlideOut slide : slides) {
            const auto note = std::make_shared<Note>(45 + 5 * string);
            note->setString(string++);
            note->setFret(5);
            note->setSlideOut(slide);
            note->setAccents(AccentFlag::Tenuto);
            beat.addNote(note);
        }
        sample.addFretted(Value::Half, 0, 0, 40);
        if (!isAlone)
            sample.add(Value::Whole, {76}, 0, 1);
        return sample.plan();
    };
    const std::string alone = changes(planOf({SlideOut::Downwards}, true), ExpressionController);
    EXPECT_EQ(alone.substr(0, 19), "119@11/8 111@17/12 ") << "over the last third";
    EXPECT_EQ(alone.substr(alone.size() - 13), "7@47/24 127@2") << "full again at the next note";
    EXPECT_EQ(changes(planOf({SlideOut::Upwards, SlideOut::Upwards}, true), ExpressionController),
              alone)
        << "together";
    for (const auto &plan :
         {planOf({SlideOut::Downwards}, false), planOf({SlideOut::Downwards, SlideOut::None}, true),
          planOf({SlideOut::Shift}, true), planOf({SlideOut::PickScrapeDown}, true)})
        EXPECT_EQ(changes(plan, ExpressionController), "");
}

TEST(PlanControls, heldNotesSwellUnderHairpinsWhereTheirSoundCanGrow)
{
    enum class Music { OneNote, SecondVoice };
    constexpr int piano = 0;
    constexpr int violin = 40;
    const auto planOf = [](int program, Hairpin hairpin, Music music) {
        Sample sample(2);
        sample.track().addSound(std::make_shared<Sound>("Sound", MIDISound(program)));
        Beat &held = sample.add(Value::Whole, {72});
        held.setDynamic(hairpin == Hairpin::Crescendo ? Level::P : Level::F);
        held.setHairpin(hairpin);
        sample.add(Value::Whole, {74}, 1)
            .setDynamic(hairpin == Hairpin::Crescendo ? Level::F : Level::P);
        if (music == Music::SecondVoice)
            for (int i = 0; i < 2; ++i)
                sample.add(Value::Half, {60}, 0, 1);
        return sample.plan();
    };
    const auto rising = planOf(violin, Hairpin::Crescendo, Music::OneNote);
    EXPECT_EQ(velocities(rising), "95 96") << "struck as loud as it gets";
    const std::string up = changes(rising, ExpressionController);
    EXPECT_EQ(up.substr(0, up.find(' ')), "66@0"); // 49 of 95
    EXPECT_EQ(up.substr(up.size() - 8), "127@31/8");
    const auto falling = planOf(violin, Hairpin::Decrescendo, Music::OneNote);
    EXPECT_EQ(velocities(falling), "96 49");
    const std::string down = changes(falling, ExpressionController);
    EXPECT_EQ(down.substr(0, down.find(' ')), "125@1/8") << "full where it begins";
    EXPECT_EQ(down.substr(down.size() - 13), "67@31/8 127@4") << "full again at the next note";
    for (const auto &plan : {planOf(piano, Hairpin::Crescendo, Music::OneNote),
                             planOf(violin, Hairpin::Crescendo, Music::SecondVoice)}) {
        EXPECT_EQ(changes(plan, ExpressionController), "");
        EXPECT_EQ(plan.notes().front().velocity, 49);
    }
}

} // namespace zarn::playback
