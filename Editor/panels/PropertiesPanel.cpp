// SPDX-License-Identifier: MIT
#include "panels/PropertiesPanel.h"

#include "actions/AttributeText.h"
#include "document/Attributes.h"
#include "document/Document.h"

#include <ZarnCore/model/ZarnBarAttribute.h>
#include <ZarnCore/model/ZarnBeatAttribute.h>
#include <ZarnCore/model/ZarnMasterBarAttribute.h>
#include <ZarnCore/model/ZarnNoteAttribute.h>
#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/score/ZarnScore.h>

#include <QComboBox>
#include <QHeaderView>
#include <QScopedValueRollback>
#include <QStyledItemDelegate>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace zarn::editor {
namespace {

enum Column { Name, Value, ColumnCount };
constexpr int idRole = Qt::UserRole;
constexpr int choicesRole = Qt::UserRole + 1;

/// A list for what has few values, a line for the others.
class ValueDelegate : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QWidget *createEditor(QWidget *parent, const QStyleOptionViewItem &option,
                          const QModelIndex &index) const override
    {
        const QStringList choices = index.data(choicesRole).toStringList();
        if (choices.isEmpty())
            return QStyledItemDelegate::createEditor(parent, option, index);
        auto *const box = new QComboBox(parent);
        box->addItems(choices);
        return box;
    }

    void setEditorData(QWidget *editor, const QModelIndex &index) const override
    {
        if (auto *const box = qobject_cast<QComboBox *>(editor))
            box->setCurrentText(index.data(Qt::EditRole).toString());
        else
            QStyledItemDelegate::setEditorData(editor, index);
    }

    void setModelData(QWidget *editor, QAbstractItemModel *model,
                      const QModelIndex &index) const override
    {
        if (auto *const box = qobject_cast<QComboBox *>(editor))
            model->setData(index, box->currentText(), Qt::EditRole);
        else
            QStyledItemDelegate::setModelData(editor, model, index);
    }
};

/// What has few values: all of them.
std::vector<AttributeValue> valuesOf(const AttributeRange &range)
{
    if (std::holds_alternative<bool>(range.sample().held()))
        return {false, true};
    std::vector<AttributeValue> values;
    const int count = range.texts != nullptr ? static_cast<int>(range.texts().size()) : 0;
    for (int value = 0; value < count; ++value)
        if (range.contains(value) && !range.texts()[static_cast<std::size_t>(value)].empty())
            values.emplace_back(value);
    return values;
}

/// As a reader sees it; what is typed stays as it is typed.
QString wordOf(const AttributeRange &range, const AttributeValue &value)
{
    if (const bool *const isOn = std::get_if<bool>(&value.held()))
        return *isOn ? PropertiesPanel::tr("yes") : PropertiesPanel::tr("no");
    std::string text = range.toText(value);
    // "NoOrnament", "NONE"
    const bool isNone = text == "NONE"
        || (text.size() > 2 && text.compare(0, 2, "No") == 0 && text[2] >= 'A' && text[2] <= 'Z');
    if (isNone)
        text = "None";
    return range.texts != nullptr ? attributeText(text) : QString::fromStdString(text);
}

QStringList choicesOf(const AttributeRange &range)
{
    QStringList choices;
    for (const AttributeValue &value : valuesOf(range))
        choices << wordOf(range, value);
    return choices;
}

std::optional<AttributeValue> valueOf(const AttributeRange &range, const QString &text)
{
    for (const AttributeValue &value : valuesOf(range))
        if (wordOf(range, value) == text)
            return value;
    return range.fromText(text.toStdString());
}

} // namespace

PropertiesPanel::PropertiesPanel(const ActionContext &context)
    : Panel(context), _tree(new QTreeWidget)
{
    auto *const all = new QVBoxLayout(this);
    all->setContentsMargins(0, 0, 0, 0);
    all->addWidget(_tree);
    _tree->setColumnCount(ColumnCount);
    _tree->setHeaderLabels({tr("Property"), tr("Value")});
    _tree->setItemDelegateForColumn(Value, new ValueDelegate(_tree));
    _tree->setEditTriggers(QAbstractItemView::DoubleClicked | QAbstractItemView::EditKeyPressed
                           | QAbstractItemView::SelectedClicked);
    _tree->setAccessibleName(tr("Properties of the selection"));
    addRows<Note>(tr("Note"));
    addRows<Beat>(tr("Beat"));
    addRows<Bar>(tr("Bar of the staff"));
    addRows<MasterBar>(tr("Bar of all staves"));
    constexpr int valueWidth = 90; // pixels
    _tree->setIndentation(_tree->indentation() / 2);
    _tree->resizeColumnToContents(Name);
    _tree->header()->setSectionResizeMode(Value, QHeaderView::Stretch);
    _tree->setMinimumWidth(_tree->columnWidth(Name) + valueWidth);
    connect(_tree, &QTreeWidget::itemChanged, this, &PropertiesPanel::change);
}

PropertiesPanel::~PropertiesPanel() = default;

template <class Node>
void PropertiesPanel::addRows(const QString &title)
{
    auto *const folder = new QTreeWidgetItem(_tree, {title});
    for (const auto &row : attributesOf<Node>()) {
        if (!isOfMenus<Node>(row.id))
            continue;
        auto *const item = new QTreeWidgetItem(folder, {attributeText(row.name)});
        item->setFlags(item->flags() | Qt::ItemIsEditable);
        item->setData(Name, idRole, static_cast<int>(row.id));
        item->setData(Value, choicesRole, choicesOf(row.range));
        item->setToolTip(Value, QString::fromStdString(row.range.description()));
    }
    folder->setExpanded(true);
}

template <class Node>
void PropertiesPanel::showRows(QTreeWidgetItem &folder)
{
    bool isThere = false;
    for (int i = 0; i < folder.childCount(); ++i) {
        QTreeWidgetItem &item = *folder.child(i);
        const auto id =
            static_cast<typename AttributeOf<Node>::Id>(item.data(Name, idRole).toInt());
        const auto value = valueAtCursor<Node>(document(), id);
        isThere = isThere || value.has_value();
        item.setText(Value, value ? wordOf(rowOf(id).range, *value) : QString());
        QFont font = item.font(Name);
        font.setBold(value && *value != defaultOf(rowOf(id)));
        item.setFont(Name, font);
        item.setFont(Value, font);
    }
    folder.setHidden(!isThere);
}

template <class Node>
bool PropertiesPanel::set(const QTreeWidgetItem &item, const QString &text)
{
    const auto id = static_cast<typename AttributeOf<Node>::Id>(item.data(Name, idRole).toInt());
    const auto value = valueOf(rowOf(id).range, text);
    if (value == valueAtCursor<Node>(document(), id))
        return true;
    return value && document().edit(item.text(Name), [&](Score &score) {
        return setSelected<Node>(document(), score, id, *value);
    });
}

void PropertiesPanel::follow()
{
    const QScopedValueRollback<bool> following(_isFollowing, true);
    showRows<Note>(*_tree->topLevelItem(0));
    showRows<Beat>(*_tree->topLevelItem(1));
    showRows<Bar>(*_tree->topLevelItem(2));
    showRows<MasterBar>(*_tree->topLevelItem(3));
}

void PropertiesPanel::change(QTreeWidgetItem *item, int column)
{
    if (_isFollowing || column != Value || item->parent() == nullptr)
        return;
    const QString text = item->text(Value);
    using Setter = bool (PropertiesPanel::*)(const QTreeWidgetItem &, const QString &);
    static constexpr Setter setters[] = {&PropertiesPanel::set<Note>, &PropertiesPanel::set<Beat>,
                                         &PropertiesPanel::set<Bar>,
                                         &PropertiesPanel::set<MasterBar>};
    const int folder = _tree->indexOfTopLevelItem(item->parent());
    if (!(this->*setters[folder])(*item, text))
        Q_EMIT document().refused(
            tr("\"%1\" is not possible here; %2.").arg(text, item->toolTip(Value)));
    follow();
}

} // namespace zarn::editor
