// SPDX-License-Identifier: MIT
#include "actions/ActionTable.h"
#include "actions/Menus.h"
#include "actions/ScoreStep.h"
#include "actions/TrackForms.h"
#include "document/Document.h"

#include <ZarnCore/model/ZarnScoreModel.h>

#include <QCoreApplication>

/// What the whole score has: its texts, its pitch, its systems, recordings beside it.
namespace zarn::editor {
namespace {

struct Text {
    Q_DECLARE_TR_FUNCTIONS(ScoreActions)
};

/// Of the full score.
constexpr unsigned fullScore = 0;
constexpr int allTracks = -1;

Action opensAs(const char *id, const QString &text, ViewLayout view)
{
    Action action = scoreStep(id, text, "", [view](const ActionContext &, Score &score) {
        return score.setLayout(fullScore, view);
    });
    action.isChecked = [view](const ActionContext &context) {
        return context.document.model().views()[fullScore].layout == view;
    };
    return action;
}

Action multiRest()
{
    Action action =
        scoreStep("score.multiRest", Text::tr("&Multi-bar rests"), "",
                  [](const ActionContext &context, Score &score) {
                      return score.setMultiRest(
                          fullScore, !context.document.model().views()[fullScore].multiRest);
                  });
    action.isChecked = [](const ActionContext &context) {
        return context.document.model().views()[fullScore].multiRest;
    };
    return action;
}

} // namespace

std::vector<ActionGroup> scoreActions()
{
    const std::vector<Action> texts = {
        askedStep("score.information", Text::tr("&About the score"), "Ctrl+I", askInformation),
        askedStep("score.pageTexts", Text::tr("&Headers and footers"), "", askPageTexts),
    };
    const std::vector<Action> whole = {
        numberStep(
            "score.transpose", Text::tr("T&ranspose"), Text::tr("Semitones:"), -24, 24,
            [](const ActionContext &) { return 0; },
            [](const ActionContext &, Score &score, int semitones) {
                return score.transposeAllTracks(semitones, true);
            }),
        numberStep(
            "score.concertTone", Text::tr("C&oncert pitch"), Text::tr("Hertz of the a':"), 220, 880,
            [](const ActionContext &context) {
                return qRound(context.document.model().concertTone());
            },
            [](const ActionContext &, Score &score, int hertz) {
                return score.setConcertTone(hertz);
            }),
    };
    const std::vector<Action> systems = {
        askedStep("score.systems", Text::tr("&Systems of the full score"), "", askScoreSystems),
        numberStep(
            "score.fixedSystems", Text::tr("Bars in each s&ystem"),
            Text::tr("Bars in each system:"), 1, 50, [](const ActionContext &) { return 4; },
            [](const ActionContext &, Score &score, int count) {
                return score.setFixedLayout(allTracks, static_cast<unsigned>(count));
            }),
        scoreStep(
            "score.autoSystems", Text::tr("&Break systems by itself"), "",
            [](const ActionContext &, Score &score) { return score.setAutoLayout(allTracks); }),
        multiRest(),
    };
    const std::vector<Action> views = {
        opensAs("score.opensAsPages", Text::tr("&Pages"), ViewLayout::Pages),
        opensAs("score.opensContinuous", Text::tr("&One long page"), ViewLayout::Continuous),
        opensAs("score.opensAsLine", Text::tr("One &line"), ViewLayout::SingleLine),
    };
    const std::vector<Action> recordings = {
        askedStep("score.addRecording", Text::tr("Add a re&cording"), "", askRecording),
        askedStep("score.changeRecording", Text::tr("Chan&ge a recording"), "",
                  askRecordingToChange),
        askedStep("score.removeRecording", Text::tr("Remove a recor&ding"), "",
                  askRecordingToRemove),
    };
    return {{titles(Menu::Score), texts},
            {titles(Menu::Score), whole},
            {titles(Menu::Score), systems},
            {titles(Menu::Score, Text::tr("Opens &as")), views},
            {titles(Menu::Score), recordings}};
}

} // namespace zarn::editor
