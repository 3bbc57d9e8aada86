// SPDX-License-Identifier: MIT
#include "panels/PropertiesPanel.h"

#include "actions/AttributeForms.h"
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
#include <QDoubleSpinBox>
#include <QHeaderView>
#include <QScopedValueRollback>
#include <QSpinBox>
#include <QStyledItemDelegate>
#include <QTreeWidget>
#include <QTreeWidgetItemIterator>
#include <QVBoxLayout>

#include <algorithm>

namespace zarn::editor {
namespace {

enum Column { Name, Value, ColumnCount };
constexpr int idRole = Qt::UserRole;
constexpr int choicesRole = Qt::UserRole + 1;
constexpr int lowestRole = Qt::UserRole + 2;
constexpr int highestRole = Qt::UserRole + 3;
constexpr int kindRole = Qt::UserRole + 4; ///< a `Field`

/// How a value is set.
enum class Field {
    Switch, ///< a box to tick
    Choice, ///< a list
    Number,
    Decimal,
    Text,
    Form, ///< asked in a window of its own
};

Field fieldOf(const AttributeRange &range)
{
    if (range.texts != nullptr)
        return Field::Choice;
    const auto &held = range.sample().held();
    if (std::holds_alternative<bool>(held))
        return Field::Switch;
    constexpr double mostOfBox = 10000; // more are bits
    if (std::holds_alternative<int>(held))
        return range.highest <= mostOfBox ? Field::Number : Field::Form;
    if (std::holds_alternative<double>(held))
        return Field::Decimal;
    return std::holds_alternative<std::string>(held) ? Field::Text : Field::Form;
}

Field fieldOf(const QModelIndex &index)
{
    return static_cast<Field>(index.data(kindRole).toInt());
}

/// A list for what has few values, a box for numbers, a line for texts.
class ValueDelegate : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QWidget *createEditor(QWidget *parent, const QStyleOptionViewItem &option,
                          const QModelIndex &index) const override
    {
        switch (fieldOf(index)) {
        case Field::Choice: {
            auto *const box = new QComboBox(parent);
            box->addItems(index.data(choicesRole).toStringList());
            // The list opens at once, and what is chosen in it holds.
            auto *const self = const_cast<ValueDelegate *>(this);
            connect(box, QOverload<int>::of(&QComboBox::activated), self, [self, box] {
                Q_EMIT self->commitData(box);
                Q_EMIT self->closeEditor(box);
            });
            QMetaObject::invokeMethod(box, &QComboBox::showPopup, Qt::QueuedConnection);
            return box;
        }
        case Field::Number: {
            auto *const box = new QSpinBox(parent);
            box->setRange(index.data(lowestRole).toInt(), index.data(highestRole).toInt());
            box->setFrame(false);
            return box;
        }
        case Field::Decimal: {
            auto *const box = new QDoubleSpinBox(parent);
            box->setDecimals(3);
            box->setSingleStep(0.1);
            box->setRange(index.data(lowestRole).toDouble(), index.data(highestRole).toDouble());
            box->setFrame(false);
            return box;
        }
        default:
            return QStyledItemDelegate::createEditor(parent, option, index);
        }
    }

    void setEditorData(QWidget *editor, const QModelIndex &index) const override
    {
        const QString text = index.data(Qt::EditRole).toString();
        if (auto *const box = qobject_cast<QComboBox *>(editor))
            box->setCurrentText(text);
        else if (auto *const number = qobject_cast<QSpinBox *>(editor))
            number->setValue(text.toInt());
        else if (auto *const decimal = qobject_cast<QDoubleSpinBox *>(editor))
            decimal->setValue(text.toDouble());
        else
            QStyledItemDelegate::setEditorData(editor, index);
    }

    void setModelData(QWidget *editor, QAbstractItemModel *model,
                      const QModelIndex &index) const override
    {
        if (auto *const box = qobject_cast<QComboBox *>(editor))
            model->setData(index, box->currentText(), Qt::EditRole);
        else if (auto *const number = qobject_cast<QSpinBox *>(editor))
            model->setData(index, QString::number(number->value()), Qt::EditRole);
        else if (auto *const decimal = qobject_cast<QDoubleSpinBox *>(editor))
            model->setData(index, QString::number(decimal->value()), Qt::EditRole);
        else
            QStyledItemDelegate::setModelData(editor, model, index);
    }
};

/// What has few values: all of them.
std::vector<AttributeValue> valuesOf(const AttributeRange &range)
{
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
    const std::string text = range.toText(value);
    // "NoOrnament", "NONE"
    const bool isNone = text == "NONE" || text == "None"
        || (text.size() > 2 && text.compare(0, 2, "No") == 0 && text[2] >= 'A' && text[2] <= 'Z');
    return isNone                ? attributeText("None")
        : range.texts != nullptr ? attributeText(text)
                                 : valueText(range, value);
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
    _tree->setIndentation(_tree->indentation() / 2);
    _tree->resizeColumnToContents(Name);
    _tree->header()->setSectionResizeMode(Value, QHeaderView::Stretch);
    _tree->setMinimumWidth(_tree->columnWidth(Name) + valueWidth());
    connect(_tree, &QTreeWidget::itemChanged, this, &PropertiesPanel::change);
    connect(_tree, &QTreeWidget::itemActivated, this, &PropertiesPanel::activate);
}

PropertiesPanel::~PropertiesPanel() = default;

/// Of the usual choices, in the language of the user, beside a scroll bar.
int PropertiesPanel::valueWidth() const
{
    int width = 0;
    for (QTreeWidgetItemIterator it(_tree); *it != nullptr; ++it)
        for (const QString &choice : (*it)->data(Value, choicesRole).toStringList().mid(0, 1))
            width = std::max(width, fontMetrics().horizontalAdvance(choice));
    constexpr int mostOfPanel = 150; // pixels
    return std::min(width + 3 * fontMetrics().height(), mostOfPanel);
}

template <class Node>
void PropertiesPanel::addRows(const QString &title)
{
    auto *const folder = new QTreeWidgetItem(_tree, {title});
    for (const auto &row : attributesOf<Node>()) {
        if (!isOfMenus<Node>(row.id))
            continue;
        auto *const item = new QTreeWidgetItem(folder, {attributeText(row.name)});
        const Field field = fieldOf(row.range);
        item->setFlags(item->flags()
                       | (field == Field::Switch     ? Qt::ItemIsUserCheckable
                              : field == Field::Form ? Qt::NoItemFlags
                                                     : Qt::ItemIsEditable));
        item->setData(Name, idRole, static_cast<int>(row.id));
        item->setData(Value, kindRole, static_cast<int>(field));
        if (field == Field::Choice)
            item->setData(Value, choicesRole, choicesOf(row.range));
        item->setData(Value, lowestRole, row.range.lowest);
        item->setData(Value, highestRole, row.range.highest);
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
        if (fieldOf(rowOf(id).range) != Field::Switch)
            item.setText(Value, value ? wordOf(rowOf(id).range, *value) : QString());
        else if (value)
            item.setCheckState(Value, value->template to<bool>() ? Qt::Checked : Qt::Unchecked);
        else
            item.setData(Value, Qt::CheckStateRole, QVariant());
        QFont font = item.font(Name);
        font.setBold(value && *value != defaultOf(rowOf(id)));
        item.setFont(Name, font);
        item.setFont(Value, font);
    }
    if (folder.isHidden() == isThere) // the tree would lay all of its rows out anew
        folder.setHidden(!isThere);
}

template <class Node>
bool PropertiesPanel::set(const QTreeWidgetItem &item)
{
    const auto id = static_cast<typename AttributeOf<Node>::Id>(item.data(Name, idRole).toInt());
    const AttributeRange &range = rowOf(id).range;
    const auto value = fieldOf(range) == Field::Switch
        ? std::optional<AttributeValue>(item.checkState(Value) == Qt::Checked)
        : valueOf(range, item.text(Value));
    if (value == valueAtCursor<Node>(document(), id))
        return true;
    return value && document().edit(item.text(Name), [&](Score &score) {
        return setSelected<Node>(document(), score, id, *value);
    });
}

template <class Node>
void PropertiesPanel::askFor(const QTreeWidgetItem &item)
{
    const auto id = static_cast<typename AttributeOf<Node>::Id>(item.data(Name, idRole).toInt());
    const Change change = askAttribute<Node>(context(), id);
    if (change && !document().edit(item.text(Name), change))
        Q_EMIT document().refused(
            PropertiesPanel::tr("\"%1\" is not possible here.").arg(item.text(Name)));
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
    using Setter = bool (PropertiesPanel::*)(const QTreeWidgetItem &);
    static constexpr Setter setters[] = {&PropertiesPanel::set<Note>, &PropertiesPanel::set<Beat>,
                                         &PropertiesPanel::set<Bar>,
                                         &PropertiesPanel::set<MasterBar>};
    const int folder = _tree->indexOfTopLevelItem(item->parent());
    if (!(this->*setters[folder])(*item))
        Q_EMIT document().refused(tr("\"%1\" is not possible here.").arg(item->text(Name)));
    follow();
}

void PropertiesPanel::activate(QTreeWidgetItem *item)
{
    if (item->parent() == nullptr
        || static_cast<Field>(item->data(Value, kindRole).toInt()) != Field::Form)
        return;
    using Asker = void (PropertiesPanel::*)(const QTreeWidgetItem &);
    static constexpr Asker askers[] = {
        &PropertiesPanel::askFor<Note>, &PropertiesPanel::askFor<Beat>,
        &PropertiesPanel::askFor<Bar>, &PropertiesPanel::askFor<MasterBar>};
    (this->*askers[_tree->indexOfTopLevelItem(item->parent())])(*item);
}

} // namespace zarn::editor
