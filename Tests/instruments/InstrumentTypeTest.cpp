// SPDX-License-Identifier: MIT
#include <ZarnCore/instruments/sets/ZarnInstrumentSet.h>
#include <ZarnCore/instruments/sounds/ZarnInstrument.h>

#include <gtest/gtest.h>

#include <map>
#include <string>

namespace {

using zarn::Instrument;
using zarn::InstrumentSet;

/// Every code that has a text in a table, by trying all codes that the scheme can make.
template <typename Set>
std::map<std::uint32_t, std::string> allTexts()
{
    std::map<std::uint32_t, std::string> texts;
    for (std::uint32_t kind = 1; kind <= 2; ++kind)
        for (std::uint32_t family = 0; family <= 0x20; ++family)
            for (std::uint32_t subFamily = 0; subFamily <= 0x10; ++subFamily)
                for (std::uint32_t member = 0; member <= 20; ++member) {
                    const auto code = kind << 24 | family << 16 | subFamily << 8 | member;
                    const auto text = Set::typeToString(static_cast<typename Set::Type>(code));
                    if (text != "unknown")
                        texts[code] = text;
                }
    return texts;
}

TEST(InstrumentSetType, everyTextLeadsBackToItsCode)
{
    const auto texts = allTexts<InstrumentSet>();
    EXPECT_EQ(texts.size(), 18u + 108u);
    for (const auto &[code, text] : texts)
        EXPECT_EQ(InstrumentSet::typeFromString(text), code) << text;
    EXPECT_EQ(texts.at(0x01020209), "nylonGuitar");
    EXPECT_EQ(texts.at(0x0101020C), "saxophone");
    EXPECT_EQ(texts.at(0x0104000D), "electricOrgan");
    EXPECT_EQ(texts.at(0x0201000F), "tinkleBell");
    EXPECT_EQ(texts.at(0x02020009), "timbale");
    EXPECT_EQ(texts.at(0x0204000C), "woodblocks");
}

TEST(InstrumentSetType, strangersAreUnknown)
{
    for (const auto code : {0u, 0x01010213u, 0x03000000u, 0xFFFFFFFFu})
        EXPECT_EQ(InstrumentSet::typeToString(static_cast<InstrumentSet::Type>(code)), "unknown");
    for (const auto *text : {"", "unknown", "NylonGuitar", "nylonGuitar ", "zz", "tinkelBell"})
        EXPECT_EQ(InstrumentSet::typeFromString(text), InstrumentSet::unknown) << text;
}

TEST(InstrumentSetType, namesAreForPeople)
{
    EXPECT_EQ(InstrumentSet::typeName(InstrumentSet::nylonGuitar), "Nylon Guitar");
    EXPECT_EQ(InstrumentSet::typeName(InstrumentSet::hiHat), "Hi-Hat");
    EXPECT_EQ(InstrumentSet::typeName(InstrumentSet::harp), "Harp");
    EXPECT_EQ(InstrumentSet::typeName(InstrumentSet::unknown), "Unknown");
}

TEST(InstrumentType, keepsItsTwoOddTexts)
{
    auto expected = allTexts<InstrumentSet>();
    expected.erase(expected.lower_bound(InstrumentSet::percussionKit), expected.end());
    expected.erase(InstrumentSet::clarinet);
    expected[InstrumentSet::tinkleBell] = "tinkelBell";
    EXPECT_EQ(allTexts<Instrument>(), expected);

    EXPECT_EQ(Instrument::typeFromString("clarinet"), 0x01010208u);
    EXPECT_EQ(Instrument::typeToString(Instrument::clarinet), "harmonica");
    EXPECT_EQ(Instrument::typeFromString("tinkleBell"), Instrument::unknown);
    EXPECT_EQ(Instrument::typeFromString("drumKit"), Instrument::unknown);
}

TEST(InstrumentSetType, predicatesFollowTheBytesOfTheCode)
{
    using Set = InstrumentSet;
    const auto count = [](bool (*predicate)(Set::Type)) {
        int found = 0;
        for (const auto &entry : allTexts<Set>())
            found += predicate(static_cast<Set::Type>(entry.first)) ? 1 : 0;
        return found;
    };
    EXPECT_EQ(count([](Set::Type type) { return Set::isPitched(type); }), 12 + 60);
    EXPECT_EQ(count([](Set::Type type) { return Set::isUnpitched(type); }), 6 + 48);
    EXPECT_EQ(count([](Set::Type type) { return Set::isStringed(type); }), 14);
    EXPECT_EQ(count([](Set::Type type) { return Set::isBowed(type); }), 5);
    EXPECT_EQ(count([](Set::Type type) { return Set::isStringedOrBowed(type); }), 19);
    EXPECT_EQ(count([](Set::Type type) { return Set::isOrchestralChordophone(type); }), 5);
    EXPECT_EQ(count([](Set::Type type) { return Set::isBrass(type); }), 6);
    EXPECT_EQ(count([](Set::Type type) { return Set::isReed(type); }), 13);
    EXPECT_EQ(count([](Set::Type type) { return Set::isVocal(type); }), 3);
    EXPECT_EQ(count([](Set::Type type) { return Set::isWoodwind(type); }), 4);
    EXPECT_EQ(count([](Set::Type type) { return Set::isElectrophone(type); }), 14);
    EXPECT_EQ(count([](Set::Type type) { return Set::isPitchedIdiophone(type); }), 4);
    EXPECT_EQ(count([](Set::Type type) { return Set::isIdiophone(type); }), 26);
    EXPECT_EQ(count([](Set::Type type) { return Set::isMembraphone(type); }), 14);
    EXPECT_EQ(count([](Set::Type type) { return Set::isPercussionKit(type); }), 13);
    EXPECT_EQ(count([](Set::Type type) { return Set::isGuitar(type); }), 4);
    EXPECT_EQ(count([](Set::Type type) { return Set::isAcousticGuitar(type); }), 3);
    EXPECT_EQ(count([](Set::Type type) { return Set::isBass(type); }), 5);
    EXPECT_EQ(count([](Set::Type type) { return Set::isElectricBass(type); }), 2);

    EXPECT_FALSE(Set::isGuitar(Set::acousticBass));
    EXPECT_TRUE(Set::isBass(Set::synthBass));
    EXPECT_TRUE(Set::isStringed(Set::electricSitar));
    EXPECT_FALSE(Set::isBass(Set::contrabass));
    EXPECT_TRUE(Set::isStringed(Set::stringed));
    EXPECT_TRUE(Instrument(Instrument::harmonica).isPitched());
    EXPECT_TRUE(Instrument(Instrument::tom).isUnpitched());
    EXPECT_TRUE(Instrument(Instrument::viola).isBowed());
}

} // namespace
