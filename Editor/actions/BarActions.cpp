// SPDX-License-Identifier: MIT
#include "actions/ActionTable.h"
#include "actions/Menus.h"
#include "actions/ScoreStep.h"
#include "app/Editor.h"
#include "app/MainWindow.h"
#include "document/Document.h"

#include <ZarnCore/model/ZarnMasterBarAttribute.h>
#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/model/form/ZarnDirectionMark.h>
#include <ZarnCore/music/ZarnKeySignature.h>
#include <ZarnCore/music/ZarnPitchClass.h>
#include <ZarnCore/music/ZarnTimeSignature.h>

#include <QCoreApplication>

#include <algorithm>

/// What bars are: their meter, key and clef, the form of the piece, which of them there are.
namespace zarn::editor {
namespace {

struct Text {
    Q_DECLARE_TR_FUNCTIONS(BarActions)
};

std::pair<unsigned, unsigned> barsOf(const ActionContext &context)
{
    return context.document.selection().bars(context.document.score());
}

Questions &questions(const ActionContext &context)
{
    return context.window.editor().questions();
}

/// From the bar of the cursor, or the selection, as far as a user means it: without a selection to
/// the next bar that says otherwise, by `isSame`.
template <class Same>
std::pair<unsigned, unsigned> stretchOf(const ActionContext &context, Same isSame)
{
    auto bars = barsOf(context);
    if (!context.document.selection().isEmpty())
        return bars;
    const auto &all = context.document.model().masterTrack()->masterBars();
    while (bars.second + 1 < all.size() && isSame(*all[bars.first], *all[bars.second + 1]))
        ++bars.second;
    return bars;
}

bool insertBars(const ActionContext &context, Score &score, bool isBehind)
{
    const auto bars = barsOf(context);
    return score.createBars(isBehind ? bars.second + 1 : bars.first, bars.second - bars.first + 1);
}

Change askTime(const ActionContext &context)
{
    const MasterBarAttributeRow &row = rowOf(MasterBarAttribute::TimeSignature);
    const MasterBar *const bar = context.document.cursor().findMasterBar();
    if (bar == nullptr)
        return nullptr;
    const auto typed =
        questions(context).askText(&context.window, Text::tr("Meter, such as 3/4:"),
                                   QString::fromStdString(row.range.toText(row.get(*bar))));
    if (!typed)
        return nullptr;
    const auto value = row.range.fromText(typed->toStdString());
    const auto bars = stretchOf(context, [](const MasterBar &a, const MasterBar &b) {
        return a.timeSignature() == b.timeSignature();
    });
    return [value, bars](Score &score) {
        return value
            && score.setMasterTimeSignature(bars.first, bars.second, value->to<TimeSignature>());
    };
}

/// All keys, by the circle of fifths from the flats to the sharps, major ones first.
std::vector<KeySignature> keys()
{
    std::vector<KeySignature> all;
    for (const bool isMajor : {true, false})
        for (int count = -7; count <= 7; ++count)
            all.emplace_back(count, isMajor);
    return all;
}

QString nameOf(const KeySignature &key)
{
    const QString tonic = PitchClass::fromPitch(key.rootNote()).symbol();
    return key.isMajor() ? Text::tr("%1 major").arg(tonic) : Text::tr("%1 minor").arg(tonic);
}

Change askKey(const ActionContext &context)
{
    const MasterBar *const bar = context.document.cursor().findMasterBar();
    if (bar == nullptr)
        return nullptr;
    const std::vector<KeySignature> all = keys();
    QStringList names;
    int present = 0;
    for (const KeySignature &key : all) {
        if (key.accidentalCount() == bar->concertKeySignature().accidentalCount()
            && key.isMajor() == bar->concertKeySignature().isMajor())
            present = names.size();
        names << nameOf(key);
    }
    const auto chosen = questions(context).askChoice(
        &context.window, Text::tr("Key, as it sounds:"), names, present);
    if (!chosen)
        return nullptr;
    const auto bars = stretchOf(context, [](const MasterBar &a, const MasterBar &b) {
        return a.concertKeySignature() == b.concertKeySignature();
    });
    return [key = all[static_cast<std::size_t>(*chosen)], bars](Score &score) {
        return score.setMasterKeySignature(bars.first, bars.second, key);
    };
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

Change askRepeat(const ActionContext &context)
{
    constexpr int most = 255;
    const auto bars = barsOf(context);
    const auto times = questions(context).askNumber(
        &context.window, Text::tr("How often the bars are played, 0 for no repeat:"), 2, 0, most);
    if (!times)
        return nullptr;
    return [bars, count = *times >= 2 ? static_cast<unsigned>(*times) : 0](Score &score) {
        return score.setBarRepeatStart(bars.first, count != 0)
            && score.setBarRepeatEnd(bars.second, count);
    };
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

Action direction(DirectionMark mark)
{
    const auto isHere = [mark](const ActionContext &context) {
        const auto bar = context.document.cursor().barIndex();
        return bar >= 0 && context.document.model().masterTrack()->directionIndex(mark) == bar;
    };
    const QString name = directionMarkToQString(mark);
    Action action =
        scoreStep("", name, "", [mark, isHere](const ActionContext &context, Score &score) {
            const int bar = context.document.cursor().barIndex();
            return score.setBarDirection(mark, isHere(context) ? -1 : bar);
        });
    action.id = QStringLiteral("bar.direction") + name;
    action.isChecked = isHere;
    return action;
}

Action fermata(const char *id, const QString &text, const char *keys, Fermata kind)
{
    return scoreStep(id, text, keys, [kind](const ActionContext &context, Score &score) {
        return score.setFermata(context.document.cursor(), kind);
    });
}

Change askSection(const ActionContext &context)
{
    const MasterBar *const bar = context.document.cursor().findMasterBar();
    if (bar == nullptr)
        return nullptr;
    const auto letter = questions(context).askText(&context.window, Text::tr("Rehearsal letter:"),
                                                   QString::fromStdString(bar->section().letter));
    const auto text = letter
        ? questions(context).askText(&context.window, Text::tr("Title of the section:"),
                                     QString::fromStdString(bar->section().text))
        : std::nullopt;
    if (!text)
        return nullptr;
    return [index = barsOf(context).first, letter = *letter, text = *text](Score &score) {
        return letter.isEmpty() && text.isEmpty() ? score.unsetMasterBarSection(index)
                                                  : score.setMasterBarSection(index, letter, text);
    };
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
