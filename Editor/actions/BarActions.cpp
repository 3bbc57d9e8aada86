// SPDX-License-Identifier: MIT
#include "actions/ActionTable.h"
#include "actions/Menus.h"
#include "actions/ScoreStep.h"
#include "actions/SignForms.h"
#include "document/Document.h"

#include <ZarnCore/model/ZarnMasterBarAttribute.h>
#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/model/form/ZarnDirectionMark.h>

#include <QCoreApplication>

#include <algorithm>

/// What bars are: their meter, key and clef, the form of the piece, which of them there are.
namespace zarn::editor {
namespace {

struct Text {
    Q_DECLARE_TR_FUNCTIONS(BarActions)
};

bool insertBars(const ActionContext &context, Score &score, bool isBehind)
{
    const auto bars = barsOf(context);
    return score.createBars(isBehind ? bars.second + 1 : bars.first, bars.second - bars.first + 1);
}

Action clef(const char *id, const QString &text, ClefType type)
{
    Action action = scoreStep(id, text, "", [type](const ActionContext &context, Score &score) {
        const ScoreModelIndex &place = context.document.cursor();
        auto bars = barsOf(context);
        if (context.document.selection().isEmpty())
            bars.second = context.document.model().masterTrack()->masterBarCount() - 1;
        return score.setClef(static_cast<unsigned>(place.trackIndex()), place.staffIndex(),
                             bars.first, bars.second, type);
    });
    action.isChecked = [type](const ActionContext &context) {
        const Bar *const bar = context.document.cursor().findBar();
        return bar != nullptr && bar->clef() == type;
    };
    return action;
}

Action ending(unsigned pass)
{
    const std::uint32_t bit = std::uint32_t{1} << (pass - 1);
    const auto has = [bit](const ActionContext &context) {
        const MasterBar *const bar = context.document.cursor().findMasterBar();
        return bar != nullptr && (bar->alternateEndings() & bit) != 0;
    };
    Action action =
        scoreStep("", Text::tr("In pass %1").arg(pass), "",
                  [bit](const ActionContext &context, Score &score) {
                      const MasterBar *const bar = context.document.cursor().findMasterBar();
                      const auto bars = barsOf(context);
                      return bar != nullptr
                          && score.setBarAlternateEndings(bars.first, bars.second,
                                                          bar->alternateEndings() ^ bit);
                  });
    action.id = QStringLiteral("bar.ending%1").arg(pass);
    action.isChecked = has;
    return action;
}

/// Where a direction stands in another bar already, a further one of its kind.
bool turnDirection(const ActionContext &context, Score &score, DirectionMark mark)
{
    const int bar = context.document.cursor().barIndex();
    if (bar < 0)
        return false;
    const MasterTrack &master = *context.document.model().masterTrack();
    const int slot = master.directionIndex(mark);
    if (slot == bar)
        return score.setBarDirection(mark, -1);
    const auto index = static_cast<unsigned>(bar);
    const auto further = master.masterBar(index)->furtherDirections();
    if (slot < 0 && (further & directionBit(mark)) == 0)
        return score.setBarDirection(mark, bar);
    return score.setMasterBarAttribute(index, index, MasterBarAttribute::FurtherDirections,
                                       further ^ directionBit(mark));
}

Action direction(DirectionMark mark)
{
    const QString name = directionMarkToQString(mark);
    Action action = scoreStep("", name, "", [mark](const ActionContext &context, Score &score) {
        return turnDirection(context, score, mark);
    });
    action.id = QStringLiteral("bar.direction") + name;
    action.isChecked = [mark](const ActionContext &context) {
        const auto marks = context.document.model().masterTrack()->directionsAtBarIndex(
            context.document.cursor().barIndex());
        return marks.count(mark) != 0;
    };
    return action;
}

Action fermata(const char *id, const QString &text, const char *keys, Fermata kind)
{
    return scoreStep(id, text, keys, [kind](const ActionContext &context, Score &score) {
        return score.setFermata(context.document.cursor(), kind);
    });
}

ScoreModelRange wholeBars(const ActionContext &context)
{
    const auto bars = barsOf(context);
    ScoreModelIndex first = context.document.cursor();
    first.invalidateNote();
    first.setBeatIndex(0);
    ScoreModelIndex last = first;
    first.setBarIndex(static_cast<int>(bars.first));
    last.setBarIndex(static_cast<int>(bars.second));
    return {first, last, SelectionMode::MultiSelection | SelectionMode::MultiVoice};
}

Action voice(unsigned target, bool isSwap)
{
    Action action =
        scoreStep("",
                  isSwap ? Text::tr("Swap with voice %1").arg(target + 1)
                         : Text::tr("Move to voice %1").arg(target + 1),
                  "", [target, isSwap](const ActionContext &context, Score &score) {
                      const unsigned own = context.document.cursor().voiceIndex();
                      return isSwap
                          ? score.swapVoices(wholeBars(context), own, target)
                          : score.moveVoice(context.document.selection().beats(score), target);
                  });
    action.id = (isSwap ? QStringLiteral("bar.swapVoice%1") : QStringLiteral("bar.moveVoice%1"))
                    .arg(target + 1);
    return action;
}

} // namespace

std::vector<ActionGroup> barActions()
{
    const std::vector<Action> bars = {
        scoreStep("bar.insert", Text::tr("&Insert bar"), "Ctrl+Ins",
                  [](const ActionContext &context, Score &score) {
                      return insertBars(context, score, false);
                  }),
        scoreStep("bar.append", Text::tr("Insert bar &behind"), "Ctrl+Shift+Ins",
                  [](const ActionContext &context, Score &score) {
                      return insertBars(context, score, true);
                  }),
        scoreStep("bar.remove", Text::tr("&Remove bars"), "Ctrl+Shift+Del",
                  [](const ActionContext &context, Score &score) {
                      const auto chosen = barsOf(context);
                      return score.removeBarRange(chosen.first, chosen.second);
                  }),
        scoreStep("bar.arrange", Text::tr("&Pour into the meter"), "",
                  [](const ActionContext &context, Score &score) {
                      const auto chosen = barsOf(context);
                      return score.arrangeBars(chosen.first, chosen.second);
                  }),
        scoreStep("bar.complete", Text::tr("&Fill with rests"), "Ctrl+R",
                  [](const ActionContext &context, Score &score) {
                      return score.completeReduceBarsWithRests(wholeBars(context));
                  }),
        scoreStep("bar.repeatBeat", Text::tr("Repeat the beat to the &end"), "",
                  [](const ActionContext &context, Score &score) {
                      return score.copyBeatToEOB(context.document.cursor());
                  }),
    };
    const std::vector<Action> signs = {
        askedStep("bar.time", Text::tr("&Meter"), "Ctrl+T", askTime),
        askedStep("bar.key", Text::tr("&Key"), "Ctrl+K", askKey),
        askedStep("bar.section", Text::tr("&Section"), "Shift+Ins", askSection),
        askedStep("bar.repeat", Text::tr("Re&peat"), "Ctrl+Shift+R", askRepeat),
        askedStep("bar.tempo", Text::tr("Te&mpo"), "Ctrl+M", askTempo),
    };
    const std::vector<Action> clefs = {
        clef("bar.clefG", Text::tr("&Treble"), ClefType::G2),
        clef("bar.clefF", Text::tr("&Bass"), ClefType::F4),
        clef("bar.clefAlto", Text::tr("&Alto"), ClefType::C3),
        clef("bar.clefTenor", Text::tr("T&enor"), ClefType::C4),
        clef("bar.clefNeutral", Text::tr("&Percussion"), ClefType::Neutral),
    };
    std::vector<Action> endings;
    for (unsigned pass = 1; pass <= 8; ++pass)
        endings.push_back(ending(pass));
    std::vector<Action> directions;
    for (int mark = 0; mark < DirectionMarkCount; ++mark)
        directions.push_back(direction(static_cast<DirectionMark>(mark)));
    const std::vector<Action> fermatas = {
        fermata("bar.fermata", Text::tr("&Fermata"), "", Fermata::Medium),
        fermata("bar.fermataShort", Text::tr("&Short fermata"), "", Fermata::Short),
        fermata("bar.fermataLong", Text::tr("&Long fermata"), "", Fermata::Long),
        fermata("bar.noFermata", Text::tr("&No fermata"), "", Fermata::None),
        askedStep("bar.fermataAt", Text::tr("Ferma&ta anywhere"), "", askFermata),
    };
    std::vector<Action> voices;
    for (const bool isSwap : {false, true})
        for (unsigned target = 0; target < Bar::MaxVoices; ++target)
            voices.push_back(voice(target, isSwap));
    return {{titles(Menu::Bar), bars},
            {titles(Menu::Bar), signs},
            {titles(Menu::Bar, Text::tr("&Clef")), clefs},
            {titles(Menu::Bar, Text::tr("&Ending")), endings},
            {titles(Menu::Bar, Text::tr("&Jump")), directions},
            {titles(Menu::Bar, Text::tr("Fer&mata")), fermatas},
            {titles(Menu::Bar, Text::tr("&Voices")), voices}};
}

} // namespace zarn::editor
