// SPDX-License-Identifier: MIT
#include "panels/AutomationsPanel.h"

#include "app/Editor.h"
#include "app/MainWindow.h"
#include "document/Document.h"

#include <ZarnCore/instruments/automations/ZarnAutomationContainer.h>
#include <ZarnCore/instruments/automations/ZarnChannelStrip.h>
#include <ZarnCore/instruments/automations/ZarnDSPParamAutomation.h>
#include <ZarnCore/instruments/automations/ZarnSoundAutomation.h>
#include <ZarnCore/instruments/automations/ZarnTempoAutomation.h>
#include <ZarnCore/instruments/sounds/ZarnSound.h>
#include <ZarnCore/model/ZarnScoreModel.h>

#include <QHBoxLayout>
#include <QHeaderView>
#include <QScopedValueRollback>
#include <QToolButton>
#include <QTreeWidget>
#include <QVBoxLayout>

#include <algorithm>

namespace zarn::editor {
namespace {

constexpr int trackRole = Qt::UserRole;
constexpr int typeRole = Qt::UserRole + 1;
constexpr int barRole = Qt::UserRole + 2;
constexpr int positionRole = Qt::UserRole + 3;
constexpr int wholeScore = -1;

enum Column { What, Where, Value, Slides, ColumnCount };

bool isKnob(Automation::Type type)
{
    return type >= Automation::DSPParam_00 && type <= Automation::DSPParam_31;
}

} // namespace

AutomationsPanel::AutomationsPanel(const ActionContext &context)
    : Panel(context), _tree(new QTreeWidget)
{
    auto *const all = new QVBoxLayout(this);
    all->setContentsMargins(0, 0, 0, 0);
    all->addWidget(_tree);
    _tree->setColumnCount(ColumnCount);
    _tree->setHeaderLabels({tr("What"), tr("Where"), tr("Value"), tr("Slides")});
    _tree->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    _tree->setAccessibleName(tr("Automation"));
    auto *const buttons = new QHBoxLayout;
    const auto addButton = [&](const char *name, const QString &text, auto slot) {
        auto *const button = new QToolButton;
        button->setObjectName(QLatin1String(name));
        button->setText(text);
        connect(button, &QToolButton::clicked, this, slot);
        buttons->addWidget(button);
    };
    addButton("add", tr("Add..."), [this] { add(); });
    addButton("edit", tr("Edit..."), [this] { edit(); });
    addButton("remove", tr("Remove"), [this] { remove(); });
    buttons->addStretch();
    all->addLayout(buttons);
    connect(_tree, &QTreeWidget::itemChanged, this, &AutomationsPanel::change);
    connect(_tree, &QTreeWidget::itemDoubleClicked, this, [this] { edit(); });
}

AutomationsPanel::~AutomationsPanel() = default;

/// Null when the track is there no more.
const AutomationContainer *AutomationsPanel::containerOf(int track) const
{
    const ScoreModel &model = document().model();
    if (track == wholeScore)
        return model.masterTrack().get();
    const auto found = model.track(static_cast<unsigned>(track));
    return found != nullptr ? &found->automations() : nullptr;
}

QString AutomationsPanel::nameOf(const Line &line) const
{
    if (line.type == Automation::Tempo)
        return tr("Tempo");
    if (line.type == Automation::Sound)
        return tr("Sound of the track");
    if (line.track != wholeScore && line.type == channelStripType(ChannelStripParameter::Volume))
        return tr("Volume of the track");
    if (line.track != wholeScore && line.type == channelStripType(ChannelStripParameter::Pan))
        return tr("Panning of the track");
    const int knob = static_cast<int>(line.type) - static_cast<int>(Automation::DSPParam_00) + 1;
    return line.track == wholeScore ? tr("Knob %1 of the whole mix").arg(knob)
                                    : tr("Knob %1 of the track's effects").arg(knob);
}

QString AutomationsPanel::valueOf(const Automation &automation) const
{
    if (const auto *const tempo = dynamic_cast<const TempoAutomation *>(&automation))
        return tr("%1 quarters a minute").arg(static_cast<double>(tempo->quarterValue()));
    if (const auto *const sound = dynamic_cast<const SoundAutomation *>(&automation))
        return sound->sound() != nullptr ? QString::fromStdString(sound->sound()->name())
                                         : QString();
    return QString::number(static_cast<double>(automation.value()));
}

void AutomationsPanel::addTypes(int track)
{
    addType(track, Automation::Tempo);
    addType(track, Automation::Sound);
    constexpr int knobs = 32;
    for (int knob = 0; knob < knobs; ++knob)
        addType(track, static_cast<Automation::Type>(Automation::DSPParam_00 + knob));
}

void AutomationsPanel::addType(int track, Automation::Type type)
{
    const AutomationContainer *const container = containerOf(track);
    if (container == nullptr || !container->hasAutomations(type))
        return;
    const auto mark = [track, type](QTreeWidgetItem &item) {
        item.setData(What, trackRole, track);
        item.setData(What, typeRole, static_cast<int>(type));
    };
    auto *const folder = new QTreeWidgetItem(_tree, {nameOf({track, type})});
    mark(*folder);
    folder->setCheckState(What, container->isTypeBypassed(type) ? Qt::Unchecked : Qt::Checked);
    for (const Automation *const each : container->automations(type)) {
        auto *const item = new QTreeWidgetItem(folder);
        mark(*item);
        item->setData(What, barRole, each->index());
        item->setData(What, positionRole, each->position());
        item->setText(What, QString::fromStdString(each->text()));
        item->setText(Where,
                      each->position() == 0 ? tr("bar %1").arg(each->index() + 1)
                                            : tr("bar %1, after %2 quarters")
                                                  .arg(each->index() + 1)
                                                  .arg(static_cast<double>(each->position())));
        item->setText(Value, valueOf(*each));
        item->setText(Slides, each->isLinear() ? tr("yes") : QString());
    }
    folder->setExpanded(true);
}

void AutomationsPanel::follow()
{
    const QScopedValueRollback<bool> following(_isFollowing, true);
    const Automation *const chosen = currentAutomation();
    const Line line = chosen != nullptr ? lineOf(*_tree->currentItem()) : Line();
    _tree->clear();
    addTypes(wholeScore);
    if (document().cursor().trackIndex() >= 0)
        addTypes(document().cursor().trackIndex());
    for (QTreeWidgetItemIterator it(_tree); chosen != nullptr && *it != nullptr; ++it) {
        const Line own = lineOf(**it);
        if ((*it)->parent() != nullptr && own.track == line.track && own.type == line.type
            && (*it)->data(What, barRole).toUInt() == chosen->index()
            && (*it)->data(What, positionRole).toFloat() == chosen->position())
            _tree->setCurrentItem(*it);
    }
}

AutomationsPanel::Line AutomationsPanel::lineOf(const QTreeWidgetItem &item) const
{
    return {item.data(What, trackRole).toInt(),
            static_cast<Automation::Type>(item.data(What, typeRole).toInt())};
}

/// Null when none is chosen, or when it is there no more.
const Automation *AutomationsPanel::currentAutomation() const
{
    const QTreeWidgetItem *const item = _tree->currentItem();
    if (item == nullptr || item->parent() == nullptr)
        return nullptr;
    const Line line = lineOf(*item);
    const AutomationContainer *const container = containerOf(line.track);
    return container == nullptr
        ? nullptr
        : container->automation(line.type, item->data(What, barRole).toUInt(),
                                item->data(What, positionRole).toFloat());
}

std::unique_ptr<Automation> AutomationsPanel::ask(const Line &line, const Automation *present) const
{
    const ScoreModel &model = document().model();
    const auto track =
        line.track == wholeScore ? nullptr : model.track(static_cast<unsigned>(line.track));
    constexpr double mostQuarters = 256;
    constexpr double fastest = 1000;
    const int bars = static_cast<int>(std::max(model.masterTrack()->masterBarCount(), 1U));
    const bool isPan = line.type == channelStripType(ChannelStripParameter::Pan);
    Form form(nameOf(line));
    form.number("bar", tr("&Bar"),
                present != nullptr ? static_cast<int>(present->index()) + 1
                                   : std::max(document().cursor().barIndex(), 0) + 1,
                1, bars)
        .decimal("position", tr("&Position in the bar, in quarters"),
                 present != nullptr ? static_cast<double>(present->position()) : 0, 0,
                 mostQuarters);
    QStringList sounds;
    if (line.type == Automation::Sound && track != nullptr) {
        for (const auto &sound : track->sounds())
            sounds << QString::fromStdString(sound->name());
        form.choice("sound", tr("&Sound"), sounds, 0);
    } else {
        form.decimal("value", tr("&Value"),
                     present != nullptr ? static_cast<double>(present->value()) : 0.5,
                     isPan ? -1 : 0, line.type == Automation::Tempo ? fastest : 1)
            .turn("slides", tr("Changes gradua&lly to the next one"),
                  present != nullptr && present->isLinear());
    }
    const auto given = context().window.editor().questions().askForm(&context().window, form);
    if (!given)
        return nullptr;
    std::unique_ptr<Automation> made =
        present != nullptr ? present->cloneAutomation() : Automation::create(line.type);
    made->setIndex(static_cast<std::uint32_t>(given->value(QStringLiteral("bar")).toInt() - 1));
    made->setPosition(given->value(QStringLiteral("position")).toFloat());
    if (auto *const sound = dynamic_cast<SoundAutomation *>(made.get())) {
        const auto place = static_cast<std::size_t>(given->value(QStringLiteral("sound")).toInt());
        if (track == nullptr || place >= track->sounds().size())
            return nullptr;
        sound->setSound(track->sounds()[place]);
        return made;
    }
    made->setValue(given->value(QStringLiteral("value")).toFloat());
    made->setLinear(given->value(QStringLiteral("slides")).toBool());
    return made;
}

void AutomationsPanel::add()
{
    const int track = std::max(document().cursor().trackIndex(), 0);
    constexpr int mostKnobs = 32;
    const Line kinds[] = {
        {track, channelStripType(ChannelStripParameter::Volume)},
        {track, channelStripType(ChannelStripParameter::Pan)},
        {track, Automation::Sound},
        {wholeScore, Automation::Tempo},
        {track, Automation::DSPParam_00},
        {wholeScore, Automation::DSPParam_00},
    };
    constexpr std::size_t firstKnob = 4;
    QStringList names;
    for (std::size_t i = 0; i < firstKnob; ++i)
        names << nameOf(kinds[i]);
    names << tr("A knob of the track's effects") << tr("A knob of the whole mix");
    Form form(tr("Add automation"));
    form.choice("kind", tr("&What changes"), names, 0)
        .number("knob", tr("Nu&mber of the knob"), 1, 1, mostKnobs);
    const auto given = context().window.editor().questions().askForm(&context().window, form);
    if (!given)
        return;
    const auto place = static_cast<std::size_t>(given->value(QStringLiteral("kind")).toInt());
    Line line = kinds[std::min(place, std::size(kinds) - 1)];
    if (place >= firstKnob)
        line.type = static_cast<Automation::Type>(
            Automation::DSPParam_00 + given->value(QStringLiteral("knob")).toInt() - 1);
    const auto made = ask(line, nullptr);
    if (made != nullptr && !exchange(tr("Add automation"), line, nullptr, made.get()))
        Q_EMIT document().refused(tr("This is not possible here."));
}

void AutomationsPanel::edit()
{
    const Automation *const present = currentAutomation();
    if (present == nullptr)
        return;
    const Line line = lineOf(*_tree->currentItem());
    const auto made = ask(line, present);
    if (made != nullptr && !exchange(tr("Change automation"), line, present, made.get()))
        Q_EMIT document().refused(tr("This is not possible here."));
}

void AutomationsPanel::remove()
{
    const Automation *const present = currentAutomation();
    if (present != nullptr
        && !exchange(tr("Remove automation"), lineOf(*_tree->currentItem()), present, nullptr))
        Q_EMIT document().refused(tr("This one cannot be removed."));
}

bool AutomationsPanel::exchange(const QString &title, const Line &line, const Automation *removed,
                                const Automation *inserted)
{
    std::vector<const Automation *> out;
    std::vector<const Automation *> in;
    if (removed != nullptr)
        out.push_back(removed);
    if (inserted != nullptr)
        in.push_back(inserted);
    const auto track = static_cast<unsigned>(line.track);
    return document().edit(title, [&](Score &score) {
        if (line.track != wholeScore)
            return isChannelStripType(line.type)
                ? score.modifyChannelStripAutomations(track, out, in)
                : score.modifyTrackAutomations(track, out, in);
        return isKnob(line.type) ? score.modifyMasteringAutomations(out, in)
                                 : score.modifyMasterTrackAutomations(out, in);
    });
}

void AutomationsPanel::change(QTreeWidgetItem *item)
{
    if (_isFollowing || item->parent() != nullptr)
        return;
    const Line line = lineOf(*item);
    const bool isBypassed = item->checkState(What) != Qt::Checked;
    document().edit(tr("Switch automation"), [&](Score &score) {
        return line.track == wholeScore
            ? score.modifyMasterTrackAutomationBypass(line.type, isBypassed)
            : score.modifyTrackAutomationBypass(static_cast<unsigned>(line.track), line.type,
                                                isBypassed);
    });
}

} // namespace zarn::editor
