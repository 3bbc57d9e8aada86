// SPDX-License-Identifier: MIT
#include "actions/ActionTable.h"
#include "actions/Menus.h"
#include "actions/ScoreStep.h"
#include "app/Editor.h"
#include "app/MainWindow.h"
#include "document/Document.h"
#include "document/Templates.h"

#include <ZarnCore/ZarnCoreUtils.h>
#include <ZarnCore/instruments/automations/ZarnTempoAutomation.h>
#include <ZarnCore/model/ZarnScoreModel.h>

#include <QCoreApplication>

#include <algorithm>

/// Tracks, and what the whole score has.
namespace zarn::editor {
namespace {

struct Text {
    Q_DECLARE_TR_FUNCTIONS(TrackActions)
};

Questions &questions(const ActionContext &context)
{
    return context.window.editor().questions();
}

unsigned trackOf(const ActionContext &context)
{
    return static_cast<unsigned>(std::max(context.document.cursor().trackIndex(), 0));
}

const Track *cursorTrack(const ActionContext &context)
{
    return context.document.cursor().findTrack();
}

Change askTrack(const ActionContext &context)
{
    const auto &templates = trackTemplates();
    QStringList names;
    for (const TrackTemplate &each : templates)
        names << each.name;
    const auto chosen =
        questions(context).askChoice(&context.window, Text::tr("Instrument:"), names, 25);
    if (!chosen)
        return nullptr;
    return [track = makeTrack(templates[static_cast<std::size_t>(*chosen)])](Score &score) {
        return track != nullptr && score.insertTrack(score.trackCount(), track);
    };
}

/// Asks for a number and sets it.
Action number(const char *id, const QString &text, const QString &label, int least, int most,
              std::function<int(const ActionContext &)> present,
              std::function<bool(const ActionContext &, Score &, int)> set)
{
    return askedStep(id, text, "", [=](const ActionContext &context) -> Change {
        const auto given =
            questions(context).askNumber(&context.window, label, present(context), least, most);
        if (!given)
            return nullptr;
        return [context, set, value = *given](Score &score) { return set(context, score, value); };
    });
}

Action notation(const char *id, const QString &text, const char *keys, bool TrackNotations::*part)
{
    Action action = scoreStep(id, text, keys, [part](const ActionContext &context, Score &score) {
        const Track *const track = cursorTrack(context);
        if (track == nullptr)
            return false;
        TrackNotations notations = track->notations();
        notations.*part = !(notations.*part);
        return score.setTrackNotations(trackOf(context), notations);
    });
    action.isChecked = [part](const ActionContext &context) {
        const Track *const track = cursorTrack(context);
        return track != nullptr && track->notations().*part;
    };
    return action;
}

Action playback(const char *id, const QString &text, const char *keys, TrackPlayback wanted)
{
    const auto isOn = [wanted](const ActionContext &context) {
        const Track *const track = cursorTrack(context);
        return track != nullptr && track->playback() == wanted;
    };
    Action action =
        scoreStep(id, text, keys, [wanted, isOn](const ActionContext &context, Score &score) {
            return score.setTrackPlayback(trackOf(context),
                                          isOn(context) ? TrackPlayback::Normal : wanted);
        });
    action.isChecked = isOn;
    return action;
}

Action property(const char *id, const QString &text, ScoreProperty which)
{
    return askedStep(
        id, text, "", [which, label = plainText(text)](const ActionContext &context) -> Change {
            const auto present = context.document.model().property(which);
            const auto given =
                questions(context).askText(&context.window, label, QString::fromStdString(present));
            if (!given)
                return nullptr;
            return [which, words = *given](Score &score) {
                return score.changeProperty(which, words);
            };
        });
}

constexpr int slowest = 10;
constexpr int fastest = 400;

Change askLyrics(const ActionContext &context)
{
    const auto text = questions(context).askText(
        &context.window, Text::tr("Lyrics from this bar on; - parts syllables:"), {});
    if (!text)
        return nullptr;
    const auto bar = static_cast<unsigned>(std::max(context.document.cursor().barIndex(), 0));
    return [track = trackOf(context), bar, words = *text](Score &score) {
        return score.setLyrics(track, 0, words, bar);
    };
}

/// The tempo from the begin of the cursor's bar on.
Change askTempo(const ActionContext &context)
{
    const auto bar = static_cast<std::uint32_t>(std::max(context.document.cursor().barIndex(), 0));
    const AutomationContainer &automations = *context.document.model().masterTrack();
    const Automation *const here = automations.automation(Automation::Tempo, bar, 0);
    const Automation *const before =
        here != nullptr ? here : automations.previousAutomation(Automation::Tempo, bar, 0);
    const auto *const present = dynamic_cast<const TempoAutomation *>(before);
    const auto given = questions(context).askNumber(
        &context.window, Text::tr("Quarters per minute from this bar on:"),
        present != nullptr ? qRound(present->quarterValue()) : 120, slowest, fastest);
    if (!given)
        return nullptr;
    TempoAutomation tempo;
    tempo.setIndex(bar);
    tempo.setValue(static_cast<float>(*given));
    std::vector<const Automation *> replaced;
    if (here != nullptr)
        replaced.push_back(here);
    return [tempo, replaced](Score &score) {
        return score.modifyMasterTrackAutomations(replaced, {&tempo});
    };
}

} // namespace

std::vector<ActionGroup> trackActions()
{
    const std::vector<Action> tracks = {
        askedStep("track.add", Text::tr("&Add"), "Ctrl+Shift+T", askTrack),
        scoreStep("track.remove", Text::tr("&Remove"), "",
                  [](const ActionContext &context, Score &score) {
                      return score.removeTrack(trackOf(context));
                  }),
        scoreStep("track.up", Text::tr("Move &up"), "Ctrl+Alt+PgUp",
                  [](const ActionContext &context, Score &score) {
                      const unsigned track = trackOf(context);
                      return track > 0 && score.moveTrack(track, track - 1);
                  }),
        scoreStep("track.down", Text::tr("Move &down"), "Ctrl+Alt+PgDown",
                  [](const ActionContext &context, Score &score) {
                      const unsigned track = trackOf(context);
                      return score.moveTrack(track, track + 1);
                  }),
    };
    const std::vector<Action> notations = {
        notation("track.notation", Text::tr("&Notation"), "F6", &TrackNotations::standard),
        notation("track.tablature", Text::tr("&Tablature"), "F7", &TrackNotations::tablature),
        notation("track.slashes", Text::tr("&Slashes"), "Shift+F7", &TrackNotations::slash),
    };
    const std::vector<Action> hearing = {
        playback("track.mute", Text::tr("&Mute"), "F9", TrackPlayback::Mute),
        playback("track.solo", Text::tr("S&olo"), "F10", TrackPlayback::Solo),
    };
    const std::vector<Action> settings = {
        number(
            "track.staves", Text::tr("Sta&ves"), Text::tr("Staves:"), 1, 4,
            [](const ActionContext &context) {
                const Track *const track = cursorTrack(context);
                return track != nullptr ? static_cast<int>(track->staffCount()) : 1;
            },
            [](const ActionContext &context, Score &score, int count) {
                return score.setStaffCount(trackOf(context), static_cast<unsigned>(count));
            }),
        number(
            "track.transpose", Text::tr("Let it so&und higher or lower"), Text::tr("Semitones:"),
            -24, 24, [](const ActionContext &) { return 0; },
            [](const ActionContext &context, Score &score, int semitones) {
                return score.transposeTrack(trackOf(context), semitones);
            }),
        number(
            "track.transposition", Text::tr("&Write it higher or lower"),
            Text::tr("Semitones from what is written to what sounds:"), -36, 36,
            [](const ActionContext &context) {
                const Track *const track = cursorTrack(context);
                return track != nullptr ? track->transpositionOffset() : 0;
            },
            [](const ActionContext &context, Score &score, int semitones) {
                return score.setTrackTranspositionOffset(trackOf(context), semitones);
            }),
        askedStep("track.lyrics", Text::tr("&Lyrics"), "Ctrl+L", askLyrics),
    };
    const std::vector<Action> texts = {
        property("score.title", Text::tr("&Title"), ScoreProperty::Title),
        property("score.subtitle", Text::tr("&Subtitle"), ScoreProperty::Subtitle),
        property("score.artist", Text::tr("&Artist"), ScoreProperty::Artist),
        property("score.album", Text::tr("Al&bum"), ScoreProperty::Album),
        property("score.words", Text::tr("&Words by"), ScoreProperty::Words),
        property("score.music", Text::tr("&Music by"), ScoreProperty::Music),
        property("score.copyright", Text::tr("&Copyright"), ScoreProperty::Copyright),
    };
    const std::vector<Action> whole = {
        askedStep("score.tempo", Text::tr("Te&mpo"), "Ctrl+M", askTempo),
        number(
            "score.transpose", Text::tr("T&ranspose"), Text::tr("Semitones:"), -24, 24,
            [](const ActionContext &) { return 0; },
            [](const ActionContext &, Score &score, int semitones) {
                return score.transposeAllTracks(semitones, true);
            }),
        number(
            "score.fixedSystems", Text::tr("Bars in each s&ystem"),
            Text::tr("Bars in each system:"), 1, 50, [](const ActionContext &) { return 4; },
            [](const ActionContext &, Score &score, int count) {
                return score.setFixedLayout(-1, static_cast<unsigned>(count));
            }),
        scoreStep("score.autoSystems", Text::tr("Break systems b&y itself"), "",
                  [](const ActionContext &, Score &score) { return score.setAutoLayout(-1); }),
        number(
            "score.concertTone", Text::tr("C&oncert pitch"), Text::tr("Hertz of the a':"), 220, 880,
            [](const ActionContext &context) {
                return qRound(context.document.model().concertTone());
            },
            [](const ActionContext &, Score &score, int hertz) {
                return score.setConcertTone(hertz);
            }),
    };
    return {{titles(Menu::Track), tracks},  {titles(Menu::Track), notations},
            {titles(Menu::Track), hearing}, {titles(Menu::Track), settings},
            {titles(Menu::Score), texts},   {titles(Menu::Score), whole}};
}

} // namespace zarn::editor
