// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Bar/ZarnPasteBarRange.h>

#include <ZarnCore/ZarnAssert.h>
#include <ZarnCore/commands/Automations/AnnounceAutomations.h>
#include <ZarnCore/commands/Automations/ZarnModifyMasterTrackAutomations.h>
#include <ZarnCore/commands/Automations/ZarnModifyTrackAutomations.h>
#include <ZarnCore/commands/Bar/PastePlace.h>
#include <ZarnCore/commands/Bar/SwapColumns.h>
#include <ZarnCore/commands/Bar/ZarnCreateBars.h>
#include <ZarnCore/commands/MasterTrack/ZarnSetBarDirection.h>
#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/model/clip/NoteAdaptation.h>
#include <ZarnCore/model/places/ZarnScoreModelIndex.h>

#include <algorithm>
#include <set>

namespace zarn::cmd {

namespace {

/// The bars of a staff of a clip, as they are written in another one, again and again. Says whether
/// notes are left without a string.
Staff::Bars copiesOf(const PastedStaff &pasted, unsigned times, bool &hasOpen)
{
    std::vector<NoteAdaptation> adaptations(Bar::MaxVoices, adaptationOf(pasted));
    Staff::Bars bars;
    bars.reserve(std::size_t(pasted.from->barCount()) * times);
    for (const auto &bar : pasted.from->bars()) {
        bars.push_back(bar->clone());
        for (unsigned slot = 0; slot < Bar::MaxVoices; ++slot)
            if (const auto &voice = bars.back()->voices()[slot])
                adaptations[slot].adapt(voice->beats());
    }
    hasOpen = std::any_of(adaptations.begin(), adaptations.end(),
                          [](const NoteAdaptation &adaptation) { return adaptation.hasOpen(); });
    const std::size_t count = bars.size();
    for (std::size_t i = count; i < count * times; ++i)
        bars.push_back(bars[i - count]->clone());
    return bars;
}

} // namespace

PasteBarRange::PasteBarRange() : CompoundCommand(QStringLiteral("PasteBarRange")) { }
PasteBarRange::~PasteBarRange() = default;

bool PasteBarRange::init(Score *score, const Clip &clip, unsigned bar, unsigned firstTrack,
                         unsigned times, PasteMode mode)
{
    ZARN_ASSERT_IN("zarn::cmd::PasteBarRange::init", score != NULL);
    addArg(QStringLiteral("Index"), QString::number(bar));
    addArg(QStringLiteral("TrackIndex"), QString::number(firstTrack));
    addArg(QStringLiteral("Times"), QString::number(times));
    addArg(QStringLiteral("Type"), QString::fromStdString(pasteModeToString(mode)));
    setScore(score);
    _target = score;
    _clip = clip;
    _bar = bar;
    _firstTrack = firstTrack;
    _times = times;
    _mode = mode;
    const bool isKnown = mode == PasteMode::Insert || mode == PasteMode::Replace;
    return isKnown && times >= 1 && times <= MostTimes && clip.kind == Clip::Kind::Bars
        && !clip.isEmpty() && expectPlace([this] { return isPossible(); });
}

unsigned PasteBarRange::pastedCount() const noexcept
{
    return _clip.model->masterTrack()->masterBarCount() * _times;
}

/// Columns that the score has too few.
unsigned PasteBarRange::missingCount() const noexcept
{
    const unsigned present = model().masterTrack()->masterBarCount();
    if (_mode == PasteMode::Insert)
        return pastedCount();
    return _bar + pastedCount() > present ? _bar + pastedCount() - present : 0;
}

bool PasteBarRange::isPossible() const
{
    const unsigned present = model().masterTrack()->masterBarCount();
    const bool isInside = _mode == PasteMode::Insert ? _bar <= present : _bar < present;
    return isInside && pastedCount() <= MasterTrack::MaxBars
        && missingCount() <= MasterTrack::MaxBars - present
        && pastedStaves(model(), _clip, _firstTrack, pastedStaffNumber(model(), _clip, _firstTrack))
               .has_value();
}

std::vector<BarStretch> PasteBarRange::stretches()
{
    _open.clear();
    const unsigned staff = pastedStaffNumber(model(), _clip, _firstTrack);
    const auto staves = pastedStaves(model(), _clip, _firstTrack, staff);
    std::vector<BarStretch> found;
    for (const PastedStaff &pasted : *staves) {
        const bool isOther = pasted.from->track()->type() != pasted.to->track()->type();
        bool hasOpen = false;
        found.push_back({pasted.track, pasted.staff, _bar, copiesOf(pasted, _times, hasOpen),
                         isOther, pasted.from->barCount()});
        if (hasOpen)
            _open.emplace_back(pasted.track, pasted.staff);
    }
    return found;
}

/// Bars without music for the staves that the clip has not.
void PasteBarRange::addEmptyStretches(std::vector<BarStretch> &stretches) const
{
    std::set<std::pair<unsigned, unsigned>> present;
    for (const BarStretch &stretch : stretches)
        present.emplace(stretch.track, stretch.staff);
    for (const auto &track : model().tracks()) {
        for (const auto &staff : track->staves()) {
            if (present.count({track->index(), staff->index()}) != 0)
                continue;
            BarStretch empty{track->index(), staff->index(), _bar, {}, true, 0};
            for (unsigned i = 0; i < pastedCount(); ++i)
                empty.bars.push_back(std::make_shared<Bar>());
            stretches.push_back(std::move(empty));
        }
    }
}

/// One step that puts in what stands at the copied bars, as often as they are pasted. At the front
/// of the score the setting of its start goes on behind them.
void PasteBarRange::addAutomations(int track, const AutomationContainer &from)
{
    const unsigned length = _clip.model->masterTrack()->masterBarCount();
    const AutomationContainer &present = track == masterTrackIndex
        ? static_cast<const AutomationContainer &>(*model().masterTrack())
        : model().tracks()[static_cast<unsigned>(track)]->automations();
    auto pasted = std::make_shared<std::vector<std::unique_ptr<Automation>>>();
    const auto add = [&pasted](const Automation &automation, unsigned bar) {
        pasted->push_back(automation.cloneAutomation());
        pasted->back()->setIndex(bar);
    };
    for (unsigned slot = 0; slot < Automation::automationTypeCount; ++slot) {
        const auto type = Automation::idType(slot);
        const auto alien = track == masterTrackIndex ? Automation::Sound : Automation::Tempo;
        if (type == Automation::Unknown || type == alien)
            continue;
        const auto copied = from.automations(type);
        for (unsigned i = 0; i < _times; ++i)
            for (const Automation *automation : copied)
                add(*automation, _bar + i * length + automation->index());
        const Automation *const start = present.automation(type, 0, 0);
        if (_bar == 0 && !copied.empty() && start != nullptr)
            add(*start, pastedCount());
    }
    if (pasted->empty())
        return;
    addStep([this, track, pasted]() -> std::unique_ptr<Command> {
        std::vector<const Automation *> inserted;
        const unsigned barCount = model().masterTrack()->masterBarCount();
        for (const auto &automation : *pasted)
            if (automation->index() < barCount)
                inserted.push_back(automation.get());
        if (track == masterTrackIndex) {
            auto step = std::make_unique<ModifyMasterTrackAutomations>();
            return step->init(_target, {}, inserted) ? std::move(step) : nullptr;
        }
        auto step = std::make_unique<ModifyTrackAutomations>();
        return step->init(_target, static_cast<unsigned>(track), {}, inserted) ? std::move(step)
                                                                               : nullptr;
    });
}

/// Each stands once in a score: those that it has stay where they are.
void PasteBarRange::addDirections()
{
    for (int kind = 0; kind < DirectionMarkCount; ++kind) {
        const auto mark = static_cast<DirectionMark>(kind);
        const int copied = _clip.model->masterTrack()->directionIndex(mark);
        if (copied < 0 || model().masterTrack()->directionIndex(mark) >= 0)
            continue;
        const int bar = copied + static_cast<int>(_bar);
        addStep([this, mark, bar]() -> std::unique_ptr<Command> {
            auto step = std::make_unique<SetBarDirection>();
            return step->init(_target, mark, bar) ? std::move(step) : nullptr;
        });
    }
}

void PasteBarRange::addFingerings()
{
    for (const auto &[track, staff] : _open) {
        const ScoreModelIndex first(nullptr, static_cast<int>(track), static_cast<int>(_bar), -1, 0,
                                    staff);
        ScoreModelIndex last = first;
        last.setBarIndex(static_cast<int>(_bar + pastedCount() - 1));
        addStep([this, first, last] { return fingeringOf(_target, first, last); });
    }
}

void PasteBarRange::plan()
{
    requirePlace(isPossible());
    auto bars = stretches();
    const bool hasColumns = _mode == PasteMode::Insert && _clip.hasColumns;
    if (const unsigned missing = missingCount(); missing != 0) {
        const unsigned at =
            _mode == PasteMode::Insert ? _bar : model().masterTrack()->masterBarCount();
        auto create = std::make_unique<CreateBars>();
        requirePlace(create->init(_target, at, missing));
        addStep(std::move(create));
    }
    auto swap = std::make_unique<SwapColumns>();
    if (!hasColumns) {
        requirePlace(swap->init(_target, std::move(bars)));
        addStep(std::move(swap));
        addFingerings();
        return;
    }
    addEmptyStretches(bars);
    MasterTrack::MasterBars masterBars;
    for (unsigned i = 0; i < _times; ++i)
        for (const auto &bar : _clip.model->masterTrack()->masterBars())
            masterBars.push_back(bar->clone());
    requirePlace(swap->init(_target, std::move(bars), _bar, std::move(masterBars)));
    addStep(std::move(swap));
    addFingerings();
    addAutomations(masterTrackIndex, *_clip.model->masterTrack());
    for (const auto &track : _clip.model->tracks())
        addAutomations(static_cast<int>(_firstTrack + track->index()), track->automations());
    addDirections();
}

} // namespace zarn::cmd
