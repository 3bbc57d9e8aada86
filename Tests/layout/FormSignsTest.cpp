// SPDX-License-Identifier: MIT
// What belongs to the whole score, over its first row: jumps, endings, tempos.
#include "support/LaidOut.h"
#include "support/ViolinPiece.h"

#include <ZarnCore/instruments/automations/ZarnTempoAutomation.h>

#include <gtest/gtest.h>

#include <map>
#include <string>
#include <vector>

namespace {

using namespace zarn;
using layout::MarkKind;
using ::test::LaidOut;
using Piece = ::test::ViolinPiece;
using NoteValue = RhythmValue::NoteValue;

Piece filled(unsigned bars)
{
    Piece piece(bars);
    for (unsigned bar = 0; bar < bars; ++bar)
        for (int beat = 0; beat < 4; ++beat)
            piece.add({72}, NoteValue::Quarter, 0, 0, bar);
    return piece;
}

} // namespace

/// Any number of signs of a kind, and each jump in its own words.
TEST(FormSignsTest, jumpsReadAsTheyAreWritten)
{
    const Piece piece = filled(3);
    auto &master = *piece.model->masterTrack();
    master.setSegno(0);
    master.setDaSegno(0);
    master.setFine(2);
    const auto marks = directionBit(DirectionMark::Segno) | directionBit(DirectionMark::DaSegno);
    master.masterBar(2)->setFurtherDirections(marks);
    master.masterBar(2)->setJumpText("\nZum Zeichen <sym>segno</sym>");
    std::map<int, std::string> read;
    for (const auto &mark : LaidOut(*piece.model).of(MarkKind::Direction))
        read[mark.place.bar] += "(" + mark.glyph + mark.text + ")";
    EXPECT_EQ(read[0], "(segno)(D.S.)");
    EXPECT_EQ(read[2], "(segno)(Fine)(Zum Zeichen )(segno)");
}

/// Brackets have a hook at both ends but for the last one, which the music goes on from.
TEST(FormSignsTest, endingsThatAreTakenInTurn)
{
    const Piece piece = filled(5);
    auto &master = *piece.model->masterTrack();
    for (unsigned bar = 0; bar < 5; ++bar)
        master.masterBar(bar)->setAlternateEndings(bar < 3 ? 1U << bar : 4U);
    master.masterBar(2)->setEndingText("Pour finir");
    master.masterBar(3)->setEndingHidden(true);
    master.masterBar(4)->setEndingHidden(true);
    const LaidOut laid(*piece.model);
    std::string texts;
    std::vector<double> ends;
    for (const auto &mark : laid.of(MarkKind::Ending)) {
        texts += mark.text + "|";
        if (mark.text.empty())
            ends.push_back(mark.right);
    }
    EXPECT_EQ(texts, "|1.||2.||Pour finir|");
    double lastNote = 0;
    for (const auto &head : laid.of(MarkKind::NoteHead))
        if (head.place.bar == 3)
            lastNote = lastNote == 0 ? head.left : lastNote;
    ASSERT_EQ(ends.size(), 3U);
    EXPECT_LT(ends[2], lastNote) << "the bracket does not go on over bars that hide it";
    std::vector<unsigned> corners;
    const auto &list = laid.layout->pages()[0].systems[0].drawing->marks;
    for (const auto &mark : list.marks())
        if (mark.kind == MarkKind::Ending && mark.shape == layout::MarkShape::Path)
            corners.push_back(list.path(mark).verbCount);
    EXPECT_EQ(corners, (std::vector<unsigned>{4, 4, 3}));
}

/// Bars at the end of a line are as wide as the words that begin there, of tempos and of beats.
TEST(FormSignsTest, wordsStandWhereTheyBegin)
{
    static constexpr unsigned bars = 24;
    const Piece tempos = filled(bars);
    const Piece words = filled(bars);
    for (unsigned bar = 0; bar < bars; ++bar) {
        auto tempo = std::make_unique<TempoAutomation>();
        tempo->setIndex(bar);
        tempo->setText("Tempo I (Con moto)");
        tempo->setVisible(true);
        tempo->setUnit(static_cast<int>(TempoUnit::None));
        tempos.model->masterTrack()->restoreAutomation(std::move(tempo));
        words.model->track(0)->bar(bar)->voice(0)->beat(2)->setText("espressivo");
    }
    const auto expectInPlace = [](const LaidOut &laid, MarkKind kind, int beat) {
        ASSERT_GT(laid.systemCount, 2U);
        std::map<int, double> notes; // by bar, the one in front of the words
        std::map<int, unsigned> systems;
        for (const auto &head : laid.of(MarkKind::NoteHead))
            if (head.place.beat == beat) {
                notes[head.place.bar] = head.right;
                systems[head.place.bar] = head.system;
            }
        const auto marks = laid.of(kind);
        ASSERT_EQ(marks.size(), bars);
        const int before = beat == 3 ? 1 : 0; // behind the last note of the bar before
        for (const auto &mark : marks)
            if (mark.place.bar >= before && systems[mark.place.bar - before] == mark.system) {
                EXPECT_GT(mark.left, notes[mark.place.bar - before]) << mark.place.bar;
            }
    };
    expectInPlace(LaidOut(*tempos.model), MarkKind::Tempo, 3);
    expectInPlace(LaidOut(*words.model), MarkKind::Text, 1);
}
