// SPDX-License-Identifier: MIT
#include "common/Choices.h"
#include "common/Failure.h"
#include "edit/Commands.h"
#include "edit/EditSession.h"
#include "edit/Targets.h"

#include <ZarnCore/instruments/automations/ZarnTempoAutomation.h>
#include <ZarnCore/model/ZarnScoreModel.h>

#include <map>

namespace zarn::tool {

namespace {

constexpr double LowestConcertTone = 220;
constexpr double HighestConcertTone = 880;
constexpr double LowestTempo = 1;
constexpr double HighestTempo = 1000;

bool setProperty(EditSession &session, const Values &values)
{
    return session.score().changeProperty(static_cast<ScoreProperty>(values.get<int>(0)),
                                          values.get<QString>(1));
}

bool setProperties(EditSession &session, const Values &values)
{
    std::map<ScoreProperty, QString> texts;
    for (const NamedValue &one : values.get<std::vector<NamedValue>>(0))
        texts[static_cast<ScoreProperty>(one.number)] = one.text;
    return session.score().changeProperties(texts);
}

template <ScoreProperty property>
bool setText(EditSession &session, const Values &values)
{
    return session.score().changeProperty(property, values.get<QString>(0));
}

bool setPageText(EditSession &session, const Values &values)
{
    return session.score().changeHeaderAndFooter(static_cast<HeaderAndFooter>(values.get<int>(0)),
                                                 values.get<QString>(1));
}

bool setConcertTone(EditSession &session, const Values &values)
{
    return session.score().setConcertTone(values.get<double>(0));
}

bool setTempo(EditSession &session, const Values &values)
{
    TempoAutomation tempo;
    tempo.setIndex(targetBar(session, values));
    tempo.setValue(static_cast<float>(values.get<double>(1)));
    tempo.setUnit(values.get(2, static_cast<int>(TempoUnit::Quarter)));
    tempo.setText(values.text(3));
    return session.score().modifyMasterTrackAutomations({}, {&tempo});
}

bool removeTempo(EditSession &session, const Values &values)
{
    const std::uint32_t bar = targetBar(session, values);
    const auto found = session.model().masterTrack()->automations(Automation::Tempo, bar, bar);
    if (found.empty())
        throw Failure("this bar has no tempo of its own");
    return session.score().modifyMasterTrackAutomations({found.begin(), found.end()}, {});
}

bool bypassTempo(EditSession &session, const Values &values)
{
    return session.score().modifyMasterTrackAutomationBypass(Automation::Tempo,
                                                             values.get(0, true));
}

} // namespace

const std::vector<Command> &scoreCommands()
{
    static const Parameter bar = {QStringLiteral("BAR"), Kind::Bar, Presence::Assumed};
    static const Parameter text = {QStringLiteral("TEXT"), Kind::Text};
    static const std::vector<Command> commands = {
        {QStringLiteral("property"),
         {{QStringLiteral("PROPERTY"), Kind::Choice, Presence::Required, 0, 0, &propertyChoices()},
          text},
         QStringLiteral("Set the title, the artist and so on."),
         QStringLiteral("Score::changeProperty"),
         setProperty},
        {QStringLiteral("set-properties"),
         {{QStringLiteral("TEXTS"), Kind::NamedValues, Presence::Required, 0, 0,
           &propertyChoices()}},
         QStringLiteral("Set several of these in one step: title Blues artist Nobody."),
         QStringLiteral("Score::changeProperties"),
         setProperties},
        {QStringLiteral("title"),
         {text},
         QStringLiteral("Set the title."),
         QStringLiteral("Score::changeProperty"),
         setText<ScoreProperty::Title>},
        {QStringLiteral("artist"),
         {text},
         QStringLiteral("Set the artist."),
         QStringLiteral("Score::changeProperty"),
         setText<ScoreProperty::Artist>},
        {QStringLiteral("page-text"),
         {{QStringLiteral("PLACE"), Kind::Choice, Presence::Required, 0, 0, &headerChoices()},
          text},
         QStringLiteral("Set a header or footer; %Title% and the like are filled in."),
         QStringLiteral("Score::changeHeaderAndFooter"),
         setPageText},
        {QStringLiteral("concert-tone"),
         {{QStringLiteral("HERTZ"), Kind::Decimal, Presence::Required, LowestConcertTone,
           HighestConcertTone}},
         QStringLiteral("Set the frequency of the A above middle C."),
         QStringLiteral("Score::setConcertTone"),
         setConcertTone},
        {QStringLiteral("tempo"),
         {bar,
          {QStringLiteral("BEATS"), Kind::Decimal, Presence::Required, LowestTempo, HighestTempo},
          {QStringLiteral("UNIT"), Kind::Choice, Presence::Optional, 0, 0, &tempoUnitChoices()},
          {QStringLiteral("WORDS"), Kind::Text, Presence::Optional}},
         QStringLiteral("Set the tempo from a bar on, in beats per minute."),
         QStringLiteral("Score::modifyMasterTrackAutomations"),
         setTempo},
        {QStringLiteral("no-tempo"),
         {bar},
         QStringLiteral("Remove the tempo changes in a bar."),
         QStringLiteral("Score::modifyMasterTrackAutomations"),
         removeTempo},
        {QStringLiteral("bypass-tempo"),
         {{QStringLiteral("SWITCH"), Kind::Switch, Presence::Assumed}},
         QStringLiteral("Make playback ignore the tempo changes."),
         QStringLiteral("Score::modifyMasterTrackAutomationBypass"),
         bypassTempo},
    };
    return commands;
}

} // namespace zarn::tool
