// SPDX-License-Identifier: MIT
#include "../CommandRows.h"

#include <limits>

using namespace rich;

std::vector<CommandRow> documentRows()
{
    return {
        {"ModifyMasterTrackAutomations",
         [](SmallScore &s) {
             const auto first = tempo(0, 90);
             const auto second = tempo(3, 150);
             const auto third = tempo(2, 120);
             return s.score.modifyMasterTrackAutomations({&third}, {&first, &second});
         },
         "MasterTrackAutomationChanged(Tempo,0,3) GlobalTempoChanged(100,90) "
         "AutomationChanged ",
         "MasterTrackAutomationChanged(Tempo,0,3) GlobalTempoChanged(90,100) "
         "AutomationChanged "},
        {"ModifyTrackAutomations",
         [](SmallScore &s) {
             const auto change = soundChange(2);
             return s.score.modifyTrackAutomations(1, {}, {&change});
         },
         "TrackAutomationChanged(1,Sound,2,2) SoundAutomationChanged(1,2,2) "
         "AutomationChanged ",
         nullptr},
        {"ModifyMasterTrackAutomationBypass",
         [](SmallScore &s) {
             return s.score.modifyMasterTrackAutomationBypass(Automation::Tempo, true);
         },
         "MasterTrackAutomationBypassChanged(Tempo,1) ",
         "MasterTrackAutomationBypassChanged(Tempo,0) ", true},
        {"ModifyTrackAutomationBypass",
         [](SmallScore &s) {
             return s.score.modifyTrackAutomationBypass(0, Automation::DSPParam_07, true);
         },
         "TrackAutomationBypassChanged(0,DSPParam_07,1) ",
         "TrackAutomationBypassChanged(0,DSPParam_07,0) "},
        {"ChangeProperty",
         [](SmallScore &s) {
             return s.score.changeProperty(ScoreProperty::Artist, QStringLiteral("Trad."));
         },
         "PropertyChanged(2) ", nullptr, true},
        {"ChangeProperties",
         [](SmallScore &s) {
             return s.score.changeProperties({{ScoreProperty::Title, QStringLiteral("A")},
                                              {ScoreProperty::Notice, QStringLiteral("B")}});
         },
         "PropertiesChanged ", nullptr, true},
        {"ChangeHeaderAndFooter",
         [](SmallScore &s) {
             return s.score.changeHeaderAndFooter(HeaderAndFooter::FooterRight,
                                                  QStringLiteral("%Page%"));
         },
         "HeaderAndFooterChanged(11) ", nullptr, true},
        {"SetConcertTone", [](SmallScore &s) { return s.score.setConcertTone(442.5); },
         "ConcertToneChanged(440,442.5) ", "ConcertToneChanged(442.5,440) ", true},
    };
}

void expectDocumentCommandsRefused(RichScore &rich)
{
    Score &score = rich.score;
    const auto late = tempo(6, 90);
    const auto missing = tempo(1, 90);
    const auto early = [] {
        auto automation = tempo(1, 90);
        automation.setPosition(-1);
        return automation;
    }();
    const auto standing = tempo(1, 0);
    auto oddUnit = tempo(1, 90);
    oddUnit.setUnit(6);
    auto farAway = tempo(1, 90);
    farAway.setPosition(2e6F);
    const auto sound = soundChange(1);
    expectAllRefused(
        score,
        {
            [&] { return score.modifyMasterTrackAutomations({}, {}); },
            [&] { return score.modifyMasterTrackAutomations({}, {nullptr}); },
            [&] { return score.modifyMasterTrackAutomations({}, {&late}); },
            // What could be neither played nor saved.
            [&] { return score.modifyMasterTrackAutomations({}, {&standing}); },
            [&] { return score.modifyMasterTrackAutomations({}, {&oddUnit}); },
            [&] { return score.modifyMasterTrackAutomations({}, {&farAway}); },
            [&] { return score.modifyMasterTrackAutomations({}, {&early}); },
            [&] { return score.modifyMasterTrackAutomations({&missing}, {}); },
            [&] {
                return score.modifyMasterTrackAutomations({}, {&missing, &missing});
            },
            [&] { return score.modifyMasterTrackAutomations({}, {&sound}); },
            [&] { return score.modifyTrackAutomations(0, {}, {&missing}); },
            [&] { return score.modifyTrackAutomations(2, {}, {&sound}); },
            [&] { return score.modifyMasterTrackAutomationBypass(Automation::Unknown, true); },
            [&] { return score.modifyTrackAutomationBypass(2, Automation::Sound, true); },
            [&] { return score.changeProperty(static_cast<ScoreProperty>(11), QString()); },
            [&] { return score.changeProperties({}); },
            [&] {
                return score.changeHeaderAndFooter(static_cast<HeaderAndFooter>(12), QString());
            },
            [&] { return score.setConcertTone(0); },
            [&] { return score.setConcertTone(std::numeric_limits<double>::quiet_NaN()); },
        });
}
