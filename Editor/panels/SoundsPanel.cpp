// SPDX-License-Identifier: MIT
#include "panels/SoundsPanel.h"

#include "app/Editor.h"
#include "app/MainWindow.h"
#include "document/Document.h"
#include "document/Templates.h"

#include <ZarnCore/instruments/effects/ZarnEffectChain.h>
#include <ZarnCore/instruments/effects/ZarnMastering.h>
#include <ZarnCore/instruments/sounds/ZarnSound.h>
#include <ZarnCore/model/ZarnScoreModel.h>

#include <QGridLayout>
#include <QHeaderView>
#include <QScopedValueRollback>
#include <QToolButton>
#include <QTreeWidget>
#include <QVBoxLayout>

#include <algorithm>

namespace zarn::editor {
namespace {

constexpr int trackRole = Qt::UserRole;
constexpr int soundRole = Qt::UserRole + 1;
constexpr int slotRole = Qt::UserRole + 2;
constexpr int master = -1;

/// The instruments of General MIDI, without its drum kit.
QStringList programs()
{
    QStringList names;
    for (const TrackTemplate &each : trackTemplates())
        if (each.program >= 0)
            names << QStringLiteral("%1  %2").arg(each.program + 1).arg(each.name);
    return names;
}

bool isReverb(const Effect &effect)
{
    return effect.identifier() == Mastering::makeReverb().identifier();
}

} // namespace

SoundsPanel::SoundsPanel(const ActionContext &context) : Panel(context), _tree(new QTreeWidget)
{
    auto *const all = new QVBoxLayout(this);
    all->setContentsMargins(0, 0, 0, 0);
    all->addWidget(_tree);
    _tree->setHeaderHidden(true);
    _tree->setAccessibleName(tr("Sounds and effects"));
    constexpr int columns = 4; // a narrow panel leaves the pages their room
    auto *const buttons = new QGridLayout;
    const auto addButton = [&](const char *name, const QString &text, const QString &tip,
                               auto slot) {
        auto *const button = new QToolButton;
        button->setObjectName(QLatin1String(name));
        button->setText(text);
        button->setToolTip(tip);
        button->setSizePolicy(QSizePolicy::MinimumExpanding, QSizePolicy::Fixed);
        connect(button, &QToolButton::clicked, this, slot);
        const int place = buttons->count();
        buttons->addWidget(button, place / columns, place % columns);
    };
    addButton("addSound", tr("Sound..."), tr("Adds a sound to the track"), [this] { addSound(); });
    addButton("addEffect", tr("Effect..."), tr("Adds an effect"), [this] { addEffect(); });
    addButton("edit", tr("Edit..."), tr("Changes the sound, or turns the knobs of the effect"),
              [this] { edit(); });
    addButton("up", tr("Up"), tr("Moves it up"), [this] { move(-1); });
    addButton("down", tr("Down"), tr("Moves it down"), [this] { move(1); });
    addButton("remove", tr("Remove"), tr("Removes the sound or the effect"), [this] { remove(); });
    addButton("copy", tr("Copy..."), tr("Copies the effects of another sound"), [this] { copy(); });
    addButton("clear", tr("Clear"), tr("Removes all effects"), [this] { clear(); });
    all->addLayout(buttons);
    connect(_tree, &QTreeWidget::itemChanged, this, &SoundsPanel::change);
    connect(_tree, &QTreeWidget::itemDoubleClicked, this, [this] { edit(); });
}

SoundsPanel::~SoundsPanel() = default;

SoundsPanel::Line SoundsPanel::lineOf(const QTreeWidgetItem *item) const
{
    Line line;
    if (item != nullptr) {
        line.track = item->data(0, trackRole).toInt();
        line.sound = item->data(0, soundRole).toInt();
        line.slot = item->data(0, slotRole).toInt();
    }
    return line;
}

SoundsPanel::Line SoundsPanel::currentLine() const
{
    return lineOf(_tree->currentItem());
}

/// Null when the score has it no more.
const EffectChain *SoundsPanel::chainOf(const Line &line) const
{
    const ScoreModel &model = document().model();
    if (line.track == master)
        return &model.masterTrack()->mastering().effectChain();
    const auto track = model.track(static_cast<unsigned>(line.track));
    const auto sound = static_cast<std::size_t>(line.sound);
    if (track == nullptr || sound >= track->sounds().size())
        return nullptr;
    return &track->sounds()[sound]->orkaSound().effectChain();
}

QTreeWidgetItem *SoundsPanel::addLine(QTreeWidgetItem *parent, const Line &line,
                                      const QString &text)
{
    auto *const item = parent != nullptr ? new QTreeWidgetItem(parent) : new QTreeWidgetItem(_tree);
    item->setText(0, text);
    item->setData(0, trackRole, line.track);
    item->setData(0, soundRole, line.sound);
    item->setData(0, slotRole, line.slot);
    return item;
}

void SoundsPanel::addEffects(QTreeWidgetItem *parent, const Line &line)
{
    const EffectChain *const chain = chainOf(line);
    for (unsigned slot = 0; chain != nullptr && slot < chain->slotCount(); ++slot) {
        const Effect &effect = chain->effect(slot);
        if (effect.isEmpty())
            continue;
        Line own = line;
        own.slot = static_cast<int>(slot);
        auto *const item = addLine(
            parent, own,
            QStringLiteral("%1: %2").arg(slot + 1).arg(QString::fromStdString(effect.name())));
        item->setCheckState(0, effect.isBypassed() ? Qt::Unchecked : Qt::Checked);
    }
    parent->setExpanded(true);
}

void SoundsPanel::follow()
{
    const QScopedValueRollback<bool> following(_isFollowing, true);
    const Line chosen = currentLine();
    const bool isChosen = _tree->currentItem() != nullptr;
    _tree->clear();
    const int index = document().cursor().trackIndex();
    const auto track =
        index >= 0 ? document().model().track(static_cast<unsigned>(index)) : nullptr;
    const int count = track != nullptr ? static_cast<int>(track->sounds().size()) : 0;
    for (int i = 0; i < count; ++i) {
        const Sound &sound = *track->sounds()[static_cast<std::size_t>(i)];
        Line line;
        line.track = index;
        line.sound = i;
        auto *const item = addLine(nullptr, line,
                                   tr("%1 (program %2)")
                                       .arg(QString::fromStdString(sound.name()))
                                       .arg(sound.midiSound().program() + 1));
        item->setCheckState(0, track->forcedSoundIndex() == i ? Qt::Checked : Qt::Unchecked);
        item->setToolTip(0, tr("When ticked, the whole track is played with it."));
        addEffects(item, line);
    }
    addEffects(addLine(nullptr, Line(), tr("The whole mix")), Line());
    for (QTreeWidgetItemIterator it(_tree); isChosen && *it != nullptr; ++it) {
        const Line line = lineOf(*it);
        if (line.track == chosen.track && line.sound == chosen.sound && line.slot == chosen.slot)
            _tree->setCurrentItem(*it);
    }
}

void SoundsPanel::addSound()
{
    const int track = document().cursor().trackIndex();
    if (track < 0)
        return;
    Form form(tr("Add a sound"));
    form.text("name", tr("&Name"), QString(), tr("Empty for that of the instrument."))
        .choice("program", tr("&Instrument"), programs(), 0);
    const auto given = context().window.editor().questions().askForm(&context().window, form);
    if (!given)
        return;
    const int program = given->value(QStringLiteral("program")).toInt();
    QString name = given->value(QStringLiteral("name")).toString();
    if (name.isEmpty())
        name = trackTemplates()[static_cast<std::size_t>(program)].name;
    document().edit(tr("Add a sound"), [&](Score &score) {
        return score.addTrackSound(static_cast<unsigned>(track),
                                   Sound(name.toStdString(), MIDISound(program)));
    });
}

void SoundsPanel::addEffect()
{
    const Line line = currentLine();
    const EffectChain *const chain = chainOf(line);
    if (chain == nullptr)
        return;
    constexpr int mostKnobs = 32;
    Form form(tr("Add an effect"));
    form.choice("kind", tr("&Effect"), {tr("Reverb"), tr("Another one")}, 0)
        .text("name", tr("&Name of another one"), QString(),
              tr("Effects of other programs are kept but not heard."))
        .number("knobs", tr("&Number of knobs"), 1, 0, mostKnobs);
    const auto given = context().window.editor().questions().askForm(&context().window, form);
    if (!given)
        return;
    const std::string name = given->value(QStringLiteral("name")).toString().toStdString();
    const bool isOther = given->value(QStringLiteral("kind")).toInt() != 0;
    const auto knobs = static_cast<std::size_t>(given->value(QStringLiteral("knobs")).toInt());
    const Effect effect =
        isOther ? Effect(name, name, std::vector<float>(knobs, 0)) : Mastering::makeReverb();
    const auto isFree = [chain](unsigned slot) { return chain->effect(slot).isEmpty(); };
    unsigned slot = !isOther && line.track == master ? Mastering::reverbSlot : 0;
    for (; slot < EffectChain::maximumSlotCount && !isFree(slot);)
        ++slot;
    if (!document().edit(tr("Add an effect"), [&](Score &score) {
            return !effect.isEmpty() && score.setEffect(line.track, line.sound, slot, effect);
        }))
        Q_EMIT document().refused(tr("The effect needs a name and a free place."));
}

void SoundsPanel::edit()
{
    const Line line = currentLine();
    if (line.isEffect())
        editEffect(line);
    else if (line.isSound())
        editSound(line);
}

void SoundsPanel::editSound(const Line &line)
{
    const auto track = document().model().track(static_cast<unsigned>(line.track));
    const auto index = static_cast<unsigned>(line.sound);
    if (track == nullptr || index >= track->sounds().size())
        return;
    Sound sound = *track->sounds()[index];
    constexpr int mostBank = 127;
    Form form(tr("Sound"));
    form.text("name", tr("&Name"), QString::fromStdString(sound.name()))
        .choice("program", tr("&Instrument"), programs(), sound.midiSound().program())
        .number("msb", tr("&Bank"), sound.midiSound().msbBank(), 0, mostBank)
        .number("lsb", tr("Bank, &fine"), sound.midiSound().lsbBank(), 0, mostBank);
    const auto given = context().window.editor().questions().askForm(&context().window, form);
    if (!given)
        return;
    const MIDISound midi(given->value(QStringLiteral("program")).toInt(),
                         given->value(QStringLiteral("msb")).toInt(),
                         given->value(QStringLiteral("lsb")).toInt());
    sound.setName(given->value(QStringLiteral("name")).toString().toStdString());
    if (midi != sound.midiSound()) {
        sound.setMidiSound(midi);
        sound.mutableOrkaSound().setSoundbankPatchId({}); // it was that of the old program
    }
    document().edit(tr("Change a sound"), [&](Score &score) {
        return score.setTrackSound(static_cast<unsigned>(line.track), index, sound);
    });
}

void SoundsPanel::editEffect(const Line &line)
{
    const EffectChain *const chain = chainOf(line);
    const auto slot = static_cast<unsigned>(line.slot);
    if (chain == nullptr || chain->effect(slot).isEmpty())
        return;
    const Effect effect = chain->effect(slot);
    const QString reverbKnobs[] = {tr("&Mix"), tr("&Decay")};
    Form form(QString::fromStdString(effect.name()));
    for (unsigned i = 0; i < effect.parameterCount(); ++i) {
        const bool isNamed = isReverb(effect) && i < std::size(reverbKnobs);
        form.decimal(QByteArray("knob" + QByteArray::number(i)).constData(),
                     isNamed ? reverbKnobs[i] : tr("Knob %1").arg(i + 1),
                     static_cast<double>(effect.parameter(i)),
                     std::min(0.0, static_cast<double>(effect.parameter(i))),
                     std::max(1.0, static_cast<double>(effect.parameter(i))));
    }
    const auto given = context().window.editor().questions().askForm(&context().window, form);
    if (!given)
        return;
    std::vector<float> knobs;
    for (unsigned i = 0; i < effect.parameterCount(); ++i)
        knobs.push_back(given->value(QStringLiteral("knob%1").arg(i)).toFloat());
    document().edit(tr("Turn knobs"), [&](Score &score) {
        return score.setEffectParameters(line.track, line.sound, slot, knobs);
    });
}

void SoundsPanel::remove()
{
    const Line line = currentLine();
    const EffectChain *const chain = chainOf(line);
    if (_tree->currentItem() == nullptr || chain == nullptr)
        return;
    if (line.isSound()) {
        if (!document().edit(tr("Remove a sound"), [&](Score &score) {
                return score.removeTrackSound(static_cast<unsigned>(line.track),
                                              static_cast<unsigned>(line.sound));
            }))
            Q_EMIT document().refused(tr("This sound cannot be removed."));
        return;
    }
    if (!line.isEffect())
        return;
    const auto slot = static_cast<unsigned>(line.slot);
    document().edit(tr("Remove an effect"), [&](Score &score) {
        const bool isMasterReverb =
            line.track == master && slot == Mastering::reverbSlot && isReverb(chain->effect(slot));
        return isMasterReverb ? score.removeMasterReverb()
                              : score.deleteEffect(line.track, line.sound, slot);
    });
}

void SoundsPanel::clear()
{
    const Line line = currentLine();
    if (_tree->currentItem() != nullptr)
        document().edit(tr("Remove all effects"), [&](Score &score) {
            return score.clearEffectChain(line.track, line.sound);
        });
}

void SoundsPanel::copy()
{
    const Line line = currentLine();
    if (_tree->currentItem() == nullptr || chainOf(line) == nullptr)
        return;
    const ScoreModel &model = document().model();
    QStringList names = {tr("The whole mix")};
    std::vector<Line> sources = {Line()};
    for (const auto &track : model.tracks())
        for (std::size_t i = 0; i < track->sounds().size(); ++i) {
            Line source;
            source.track = static_cast<int>(track->index());
            source.sound = static_cast<int>(i);
            sources.push_back(source);
            names << QStringLiteral("%1: %2").arg(
                QString::fromStdString(track->name()),
                QString::fromStdString(track->sounds()[i]->name()));
        }
    Form form(tr("Copy effects"));
    form.choice("from", tr("&From"), names, 0);
    const auto given = context().window.editor().questions().askForm(&context().window, form);
    if (!given)
        return;
    const auto place = static_cast<std::size_t>(given->value(QStringLiteral("from")).toInt());
    const EffectChain chain = *chainOf(sources[std::min(place, sources.size() - 1)]);
    document().edit(tr("Copy effects"), [&](Score &score) {
        return score.setEffectChain(line.track, line.sound, chain);
    });
}

void SoundsPanel::move(int step)
{
    const Line line = currentLine();
    if (_tree->currentItem() == nullptr || (!line.isEffect() && !line.isSound()))
        return;
    const int from = line.isEffect() ? line.slot : line.sound;
    const int to = from + step;
    const auto first = static_cast<unsigned>(from);
    const auto second = static_cast<unsigned>(to);
    const bool isDone = to >= 0
        && document().edit(
            line.isEffect() ? tr("Move an effect") : tr("Move a sound"), [&](Score &score) {
                return line.isEffect()
                    ? score.swapEffects(line.track, line.sound, first, second)
                    : score.swapTrackSounds(static_cast<unsigned>(line.track), first, second);
            });
    const QScopedValueRollback<bool> following(_isFollowing, true);
    if (isDone)
        _tree->currentItem()->setData(0, line.isEffect() ? slotRole : soundRole, to);
}

void SoundsPanel::change(QTreeWidgetItem *item)
{
    if (_isFollowing)
        return;
    const Line line = lineOf(item);
    const bool isOn = item->checkState(0) == Qt::Checked;
    document().edit(
        line.isEffect() ? tr("Switch an effect") : tr("Play with one sound"), [&](Score &score) {
            return line.isEffect() ? score.setEffectBypass(line.track, line.sound,
                                                           static_cast<unsigned>(line.slot), !isOn)
                                   : score.setForcedSoundIndex(static_cast<unsigned>(line.track),
                                                               isOn ? line.sound : -1);
        });
}

} // namespace zarn::editor
