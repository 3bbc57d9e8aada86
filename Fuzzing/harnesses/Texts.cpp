// SPDX-License-Identifier: MIT
#include "Fuzzing.h"

#include <ZarnCore/ZarnTypes.h>
#include <ZarnCore/instruments/automations/ZarnAutomation.h>
#include <ZarnCore/instruments/automations/ZarnSoundAutomation.h>
#include <ZarnCore/instruments/sets/ZarnInstrumentSet.h>
#include <ZarnCore/instruments/sounds/ZarnInstrument.h>
#include <ZarnCore/instruments/sounds/ZarnSound.h>
#include <ZarnCore/instruments/tunings/ZarnGuitarTuning.h>
#include <ZarnCore/model/lyrics/ZarnLyricText.h>
#include <ZarnCore/music/ZarnInterval.h>
#include <ZarnCore/music/ZarnPitchClass.h>
#include <ZarnCore/utils/rational.h>

#include <optional>

namespace {

using namespace zarn;
using fuzz::expect;
using fuzz::expectEqual;
using fuzz::isAccepted;

/// A text that a value was read from is written so that it is read as the same value.
template <class Value>
void expectSameAgain(const std::optional<Value> &value)
{
    if (!value.has_value())
        return;
    const std::string text = value->toString();
    const auto again = Value::fromString(text);
    expect(again.has_value(), "what was written is read");
    expect(*again == *value, "what was written is read as the same value");
    expectEqual(text, again->toString(), "writing is stable");
}

/// Reads a word of an enumeration, and writes what it means.
template <auto FromString, auto ToString>
void readWord(const std::string &text)
{
    isAccepted([&] { ToString(FromString(text)); });
}

/// Words as a singer types them: any text is one. Where a word breaks off the syllables beside it
/// decide, so that what is written may say less; it says the same from then on.
void readLyrics(const std::string &text)
{
    const std::string written = lyricsToText(lyricsFromText(text));
    expectEqual(written, lyricsToText(lyricsFromText(written)), "writing lyrics is stable");
}

void readAutomation(const std::string &text, Automation::Type type)
{
    const auto automation = Automation::create(type);
    if (!automation->valueFromString(text))
        return;
    const std::string written = automation->valueToString();
    const auto again = Automation::create(type);
    expect(again->valueFromString(written), "the value of an automation is read back");
    expectEqual(written, again->valueToString(), "the value of an automation is stable");
}

void readNames(const std::string &text)
{
    const QString name = QString::fromUtf8(text.data(), static_cast<int>(text.size()));
    isAccepted([&] {
        const PitchClass spelling = PitchClass::fromString(name);
        expect(bool(spelling), "a spelling that is read is one");
        expect(PitchClass::fromString(spelling.toString()) == spelling, "a spelling comes back");
    });
    isAccepted([&] { NoteAccidental::fromString(name).symbol(); });
    isAccepted([&] {
        const NoteName letter = NoteName::fromString(name);
        expect(NoteName::isAValidString(name), "a letter that is read is a valid text");
        expect(NoteName::fromString(letter.toString()) == letter, "a letter comes back");
    });
    isAccepted([&] { Interval::valueToString(Interval::valueFromString(name)); });
    isAccepted([&] { Interval::alterationToString(Interval::alterationFromString(name)); });
}

} // namespace

/// The input is a text; every parser of a value or a word gets it.
void fuzz::check(std::string_view input)
{
    const std::string text(input);
    expectSameAgain(utils::rational::fromString(text));
    expectSameAgain(Sound::fromString(text));
    expectSameAgain(OrkaSound::fromString(text));
    readAutomation(text, Automation::Tempo);
    readAutomation(text, Automation::Sound);
    readAutomation(text, Automation::DSPParam_00);
    readNames(text);
    readLyrics(text);
    readWord<InstrumentSet::typeFromString, InstrumentSet::typeToString>(text);
    readWord<Instrument::typeFromString, Instrument::typeToString>(text);
    readWord<Automation::typeFromString, Automation::typeToString>(text);
    readWord<accidentalFromString, accidentalToString>(text);
    readWord<clefFromString, clefToString>(text);
    readWord<noteHeadFromString, noteHeadToString>(text);
    readWord<directionFromString, directionToString>(text);
    readWord<hairpinFromString, hairpinToString>(text);
    readWord<beaterFromString, beaterToString>(text);
    readWord<beaterTechnicFromString, beaterTechnicToString>(text);
    readWord<iconIDFromString, iconIDToString>(text);
}
