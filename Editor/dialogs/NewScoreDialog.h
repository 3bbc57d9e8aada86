// SPDX-License-Identifier: MIT
#pragma once

#include <QDialog>

#include <memory>
#include <vector>

class QComboBox;
class QLineEdit;
class QListWidget;
class QSpinBox;

namespace zarn {
class ScoreModel;
}

namespace zarn::editor {

struct NewTrack;

/// A new score of ready-made tracks: which ones, how they are tuned, its meter, key and tempo, how
/// many bars, under which title.
class NewScoreDialog : public QDialog {
    Q_OBJECT
public:
    explicit NewScoreDialog(QWidget *parent);
    ~NewScoreDialog() override;

    /// Chooses the instrument of the next track by its place among the templates.
    void chooseInstrument(int place);
    /// Adds the track that is chosen, with its tuning.
    void addTrack();

    /// As it is chosen now. Without a track in the list it has the one that is chosen.
    std::shared_ptr<ScoreModel> score() const;

private:
    struct Chosen {
        int place = 0;  ///< among the templates
        int tuning = 0; ///< among those of the instrument
        unsigned capo = 0;
        QString name;
    };

    void listTunings();
    Chosen chosen() const;
    static NewTrack made(const Chosen &chosen);

    QLineEdit *_title;
    QComboBox *_instrument;
    QComboBox *_tuning;
    QSpinBox *_capo;
    QListWidget *_list;
    QSpinBox *_beats;
    QComboBox *_unit;
    QComboBox *_key;
    QSpinBox *_bars;
    QSpinBox *_tempo;
    std::vector<Chosen> _tracks; ///< those of the list
};

} // namespace zarn::editor
