// SPDX-License-Identifier: MIT
#include <ZarnCore/ZarnException.h>
#include <ZarnCore/instruments/automations/ZarnAutomation.h>
#include <ZarnCore/instruments/automations/ZarnDSPParamAutomation.h>
#include <ZarnCore/instruments/automations/ZarnPickupKnobAutomation.h>
#include <ZarnCore/instruments/automations/ZarnSoundAutomation.h>
#include <ZarnCore/instruments/automations/ZarnTempoAutomation.h>
#include <ZarnCore/instruments/sounds/ZarnSound.h>

#include <gtest/gtest.h>

#include <cmath>
#include <typeinfo>

namespace {

using namespace zarn;

Automation::Type type(unsigned number)
{
    return static_cast<Automation::Type>(number);
}

TEST(Automation, typesTextsAndSlotsAgree)
{
    for (unsigned slot = 1; slot < Automation::automationTypeCount; ++slot) {
        const auto known = Automation::idType(slot);
        EXPECT_EQ(Automation::typeId(known), slot);
        auto text = Automation::typeToString(known);
        for (auto &letter : text)
            letter = static_cast<char>(std::toupper(letter));
        EXPECT_EQ(Automation::typeFromString(text), known) << text;
    }
    EXPECT_EQ(Automation::typeToString(type(287)), "DSPParam_31");
    EXPECT_EQ(Automation::typeToString(type(256)), "DSPParam_00");
    EXPECT_EQ(Automation::typeId(type(512)), 33u);
    EXPECT_EQ(Automation::typeId(type(1024)), 34u);
    for (const auto *text : {"DSPParam_31", "DSPPARAM_32", "DSPPARAM_1", "DSPPARAM_+1",
                             "DSPPARAM_1x", "DSPPARAM_", "Tempo", "", "UNKNOWN"})
        EXPECT_EQ(Automation::typeFromString(text), 0u) << text;
    for (const unsigned stranger : {0u, 255u, 288u, 513u, 1025u, 0xFFFFFFFFu}) {
        EXPECT_EQ(Automation::typeToString(type(stranger)), "Unknown");
        EXPECT_EQ(Automation::typeId(type(stranger)), 0u);
    }
    EXPECT_EQ(Automation::idType(0), Automation::Unknown);
    EXPECT_EQ(Automation::idType(35), Automation::Unknown);
}

TEST(Automation, createMakesTheClassOfTheType)
{
    const auto isA = [](unsigned number, const std::type_info &expected) {
        const auto made = Automation::create(type(number));
        const auto &object = *made;
        return typeid(object) == expected && made->type() == number;
    };
    EXPECT_TRUE(isA(512, typeid(TempoAutomation)));
    EXPECT_TRUE(isA(1024, typeid(SoundAutomation)));
    EXPECT_TRUE(isA(256, typeid(DSPParamAutomation)));
    EXPECT_TRUE(isA(287, typeid(DSPParamAutomation)));
    EXPECT_TRUE(isA(288, typeid(Automation)));
    EXPECT_EQ(DSPParamAutomation(type(261)).parameterId(), 256u);
    EXPECT_THROW(DSPParamAutomation(type(288)), CoreException);
}

TEST(Automation, cloneKeepsClassAndEveryField)
{
    const int before = Automation::AutomationInstanceCount;
    {
        TempoAutomation tempo;
        tempo.setUnit(4);
        tempo.setLinear(true);
        tempo.setIndex(7);
        tempo.setPosition(1.5f);
        tempo.setValue(66);
        tempo.setText("Lento");
        tempo.setVisible(false);
        const auto copy = tempo.cloneAutomation();
        EXPECT_TRUE(copy->equals(tempo) && tempo.equals(*copy));
        EXPECT_EQ(copy->index(), 7u);
        EXPECT_EQ(copy->position(), 1.5f);
        EXPECT_EQ(Automation::AutomationInstanceCount, before + 2);

        copy->setLinear(false);
        EXPECT_FALSE(copy->equals(tempo));
        copy->setLinear(true);
        copy->setIndex(2);
        EXPECT_TRUE(copy->equals(tempo)) << "the place is not compared";
        Automation plain(Automation::Tempo);
        plain.setValue(66);
        EXPECT_EQ(plain.equals(tempo), tempo.equals(plain));

        copy->reset();
        EXPECT_EQ(copy->valueToString(), "0 2");
        EXPECT_EQ(copy->index(), 0u);
        EXPECT_FALSE(copy->isLinear());
        EXPECT_FALSE(copy->isVisible()) << "visibility is no part of a reset";
    }
    EXPECT_EQ(Automation::AutomationInstanceCount, before);
}

TEST(TempoAutomation, unitsScaleToQuarters)
{
    TempoAutomation tempo;
    tempo.setValue(60);
    const float expected[] = {60, 30, 60, 90, 120, 180, 60};
    for (int unit = 0; unit <= 6; ++unit) {
        tempo.setUnit(unit);
        EXPECT_EQ(tempo.quarterValue(), expected[unit]) << unit;
    }
    tempo.setUnit(9);
    EXPECT_EQ(tempo.quarterValue(), 60);
}

TEST(Automation, valuesReadBackWhatTheyPrint)
{
    TempoAutomation tempo;
    EXPECT_TRUE(tempo.valueFromString("120 2"));
    EXPECT_EQ(tempo.valueToString(), "120 2");
    for (const auto *text : {"90.5 0", "90.5 6", "90.5", "90.5 x"}) {
        tempo.setUnit(5);
        EXPECT_TRUE(tempo.valueFromString(text));
        EXPECT_EQ(tempo.valueToString(), "90.5 2");
    }
    EXPECT_FALSE(tempo.valueFromString("fast"));
    EXPECT_EQ(tempo.value(), 90.5f);

    DSPParamAutomation knob(Automation::DSPParam_03);
    for (const float value : {0.1f, 1.0f / 3, -2.5e-7f, 16777216.0f}) {
        knob.setValue(value);
        DSPParamAutomation read(Automation::DSPParam_03);
        EXPECT_TRUE(read.valueFromString(knob.valueToString()));
        EXPECT_EQ(read.value(), value);
    }

    PickupKnobAutomation pickup;
    EXPECT_TRUE(pickup.valueFromString("0.25 -1"));
    EXPECT_EQ(pickup.valueToString(), "0.25 -1");
    EXPECT_FALSE(pickup.valueFromString("0.5"));
    PickupKnobAutomation other;
    other.setValue(0.25f);
    EXPECT_FALSE(pickup.equals(other));
}

TEST(SoundAutomation, worksWithAndWithoutASound)
{
    auto sound = std::make_shared<Sound>("Clean; \\ bright", MIDISound(27, 1, 2));
    sound->setPath("Guitars/Electric");
    sound->setLabel("cl.");
    sound->setRole(Sound::User);
    sound->setGuiExpanded(true);
    SoundAutomation with(sound);
    SoundAutomation without;
    SoundAutomation read;
    EXPECT_TRUE(without.equals(read));
    EXPECT_FALSE(without.equals(with) || with.equals(without));
    EXPECT_TRUE(read.valueFromString(with.valueToString()));
    EXPECT_EQ(*read.sound(), *sound);
    EXPECT_TRUE(read.equals(with)) << "sounds are compared by value";
    EXPECT_FALSE(read.valueFromString("a;b;User"));
    EXPECT_EQ(*read.sound(), *sound);
    EXPECT_TRUE(read.valueFromString(without.valueToString()));
    EXPECT_EQ(read.sound(), nullptr);
    EXPECT_TRUE(without.cloneAutomation()->equals(without));
}

TEST(Automation, placesMustBeNumbers)
{
    Automation automation(Automation::Tempo);
    EXPECT_THROW(automation.setPosition(std::nanf("")), CoreException);
    EXPECT_THROW(automation.setPosition(HUGE_VALF), CoreException);
    EXPECT_EQ(automation.position(), 0);
}

} // namespace
