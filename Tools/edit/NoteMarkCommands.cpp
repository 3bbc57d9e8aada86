// SPDX-License-Identifier: MIT
#include "common/Choices.h"
#include "edit/Commands.h"
#include "edit/EditSession.h"
#include "edit/ScriptLine.h"
#include "edit/Targets.h"

#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/model/attributes/ZarnAccentFlags.h>
#include <ZarnCore/model/attributes/ZarnBend.h>

#include <QStringList>

#include <cmath>

namespace zarn::tool {

namespace {

using Notes = ScoreNoteOperations;

constexpr int HighestVelocity = 127;
constexpr int HighestPartial = 12;
constexpr double QuarterTones = 4; ///< in a whole tone
constexpr int Off = 0;             ///< of choices that have no enumerator for it

const Choices &bendChoices()
{
    static const Choices choices = {
        choice("up", BendType::Bend),
        choice("release", BendType::BendNRelease),
        choice("pre", BendType::PreBend),
        choice("pre-release", BendType::PreBendNRelease),
        choice("pre-bend", BendType::PreBendNBend),
        choice("hold", BendType::HoldBend),
        choice("let-down", BendType::Release),
    };
    return choices;
}

const Choices &vibratoChoices()
{
    static const Choices choices = {choice("slight", Vibrato::Slight),
                                    choice("wide", Vibrato::Wide), choice("none", Vibrato::None)};
    return choices;
}

const Choices &harmonicChoices()
{
    static const Choices choices = {
        choice("natural", HarmonicType::Natural), choice("artificial", HarmonicType::Artificial),
        choice("pinch", HarmonicType::Pinch),     choice("tapped", HarmonicType::Tapped),
        choice("semi", HarmonicType::Semi),       choice("feedback", HarmonicType::Feedback),
        choice("none", HarmonicType::NoHarmonic)};
    return choices;
}

const Choices &accentChoices()
{
    static const Choices choices = {choice("staccato", AccentFlag::Staccato),
                                    choice("staccatissimo", AccentFlag::Staccatissimo),
                                    choice("accent", AccentFlag::Accent),
                                    choice("heavy", AccentFlag::HeavyAccent),
                                    choice("soft", AccentFlag::SoftAccent),
                                    choice("tenuto", AccentFlag::Tenuto)};
    return choices;
}

const Choices &ghostChoices()
{
    static const Choices choices = {
        choice("soft", AntiAccent::Soft), choice("normal", AntiAccent::Normal),
        choice("strong", AntiAccent::Strong), choice("none", AntiAccent::None)};
    return choices;
}

const Choices &tapChoices()
{
    static const Choices choices = {choice("right", 2), choice("left", 1), choice("none", Off)};
    return choices;
}

const Choices &ornamentChoices()
{
    static const Choices choices = {
        choice("turn", Ornament::Turn), choice("inverted-turn", Ornament::InvertedTurn),
        choice("mordent", Ornament::LowerMordent), choice("upper-mordent", Ornament::UpperMordent),
        choice("none", Ornament::NoOrnament)};
    return choices;
}

const Choices &trillSpeedChoices()
{
    using Value = RhythmValue::NoteValue;
    static const Choices choices = {choice("16th", Value::Sixteenth),
                                    choice("32nd", Value::ThirtySecond),
                                    choice("64th", Value::SixtyFourth)};
    return choices;
}

const Choices &leftFingerChoices()
{
    static const Choices choices = {
        choice("t", Fingering::Thumb),   choice("1", Fingering::Index),
        choice("2", Fingering::Middle),  choice("3", Fingering::Annular),
        choice("4", Fingering::Little),  choice("open", Fingering::Open),
        choice("none", Fingering::None),
    };
    return choices;
}

const Choices &rightFingerChoices()
{
    static const Choices choices = {
        choice("p", Fingering::Thumb),  choice("i", Fingering::Index),
        choice("m", Fingering::Middle), choice("a", Fingering::Annular),
        choice("c", Fingering::Little), choice("none", Fingering::None),
    };
    return choices;
}

/// Raises where no note takes the mark, which is all that can be wrong with words of a list.
bool orNothingTakesIt(bool isDone, const Values &values)
{
    if (!isDone)
        throw LineError(values.column(0), QStringLiteral("no note here takes this"));
    return true;
}

/// Gives notes a value of a list.
template <class Value, bool (Notes::*Operation)(const ScoreModelRange &, Value)>
bool setChoice(EditSession &session, const Values &values)
{
    return orNothingTakesIt((session.score().*Operation)(targetNotes(session, values),
                                                         static_cast<Value>(values.get<int>(1))),
                            values);
}

/// Puts something on notes, or takes it off with "off".
template <bool (Notes::*Operation)(const ScoreModelRange &, bool)>
bool setSwitch(EditSession &session, const Values &values)
{
    return orNothingTakesIt(
        (session.score().*Operation)(targetNotes(session, values), values.get(1, true)), values);
}

/// Quarter-tones of "full", "1/2", "3/2" or "1.5", in whole tones.
std::optional<int> bendAmount(const QString &text)
{
    if (text == QStringLiteral("full"))
        return static_cast<int>(QuarterTones);
    const QStringList parts = text.split(QLatin1Char('/'));
    bool isNumber = false;
    bool isDivisor = true;
    const double number = parts.front().toDouble(&isNumber);
    const double divisor = parts.size() == 2 ? parts.back().toDouble(&isDivisor) : 1;
    const double amount = std::round(number / divisor * QuarterTones);
    if (parts.size() > 2 || !isNumber || !isDivisor || !(amount >= 1) || amount > Bend::Highest)
        return std::nullopt;
    return static_cast<int>(amount);
}

/// An amount with a kind, or a curve in the words of the document.
Bend bendOf(const Values &values)
{
    const QString text = values.get<QString>(1);
    if (text == QStringLiteral("none"))
        return {};
    if (const auto amount = bendAmount(text))
        return Bend::of(static_cast<BendType>(values.get(2, static_cast<int>(BendType::Bend))),
                        *amount);
    if (const auto bend = Bend::fromString(text.toStdString()))
        return *bend;
    throw LineError(values.column(1),
                    QStringLiteral("\"%1\" is no bend; type full, 1/2 or another number of whole "
                                   "tones, none, or a curve such as \"Bend 0:0 30:4 60:4\"")
                        .arg(text));
}

bool setBend(EditSession &session, const Values &values)
{
    const Bend bend = bendOf(values);
    if (session.score().setStringedNoteBend(targetNotes(session, values), bend))
        return true;
    const bool goesOn = bend.type == BendType::HoldBend || bend.type == BendType::Release;
    throw LineError(values.column(1),
                    goesOn ? QStringLiteral("no note here is tied to a bent one")
                           : QStringLiteral("no note here can be bent"));
}

bool setHarmonic(EditSession &session, const Values &values)
{
    const auto type = static_cast<HarmonicType>(values.get<int>(1));
    const ScoreModelRange notes = targetNotes(session, values);
    const auto partial = static_cast<unsigned>(values.get(2, 0));
    Score &score = session.score();
    const bool isDone = type == HarmonicType::Natural
        ? score.setStringedNoteNaturalHarmonic(notes, true, partial)
        : score.setStringedNoteArtificialHarmonic(notes, type, partial != 0 ? partial : 2);
    if (isDone)
        return true;
    throw LineError(values.column(1),
                    type == HarmonicType::Natural
                        ? QStringLiteral("no note here is on a fret where its string has a "
                                         "harmonic; name the partial")
                        : QStringLiteral("no note here takes this"));
}

bool setAccent(EditSession &session, const Values &values)
{
    return session.score().setNoteAccentFlag(targetNotes(session, values),
                                             static_cast<AccentFlag>(values.get<int>(1)),
                                             values.get(2, true));
}

/// "off" takes ornaments off, whichever they are.
bool setOrnament(EditSession &session, const Values &values)
{
    const auto ornament = static_cast<Ornament>(values.get<int>(1));
    const ScoreModelRange notes = targetNotes(session, values);
    const bool isDone = values.has(2)
        ? session.score().setNoteOrnament(notes, ornament, values.get<bool>(2))
        : session.score().setNoteOrnement(notes, ornament);
    return orNothingTakesIt(isDone, values);
}

bool setTap(EditSession &session, const Values &values)
{
    const ScoreModelRange notes = targetNotes(session, values);
    const int hand = values.get<int>(1);
    Score &score = session.score();
    if (hand != Off)
        return orNothingTakesIt(hand == 1 ? score.setStringedNoteLeftHandTapping(notes, true)
                                          : score.setStringedNoteRightHandTapping(notes, true),
                                values);
    Transaction step(&score, QStringLiteral("SetStringedNoteTapping"));
    if (!score.setStringedNoteLeftHandTapping(notes, false)
        || !score.setStringedNoteRightHandTapping(notes, false))
        return false;
    step.commit();
    return true;
}

/// The upper note as it sounds.
bool setTrill(EditSession &session, const Values &values)
{
    const ScoreModelRange notes = targetNotes(session, values);
    int key = 0;
    if (values.has(1)) {
        const auto track = notes.first().track();
        key = values.get<PitchValue>(1).midi - (track ? track->transpositionOffset() : 0);
    }
    using Value = RhythmValue::NoteValue;
    const auto speed = static_cast<Value>(values.get(2, static_cast<int>(Value::ThirtySecond)));
    if (session.score().setNoteTrill(notes, key, speed))
        return true;
    throw LineError(values.column(1),
                    QStringLiteral("a trill goes at most an octave up, and on strings to a fret "
                                   "that there is"));
}

bool setVelocity(EditSession &session, const Values &values)
{
    return orNothingTakesIt(
        session.score().setNoteVelocity(targetNotes(session, values),
                                        static_cast<unsigned>(values.get<int>(1))),
        values);
}

template <Hand Of>
bool setFinger(EditSession &session, const Values &values)
{
    return orNothingTakesIt(
        session.score().setNoteFingering(targetNotes(session, values), Of,
                                         static_cast<Fingering>(values.get<int>(1))),
        values);
}

/// The strings of a passage, from bits in which string 1, the highest, comes first.
template <bool (Notes::*Operation)(const ScoreModelRange &, std::uint32_t, bool)>
bool assist(EditSession &session, const Values &values)
{
    const ScoreModelRange range = targetBeats(session, values);
    const auto staff = range.first().staff();
    const unsigned count = staff ? staff->tuning().stringCount() : 0;
    const auto typed = static_cast<unsigned>(values.get<int>(1));
    std::uint32_t strings = 0;
    for (unsigned i = 0; i < count && i < 32; ++i)
        if ((typed >> i & 1U) != 0)
            strings |= 1U << (count - 1 - i);
    if ((session.score().*Operation)(range, strings, values.get(2, true)))
        return true;
    throw LineError(values.column(1), QStringLiteral("there is no note on these strings"));
}

} // namespace

const std::vector<Command> &noteMarkCommands()
{
    static const Parameter beats = {QStringLiteral("BEATS"), Kind::Beats, Presence::Assumed};
    static const Parameter checked = {QStringLiteral("ON"), Kind::Switch, Presence::Optional};
    static const std::vector<Parameter> onString = {{QStringLiteral("STRING"), Kind::String}};
    const auto word = [](const char *name, const Choices &choices,
                         Presence presence = Presence::Required) {
        return Parameter{QLatin1String(name), Kind::Choice, presence, 0, 0, &choices};
    };
    const auto command = [](const char *name, const std::vector<Parameter> &parameters,
                            const char *help, const char *operation,
                            bool (*run)(EditSession &, const Values &)) {
        std::vector<Parameter> all = {beats};
        all.insert(all.end(), parameters.begin(), parameters.end());
        return Command{QLatin1String(name),
                       all,
                       QLatin1String(help),
                       QStringLiteral("Score::") + QLatin1String(operation),
                       run,
                       true,
                       onString};
    };
    static const std::vector<Command> commands = {
        command("bend",
                {{QStringLiteral("AMOUNT"), Kind::Text},
                 word("KIND", bendChoices(), Presence::Optional)},
                "Bend strings: full, 1/2 and so on, up, or up and released; none.",
                "setStringedNoteBend", setBend),
        command("vibrato", {word("VIBRATO", vibratoChoices())}, "Let notes vibrate.",
                "setStringedNoteVibrato", setChoice<Vibrato, &Notes::setStringedNoteVibrato>),
        command("harmonic",
                {word("HARMONIC", harmonicChoices()),
                 {QStringLiteral("PARTIAL"), Kind::Whole, Presence::Optional, 2, HighestPartial}},
                "Play harmonics.", "setStringedNoteArtificialHarmonic", setHarmonic),
        command("let-ring", {checked}, "Let notes ring.", "setNoteLetring",
                setSwitch<&Notes::setNoteLetring>),
        command("palm-mute", {checked}, "Mute notes with the palm.", "setStringedNotePalmMute",
                setSwitch<&Notes::setStringedNotePalmMute>),
        command("let-ring-passage", {{QStringLiteral("STRINGS"), Kind::Passes}, checked},
                "Let the notes of some strings ring until these are struck again.",
                "letRingAssistant", assist<&Notes::letRingAssistant>),
        command("palm-mute-passage", {{QStringLiteral("STRINGS"), Kind::Passes}, checked},
                "Mute the notes of some strings but in chords with others.", "palmMuteAssistant",
                assist<&Notes::palmMuteAssistant>),
        command("dead", {checked}, "Play notes dead, as an x.", "setStringedNoteDead",
                setSwitch<&Notes::setStringedNoteDead>),
        command("ghost", {word("GHOST", ghostChoices())}, "Make ghost notes, in parentheses.",
                "setNoteAntiAccent", setChoice<AntiAccent, &Notes::setNoteAntiAccent>),
        command("accent", {word("ACCENT", accentChoices()), checked},
                "Put an accent on notes, or take it off.", "setNoteAccentFlag", setAccent),
        command("velocity",
                {{QStringLiteral("VELOCITY"), Kind::Whole, Presence::Required, 0, HighestVelocity}},
                "Set how loud notes are; 0 is as the dynamic says.", "setNoteVelocity",
                setVelocity),
        command("tap", {word("HAND", tapChoices())}, "Tap notes with a hand.",
                "setStringedNoteRightHandTapping", setTap),
        command("trill",
                {{QStringLiteral("PITCH"), Kind::Pitch},
                 word("SPEED", trillSpeedChoices(), Presence::Optional)},
                "Trill with the note that sounds above.", "setNoteTrill", setTrill),
        command("no-trill", {}, "Take trills off.", "setNoteTrill", setTrill),
        command("ornament", {word("ORNAMENT", ornamentChoices()), checked},
                "Put an ornament on notes, or take ornaments off.", "setNoteOrnament", setOrnament),
        command("left-finger", {word("FINGER", leftFingerChoices())},
                "Finger notes with the left hand.", "setNoteFingering", setFinger<Hand::Left>),
        command("right-finger", {word("FINGER", rightFingerChoices())},
                "Finger notes with the right hand.", "setNoteFingering", setFinger<Hand::Right>),
        command("show-string", {checked}, "Show the numbers of strings in circles.",
                "setStringedNoteShowStringNumber",
                setSwitch<&Notes::setStringedNoteShowStringNumber>),
    };
    return commands;
}

} // namespace zarn::tool
