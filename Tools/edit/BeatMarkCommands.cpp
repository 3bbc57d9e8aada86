// SPDX-License-Identifier: MIT
#include "common/Choices.h"
#include "common/Failure.h"
#include "edit/Commands.h"
#include "edit/EditSession.h"
#include "edit/ScriptLine.h"
#include "edit/Targets.h"

#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/model/attributes/ZarnBarre.h>
#include <ZarnCore/model/attributes/ZarnStrum.h>
#include <ZarnCore/model/attributes/ZarnWhammyBar.h>

#include <cmath>

namespace zarn::tool {

namespace {

constexpr int HighestFret = 36;
constexpr double QuarterTones = 2; ///< in a semitone

const Choices &strokeChoices()
{
    static const Choices choices = {choice("down", Direction::Down), choice("up", Direction::Up),
                                    choice("none", Direction::None)};
    return choices;
}

const Choices &fadeChoices()
{
    static const Choices choices = {choice("in", Fadding::FadeIn), choice("out", Fadding::FadeOut),
                                    choice("swell", Fadding::VolumeSwell),
                                    choice("none", Fadding::NoFadding)};
    return choices;
}

const Choices &ottavaChoices()
{
    static const Choices choices = {choice("8va", Ottavia::_8va), choice("15ma", Ottavia::_15ma),
                                    choice("8vb", Ottavia::_8vb), choice("15mb", Ottavia::_15mb),
                                    choice("none", Ottavia::None)};
    return choices;
}

const Choices &rasgueadoChoices()
{
    static const Choices choices = [] {
        constexpr int Last = static_cast<int>(RasgueadoType::peami_1);
        Choices list = {choice("none", RasgueadoType::None)};
        for (int i = 1; i <= Last; ++i)
            list.emplace_back(
                QString::fromStdString(rasgueadoToString(static_cast<RasgueadoType>(i))), i);
        return list;
    }();
    return choices;
}

const Choices &golpeChoices()
{
    static const Choices choices = {choice("thumb", ZarnGolpeType::Thumb),
                                    choice("finger", ZarnGolpeType::Finger),
                                    choice("none", ZarnGolpeType::None)};
    return choices;
}

/// Strokes of a tremolo.
const Choices &tremoloChoices()
{
    static const Choices choices = {choice("none", 0), choice("eighth", 1), choice("16th", 2),
                                    choice("32nd", 3), choice("64th", 4)};
    return choices;
}

const Choices &bassAttackChoices()
{
    static const Choices choices = {choice("slap", BassAttack::Slap),
                                    choice("pop", BassAttack::Pop),
                                    choice("none", BassAttack::None)};
    return choices;
}

const Choices &vibratoChoices()
{
    static const Choices choices = {choice("slight", Vibrato::Slight),
                                    choice("wide", Vibrato::Wide), choice("none", Vibrato::None)};
    return choices;
}

const Choices &whammyChoices()
{
    static const Choices choices = {choice("dive", WhammyBarType::Dive),
                                    choice("dip", WhammyBarType::Dip),
                                    choice("hold", WhammyBarType::HoldWhammyBar),
                                    choice("pre-dive", WhammyBarType::PreDive),
                                    choice("pre-dive-dive", WhammyBarType::PreDiveNDive),
                                    choice("none", WhammyBarType::NoWhammyBar)};
    return choices;
}

const Choices &wahChoices()
{
    static const Choices choices = {choice("closed", WahWah::Closed), choice("open", WahWah::Open),
                                    choice("none", WahWah::None)};
    return choices;
}

const Choices &stemChoices()
{
    static const Choices choices = {
        choice("up", ZarnStemOrientation::Upward), choice("down", ZarnStemOrientation::Downward),
        choice("none", ZarnStemOrientation::None), choice("auto", ZarnStemOrientation::Undefined)};
    return choices;
}

const Choices &simileChoices()
{
    static const Choices choices = {choice("simple", SimileMark::Simple),
                                    choice("double", SimileMark::Double),
                                    choice("none", SimileMark::None)};
    return choices;
}

/// Gives beats a value of a list.
template <class Value, bool (ScoreBeatOperations::*Operation)(const ScoreModelRange &, Value)>
bool setChoice(EditSession &session, const Values &values)
{
    return (session.score().*Operation)(targetBeats(session, values),
                                        static_cast<Value>(values.get<int>(1)));
}

/// Puts something on beats, or takes it off with "off".
template <bool (ScoreBeatOperations::*Operation)(const ScoreModelRange &, bool)>
bool setSwitch(EditSession &session, const Values &values)
{
    return (session.score().*Operation)(targetBeats(session, values), values.get(1, true));
}

/// Strikes the notes of chords one after the other.
template <bool (ScoreBeatOperations::*Operation)(const ScoreModelRange &, Direction, unsigned,
                                                 StrumAnchor)>
bool setStrum(EditSession &session, const Values &values)
{
    const ScoreModelRange range = targetBeats(session, values);
    const auto length = static_cast<unsigned>(values.get(2, 0));
    if ((session.score().*Operation)(range, static_cast<Direction>(values.get<int>(1)), length,
                                     StrumAnchor::StartsOnBeat))
        return true;
    throw LineError(values.column(0), QStringLiteral("there are no chords of two notes here"));
}

bool setText(EditSession &session, const Values &values)
{
    return session.score().setBeatFreeText(targetBeats(session, values), values.get<QString>(1));
}

/// The strings of a barre from the bits in which string 1, the highest, comes first.
std::uint16_t barredStrings(const Values &values, std::size_t parameter, const Staff &staff)
{
    const auto typed = static_cast<unsigned>(values.get(parameter, 0));
    const unsigned count = staff.tuning().stringCount();
    if (typed >> count != 0)
        throw LineError(values.column(parameter),
                        QStringLiteral("there are %1 strings").arg(count));
    unsigned strings = 0;
    for (unsigned i = 0; i < count; ++i)
        if ((typed >> i & 1U) != 0)
            strings |= 1U << (count - 1 - i);
    return static_cast<std::uint16_t>(strings);
}

bool setBarre(EditSession &session, const Values &values)
{
    const ScoreModelRange range = targetBeats(session, values);
    const auto staff = range.first().staff();
    if (!staff || !staff->isFretted())
        throw LineError(values.column(0), QStringLiteral("there are no strings here"));
    Barre barre;
    barre.fret = static_cast<std::uint8_t>(values.get<int>(1));
    if (barre.fret != 0)
        barre.strings = barredStrings(values, 2, *staff);
    return session.score().setBeatBarre(range, barre);
}

bool setWhammyBar(EditSession &session, const Values &values)
{
    const ScoreModelRange range = targetBeats(session, values);
    const auto type = static_cast<WhammyBarType>(values.get<int>(1));
    WhammyBar bar;
    if (type != WhammyBarType::NoWhammyBar)
        bar = values.has(2) ? WhammyBar::of(
                  type, static_cast<int>(std::lround(values.get<double>(2) * QuarterTones)))
                            : WhammyBar::of(type);
    return session.score().setStringedBeatWhammyBar(range, bar);
}

bool setSimile(EditSession &session, const Values &values)
{
    const BarRange bars = targetBars(session, values);
    const Where staff = targetStaff(session, values);
    const auto mark = static_cast<SimileMark>(values.get<int>(1));
    if (session.score().setBarSimileMark(staff.track, staff.staff, bars.first, bars.last, mark))
        return true;
    throw LineError(values.column(0),
                    mark == SimileMark::Double
                        ? QStringLiteral("a double simile takes two bars and has two in front")
                        : QStringLiteral("no bar is in front that these could repeat"));
}

} // namespace

const std::vector<Command> &beatMarkCommands()
{
    using Beats = ScoreBeatOperations;
    static const Parameter beats = {QStringLiteral("BEATS"), Kind::Beats, Presence::Assumed};
    static const Parameter checked = {QStringLiteral("SWITCH"), Kind::Switch, Presence::Optional};
    static const Parameter length = {QStringLiteral("LENGTH"), Kind::Whole, Presence::Optional,
                                     Strum::ShortestLength, Strum::LongestLength};
    const auto oneOf = [](const char *name, const Choices &choices) {
        return Parameter{QLatin1String(name), Kind::Choice, Presence::Required, 0, 0, &choices};
    };
    static const std::vector<Command> commands = {
        {QStringLiteral("text"),
         {beats, {QStringLiteral("TEXT"), Kind::Text}},
         QStringLiteral("Write words over a beat; \"\" takes them away."),
         QStringLiteral("Score::setBeatFreeText"),
         setText,
         true},
        {QStringLiteral("brush"),
         {beats, oneOf("DIRECTION", strokeChoices()), length},
         QStringLiteral("Strum chords; LENGTH in 960ths of a quarter, at first 60."),
         QStringLiteral("Score::setBrush"),
         setStrum<&Beats::setBrush>,
         true},
        {QStringLiteral("arpeggio"),
         {beats, oneOf("DIRECTION", strokeChoices()), length},
         QStringLiteral("Roll chords; LENGTH in 960ths of a quarter, at first 240."),
         QStringLiteral("Score::setBeatArpeggio"),
         setStrum<&Beats::setBeatArpeggio>,
         true},
        {QStringLiteral("pick"),
         {beats, oneOf("DIRECTION", strokeChoices())},
         QStringLiteral("Mark down and up strokes of the pick."),
         QStringLiteral("Score::setBeatPickStroke"),
         setChoice<Direction, &Beats::setBeatPickStroke>,
         true},
        {QStringLiteral("rasgueado"),
         {beats, oneOf("PATTERN", rasgueadoChoices())},
         QStringLiteral("Play chords as a rasgueado."),
         QStringLiteral("Score::setBeatRasgueado"),
         setChoice<RasgueadoType, &Beats::setBeatRasgueado>,
         true},
        {QStringLiteral("golpe"),
         {beats, oneOf("HAND", golpeChoices())},
         QStringLiteral("Tap on the soundboard."),
         QStringLiteral("Score::setBeatGolpe"),
         setChoice<ZarnGolpeType, &Beats::setBeatGolpe>,
         true},
        {QStringLiteral("tremolo"),
         {beats, oneOf("STROKES", tremoloChoices())},
         QStringLiteral("Repeat beats as fast as the strokes say."),
         QStringLiteral("Score::setBeatTremolo"),
         setChoice<unsigned, &Beats::setBeatTremolo>,
         true},
        {QStringLiteral("barre"),
         {beats,
          {QStringLiteral("FRET"), Kind::Whole, Presence::Required, 0, HighestFret},
          {QStringLiteral("STRINGS"), Kind::Passes, Presence::Optional}},
         QStringLiteral("Lay a finger over all strings, or over some, such as 1-4; 0 is none."),
         QStringLiteral("Score::setBeatBarre"),
         setBarre,
         true},
        {QStringLiteral("bass-attack"),
         {beats, oneOf("ATTACK", bassAttackChoices())},
         QStringLiteral("Slap or pop the strings."),
         QStringLiteral("Score::setStringedBeatBassAttack"),
         setChoice<BassAttack, &Beats::setStringedBeatBassAttack>,
         true},
        {QStringLiteral("bar-vibrato"),
         {beats, oneOf("WIDTH", vibratoChoices())},
         QStringLiteral("Vibrato with the whammy bar."),
         QStringLiteral("Score::setStringedBeatVibrato"),
         setChoice<Vibrato, &Beats::setStringedBeatVibrato>,
         true},
        {QStringLiteral("whammy"),
         {beats,
          oneOf("KIND", whammyChoices()),
          {QStringLiteral("SEMITONES"), Kind::Decimal, Presence::Optional,
           WhammyBar::Lowest / QuarterTones, WhammyBar::Highest / QuarterTones}},
         QStringLiteral("Move the whammy bar, by so many semitones."),
         QStringLiteral("Score::setStringedBeatWhammyBar"),
         setWhammyBar,
         true},
        {QStringLiteral("wah"),
         {beats, oneOf("PEDAL", wahChoices())},
         QStringLiteral("Open or close the wah pedal."),
         QStringLiteral("Score::setWah"),
         setChoice<WahWah, &Beats::setWah>,
         true},
        {QStringLiteral("fade"),
         {beats, oneOf("FADE", fadeChoices())},
         QStringLiteral("Fade the volume in or out, or let it swell."),
         QStringLiteral("Score::setBeatFadding"),
         setChoice<Fadding, &Beats::setBeatFadding>,
         true},
        {QStringLiteral("ottava"),
         {beats, oneOf("SIGN", ottavaChoices())},
         QStringLiteral("Draw beats under an octave sign."),
         QStringLiteral("Score::setBeatOttavia"),
         setChoice<Ottavia, &Beats::setBeatOttavia>,
         true},
        {QStringLiteral("slashed"),
         {beats, checked},
         QStringLiteral("Draw slashes in place of note heads."),
         QStringLiteral("Score::setBeatSlashed"),
         setSwitch<&Beats::setBeatSlashed>,
         true},
        {QStringLiteral("timer"),
         {beats, checked},
         QStringLiteral("Show the playing time at beats."),
         QStringLiteral("Score::setBeatTimer"),
         setSwitch<&Beats::setBeatTimer>,
         true},
        {QStringLiteral("stem"),
         {beats, oneOf("DIRECTION", stemChoices())},
         QStringLiteral("Draw stems up or down."),
         QStringLiteral("Score::setStemOrientations"),
         setChoice<ZarnStemOrientation, &Beats::setStemOrientations>,
         true},
        {QStringLiteral("simile"),
         {{QStringLiteral("BARS"), Kind::Bars, Presence::Assumed}, oneOf("MARK", simileChoices())},
         QStringLiteral("Make bars repeat the one or the two in front of them."),
         QStringLiteral("Score::setBarSimileMark"),
         setSimile,
         true},
    };
    return commands;
}

} // namespace zarn::tool
