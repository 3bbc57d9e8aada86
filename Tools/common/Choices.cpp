// SPDX-License-Identifier: MIT
#include "common/Choices.h"

#include "common/Texts.h"

#include <ZarnCore/ZarnTypes.h>
#include <ZarnCore/instruments/sets/ZarnInstrumentSet.h>
#include <ZarnCore/model/form/ZarnDirectionMark.h>
#include <ZarnCore/model/form/ZarnTripletFeel.h>
#include <ZarnCore/model/layout/ZarnHeaderAndFooter.h>
#include <ZarnCore/model/notes/ZarnRetuning.h>
#include <ZarnCore/music/ZarnNoteDynamic.h>
#include <ZarnCore/score/ZarnScoreCursor.h>

namespace zarn::tool {

namespace {

/// "DaCapoAlCoda" as "da-capo-al-coda".
QString dashed(const QString &text)
{
    QString result;
    for (const QChar letter : text) {
        if (letter.isUpper() && !result.isEmpty())
            result += QLatin1Char('-');
        result += letter.toLower();
    }
    return result;
}

/// The values 0 to `count` - 1 of an enumeration by their printed texts.
template <class E, class Print>
Choices numbered(int count, Print print)
{
    Choices choices;
    for (int i = 0; i < count; ++i)
        choices.emplace_back(dashed(print(static_cast<E>(i))), i);
    return choices;
}

/// Every instrument that a track can be made for: the members of each family.
Choices instruments()
{
    const InstrumentSet::Type families[] = {
        InstrumentSet::brass,
        InstrumentSet::reed,
        InstrumentSet::vocal,
        InstrumentSet::woodwind,
        InstrumentSet::chordophone,
        InstrumentSet::bowed,
        InstrumentSet::stringed,
        InstrumentSet::electrophone,
        InstrumentSet::pitchedIdiophone,
        InstrumentSet::pitchedMembraphone,
        InstrumentSet::idiophone,
        InstrumentSet::cymbal,
        InstrumentSet::membraphone,
        InstrumentSet::drum,
        InstrumentSet::percussionKit,
    };
    const std::string none = InstrumentSet::typeToString(InstrumentSet::unknown);
    Choices choices;
    for (const InstrumentSet::Type family : families)
        for (unsigned member = 1;; ++member) {
            const auto type = static_cast<InstrumentSet::Type>(family + member);
            const std::string text = InstrumentSet::typeToString(type);
            if (text == none)
                break;
            choices.emplace_back(QString::fromStdString(text), static_cast<int>(type));
        }
    return choices;
}

Choices icons()
{
    constexpr int HighestIcon = 26;
    Choices choices;
    for (int i = 1; i <= HighestIcon; ++i)
        choices.emplace_back(QString::fromStdString(iconIDToString(static_cast<ZarnIconID>(i))), i);
    return choices;
}

Choices dynamics()
{
    Choices choices = {choice("none", NoteDynamic::Value::None)};
    for (int i = static_cast<int>(NoteDynamic::Value::PPPP);
         i <= static_cast<int>(NoteDynamic::Value::FFFF); ++i)
        choices.emplace_back(dynamicText(NoteDynamic(static_cast<NoteDynamic::Value>(i))), i);
    return choices;
}

} // namespace

const Choices &clefChoices()
{
    static const Choices choices = {choice("treble", ClefType::G2), choice("bass", ClefType::F4),
                                    choice("alto", ClefType::C3), choice("tenor", ClefType::C4),
                                    choice("percussion", ClefType::Neutral)};
    return choices;
}

const Choices &dynamicChoices()
{
    static const Choices choices = dynamics();
    return choices;
}

const Choices &feelChoices()
{
    static const Choices choices = {
        choice("none", TripletFeel::NoTripletFeel),
        choice("triplet-8th", TripletFeel::Triplet8th),
        choice("triplet-16th", TripletFeel::Triplet16th),
        choice("dotted-8th", TripletFeel::Dotted8th),
        choice("dotted-16th", TripletFeel::Dotted16th),
        choice("scottish-8th", TripletFeel::Scottish8th),
        choice("scottish-16th", TripletFeel::Scottish16th),
    };
    return choices;
}

const Choices &directionChoices()
{
    static const Choices choices =
        numbered<DirectionMark>(DirectionMarkCount, directionMarkToQString);
    return choices;
}

const Choices &iconChoices()
{
    static const Choices choices = icons();
    return choices;
}

const Choices &instrumentChoices()
{
    static const Choices choices = instruments();
    return choices;
}

const Choices &propertyChoices()
{
    static const Choices choices = numbered<ScoreProperty>(
        static_cast<int>(ScoreProperty::Notice) + 1, scorePropertyToQString);
    return choices;
}

const Choices &headerChoices()
{
    static const Choices choices =
        numbered<HeaderAndFooter>(static_cast<int>(HeaderAndFooterCount), headerAndFooterToQString);
    return choices;
}

const Choices &tempoUnitChoices()
{
    static const Choices choices = {choice("eighth", TempoUnit::Eighth),
                                    choice("quarter", TempoUnit::Quarter),
                                    choice("quarter-dotted", TempoUnit::QuarterDotted),
                                    choice("half", TempoUnit::Half),
                                    choice("half-dotted", TempoUnit::HalfDotted),
                                    choice("none", TempoUnit::None)};
    return choices;
}

const Choices &retuningChoices()
{
    static const Choices choices = {choice("keep-frets", Retuning::KeepFrets),
                                    choice("keep-pitches", Retuning::KeepPitches)};
    return choices;
}

const Choices &stepChoices()
{
    static const Choices choices = {
        choice("beat", CursorStep::Beat),   choice("bar", CursorStep::Bar),
        choice("voice", CursorStep::Voice), choice("string", CursorStep::String),
        choice("staff", CursorStep::Staff), choice("track", CursorStep::Track),
    };
    return choices;
}

} // namespace zarn::tool
