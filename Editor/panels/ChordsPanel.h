// SPDX-License-Identifier: MIT
#pragma once

#include "panels/Panel.h"

#include <ZarnCore/model/attributes/ZarnChordMark.h>
#include <ZarnCore/model/places/ZarnScoreModelIndex.h>

class QComboBox;
class QLabel;
class QLineEdit;
class QListView;
class QPushButton;

namespace zarn::editor {

class DiagramModel;

/// The chord of the beat: a symbol, what it means, and all ways to play it on the staff's strings,
/// best first; written over the beat with or without a diagram.
class ChordsPanel : public Panel {
    Q_OBJECT
public:
    explicit ChordsPanel(const ActionContext &context);
    ~ChordsPanel() override;

protected:
    void follow() override;

private:
    void takeSymbolOfBeat();
    void nameNotes();
    void showMeaning();
    void showShapes();
    void showButtons();
    void write(bool hasDiagram);
    void remove();
    void toggleOwnShape();

    QString symbol() const;
    const ChordDiagram *chosenShape() const;
    bool isOwn(const ChordDiagram &shape) const;

    QLineEdit *_symbol;
    QComboBox *_names;
    QLabel *_meaning;
    QListView *_shapes;
    DiagramModel *_model;
    QPushButton *_write;
    QPushButton *_writeSymbol;
    QPushButton *_remove;
    QPushButton *_own;

    ScoreModelIndex _shownBeat;
    ChordMark _shownMark;
    QString _shownShapes; ///< symbol and neck that the list is for
};

} // namespace zarn::editor
