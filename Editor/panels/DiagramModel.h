// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/chords/ZarnChordDiagram.h>

#include <QAbstractListModel>
#include <QStyledItemDelegate>

#include <vector>

namespace zarn::editor {

/// Chord diagrams in a list; their texts are what screen readers say.
class DiagramModel : public QAbstractListModel {
    Q_OBJECT
public:
    using QAbstractListModel::QAbstractListModel;

    /// `courseSizes`: strings of each course, see `chord::courseSizes`.
    void setDiagrams(std::vector<ChordDiagram> diagrams, std::vector<unsigned> courseSizes);
    /// Null when there is no such row.
    const ChordDiagram *diagram(const QModelIndex &index) const;
    const std::vector<unsigned> &courseSizes() const noexcept { return _courseSizes; }

    int rowCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;

private:
    std::vector<ChordDiagram> _diagrams;
    std::vector<unsigned> _courseSizes;
};

/// "x32010", "x-12-14-14-13-12" from fret 10 on.
QString shapeText(const ChordDiagram &diagram);

/// Draws the diagrams of a `DiagramModel`.
class DiagramDelegate : public QStyledItemDelegate {
    Q_OBJECT
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter *painter, const QStyleOptionViewItem &option,
               const QModelIndex &index) const override;
    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override;
};

} // namespace zarn::editor
