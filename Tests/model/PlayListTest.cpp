// SPDX-License-Identifier: MIT
#include <ZarnCore/instruments/effects/ZarnMastering.h>
#include <ZarnCore/model/ZarnMasterTrack.h>
#include <ZarnCore/model/form/ZarnPlayList.h>
#include <ZarnCore/model/places/ZarnScoreModelRange.h>

#include <gtest/gtest.h>

#include <random>
#include <string>

using namespace zarn;

namespace {

/// A form in one line, a bar per character pair: a letter for the bar, behind it "(" for a repeat
/// start, ")" or a number of times for a repeat end, "[12]" for its endings, "|" for the start of a
/// movement.
MasterTrack makeForm(const std::string &text)
{
    MasterTrack track;
    std::shared_ptr<MasterBar> bar;
    bool inEnding = false;
    for (const char sign : text) {
        if (sign >= 'a' && sign <= 'z') {
            bar = std::make_shared<MasterBar>();
            track.addMasterBar(bar);
        } else if (sign == '[' || sign == ']') {
            inEnding = sign == '[';
        } else if (inEnding) {
            bar->setAlternateEndings(bar->alternateEndings() | 1u << (sign - '1'));
        } else if (sign == '|') {
            bar->setMovementStart(true);
        } else if (sign == '(') {
            bar->setRepeatStart(true);
        } else if (sign == ')') {
            bar->setRepeatCount(2);
        } else if (sign >= '2' && sign <= '9') {
            bar->setRepeatCount(static_cast<unsigned>(sign - '0'));
        }
    }
    return track;
}

std::string played(const MasterTrack &track)
{
    std::string text;
    for (const int bar : unfoldPlayList(track))
        text += static_cast<char>('a' + bar);
    return text;
}

std::string played(const std::string &form)
{
    return played(makeForm(form));
}

} // namespace

TEST(PlayList, repeats)
{
    EXPECT_EQ(played(""), "");
    EXPECT_EQ(played("abc"), "abc");
    EXPECT_EQ(played("ab)c"), "ababc");
    EXPECT_EQ(played("ab(c)d"), "abcbcd");
    EXPECT_EQ(played("a(b3c"), "abababc");
    EXPECT_EQ(played("a)bc)d"), "aabcbcd") << "a repeat without a start goes to the last end";
    EXPECT_EQ(played("a(bc(d)e"), "abcdcde") << "a start that nothing ends is no start";
    EXPECT_EQ(played("a(b"), "ab");
}

TEST(PlayList, endings)
{
    EXPECT_EQ(played("a(b[1])c[2]d"), "abacd");
    EXPECT_EQ(played("a(b[1])c[2])d"), "abacd") << "the last ending goes nowhere";
    EXPECT_EQ(played("a(b[12])c[3]d"),
              "abab"
              "acd");
    EXPECT_EQ(played("a(b[1])c[2])d[3]e"), "abacade");
    EXPECT_EQ(played("a(b[13])c[24])d"), "abacabacd");
    EXPECT_EQ(played("a(b[1])c"), "abac") << "no second bracket";
    EXPECT_EQ(played("a(b[1]c[1])d[2]e[2]f"), "abcadef") << "brackets over several bars";
    EXPECT_EQ(played("a(b[1])c[2]d(e)f"), "abacdedef");
    EXPECT_EQ(played("a[2]b"), "b") << "an ending that no pass reaches";
}

TEST(PlayList, endingsWhoseRepeatsStandElsewhere)
{
    EXPECT_EQ(played("ab(cd[1]ef)g[2]h"), "abcdefbcgh") << "a bracket closed before its repeat";
    EXPECT_EQ(played("ab(c[1]d)e"), "abcdbde") << "no other ending follows the repeat";
    EXPECT_EQ(played("ab(c[1]d[2]ef)g"), "abcefbdefg") << "two endings on the way to a repeat";
    EXPECT_EQ(played("ab(c[1]d[2]e[3]fg[1])h[2])i"), "abcfgbdfhbefi")
        << "each pass has an ending on the way and one at the end";
    EXPECT_EQ(played("a(b[1])c[2]de)f"), "abacdedef") << "the endings had their repeat";
}

TEST(PlayList, movements)
{
    EXPECT_EQ(played("abc|d)e"), "abcdcde");
    MasterTrack track = makeForm("abcd|efg|h");
    track.setFine(4);
    track.setDaCapoAlFine(5);
    EXPECT_EQ(played(track), "abcdefdegh") << "a minuet ends, the finale follows";
    EXPECT_EQ(track.jumpIndexForDirection(static_cast<int>(DirectionMark::DaCapoAlFine)), 3);
    track.setSegno(1);
    track.setDaSegno(6);
    EXPECT_EQ(played(track), "abcdefdegh") << "a segno of another movement";

    track = makeForm("ab(cd|ef)g");
    EXPECT_EQ(played(track), "abcdefdefg") << "a repeat goes back to its movement alone";
    track.removeMasterBars(3, 4);
    EXPECT_EQ(track.movementStart(4), 3u) << "what is left of the movement is one";
    EXPECT_EQ(played(track), "abcdde");
    track.insertEmptyMasterBars(1, 1);
    EXPECT_EQ(played(track), "abcdeef");
}

TEST(PlayList, jumps)
{
    MasterTrack track = makeForm("abcdef");
    track.setDaCapo(2);
    EXPECT_EQ(played(track), "abcabcdef");
    track.setFine(1);
    EXPECT_EQ(played(track), "abcab");

    track = makeForm("abcdef");
    track.setSegno(1);
    track.setDaCoda(2);
    track.setDaSegnoAlCoda(3);
    track.setCoda(5);
    EXPECT_EQ(played(track), "abcdbcf");
    track.setFine(2);
    EXPECT_EQ(played(track), "abcdbcf") << "al coda passes the fine";

    track = makeForm("a(b[1])c[2]de(f)");
    track.setDaCapoAlCoda(3);
    track.setDaCoda(2);
    track.setCoda(4);
    EXPECT_EQ(played(track), "abacdacefef") << "last ending after the jump, repeats in the coda";

    track = makeForm("abcdefg");
    track.setSegno(0);
    track.setSegnoSegno(2);
    track.setDaSegno(3);
    track.setDaSegnoSegnoAlDoubleCoda(4);
    track.setDaDoubleCoda(2);
    track.setDoubleCoda(6);
    EXPECT_EQ(played(track), "abcdabcdecg");
}

TEST(PlayList, furtherDirectionsOfAKind)
{
    const auto put = [](MasterTrack &track, unsigned bar, DirectionMark mark) {
        const auto &column = track.masterBar(bar);
        column->setFurtherDirections(column->furtherDirections() | directionBit(mark));
    };
    MasterTrack song = makeForm("abcdefghi");
    song.setSegno(0);
    song.setDaCoda(1);
    song.setDaSegnoAlCoda(2);
    song.setCoda(3);
    put(song, 5, DirectionMark::DaSegnoAlCoda);
    put(song, 6, DirectionMark::Coda);
    EXPECT_EQ(played(song), "abcabdefabghi") << "each jump once, each to the coda behind it";
    EXPECT_EQ(song.directionsAtBarIndex(6), std::set<DirectionMark>{DirectionMark::Coda});
    EXPECT_TRUE(song.hasAnyDirectionAtBarIndex(5));

    MasterTrack dances = makeForm("abcdef");
    dances.setSegno(1);
    dances.setDaSegno(2);
    put(dances, 4, DirectionMark::Segno);
    put(dances, 5, DirectionMark::DaSegno);
    EXPECT_EQ(played(dances), "abcbcdefef") << "to the nearest segno in front";
    dances.removeMasterBars(1, 1);
    EXPECT_EQ(played(dances), "abdede") << "the one that is left stands in no slot";
}

TEST(PlayList, contradictoryDirectionsEnd)
{
    MasterTrack track = makeForm("abc");
    track.setDaSegno(1);
    EXPECT_EQ(played(track), "abc") << "no segno";
    track.setSegno(2);
    EXPECT_EQ(played(track), "abc") << "a segno further on";
    track.setSegno(99);
    EXPECT_EQ(played(track), "abc") << "a segno past the end";
    track.setSegno(1);
    track.setDaCapoAlCoda(1);
    track.setDaCoda(1);
    track.setCoda(0);
    EXPECT_LT(played(track).size(), 20u);

    // Whatever stands where: it ends, and plays only bars that are there.
    std::mt19937 random(1);
    for (int round = 0; round < 3000; ++round) {
        MasterTrack wild;
        const unsigned count = 1 + static_cast<unsigned>(random() % 8);
        for (unsigned i = 0; i < count; ++i) {
            const auto bar = std::make_shared<MasterBar>();
            bar->setRepeatStart(random() % 3 == 0);
            bar->setMovementStart(random() % 5 == 0);
            if (random() % 3 == 0)
                bar->setRepeatCount(2 + static_cast<unsigned>(random() % 3));
            if (random() % 3 == 0)
                bar->setAlternateEndings(static_cast<std::uint32_t>(random() % 16));
            if (random() % 4 == 0)
                bar->setFurtherDirections(static_cast<std::uint32_t>(random()) & AllDirectionBits);
            wild.addMasterBar(bar);
        }
        for (int kind = 0; kind < DirectionMarkCount; ++kind)
            wild.setDirection(kind, static_cast<int>(random() % (count + 3)) - 1);
        const auto list = unfoldPlayList(wild);
        ASSERT_LT(list.size(), 5000u);
        for (const int bar : list)
            ASSERT_TRUE(bar >= 0 && bar < static_cast<int>(count));
    }
}

TEST(MasterTrack, directionSlots)
{
    MasterTrack track;
    EXPECT_EQ(track.coda(), -1);
    track.setDaCapo(3);
    track.setDaDoubleCoda(3);
    track.setDirection(19, 5);
    track.setDirection(-1, 5);
    EXPECT_TRUE(track.hassDaCapoAtBarIndex(3));
    EXPECT_FALSE(track.hasDaDoubleCodaAtBarIndex(2));
    EXPECT_EQ(track.directionsAtBarIndex(3),
              (std::set<DirectionMark>{DirectionMark::DaCapo, DirectionMark::DaDoubleCoda}));
    EXPECT_TRUE(track.directionsAtBarIndex(-1).empty());
    EXPECT_FALSE(track.hasAnyDirectionAtBarIndex(5));
    EXPECT_EQ(track.jumpIndexForDirection(static_cast<int>(DirectionMark::DaCapo)), 0);
    EXPECT_EQ(track.jumpIndexForDirection(static_cast<int>(DirectionMark::DaSegno)), -1);
    EXPECT_EQ(MasterTrack::directionSetToQString(track.directionsAtBarIndex(3)).toStdString(),
              "DaCapo, DaDbleCoda");
    for (int kind = 0; kind <= DirectionMarkCount; ++kind) {
        const auto mark = static_cast<DirectionMark>(kind);
        EXPECT_EQ(directionMarkFromQString(MasterTrack::directionToQString(mark)), mark);
    }
    EXPECT_EQ(MasterBar::tripletFeelToQString(static_cast<TripletFeel>(9)).toStdString(),
              "Unknown (9)");
}

TEST(MasterTrack, settingsAndCopies)
{
    MasterTrack track = makeForm("abcde");
    EXPECT_FLOAT_EQ(track.mastering().effectChain().effect(3).parameter(0), 0.76f);
    EXPECT_FLOAT_EQ(track.mastering().effectChain().effect(3).parameter(1), 0.5f);
    track.setTempoValue(60);
    track.setTempoUnit(TempoUnit::QuarterDotted);
    EXPECT_DOUBLE_EQ(track.quarterTempoValue(), 90);
    track.setFine(3);
    const auto copy = track.cloneMasterTrack();
    EXPECT_EQ(*copy, track);
    EXPECT_EQ(copy->masterBar(4)->parentMasterTrack(), copy);
    copy->mutableMastering().mutableEffectChain().removeEffect(3);
    EXPECT_NE(*copy, track);

    MasterTrack part;
    const ScoreModelRange range(ScoreModelIndex(nullptr, 0, 2, -1, 0, 0),
                                ScoreModelIndex(nullptr, 0, 3, -1, 0, 0));
    part.copyFrom(track, &range);
    EXPECT_EQ(part.masterBarCount(), 2u);
    EXPECT_EQ(part.fine(), 1);
}
