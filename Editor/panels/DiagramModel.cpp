// SPDX-License-Identifier: MIT
#include "panels/DiagramModel.h"

#include "panels/DiagramDrawing.h"

#include <QPainter>

#include <algorithm>

namespace zarn::editor {

QString shapeText(const ChordDiagram &diagram)
{
    const auto hasTwoDigits = [](int fret) { return fret > 9; };
    const bool isParted = std::any_of(diagram.frets.begin(), diagram.frets.end(), hasTwoDigits);
    QStringList parts;
    for (const int fret : diagram.frets)
        parts << (fret < 0 ? QStringLiteral("x") : QString::number(fret));
    return parts.join(isParted ? QStringLiteral("-") : QString());
}

void DiagramModel::setDiagrams(std::vector<ChordDiagram> diagrams,
                               std::vector<unsigned> courseSizes)
{
    beginResetModel();
    _diagrams = std::move(diagrams);
    _courseSizes = std::move(courseSizes);
    endResetModel();
}

const ChordDiagram *DiagramModel::diagram(const QModelIndex &index) const
{
    const auto row = static_cast<std::size_t>(index.row());
    return index.isValid() && row < _diagrams.size() ? &_diagrams[row] : nullptr;
}

int DiagramModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(_diagrams.size());
}

QVariant DiagramModel::data(const QModelIndex &index, int role) const
{
    const ChordDiagram *const shown = diagram(index);
    if (shown == nullptr)
        return {};
    switch (role) {
    case Qt::DisplayRole:
    case Qt::ToolTipRole:
        return shapeText(*shown);
    case Qt::AccessibleTextRole: {
        QStringList fingers;
        for (const int finger : shown->fingers)
            fingers << QString::number(finger);
        return tr("%1 as %2, fingers %3")
            .arg(QString::fromStdString(shown->name), shapeText(*shown),
                 fingers.join(QLatin1Char(' ')));
    }
    default:
        return {};
    }
}

void DiagramDelegate::paint(QPainter *painter, const QStyleOptionViewItem &option,
                            const QModelIndex &index) const
{
    const auto *const model = static_cast<const DiagramModel *>(index.model());
    const ChordDiagram *const diagram = model->diagram(index);
    if (diagram == nullptr)
        return;
    const bool isSelected = (option.state & QStyle::State_Selected) != 0;
    const auto group =
        (option.state & QStyle::State_Active) != 0 ? QPalette::Active : QPalette::Inactive;
    // Styles mark a text alone; here it is the whole drawing.
    if (isSelected)
        painter->fillRect(option.rect, option.palette.color(group, QPalette::Highlight));
    drawDiagram(
        *painter, QRectF(option.rect).adjusted(4, 4, -4, -4), *diagram, model->courseSizes(),
        option.palette.color(group, isSelected ? QPalette::HighlightedText : QPalette::Text),
        option.palette.color(group, isSelected ? QPalette::Highlight : QPalette::Base));
}

QSize DiagramDelegate::sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const
{
    const auto *const model = static_cast<const DiagramModel *>(index.model());
    const ChordDiagram *const diagram = model->diagram(index);
    const int strings = diagram != nullptr ? static_cast<int>(diagram->frets.size()) : 6;
    const int unit = option.fontMetrics.height();
    return {unit * (strings + 3) * 3 / 4, unit * 6};
}

} // namespace zarn::editor
