// SPDX-License-Identifier: MIT
#pragma once

#include <QSpinBox>

namespace zarn::editor {

/// Asks for the key of an open string, by its name: "E2". Steps are semitones.
class PitchBox : public QSpinBox {
    Q_OBJECT
public:
    explicit PitchBox(QWidget *parent = nullptr);
    ~PitchBox() override;

    void setPrefersFlats(bool prefers);

protected:
    QString textFromValue(int value) const override;
    int valueFromText(const QString &text) const override;
    QValidator::State validate(QString &text, int &position) const override;

private:
    bool _prefersFlats = false;
};

} // namespace zarn::editor
