// SPDX-License-Identifier: MIT
#include "common/Choices.h"
#include "common/Failure.h"
#include "common/Terminal.h"
#include "edit/Commands.h"
#include "edit/EditSession.h"
#include "edit/ScriptLine.h"
#include "edit/Targets.h"

#include <ZarnCore/instruments/automations/ZarnChannelStrip.h>
#include <ZarnCore/instruments/automations/ZarnDSPParamAutomation.h>
#include <ZarnCore/instruments/effects/ZarnMastering.h>
#include <ZarnCore/instruments/sounds/ZarnSound.h>
#include <ZarnCore/model/ZarnScoreModel.h>

#include <memory>

namespace zarn::tool {

namespace {

constexpr int Master = -1;
constexpr int MostSounds = 1000;
constexpr double ParameterCount = 32;

// Effects, of the master or of a sound of a track.

/// Where effects are: the track, or the master; and the sound, -1 for the one that plays.
struct ChainPlace {
    int track;
    int sound;
};

ChainPlace chainPlace(EditSession &session, const Values &values, std::size_t parameter)
{
    ChainPlace place{values.get<int>(parameter), -1};
    if (place.track == Master)
        return place;
    const auto track = session.model().track(static_cast<unsigned>(place.track));
    const std::size_t count = track ? track->sounds().size() : 0;
    const QString option = QStringLiteral("sound");
    const int *const number = values.option<int>(option);
    if (static_cast<std::size_t>(number != nullptr ? *number : 1) > count)
        throw LineError(number != nullptr ? values.optionColumn(option) : values.column(parameter),
                        QStringLiteral("track %1 has only %2")
                            .arg(place.track + 1)
                            .arg(QString::fromStdString(counted(count, "sound"))));
    if (number != nullptr)
        place.sound = *number - 1;
    return place;
}

const EffectChain &chainAt(EditSession &session, const ChainPlace &place)
{
    if (place.track == Master)
        return session.model().masterTrack()->mastering().effectChain();
    const auto track = session.model().track(static_cast<unsigned>(place.track));
    const int forced = track->forcedSoundIndex();
    const bool isForced = forced >= 0 && forced < static_cast<int>(track->sounds().size());
    const int sound = place.sound >= 0 ? place.sound : isForced ? forced : 0;
    return track->sounds()[static_cast<unsigned>(sound)]->orkaSound().effectChain();
}

/// The number of a slot from 0; it must hold an effect.
unsigned filledSlot(EditSession &session, const Values &values, const ChainPlace &place)
{
    const unsigned slot = values.index(1) - 1;
    if (chainAt(session, place).effect(slot).isEmpty())
        throw LineError(values.column(1), QStringLiteral("slot %1 is empty").arg(slot + 1));
    return slot;
}

std::vector<float> knobs(const Values &values, std::size_t parameter)
{
    std::vector<float> knobs;
    const QString text = values.get<QString>(parameter, QString());
    for (const QString &word : text.split(QLatin1Char(' '), Qt::SkipEmptyParts)) {
        bool isNumber = false;
        knobs.push_back(word.toFloat(&isNumber));
        if (!isNumber)
            throw LineError(
                values.column(parameter),
                QStringLiteral("\"%1\" is no number; type knobs such as \"0.5 0.2\"").arg(word));
    }
    return knobs;
}

bool setEffect(EditSession &session, const Values &values)
{
    const ChainPlace place = chainPlace(session, values, 0);
    const Effect effect(values.text(2), values.text(2), knobs(values, 3));
    return session.score().setEffect(place.track, place.sound, values.index(1) - 1, effect);
}

bool setKnobs(EditSession &session, const Values &values)
{
    const ChainPlace place = chainPlace(session, values, 0);
    const unsigned slot = filledSlot(session, values, place);
    const std::vector<float> settings = knobs(values, 2);
    const unsigned count = chainAt(session, place).effect(slot).parameterCount();
    if (settings.size() != count)
        throw LineError(values.column(2),
                        QStringLiteral("this effect has %1")
                            .arg(QString::fromStdString(counted(count, "knob"))));
    return session.score().setEffectParameters(place.track, place.sound, slot, settings);
}

bool bypassEffect(EditSession &session, const Values &values)
{
    const ChainPlace place = chainPlace(session, values, 0);
    return session.score().setEffectBypass(place.track, place.sound,
                                           filledSlot(session, values, place), values.get(2, true));
}

bool removeEffect(EditSession &session, const Values &values)
{
    const ChainPlace place = chainPlace(session, values, 0);
    return session.score().deleteEffect(place.track, place.sound,
                                        filledSlot(session, values, place));
}

bool swapEffects(EditSession &session, const Values &values)
{
    const ChainPlace place = chainPlace(session, values, 0);
    const unsigned first = values.index(1) - 1;
    const unsigned second = values.index(2) - 1;
    if (first == second)
        throw LineError(values.column(2), QStringLiteral("this is the same slot"));
    const EffectChain &chain = chainAt(session, place);
    if (chain.effect(first).isEmpty() && chain.effect(second).isEmpty())
        throw LineError(values.column(1), QStringLiteral("both slots are empty"));
    return session.score().swapEffects(place.track, place.sound, first, second);
}

bool copyEffects(EditSession &session, const Values &values)
{
    const EffectChain chain = chainAt(session, chainPlace(session, values, 0));
    const ChainPlace place = chainPlace(session, values, 1);
    return session.score().setEffectChain(place.track, place.sound, chain);
}

bool clearEffects(EditSession &session, const Values &values)
{
    const ChainPlace place = chainPlace(session, values, 0);
    if (chainAt(session, place).isEmpty())
        throw LineError(values.column(0), QStringLiteral("there are no effects"));
    return session.score().clearEffectChain(place.track, place.sound);
}

bool removeReverb(EditSession &session, const Values &)
{
    if (session.score().removeMasterReverb())
        return true;
    throw Failure("the master has no reverb any more");
}

// The mixer.

template <ChannelStripParameter parameter>
bool setStrip(EditSession &session, const Values &values)
{
    return session.score().setChannelStripParameter(values.get<int>(0), parameter,
                                                    static_cast<float>(values.get<double>(1)));
}

bool setMaster(EditSession &session, const Values &values)
{
    const ZarnVolumePan volumePan(static_cast<float>(values.get<double>(0)),
                                  static_cast<float>(values.get<double>(1)));
    return session.score().setMasterTrackVolumePan(volumePan);
}

// Automations.

/// A change of a parameter at the start of the bar that comes first in the line.
DSPParamAutomation changeOf(Automation::Type type, EditSession &session, const Values &values,
                            std::size_t value)
{
    DSPParamAutomation change(type);
    change.setIndex(targetBar(session, values));
    change.setValue(static_cast<float>(values.get<double>(value)));
    return change;
}

DSPParamAutomation effectChange(EditSession &session, const Values &values)
{
    const unsigned parameter = values.index(1) - 1;
    const auto type = static_cast<Automation::Type>(Automation::DSPParam_00 + parameter);
    return changeOf(type, session, values, 2);
}

bool changeEffect(EditSession &session, const Values &values)
{
    const DSPParamAutomation change = effectChange(session, values);
    return session.score().modifyTrackAutomations(values.where().track, {}, {&change});
}

bool changeMasterEffect(EditSession &session, const Values &values)
{
    const DSPParamAutomation change = effectChange(session, values);
    return session.score().modifyMasteringAutomations({}, {&change});
}

template <ChannelStripParameter parameter>
bool automateStrip(EditSession &session, const Values &values)
{
    const DSPParamAutomation change = changeOf(channelStripType(parameter), session, values, 1);
    return session.score().modifyChannelStripAutomations(values.where().track, {}, {&change});
}

/// Everything that changes in a bar, in all tracks.
bool moveAutomations(EditSession &session, const Values &values)
{
    const auto from = static_cast<std::uint32_t>(values.get<int>(0));
    const auto to = static_cast<std::uint32_t>(values.get<int>(1));
    std::vector<AutomationChanges> changes;
    std::vector<std::unique_ptr<Automation>> moved;
    const auto move = [&](int track, const AutomationContainer &container) {
        AutomationChanges change;
        change.track = track;
        for (unsigned slot = 1; slot < Automation::automationTypeCount; ++slot)
            for (const Automation *automation :
                 container.automations(Automation::idType(slot), from, from)) {
                moved.push_back(automation->cloneAutomation());
                moved.back()->setIndex(to);
                change.removed.push_back(automation);
                change.inserted.push_back(moved.back().get());
            }
        changes.push_back(std::move(change));
    };
    move(Master, *session.model().masterTrack());
    for (const auto &track : session.model().tracks())
        move(static_cast<int>(track->index()), track->automations());
    if (moved.empty())
        throw LineError(values.column(0), QStringLiteral("nothing changes in this bar"));
    return session.score().modifyAutomations(changes);
}

} // namespace

const std::vector<Command> &mixerCommands()
{
    static const Parameter strip = {QStringLiteral("TRACK"), Kind::Strip};
    static const Parameter bar = {QStringLiteral("BAR"), Kind::Bar, Presence::Assumed};
    const auto whole = [](const char *text, double most) {
        return Parameter{QLatin1String(text), Kind::Whole, Presence::Required, 1, most};
    };
    static const Parameter slot = whole("SLOT", EffectChain::maximumSlotCount);
    static const Parameter parameter = whole("PARAMETER", ParameterCount);
    static const Parameter sound = whole("SOUND", MostSounds);
    static const Parameter level = {QStringLiteral("LEVEL"), Kind::Decimal, Presence::Required, 0,
                                    1};
    static const Parameter pan = {QStringLiteral("PAN"), Kind::Decimal, Presence::Required, -1, 1};
    static const std::vector<Command> commands = {
        {QStringLiteral("volume"),
         {strip, level},
         QStringLiteral("Set the volume of a track or of the master."),
         QStringLiteral("Score::setChannelStripParameter"),
         setStrip<ChannelStripParameter::Volume>},
        {QStringLiteral("pan"),
         {strip, pan},
         QStringLiteral("Pan a track or the master: -1 is left, 1 right."),
         QStringLiteral("Score::setChannelStripParameter"),
         setStrip<ChannelStripParameter::Pan>},
        {QStringLiteral("master"),
         {level, pan},
         QStringLiteral("Set volume and panning of the master at once."),
         QStringLiteral("Score::setMasterTrackVolumePan"),
         setMaster},
        {QStringLiteral("set-effect"),
         {strip,
          slot,
          {QStringLiteral("EFFECT"), Kind::Text},
          {QStringLiteral("KNOBS"), Kind::Text, Presence::Optional}},
         QStringLiteral("Put an effect into a slot; knobs are numbers such as \"0.5 0.2\"."),
         QStringLiteral("Score::setEffect"),
         setEffect,
         false,
         {sound}},
        {QStringLiteral("knobs"),
         {strip, slot, {QStringLiteral("KNOBS"), Kind::Text}},
         QStringLiteral("Turn all knobs of an effect."),
         QStringLiteral("Score::setEffectParameters"),
         setKnobs,
         false,
         {sound}},
        {QStringLiteral("bypass"),
         {strip, slot, {QStringLiteral("SWITCH"), Kind::Switch, Presence::Assumed}},
         QStringLiteral("Let the sound pass an effect by."),
         QStringLiteral("Score::setEffectBypass"),
         bypassEffect,
         false,
         {sound}},
        {QStringLiteral("remove-effect"),
         {strip, slot},
         QStringLiteral("Empty a slot; the other effects stay in theirs."),
         QStringLiteral("Score::deleteEffect"),
         removeEffect,
         false,
         {sound}},
        {QStringLiteral("swap-effects"),
         {strip, slot, whole("OTHER", EffectChain::maximumSlotCount)},
         QStringLiteral("Let the effects in two slots change places."),
         QStringLiteral("Score::swapEffects"),
         swapEffects,
         false,
         {sound}},
        {QStringLiteral("copy-effects"),
         {strip, {QStringLiteral("TO"), Kind::Strip}},
         QStringLiteral("Give a track or the master the effects of another."),
         QStringLiteral("Score::setEffectChain"),
         copyEffects},
        {QStringLiteral("clear-effects"),
         {strip},
         QStringLiteral("Remove all effects."),
         QStringLiteral("Score::clearEffectChain"),
         clearEffects,
         false,
         {sound}},
        {QStringLiteral("no-reverb"),
         {},
         QStringLiteral("Remove the reverb of the master."),
         QStringLiteral("Score::removeMasterReverb"),
         removeReverb},
        {QStringLiteral("automate-volume"),
         {bar, level},
         QStringLiteral("Change the volume of a track from a bar on."),
         QStringLiteral("Score::modifyChannelStripAutomations"),
         automateStrip<ChannelStripParameter::Volume>,
         true},
        {QStringLiteral("automate-pan"),
         {bar, pan},
         QStringLiteral("Change the panning of a track from a bar on."),
         QStringLiteral("Score::modifyChannelStripAutomations"),
         automateStrip<ChannelStripParameter::Pan>,
         true},
        {QStringLiteral("effect"),
         {bar, parameter, level},
         QStringLiteral("Change an effect parameter of a track from a bar on."),
         QStringLiteral("Score::modifyTrackAutomations"),
         changeEffect,
         true},
        {QStringLiteral("master-effect"),
         {bar, parameter, level},
         QStringLiteral("Change an effect parameter of the master from a bar on."),
         QStringLiteral("Score::modifyMasteringAutomations"),
         changeMasterEffect},
        {QStringLiteral("move-automations"),
         {{QStringLiteral("BAR"), Kind::Bar}, {QStringLiteral("TO"), Kind::Bar}},
         QStringLiteral("Move tempos, sounds and all else that changes in a bar to another."),
         QStringLiteral("Score::modifyAutomations"),
         moveAutomations},
    };
    return commands;
}

} // namespace zarn::tool
