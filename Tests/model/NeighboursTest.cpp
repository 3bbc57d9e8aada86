// SPDX-License-Identifier: MIT
// The neighbours of places, against plain lists of what stands in each line of real scores.
#include "ModelSamples.h"
#include "support/ScoreFiles.h"

#include <ZarnCore/instruments/sets/ZarnInstrumentSetLibrary.h>
#include <ZarnCore/model/places/ZarnScoreModelIndex.h>
#include <ZarnCore/music/ZarnMusic.h>

#include <QtGlobal>

#include <functional>
#include <limits>
#include <vector>

using namespace zarn;
using NoteValue = RhythmValue::NoteValue;

namespace {

struct Place {
    std::shared_ptr<Beat> beat;
    ScoreModelIndex index;
    unsigned stretch; ///< changes where a bar without beats lies in between
    utils::rational offset;
    const Bar *bar;
};
using Line = std::vector<Place>;

Line lineOf(ScoreModel &model, const Staff &staff, unsigned voice)
{
    Line line;
    unsigned stretch = 0;
    const int track = static_cast<int>(staff.track()->index());
    for (const auto &bar : staff.bars()) {
        const auto &slot = bar->voices()[voice];
        if (!slot || slot->isEmpty()) {
            ++stretch;
            continue;
        }
        utils::rational offset;
        for (const auto &beat : slot->beats()) {
            const ScoreModelIndex index(&model, track, static_cast<int>(bar->index()),
                                        static_cast<int>(beat->index()), voice, staff.index());
            line.push_back({beat, index, stretch, offset, bar.get()});
            offset += beat->length();
        }
    }
    return line;
}

void forEachLine(ScoreModel &model, const std::function<void(const Line &)> &check)
{
    for (const auto &track : model.tracks())
        for (const auto &staff : track->staves())
            for (unsigned voice = 0; voice < Bar::MaxVoices; ++voice)
                if (const Line line = lineOf(model, *staff, voice); !line.empty())
                    check(line);
}

/// What stands a number of places away (negative: in front); null past the ends, or over a gap.
const Place *away(const Line &line, std::size_t from, int steps, bool overGaps)
{
    const auto at = static_cast<std::ptrdiff_t>(from) + steps;
    if (at < 0 || at >= static_cast<std::ptrdiff_t>(line.size()))
        return nullptr;
    const Place &place = line[static_cast<std::size_t>(at)];
    return overGaps || place.stretch == line[from].stretch ? &place : nullptr;
}

using Matches = std::function<bool(const Note &, const Place &)>;

std::shared_ptr<Note> noteAt(const Place *place, const Matches &matches)
{
    if (place)
        for (const auto &note : place->beat->notes())
            if (matches(*note, *place))
                return note;
    return {};
}

std::shared_ptr<Note> nearestNote(const Line &line, std::size_t from, int step,
                                  const Matches &matches)
{
    std::shared_ptr<Note> found;
    for (int i = step; const Place *place = away(line, from, i, true); i += step)
        if ((found = noteAt(place, matches)))
            break;
    return found;
}

int lineOnStaff(const Note &note, const Place &place)
{
    if (note.staffLine() != Note::NoStaffLine)
        return note.staffLine();
    if (!note.spelling())
        return 1000;
    const int octaves =
        Music::ottaviaOctaves(place.bar->ottavia()) + Music::ottaviaOctaves(place.beat->ottavia());
    const int natural = note.midi() - note.spelling()->accidental().alteration();
    return Music::staffLineOfNote(note.spelling()->note(), place.bar->clefAt(place.offset),
                                  natural / 12 - octaves);
}

/// The forms of one search: exact and nearest, forwards and backwards.
struct Forms {
    std::function<std::shared_ptr<Note>(unsigned)> next, previous;
    std::function<std::shared_ptr<Note>(bool)> nextValid, previousValid;
    Matches matches;
};

void expectNotes(const Line &line, std::size_t at, const Forms &forms, const char *name)
{
    for (const int steps : {1, 3}) {
        const auto count = static_cast<unsigned>(steps);
        ASSERT_EQ(forms.next(count), noteAt(away(line, at, steps, false), forms.matches)) << name;
        ASSERT_EQ(forms.previous(count), noteAt(away(line, at, -steps, false), forms.matches))
            << name;
    }
    ASSERT_EQ(forms.nextValid(false), nearestNote(line, at, 1, forms.matches)) << name;
    ASSERT_EQ(forms.previousValid(false), nearestNote(line, at, -1, forms.matches)) << name;
    ASSERT_EQ(forms.nextValid(true), noteAt(&line[at], forms.matches)) << name;
    ASSERT_EQ(forms.previousValid(true), noteAt(&line[at], forms.matches)) << name;
}

using Index = ScoreModelIndex;

void expectNeighboursOfNote(const Line &line, std::size_t at, const Note &note)
{
    const int string = note.string();
    const int midi = note.midi();
    Index index = line[at].index;
    index.setNoteMidi(static_cast<unsigned>(midi));
    index.setNoteString(string < 0 ? Index::Unset : static_cast<unsigned>(string));
    ASSERT_NO_FATAL_FAILURE(expectNotes(
        line, at,
        {[&](unsigned n) { return Index::nextNoteWithSameLocators(index, n); },
         [&](unsigned n) { return Index::previousNoteWithSameLocators(index, n); },
         [&](bool here) { return Index::nextValidNoteWithSameLocators(index, here); },
         [&](bool here) { return Index::previousValidNoteWithSameLocators(index, here); },
         [&](const Note &other, const Place &) {
             // String 0 may also be one that was never set.
             return other.midi() == midi
                 && (string <= 0 || other.string() < 0 || other.string() == string);
         }},
        "locators"));
    ASSERT_NO_FATAL_FAILURE(expectNotes(
        line, at,
        {[&](unsigned n) { return Index::nextFirstNoteWithMidi(index, midi, n); },
         [&](unsigned n) { return Index::previousFirstNoteWithMidi(index, midi, n); },
         [&](bool here) { return Index::nextFirstValidNoteWithMidi(index, midi, here); },
         [&](bool here) { return Index::previousFirstValidNoteWithMidi(index, midi, here); },
         [&](const Note &other, const Place &) { return other.midi() == midi; }},
        "MIDI"));
    if (string >= 0) {
        ASSERT_NO_FATAL_FAILURE(expectNotes(
            line, at,
            {[&](unsigned n) { return Index::nextFirstNoteWithString(index, string, n); },
             [&](unsigned n) { return Index::previousFirstNoteWithString(index, string, n); },
             [&](bool here) { return Index::nextFirstValidNoteWithString(index, string, here); },
             [&](bool here) {
                 return Index::previousFirstValidNoteWithString(index, string, here);
             },
             [&](const Note &other, const Place &) { return other.string() == string; }},
            "string"));
    }
    const int place = lineOnStaff(note, line[at]);
    ASSERT_NO_FATAL_FAILURE(expectNotes(
        line, at,
        {[&](unsigned n) { return Index::nextFirstNoteWithStaffLine(index, place, n); },
         [&](unsigned n) { return Index::previousFirstNoteWithStaffLine(index, place, n); },
         [&](bool here) { return Index::nextFirstValidNoteWithStaffLine(index, place, here); },
         [&](bool here) { return Index::previousFirstValidNoteWithStaffLine(index, place, here); },
         [&](const Note &other, const Place &at) { return lineOnStaff(other, at) == place; }},
        "staff line"));
}

void expectNeighboursOfBeat(const Line &line, std::size_t at)
{
    const Index &index = line[at].index;
    ASSERT_EQ(index.beat(), line[at].beat);
    ASSERT_EQ(index.beatDrawingOffset(), line[at].offset);
    const auto beatOf = [](const Place *place) { return place ? place->beat : nullptr; };
    for (const int steps : {0, 1, 2, 9}) {
        const auto count = static_cast<unsigned>(steps);
        ASSERT_EQ(Index::nextBeat(index, count), beatOf(away(line, at, steps, false)));
        ASSERT_EQ(Index::previousBeat(index, count), beatOf(away(line, at, -steps, false)));
    }
    ASSERT_EQ(Index::nextValidBeat(index, false), beatOf(away(line, at, 1, true)));
    ASSERT_EQ(Index::previousValidBeat(index, false), beatOf(away(line, at, -1, true)));
    ASSERT_EQ(Index::nextValidBeat(index, true), line[at].beat);
    ASSERT_EQ(Index::previousValidBeat(index, true), line[at].beat);
}

std::vector<QString> messages;

void keepMessage(QtMsgType, const QMessageLogContext &, const QString &text)
{
    messages.push_back(text);
}

} // namespace

TEST(Neighbours, realScoresAgreeWithPlainLists)
{
    for (const std::string &path : scoreFiles()) {
        SCOPED_TRACE(path);
        const auto model = readScore(path);
        forEachLine(*model, [](const Line &line) {
            for (std::size_t at = 0; at < line.size(); ++at) {
                ASSERT_NO_FATAL_FAILURE(expectNeighboursOfBeat(line, at));
                const auto &notes = line[at].beat->notes();
                if (at % 5 == 0 && !notes.empty() && notes.back()->midi() >= 0) {
                    ASSERT_NO_FATAL_FAILURE(expectNeighboursOfNote(line, at, *notes.back()));
                }
            }
            Index before = line.front().index;
            before.setBeatIndex(-1);
            ASSERT_EQ(Index::nextBeat(before, 1), line.front().beat);
            Index behind = line.back().index;
            behind.setBeatIndex(std::numeric_limits<int>::max());
            ASSERT_EQ(Index::previousBeat(behind, 1), line.back().beat);
            ASSERT_EQ(Index::nextValidBeat(behind, true), nullptr);
        });
        if (HasFatalFailure())
            return;
    }
}

TEST(Neighbours, barsWithoutBeatsBreakTheLineUnlessTheyAreSkipped)
{
    const auto model = makeBand(5);
    for (const unsigned bar : {1u, 2u})
        model->track(0)->bar(bar)->setVoice(0, bar == 1 ? nullptr : std::make_shared<Voice>());
    const auto beat = [&](unsigned bar, unsigned number) {
        return model->track(0)->bar(bar)->voice(0)->beat(number);
    };
    const auto at = [&](int bar, int beat) { return Index(model.get(), 0, bar, beat, 0, 0); };
    EXPECT_EQ(Index::nextBeat(at(0, 2), 1), nullptr);
    EXPECT_EQ(Index::nextValidBeat(at(0, 2), false), beat(3, 0));
    EXPECT_EQ(Index::previousValidBeat(at(3, 0), false), beat(0, 2));
    EXPECT_EQ(Index::previousBeat(at(3, 1), 2), nullptr);
    EXPECT_EQ(Index::nextBeat(at(3, 0), 5), beat(4, 2));
    EXPECT_EQ(Index::nextBeat(at(3, 0), 6), nullptr);

    // From places that are no beats.
    EXPECT_EQ(Index::nextBeat(at(2, 0), 1), beat(3, 0)) << "the place in an empty voice";
    EXPECT_EQ(Index::nextBeat(at(3, 3), 2), beat(4, 1)) << "one past the last beat";
    EXPECT_EQ(Index::previousBeat(at(3, 3), 1), beat(3, 2));
    EXPECT_EQ(Index::previousBeat(at(4, -1), 1), beat(3, 2));
    EXPECT_EQ(Index::nextValidBeat(at(1, -1), true), beat(3, 0));
    EXPECT_EQ(Index::nextBeat(at(3, 7), 0), nullptr);

    Index note = at(0, 0);
    note.setNoteMidi(44);
    EXPECT_EQ(note.note(), nullptr);
    EXPECT_EQ(Index::nextValidNoteWithSameLocators(note, true), beat(0, 1)->note(1));
    note.setBeatIndex(1);
    EXPECT_EQ(Index::nextValidNoteWithSameLocators(note, false), beat(4, 0)->note(0));
    EXPECT_EQ(Index::nextNoteWithSameLocators(note, 1), nullptr) << "a rest comes next";
    EXPECT_EQ(Index::previousFirstValidNoteWithMidi(at(4, 0), 43, false), beat(3, 1)->note(0));
    EXPECT_EQ(Index::nextFirstValidNoteWithString(at(0, 0), -1, true), nullptr)
        << "not a note without a string";
}

TEST(Neighbours, noNumberReachesWhatIsNotThere)
{
    const auto model = makeBand(3);
    const int wild[] = {
        -1, 0, 1, 70000, std::numeric_limits<int>::max(), std::numeric_limits<int>::min()};
    const auto walk = [&](const Index &index, int number) {
        const auto count = static_cast<unsigned>(number);
        Index::nextBeat(index, count);
        Index::previousBeat(index, count);
        for (const bool here : {false, true}) {
            Index::nextValidBeat(index, here);
            Index::previousValidNoteWithSameLocators(index, here);
            Index::nextFirstValidNoteWithString(index, number, here);
            Index::previousFirstValidNoteWithStaffLine(index, number, here);
            index.mapOnVoice(count, here);
        }
        Index::nextNoteWithSameLocators(index, count);
        Index::previousFirstNoteWithMidi(index, number, count);
    };
    for (const int track : wild)
        for (const int bar : wild)
            for (const int beat : wild)
                for (const int small : wild) {
                    const auto number = static_cast<unsigned>(small);
                    walk(Index(model.get(), track, bar, beat, number, number), small);
                    walk(Index(nullptr, track, bar, beat, number, number), small);
                }
    const Index last(model.get(), 0, 2, 2, 0, 0);
    model->takeBarColumns(1, 2);
    EXPECT_EQ(Index::previousValidBeat(last, true), nullptr) << "its bar is gone";
}

TEST(Neighbours, aSearchWithoutLocatorsIsLogged)
{
    const auto model = makeBand(1);
    Index index(model.get(), 0, 0, 0, 0, 0);
    index.invalidateNote();
    messages.clear();
    const auto handler = qInstallMessageHandler(keepMessage);
    EXPECT_EQ(Index::nextNoteWithSameLocators(index, 1), nullptr);
    qInstallMessageHandler(handler);
    ASSERT_EQ(messages.size(), 1u);
    EXPECT_EQ(messages[0].toStdString(),
              "[ZarnScoreModelIndex] WARNING: "
              "ZarnScoreModelIndex::previousValidNoteWithSameLocators : articulationIndex or "
              "instrumentSet is empty.");
}

TEST(Neighbours, drumsAreFoundByTheirArticulations)
{
    const auto model = makeBand(1);
    model->createAndInsertTrack(2, InstrumentSet::drumKit);
    const auto voice = model->track(2)->bar(0)->ensureVoice(0);
    for (const int articulation : {1, 0, 2, 1}) {
        voice->addBeat(makeBeat(NoteValue::Quarter, {38}));
        voice->beats().back()->note(0)->setPercussionArticulation(articulation);
    }
    Index index(model.get(), 2, 0, 0, 0, 0);
    index.setNotePercussionActiculation(1);
    EXPECT_EQ(Index::nextValidNoteWithSameLocators(index, false), nullptr) << "no instrument set";
    EXPECT_EQ(Index::nextFirstValidNoteWithStaffLine(index, 9, true), nullptr);

    InstrumentSet kit(InstrumentSet::drumKit);
    std::vector<InstrumentArticulation> articulations(3);
    for (const int i : {0, 1, 2})
        articulations[static_cast<std::size_t>(i)].setStaffLine(1 + 4 * i);
    kit.setArticulations(articulations);
    InstrumentSetLibrary library;
    library.setInstrumentSets({std::make_shared<const InstrumentSet>(kit)});
    InstrumentSetLibrary::install(&library);
    EXPECT_EQ(Index::nextValidNoteWithSameLocators(index, false), voice->beat(3)->note(0));
    EXPECT_EQ(Index::nextNoteWithSameLocators(index, 1), nullptr);
    EXPECT_EQ(Index::nextFirstValidNoteWithStaffLine(index, 9, true), voice->beat(2)->note(0));
    EXPECT_EQ(Index::nextFirstNoteWithStaffLine(index, 1, 1), voice->beat(1)->note(0));
    voice->beat(1)->note(0)->setPercussionArticulation(3);
    EXPECT_EQ(Index::nextFirstNoteWithStaffLine(index, 1, 1), nullptr) << "not in the set";
}

TEST(Neighbours, staffLinesFollowClefsOttavasAndSpellings)
{
    const auto model = makeBand(2);
    const auto voice = model->track(1)->bar(0)->ensureVoice(0);
    for (int i = 0; i < 3; ++i)
        voice->addBeat(makeBeat(NoteValue::Quarter, {60}));
    const auto first = [&](int line) {
        return Index::nextFirstValidNoteWithStaffLine(Index(model.get(), 1, 0, -1, 0, 0), line,
                                                      false);
    };
    model->track(1)->bar(0)->setClefChanges({{2, ClefType::F4}});
    voice->beat(1)->setOttavia(Ottavia::_8vb);
    EXPECT_EQ(first(-2), voice->beat(0)->note(0)) << "the ledger line below a treble staff";
    EXPECT_EQ(first(5), voice->beat(1)->note(0)) << "8vb is written an octave higher";
    EXPECT_EQ(first(10), voice->beat(2)->note(0)) << "above a bass staff";
    voice->beat(0)->note(0)->setSpelling(
        PitchClass(NoteName::Value::B, NoteAccidental::Value::Sharp));
    EXPECT_EQ(first(-3), voice->beat(0)->note(0));
    voice->beat(2)->note(0)->setStaffLine(4);
    EXPECT_EQ(first(4), voice->beat(2)->note(0)) << "its own line comes first";
}

TEST(Neighbours, placesInAnotherVoice)
{
    const auto model = makeBand(1);
    const auto bar = model->track(0)->bar(0);
    bar->ensureVoice(1)->addBeat(makeBeat(NoteValue::Quarter, {60}));
    bar->voice(1)->addBeat(makeBeat(NoteValue::Eighth, {60}));
    bar->voice(1)->addBeat(makeBeat(NoteValue::Eighth, {60}));
    bar->ensureVoice(2);
    const auto mapped = [&](int beat, unsigned from, unsigned to, bool nearest) {
        const Index index = Index(model.get(), 0, 0, beat, from, 0).mapOnVoice(to, nearest);
        EXPECT_EQ(index.voiceIndex(), to);
        return index.beatIndex();
    };
    EXPECT_EQ(mapped(2, 1, 0, false), 0) << "the half note still sounds";
    EXPECT_EQ(mapped(1, 0, 1, false), -1) << "the other voice has ended";
    EXPECT_EQ(mapped(1, 0, 1, true), 2);
    EXPECT_EQ(mapped(0, 0, 1, false), 0);
    EXPECT_EQ(mapped(0, 0, 2, true), -1);
    EXPECT_EQ(mapped(0, 0, 9, true), -1);
    EXPECT_EQ(mapped(-1, 0, 1, true), -1);
    bar->voice(1)->beat(1)->setGraceType(GraceType::BeforeBeat);
    EXPECT_EQ(mapped(1, 1, 1, true), 1) << "a grace beat is its own place";
    EXPECT_EQ(mapped(1, 1, 0, true), 0);
    Index note(model.get(), 0, 0, 0, 0, 0);
    note.setNoteString(4);
    EXPECT_EQ(note.mapOnVoice(1, true).noteString(), 4u);
}
