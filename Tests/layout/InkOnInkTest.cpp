// SPDX-License-Identifier: MIT
#include "support/LaidOut.h"
#include "support/SmallScore.h"

#include <ZarnLayout/draw/ZarnPolygons.h>

#include <gtest/gtest.h>

#include <algorithm>

namespace {

using namespace zarn;
using layout::MarkKind;
using ::test::LaidOut;
using NoteValue = RhythmValue::NoteValue;

std::shared_ptr<Beat> beat(NoteValue value, int string, int fret)
{
    auto made = std::make_shared<Beat>(RhythmValue(value));
    auto note = std::make_shared<Note>(60 + fret);
    note->setString(string);
    note->setFret(fret);
    made->addNote(note);
    return made;
}

bool meet(const LaidOut::Mark &a, const LaidOut::Mark &b)
{
    return a.left < b.right && b.left < a.right && a.top < b.bottom && b.top < a.bottom;
}

/// The marks of a kind in the first bar of the guitar.
std::vector<LaidOut::Mark> inFirstBar(const LaidOut &laid, MarkKind kind)
{
    std::vector<LaidOut::Mark> marks = laid.of(kind);
    marks.erase(std::remove_if(marks.begin(), marks.end(),
                               [](const LaidOut::Mark &mark) {
                                   return mark.place.bar != 0 || mark.place.track != 0;
                               }),
                marks.end());
    return marks;
}

} // namespace

/// Two voices on one string stand beside one another, which is said; a number that they share is
/// one.
TEST(InkOnInkTest, voicesOnOneStringStandSideBySide)
{
    for (const int fret : {0, 12}) {
        SCOPED_TRACE(fret);
        SmallScore small;
        small.model.track(0)->bar(0)->ensureVoice(1)->addBeat(beat(NoteValue::Half, 0, fret));
        const LaidOut laid(small.model);
        std::vector<LaidOut::Mark> first;
        for (const auto &mark : inFirstBar(laid, MarkKind::Fret))
            if (mark.place.beat == 0)
                first.push_back(mark);
        ASSERT_EQ(first.size(), 2U);
        EXPECT_EQ(first[0].top, first[1].top);
        EXPECT_EQ(meet(first[0], first[1]), fret == 0);
        const auto &problems = laid.layout->problems();
        EXPECT_EQ(std::any_of(problems.begin(), problems.end(),
                              [](const auto &problem) {
                                  return problem.message == "The string has several notes at once.";
                              }),
                  fret != 0);
    }
}

/// Bends, slides and hammer-ons of a chord leave the numbers alone that stand around them.
TEST(InkOnInkTest, whatLeadsFromANumberMeetsNoOther)
{
    const PitchCurve curves[] = {{{0, 0}, {20, 4}, {40, 0}, {60, 4}}, {{0, 4}, {30, 8}, {60, 0}}};
    for (const PitchCurve &curve : curves) {
        SmallScore small;
        Beat &chord = *small.model.track(0)->bar(0)->voice(0)->beat(1);
        chord.setRhythmValue(RhythmValue(NoteValue::ThirtySecond));
        Bend bend;
        bend.type = BendType::BendNRelease;
        bend.curve = curve;
        chord.notes()[0]->setBend(bend);
        NoteMarks marks = chord.notes()[1]->marks();
        marks.setHopo(true);
        chord.notes()[1]->setMarks(marks);
        chord.notes()[1]->setFret(12);
        small.model.track(0)->bar(0)->voice(0)->removeBeat(2);
        const LaidOut laid(small.model);
        const auto frets = inFirstBar(laid, MarkKind::Fret);
        for (const MarkKind kind : {MarkKind::Bend, MarkKind::HammerOn}) {
            const auto found = inFirstBar(laid, kind);
            EXPECT_FALSE(found.empty());
            for (const auto &mark : found)
                for (const auto &fret : frets)
                    if (fret.place.beat != mark.place.beat || !mark.text.empty()) {
                        EXPECT_FALSE(meet(mark, fret)) << mark.left << " " << fret.left;
                    }
        }
    }
}

/// A rest finds its place when the beams of the other voices have theirs.
TEST(InkOnInkTest, restsKeepOffTheBeamsOfOtherVoices)
{
    const auto model = std::make_shared<ScoreModel>();
    model->createAndInsertTrack(0, InstrumentSet::violin);
    model->track(0)->setChosenNotations(TrackNotations());
    model->insertEmptyBarColumns(0, 1);
    Bar &bar = *model->track(0)->bar(0);
    for (unsigned i = 0; i < 8; ++i) {
        bar.ensureVoice(0)->addBeat(std::make_shared<Beat>(RhythmValue(NoteValue::Eighth)));
        auto sounding = std::make_shared<Beat>(RhythmValue(NoteValue::Eighth));
        sounding->addNote(std::make_shared<Note>(88)); // far above: its beam is in the staff
        bar.ensureVoice(1)->addBeat(sounding);
    }
    const LaidOut laid(*model);
    const auto rests = laid.of(MarkKind::Rest);
    EXPECT_EQ(rests.size(), 8U);
    for (const auto &rest : rests)
        for (const MarkKind kind : {MarkKind::Beam, MarkKind::Stem, MarkKind::NoteHead})
            for (const auto &mark : laid.of(kind))
                EXPECT_FALSE(meet(rest, mark));
}
