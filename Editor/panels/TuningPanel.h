// SPDX-License-Identifier: MIT
#pragma once

#include "panels/Panel.h"

#include <ZarnCore/instruments/tunings/ZarnGuitarTuning.h>

#include <memory>
#include <vector>

class QComboBox;
class QGridLayout;
class QLineEdit;
class QListWidget;
class QPushButton;
class QRadioButton;
class QSpinBox;

namespace zarn::editor {

class PitchBox;

/// The tuning and the capo of the staff: chosen from the catalogue or string by string, with the
/// frets of the notes kept, or their pitches.
class TuningPanel : public Panel {
    Q_OBJECT
public:
    explicit TuningPanel(const ActionContext &context);
    ~TuningPanel() override;

protected:
    void follow() override;

private:
    void listTunings();
    void chooseListed(int row);
    void showStrings(const GuitarTuning &tuning);
    void showButtons();
    void apply();

    GuitarTuning asked() const;

    QComboBox *_instrument;
    QLineEdit *_filter;
    QListWidget *_list;
    QGridLayout *_stringGrid;
    std::vector<PitchBox *> _strings; ///< the lowest string of a usual tuning first
    QSpinBox *_capo;
    QRadioButton *_keepPitches;
    QRadioButton *_keepFrets;
    QPushButton *_apply;

    std::vector<std::shared_ptr<GuitarTuning>> _listed;
    GuitarTuning _chosen; ///< what the strings were taken from: its name, instrument and drone
    QString _shownNeck;   ///< what the fields were filled from
    bool _isFilling = false;
};

} // namespace zarn::editor
