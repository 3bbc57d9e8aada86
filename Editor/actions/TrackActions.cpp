// SPDX-License-Identifier: MIT
#include "actions/ActionTable.h"
#include "actions/Menus.h"
#include "actions/ScoreStep.h"
#include "actions/TrackForms.h"
#include "app/Editor.h"
#include "app/MainWindow.h"
#include "document/Document.h"
#include "document/Templates.h"

#include <ZarnCore/model/ZarnScoreModel.h>

#include <QCoreApplication>

#include <algorithm>

/// Tracks: which there are, how they are shown and heard.
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
        const unsigned place = score.trackCount();
        if (track == nullptr || !score.insertTrack(place, track))
            return false;
        score.scoreCursor().to(CursorStep::Track, static_cast<int>(place)); // to write into it
        score.scoreCursor().to(CursorStep::Voice, 0);
        return true;
    };
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
        numberStep(
            "track.staves", Text::tr("Sta&ves"), Text::tr("Staves:"), 1, 4,
            [](const ActionContext &context) {
                const Track *const track = cursorTrack(context);
                return track != nullptr ? static_cast<int>(track->staffCount()) : 1;
            },
            [](const ActionContext &context, Score &score, int count) {
                return score.setStaffCount(trackOf(context), static_cast<unsigned>(count));
            }),
        numberStep(
            "track.transpose", Text::tr("Let it so&und higher or lower"), Text::tr("Semitones:"),
            -24, 24, [](const ActionContext &) { return 0; },
            [](const ActionContext &context, Score &score, int semitones) {
                return score.transposeTrack(trackOf(context), semitones);
            }),
        numberStep(
            "track.transposition", Text::tr("&Write it higher or lower"),
            Text::tr("Semitones from what is written to what sounds:"), -36, 36,
            [](const ActionContext &context) {
                const Track *const track = cursorTrack(context);
                return track != nullptr ? track->transpositionOffset() : 0;
            },
            [](const ActionContext &context, Score &score, int semitones) {
                return score.setTrackTranspositionOffset(trackOf(context), semitones);
            }),
        askedStep("track.settings", Text::tr("S&ettings"), "Ctrl+Shift+P", askTrackSettings),
        askedStep("track.systems", Text::tr("S&ystems of the track"), "", askTrackSystems),
    };
    const std::vector<Action> lyrics = {
        askedStep("track.lyrics", Text::tr("&Lyrics"), "Ctrl+L", askLyrics),
        askedStep("track.lyricsStart", Text::tr("Where the lyrics be&gin"), "", askLyricsStart),
    };
    return {{titles(Menu::Track), tracks},
            {titles(Menu::Track), notations},
            {titles(Menu::Track), hearing},
            {titles(Menu::Track), settings},
            {titles(Menu::Track), lyrics}};
}

} // namespace zarn::editor
