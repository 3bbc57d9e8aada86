// SPDX-License-Identifier: MIT
#include "panels/PitchBox.h"

#include "panels/PitchText.h"

#include <ZarnCore/instruments/tunings/ZarnGuitarTuning.h>

namespace zarn::editor {

PitchBox::PitchBox(QWidget *parent) : QSpinBox(parent)
{
    setRange(GuitarTuning::minimumMidi, GuitarTuning::maximumMidi);
}

PitchBox::~PitchBox() = default;

void PitchBox::setPrefersFlats(bool prefers)
{
    _prefersFlats = prefers;
    setValue(value()); // shows it anew
}

QString PitchBox::textFromValue(int value) const
{
    return pitchText(value, _prefersFlats);
}

int PitchBox::valueFromText(const QString &text) const
{
    return pitchOfText(text).value_or(value());
}

QValidator::State PitchBox::validate(QString &text, int &) const
{
    const auto pitch = pitchOfText(text);
    return pitch && *pitch >= minimum() && *pitch <= maximum() ? QValidator::Acceptable
        : text.size() <= 3                                     ? QValidator::Intermediate
                                                               : QValidator::Invalid;
}

} // namespace zarn::editor
