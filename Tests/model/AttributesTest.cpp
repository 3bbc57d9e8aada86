// SPDX-License-Identifier: MIT
#include <support/NativeDocument.h>
#include <support/RandomAttribute.h>

#include <ZarnCore/ZarnException.h>
#include <ZarnCore/model/ZarnBarAttribute.h>
#include <ZarnCore/model/ZarnMasterBarAttribute.h>
#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/model/notes/LinkFaults.h>
#include <ZarnCore/model/notes/SpanFaults.h>

#include <gtest/gtest.h>

#include <random>
#include <set>

using namespace zarn;

namespace {

/// A piece of one track with one note, and its nodes.
struct OneNote {
    ScoreModel model;
    std::shared_ptr<Beat> beat = std::make_shared<Beat>();
    std::shared_ptr<zarn::Note> note = std::make_shared<zarn::Note>(60);

    OneNote()
    {
        model.insertEmptyBarColumns(0, 1);
        model.createAndInsertTrack(0, InstrumentSet::steelGuitar);
        model.track(0)->bar(0)->ensureVoice(0)->addBeat(beat);
    }

    Beat &node(const Beat *) { return *beat; }
    Bar &node(const Bar *) { return *model.track(0)->bar(0); }
    MasterBar &node(const MasterBar *) { return *model.masterTrack()->masterBar(0); }
    zarn::Note &node(const zarn::Note *)
    {
        if (!beat->hasNotes())
            beat->addNote(note);
        return *note;
    }
};

std::mt19937 engine(7);

test::RandomAttribute attributes()
{
    return test::RandomAttribute([](unsigned count) { return unsigned(engine() % count); });
}

template <class Node>
void expectKept()
{
    const auto random = attributes();
    std::set<std::string_view> names;
    for (const auto &row : attributesOf<Node>()) {
        SCOPED_TRACE(std::string(row.name));
        EXPECT_TRUE(names.insert(row.name).second);
        EXPECT_TRUE(row.range.contains(defaultOf(row)));
        EXPECT_TRUE(row.isDefault(Node()));
        if (row.name == "Anacrusis")
            continue; // is the master track's
        for (int i = 0; i < 30; ++i) {
            OneNote score;
            Node &node = score.node(static_cast<const Node *>(nullptr));
            const Node before(node);
            const AttributeValue value = random.value(row.range);
            ASSERT_TRUE(row.range.contains(value)) << row.range.toText(value);
            if (row.name == "SimileMark" || row.name == "RepeatCount")
                continue; // have gaps in their ranges
            row.set(node, value);
            EXPECT_EQ(row.get(node), value) << row.range.toText(value);
            EXPECT_EQ(row.isDefault(node), value == defaultOf(row));
            EXPECT_EQ(node == before, row.isDefault(node)) << row.range.toText(value);
            for (const auto &other : attributesOf<Node>())
                EXPECT_TRUE(other.id == row.id || other.isDefault(node)) << other.name;

            // Of a link, readers leave out what has one end: there is no other beat.
            const std::string document = test::writeNative(score.model);
            const Track &track = *score.model.track(0);
            const bool isWhole = brokenLinks(*track.staff(0)).empty() && brokenSpans(track).empty();
            EXPECT_EQ(*test::readNative(document) == score.model, isWhole) << document;

            const auto copy = row.range.fromText(row.range.toText(value));
            EXPECT_TRUE(!copy || row.range.toText(*copy) == row.range.toText(value));

            row.set(node, defaultOf(row));
            EXPECT_TRUE(node == before);
        }
    }
}

} // namespace

TEST(Attributes, eachIsKeptComparedAndWrittenByItself)
{
    expectKept<Beat>();
    expectKept<zarn::Note>();
    expectKept<Bar>();
    expectKept<MasterBar>();
}

TEST(Attributes, anUnmarkedNodeOwnsNothing)
{
    Beat beat;
    beat.setText("a");
    beat.setBrush({Direction::Up, 120, StrumAnchor::EndsOnBeat});
    EXPECT_TRUE(beat.hasDetails());
    beat.setText({});
    beat.setBrush({});
    EXPECT_FALSE(beat.hasDetails());
    zarn::Note note(60);
    note.setBend(Bend::of(BendType::Bend));
    EXPECT_TRUE(note.hasDetails());
    note.setBend({});
    EXPECT_FALSE(note.hasDetails());
}

TEST(Attributes, whatTheyDoNotTakeIsRefused)
{
    Beat beat;
    zarn::Note note(60);
    EXPECT_THROW(beat.setTremolo(5), CoreException);
    EXPECT_THROW(beat.setHairpin(static_cast<Hairpin>(4)), CoreException);
    EXPECT_THROW(beat.setOttavia(static_cast<Ottavia>(5)), CoreException);
    EXPECT_THROW(beat.setSlurEnds({{0, true}}), CoreException);
    EXPECT_THROW(
        beat.setLyrics({{1, Syllabic::Single, false, "a"}, {1, Syllabic::Single, false, "b"}}),
        CoreException);
    EXPECT_THROW(note.setVelocity(128), CoreException);
    EXPECT_THROW(note.setAccents(AccentFlags(3)), CoreException);
    EXPECT_THROW(note.setTrill({13, Trill::Speed::ThirtySecond}), CoreException);
    EXPECT_THROW(note.setBend({BendType::Bend, {}}), CoreException);
    EXPECT_THROW(note.setBend({BendType::Bend, {{0, 0}, {60, 25}}}), CoreException);
    EXPECT_THROW(PitchCurve({{0, 0}, {30, 4}}), CoreException);
    EXPECT_EQ(beat, Beat());
    EXPECT_EQ(note, zarn::Note(60));
    MasterBar bar;
    EXPECT_THROW(bar.setBeamGroups(BeamGroups({3, 2})), CoreException);
    bar.setBeamGroups(BeamGroups({3, 1}));
    bar.setTimeSignature({5, 8});
    EXPECT_TRUE(bar.beamGroups().isEmpty());
}

TEST(Attributes, settingsOfTracksAndViewsThatCannotBeAreRefused)
{
    Track track(InstrumentSet::steelGuitar);
    EXPECT_THROW(track.setPalmMuteStrength(1.5F), CoreException);
    EXPECT_THROW(track.setSystemsLayout({4, 0}), CoreException);
    EXPECT_THROW(track.setForcedSoundIndex(-2), CoreException);
    EXPECT_THROW(track.setMidiConnection(MidiConnection{0, 16, 0}), CoreException);
    EXPECT_EQ(track.settings(), TrackSettings());
    EXPECT_EQ(track.midiConnection().channel, 0U);
    EXPECT_EQ(Track(InstrumentSet::drumKit).midiConnection().channel, 9U);
    ScoreModel model;
    EXPECT_THROW(model.setViews({}), CoreException);
    EXPECT_THROW(model.setTrackGroups({{2, 1, "", GroupSymbol::Brace, false}}), CoreException);
    EXPECT_EQ(model.views().size(), 1U);
}

TEST(Attributes, whatExcludesAnotherTakesItOff)
{
    OneNote score;
    Beat &beat = *score.beat;
    zarn::Note &note = score.node(&*score.note);
    setAttribute(beat, note, NoteAttribute::LetRing, true);
    setAttribute(beat, note, NoteAttribute::PalmMute, true);
    EXPECT_FALSE(note.letsRing());
    setAttribute(beat, note, NoteAttribute::LeftTap, true);
    setAttribute(beat, BeatAttribute::PickStroke, Direction::Up);
    EXPECT_FALSE(note.isLeftHandTapped());
    setAttribute(beat, BeatAttribute::Arpeggio, Strum{Direction::Up, 480, {}});
    EXPECT_EQ(beat.pickStroke(), Direction::None);
    setAttribute(beat, BeatAttribute::Brush, Strum{Direction::Down, 0, {}});
    EXPECT_EQ(beat.brush(), (Strum{Direction::Down, 0, {}}));
    EXPECT_EQ(beat.arpeggio(), Strum());
    setAttribute(beat, note, NoteAttribute::Trill, Trill{2, Trill::Speed::ThirtySecond});
    setAttribute(beat, BeatAttribute::Tremolo, 3);
    EXPECT_EQ(note.trill(), Trill());
    setAttribute(beat, BeatAttribute::Arpeggio, Strum()); // what is not set excludes nothing
    EXPECT_EQ(beat.brush().direction, Direction::Down);
    EXPECT_TRUE(mendExclusions(beat).empty());
    beat.setRasgueado(RasgueadoType::ami_1);
    EXPECT_FALSE(mendExclusions(beat).empty());
    EXPECT_EQ(beat.rasgueado(), RasgueadoType::None);
    EXPECT_EQ(
        AccentFlags(AccentFlag::Staccato).with(AccentFlag::Tenuto).with(AccentFlag::Staccatissimo),
        AccentFlags(AccentFlag::Staccatissimo).with(AccentFlag::Tenuto));
}

/// A beat is cut in three: a quarter of it, a half, a quarter.
TEST(Attributes, aCutDealsThemOut)
{
    OneNote score;
    Beat &beat = *score.beat;
    zarn::Note &note = score.node(&*score.note);
    beat.setRhythmValue(RhythmValue(RhythmValue::NoteValue::Whole));
    beat.setDynamic(NoteDynamic::Value::F);
    beat.setText("dolce");
    beat.setHairpin(Hairpin::Swell);
    beat.setHairpinBegins(true);
    beat.setFadding(Fadding::VolumeSwell);
    beat.setSlurredToNext(true);
    beat.setSlurBegins(true);
    beat.setSlurLine(SlurLine::Dotted);
    beat.setSlurSide(SlurSide::Below);
    beat.setBreath(BreathSign::Breath);
    beat.setCue(true);
    beat.setLyrics({{0, Syllabic::Single, true, "la"}});
    beat.setSlurEnds({{2, false}, {3, true, SlurLine::Dashed, SlurSide::Above}});
    beat.setWhammyBar({WhammyBarType::Dive, {{0, 0}, {60, -8}}});
    note.setAccents(
        AccentFlags(AccentFlag::Staccato).with(AccentFlag::Accent).with(AccentFlag::Tenuto));
    note.setHopo(true);
    note.setVibrato(Vibrato::Wide);
    note.setVelocity(90);
    note.setBend({BendType::BendNRelease, {{0, 0}, {30, 4}, {60, 0}}});
    const auto next = std::make_shared<Beat>();
    next->setSlurredToPrevious(true);
    next->addNote(note.clone());
    next->notes()[0]->setMidi(note.midi() + 1);
    next->notes()[0]->setFret(note.fret() + 1);
    score.model.track(0)->bar(0)->voice(0)->addBeat(next);
    const auto struck = std::make_shared<zarn::Note>(72);
    const auto placed = score.model.track(0)->bar(0)->voice(0)->insertNoteWithCut(struck, 1, 2);
    ASSERT_EQ(placed.size(), 1u);
    const auto &beats = score.model.track(0)->bar(0)->voice(0)->beats();
    ASSERT_EQ(beats.size(), 4u);
    const auto noteOf = [&](unsigned piece) -> const zarn::Note & {
        return *beats[piece]->notes()[0];
    };

    for (unsigned piece = 0; piece < 3; ++piece) {
        SCOPED_TRACE(piece);
        const Beat &part = *beats[piece];
        const bool isFirst = piece == 0;
        const bool isLast = piece == 2;
        EXPECT_EQ(part.dynamic(), isFirst ? NoteDynamic::Value::F : NoteDynamic::Value::None);
        EXPECT_EQ(part.text(), isFirst ? "dolce" : "");
        EXPECT_EQ(part.lyrics().size(), isFirst ? 1u : 0u);
        EXPECT_EQ(part.beginsHairpin(), isFirst);
        EXPECT_EQ(part.beginsSlur(), isFirst);
        EXPECT_EQ(part.breath() == BreathSign::Breath, isLast);
        EXPECT_TRUE(part.isCue());
        EXPECT_TRUE(part.isSlurredToNext());
        EXPECT_EQ(part.isSlurredToPrevious(), !isFirst);
        EXPECT_EQ(part.slurLine(), SlurLine::Dotted);
        EXPECT_EQ(part.slurSide(), SlurSide::Below);
        EXPECT_EQ(part.slurEnds(),
                  isFirst      ? SlurEnds({{3, true, SlurLine::Dashed, SlurSide::Above}})
                      : isLast ? SlurEnds({{2, false}})
                               : SlurEnds());
        const zarn::Note &held = noteOf(piece);
        EXPECT_EQ(held.isTied(), !isFirst);
        EXPECT_EQ(held.isTieOrigin(), !isLast);
        EXPECT_EQ(held.isHopo(), isLast);
        EXPECT_EQ(held.velocity(), isFirst ? 90u : 0u);
        EXPECT_EQ(held.vibrato(), Vibrato::Wide);
        EXPECT_EQ(held.accents().has(AccentFlag::Accent), isFirst);
        EXPECT_EQ(held.accents().has(AccentFlag::Staccato), isLast);
        EXPECT_TRUE(held.accents().has(AccentFlag::Tenuto));
    }
    EXPECT_EQ(beats[0]->hairpin(), Hairpin::Crescendo);
    EXPECT_EQ(beats[1]->hairpin(), Hairpin::Swell);
    EXPECT_EQ(beats[2]->hairpin(), Hairpin::Decrescendo);
    EXPECT_EQ(beats[0]->fadding(), Fadding::FadeIn);
    EXPECT_EQ(beats[2]->fadding(), Fadding::FadeOut);
    EXPECT_EQ(beats[0]->whammyBar().toString(), "Dive 0:0 60:-2");
    EXPECT_EQ(beats[1]->whammyBar().toString(), "PreDiveNDive 0:-2 60:-6");
    EXPECT_EQ(beats[2]->whammyBar().toString(), "PreDiveNDive 0:-6 60:-8");
    EXPECT_EQ(noteOf(0).bend().toString(), "Bend 0:0 60:2");
    EXPECT_EQ(noteOf(1).bend().toString(), "PreBendNBend 0:2 30:4 60:2");
    EXPECT_EQ(noteOf(2).bend().toString(), "Release 0:2 60:0");
}

/// The points of a bend that are cut away leave its course as it was, to a quarter-tone.
TEST(Attributes, aCutCurveIsContinuous)
{
    const PitchCurve curve({{0, 0}, {7, 5}, {23, -9}, {41, 12}, {60, 3}});
    for (int cut = 1; cut < 60; ++cut) {
        const PitchCurve left = curve.part(0, cut);
        const PitchCurve right = curve.part(cut, 60);
        EXPECT_EQ(left.points().back().value, right.points().front().value);
        EXPECT_EQ(left.points().back().value, curve.valueAt(cut).round());
        EXPECT_TRUE(PitchCurve::isCurve(left.points()) && PitchCurve::isCurve(right.points()));
    }
}

TEST(Attributes, aWrongValueInADocumentNamesItsPlace)
{
    const auto refusal = [](const std::string &beat) -> std::string {
        try {
            test::readNative(
                R"({"zarn":"1.3","master":{"bars":[{}]},"tracks":[{"staves":[{"bars":[)"
                R"({"voices":[{"beats":[{)"
                + beat + "}]}]}]}]}]}");
        } catch (const CoreException &error) {
            return error.message();
        }
        return "read";
    };
    const std::string at = "/tracks/0/staves/0/bars/0/voices/0/beats/0/";
    const std::pair<const char *, std::string> table[] = {
        {R"("hairpin":"crescendo")", "hairpin"},
        {R"("hairpin":1)", "hairpin"},
        {R"("tremolo":5)", "tremolo"},
        {R"("brush":"Up 9999")", "brush"},
        {R"("brush":"Up ")", "brush"},
        {R"("whammyBar":"Dive 0:0 60:-99")", "whammyBar"},
        {R"("whammyBar":"Dive")", "whammyBar"},
        {R"("barre":"7 3,2")", "barre"},
        {R"("lyrics":[{"line":5}])", "lyrics/0/line"},
        {R"("slurs":[{"number":0}])", "slurs/0/number"},
        {R"("notes":[{"bend":"Bend 0:0 70:4"}])", "notes/0/bend"},
        {R"("notes":[{"accents":"Staccato Staccatissimo"}])", "notes/0/accents"},
        {R"("notes":[{"velocity":128}])", "notes/0/velocity"},
        {R"("notes":[{"harmonic":"Natural 1"}])", "notes/0/harmonic"},
    };
    for (const auto &row : table) {
        const std::string message = refusal(row.first);
        EXPECT_NE(message.find(at + row.second), std::string::npos) << row.first << ": " << message;
    }
}

/// A document says of every kind of ghost note that it is one, for readers that know of one kind.
TEST(Attributes, ghostNotesAreWrittenForOlderReadersToo)
{
    for (const AntiAccent accent : {AntiAccent::Soft, AntiAccent::Normal, AntiAccent::Strong}) {
        OneNote score;
        score.node(&*score.note).setAntiAccent(accent);
        const std::string document = test::writeNative(score.model);
        EXPECT_NE(document.find("\"ghost\":true"), std::string::npos) << document;
        EXPECT_EQ(document.find("antiAccent") == std::string::npos, accent == AntiAccent::Normal);
        EXPECT_TRUE(*test::readNative(document) == score.model);
    }
}

TEST(Attributes, harmonicsSpeakAtTheFretsOfTheirPartials)
{
    for (const auto &[fret, partial] :
         {std::pair(12, 2u), {7, 3u}, {5, 4u}, {4, 5u}, {3, 6u}, {0, 0u}})
        EXPECT_EQ(Harmonic::partialAtFret(fret), partial);
    for (unsigned partial = 2; partial <= 8; ++partial)
        EXPECT_EQ(Harmonic::partialAtFret(static_cast<int>(Harmonic::fretOfPartial(partial))),
                  partial);
    EXPECT_EQ(Harmonic::semitones(3), 19);
    EXPECT_THROW(Harmonic::semitones(1), CoreException);
}
