// SPDX-License-Identifier: MIT
#include "actions/SignForms.h"

#include "app/Editor.h"
#include "app/MainWindow.h"
#include "document/Document.h"
#include "document/Signatures.h"

#include <ZarnCore/instruments/automations/ZarnTempoAutomation.h>
#include <ZarnCore/model/ZarnMasterBarAttribute.h>
#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/model/attributes/ZarnBeamGroups.h>
#include <ZarnCore/model/attributes/ZarnFermataMark.h>
#include <ZarnCore/music/ZarnKeySignature.h>
#include <ZarnCore/music/ZarnTimeSignature.h>

#include <QCoreApplication>

#include <algorithm>
#include <iterator>

namespace zarn::editor {
namespace {

struct Text {
    Q_DECLARE_TR_FUNCTIONS(SignForms)
};

/// How far a sign holds.
enum class Until { NextChange, SelectedBars, End };

void addUntil(Form &form, const ActionContext &context)
{
    const bool hasSelection = !context.document.selection().isEmpty();
    form.choice("until", Text::tr("&Applies"),
                {Text::tr("until the next change"),
                 hasSelection ? Text::tr("in the selected bars") : Text::tr("in this bar only"),
                 Text::tr("to the end of the piece")},
                static_cast<int>(hasSelection ? Until::SelectedBars : Until::NextChange));
}

/// The bars that a sign goes to; `isSame` says of two bars whether the sign did not change.
template <class Same>
std::pair<unsigned, unsigned> stretchOf(const ActionContext &context, const QVariantMap &given,
                                        Same isSame)
{
    auto bars = barsOf(context);
    const auto &all = context.document.model().masterTrack()->masterBars();
    switch (static_cast<Until>(given.value(QStringLiteral("until")).toInt())) {
    case Until::SelectedBars:
        break;
    case Until::End:
        bars.second = static_cast<unsigned>(all.size()) - 1;
        break;
    case Until::NextChange:
        while (bars.second + 1 < all.size() && isSame(*all[bars.first], *all[bars.second + 1]))
            ++bars.second;
        break;
    }
    return bars;
}

/// The tempo that holds at the begin of a bar; null when there is none yet.
const TempoAutomation *tempoAt(const AutomationContainer &automations, std::uint32_t bar,
                               float position)
{
    const Automation *const here = automations.automation(Automation::Tempo, bar, position);
    return dynamic_cast<const TempoAutomation *>(
        here != nullptr ? here : automations.previousAutomation(Automation::Tempo, bar, position));
}

float quartersOf(const ActionContext &context)
{
    const ScoreModelIndex &place = context.document.cursor();
    if (!place.isBeatValid())
        return 0;
    return static_cast<float>(place.beatDrawingOffset().toDouble());
}

} // namespace

std::pair<unsigned, unsigned> barsOf(const ActionContext &context)
{
    return context.document.selection().bars(context.document.score());
}

Change askTime(const ActionContext &context)
{
    const MasterBar *const bar = context.document.cursor().findMasterBar();
    if (bar == nullptr)
        return nullptr;
    const TimeSignature present = bar->timeSignature();
    const auto &units = beatUnits();
    const auto unit = std::find(units.begin(), units.end(), present.getDenominator());
    Form form(Text::tr("Meter"));
    form.number("beats", Text::tr("&Beats of a bar"), static_cast<int>(present.getNumerator()), 1,
                mostBeatsOfBar)
        .choice("unit", Text::tr("Beat &unit"), beatUnitTexts(),
                static_cast<int>(unit - units.begin()))
        .choice("sign", Text::tr("&Written as"),
                {Text::tr("Both numbers"), Text::tr("C"), Text::tr("C with a stroke"),
                 Text::tr("Upper number alone"), Text::tr("Nothing")},
                static_cast<int>(bar->meterSign()))
        .text("beams", Text::tr("Be&ams"), QString::fromStdString(bar->beamGroups().toString()),
              Text::tr("Beats joined by each beam, such as 2+2+3; empty for the usual grouping."))
        .turn("free", Text::tr("&Free time"), bar->isFreeTime());
    addUntil(form, context);
    const auto given = ask(context, form);
    if (!given)
        return nullptr;
    const auto chosen = static_cast<std::size_t>(given->value(QStringLiteral("unit")).toInt());
    const TimeSignature meter(static_cast<unsigned>(given->value(QStringLiteral("beats")).toInt()),
                              units[std::min(chosen, units.size() - 1)]);
    const auto beams =
        BeamGroups::fromString(given->value(QStringLiteral("beams")).toString().toStdString());
    const auto sign = static_cast<MeterSign>(given->value(QStringLiteral("sign")).toInt());
    const bool isFree = given->value(QStringLiteral("free")).toBool();
    // Another meter is written with numbers at first; the C of the one before is none of its own.
    const bool isOther = meter != bar->timeSignature();
    const bool isStale = isOther && sign == bar->meterSign()
        && (sign == MeterSign::Common || sign == MeterSign::Cut);
    const bool hasSign = !isStale && sign != (isOther ? MeterSign::Numbers : bar->meterSign());
    const bool isFreeNow = bar->isFreeTime();
    const bool hasBeams = beams && *beams != bar->beamGroups();
    const auto bars = stretchOf(context, *given, [](const MasterBar &a, const MasterBar &b) {
        return a.timeSignature() == b.timeSignature() && a.meterSign() == b.meterSign()
            && a.isFreeTime() == b.isFreeTime();
    });
    return [=](Score &score) {
        return beams && score.setMasterTimeSignature(bars.first, bars.second, meter)
            && (!hasSign
                || score.setMasterBarAttribute(bars.first, bars.second,
                                               MasterBarAttribute::MeterSign, sign))
            && (!hasBeams || score.setMasterBarBeamGroups(bars.first, bars.second, *beams))
            && (isFree == isFreeNow || score.setMasterBarFreeTime(bars.first, bars.second, isFree));
    };
}

Change askKey(const ActionContext &context)
{
    const MasterBar *const bar = context.document.cursor().findMasterBar();
    if (bar == nullptr)
        return nullptr;
    Form form(Text::tr("Key"));
    form.choice("key", Text::tr("&Key, as it sounds"), keyTexts(),
                placeOfKey(bar->concertKeySignature()));
    addUntil(form, context);
    const auto given = ask(context, form);
    if (!given)
        return nullptr;
    const auto bars = stretchOf(context, *given, [](const MasterBar &a, const MasterBar &b) {
        return a.concertKeySignature() == b.concertKeySignature();
    });
    const auto chosen = static_cast<std::size_t>(given->value(QStringLiteral("key")).toInt());
    return [key = usualKeys()[std::min(chosen, usualKeys().size() - 1)], bars](Score &score) {
        return score.setMasterKeySignature(bars.first, bars.second, key);
    };
}

Change askSection(const ActionContext &context)
{
    const MasterBar *const bar = context.document.cursor().findMasterBar();
    if (bar == nullptr)
        return nullptr;
    Form form(Text::tr("Section"));
    form.text("letter", Text::tr("Rehearsal &letter"),
              QString::fromStdString(bar->section().letter))
        .text("title", Text::tr("&Title"), QString::fromStdString(bar->section().text),
              Text::tr("Such as Verse or Solo. Leave both empty to remove the section."))
        .turn("circled", Text::tr("Letter in a &circle"), bar->section().isCircled);
    const auto given = ask(context, form);
    if (!given)
        return nullptr;
    const QString letter = given->value(QStringLiteral("letter")).toString();
    const QString title = given->value(QStringLiteral("title")).toString();
    const bool isCircled = given->value(QStringLiteral("circled")).toBool();
    return [index = barsOf(context).first, letter, title, isCircled](Score &score) {
        return letter.isEmpty() && title.isEmpty()
            ? score.unsetMasterBarSection(index)
            : score.setMasterBarSection(index, letter, title, isCircled && !letter.isEmpty());
    };
}

Change askRepeat(const ActionContext &context)
{
    constexpr int most = 255;
    const auto bars = barsOf(context);
    Form form(Text::tr("Repeat"));
    form.number("times", Text::tr("&Times played"), 2, 1, most, Text::tr("1 means no repeat."));
    const auto given = ask(context, form);
    if (!given)
        return nullptr;
    const int times = given->value(QStringLiteral("times")).toInt();
    return [bars, count = times >= 2 ? static_cast<unsigned>(times) : 0](Score &score) {
        return score.setBarRepeatStart(bars.first, count != 0)
            && score.setBarRepeatEnd(bars.second, count);
    };
}

Change askTempo(const ActionContext &context)
{
    constexpr double slowest = 10;
    constexpr double fastest = 400;
    constexpr int quarter = static_cast<int>(TempoUnit::Quarter);
    const auto bar = static_cast<std::uint32_t>(std::max(context.document.cursor().barIndex(), 0));
    const AutomationContainer &automations = *context.document.model().masterTrack();
    const float beat = quartersOf(context);
    const bool isAtBeat = beat > 0 && automations.hasAutomation(Automation::Tempo, bar, beat);
    const TempoAutomation *const present = tempoAt(automations, bar, isAtBeat ? beat : 0);
    const bool isHere = present != nullptr && present->index() == bar
        && present->position() == (isAtBeat ? beat : 0);
    Form form(Text::tr("Tempo"));
    form.choice("unit", Text::tr("&Unit"),
                {Text::tr("No number, words alone"), Text::tr("Eighth"), Text::tr("Quarter"),
                 Text::tr("Dotted quarter"), Text::tr("Half"), Text::tr("Dotted half")},
                present != nullptr ? present->unit() : quarter)
        .decimal("tempo", Text::tr("&Beats per minute"),
                 present != nullptr ? static_cast<double>(present->value()) : 120, slowest, fastest)
        .text("words", Text::tr("&Words"),
              isHere ? QString::fromStdString(present->text()) : QString(),
              Text::tr("Such as Allegro; shown above the staff."))
        .choice("from", Text::tr("&From"),
                {Text::tr("the beginning of the bar"), Text::tr("the beat of the cursor")},
                isAtBeat ? 1 : 0)
        .turn("slides", Text::tr("Changes gradua&lly to the next tempo"),
              isHere && present->isLinear())
        .turn("shown", Text::tr("S&hown in the score"), !isHere || present->isVisible())
        .turn("removed", Text::tr("&Remove this tempo"), false);
    const auto given = ask(context, form);
    if (!given)
        return nullptr;
    TempoAutomation tempo;
    tempo.setIndex(bar);
    tempo.setPosition(given->value(QStringLiteral("from")).toInt() == 1 ? beat : 0);
    tempo.setUnit(given->value(QStringLiteral("unit")).toInt());
    tempo.setValue(static_cast<float>(given->value(QStringLiteral("tempo")).toDouble()));
    tempo.setText(given->value(QStringLiteral("words")).toString().toStdString());
    tempo.setLinear(given->value(QStringLiteral("slides")).toBool());
    tempo.setVisible(given->value(QStringLiteral("shown")).toBool());
    const Automation *const old = automations.automation(Automation::Tempo, bar, tempo.position());
    std::vector<const Automation *> replaced;
    if (old != nullptr)
        replaced.push_back(old);
    return [tempo, replaced,
            isRemoved = given->value(QStringLiteral("removed")).toBool()](Score &score) {
        return isRemoved ? score.modifyMasterTrackAutomations(replaced, {})
                         : score.modifyMasterTrackAutomations(replaced, {&tempo});
    };
}

Change askFermata(const ActionContext &context)
{
    const MasterBar *const bar = context.document.cursor().findMasterBar();
    if (bar == nullptr || !context.document.cursor().isBeatValid())
        return nullptr;
    const ScoreModelIndex place = context.document.cursor();
    const utils::rational beat = place.beatDrawingOffset();
    // The one of the beat, else the first of the bar, else a new one.
    const FermataMarks &marks = bar->fermatas();
    auto found = std::find_if(marks.begin(), marks.end(),
                              [&](const FermataMark &mark) { return mark.position == beat; });
    if (found == marks.end())
        found = marks.begin();
    const bool isNew = found == marks.end();
    const FermataMark present = isNew ? FermataMark::at(beat, Fermata::Medium) : *found;
    Form form(Text::tr("Fermata"));
    form.choice("kind", Text::tr("&Kind"), {Text::tr("Short"), Text::tr("Usual"), Text::tr("Long")},
                static_cast<int>(present.kind))
        .text("position", Text::tr("&Position in the bar, in quarters"),
              present.position.toQString(), Text::tr("Such as 3 or 3/2."))
        .number("stretch", Text::tr("&Longer by, in percent"), present.stretch, 0,
                FermataMark::MostStretch);
    const auto given = ask(context, form);
    if (!given)
        return nullptr;
    FermataMark mark;
    mark.kind = static_cast<Fermata>(given->value(QStringLiteral("kind")).toInt());
    mark.stretch = static_cast<std::uint16_t>(given->value(QStringLiteral("stretch")).toInt());
    const auto position = utils::rational::fromString(
        given->value(QStringLiteral("position")).toString().toStdString());
    mark.position = position.value_or(utils::rational(-1));
    return [isNew, place, from = present.position, mark](Score &score) {
        return mark.isValid() && (!isNew || score.setFermata(place, mark.kind))
            && score.editFermata(static_cast<unsigned>(place.barIndex()), from, mark);
    };
}

} // namespace zarn::editor
