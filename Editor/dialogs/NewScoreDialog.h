// SPDX-License-Identifier: MIT
#pragma once

#include <QDialog>

#include <memory>

class QComboBox;
class QLineEdit;
class QListWidget;
class QSpinBox;

namespace zarn {
class ScoreModel;
}

namespace zarn::editor {

/// A new score of ready-made tracks: which ones, how many bars, how fast, under which title.
class NewScoreDialog : public QDialog {
    Q_OBJECT
public:
    explicit NewScoreDialog(QWidget *parent);
    ~NewScoreDialog() override;

    /// Adds a track by its place among the templates.
    void addTrack(int place);

    /// As it is chosen now; never empty, a score without a choice has a guitar.
    std::shared_ptr<ScoreModel> score() const;

private:
    QLineEdit *_title;
    QComboBox *_instrument;
    QListWidget *_tracks;
    QSpinBox *_bars;
    QSpinBox *_tempo;
};

} // namespace zarn::editor
