// SPDX-License-Identifier: MIT
#include "panels/PitchText.h"

#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/model/places/ZarnScoreModelIndex.h>
#include <ZarnCore/music/ZarnPitchClass.h>

#include <QRegularExpression>

#include <algorithm>

namespace zarn::editor {

QString pitchText(int midi, bool prefersFlats)
{
    return PitchClass::fromPitch(midi, prefersFlats).symbol() + QString::number(midi / 12 - 1);
}

std::optional<int> pitchOfText(const QString &text)
{
    static const QRegularExpression pattern(
        QStringLiteral("^\\s*([A-Ga-g])([#b\u266f\u266d]?)(\\d)\\s*$"));
    const auto match = pattern.match(text);
    if (!match.hasMatch())
        return std::nullopt;
    QString name = match.captured(1).toUpper() + match.captured(2);
    name.replace(QChar(0x266F), QLatin1Char('#')).replace(QChar(0x266D), QLatin1Char('b'));
    return PitchClass::fromString(name).midi(match.captured(3).toInt() + 1);
}

bool prefersFlats(const ScoreModelIndex &place)
{
    const MasterBar *const bar = place.findMasterBar();
    return bar != nullptr && bar->concertKeySignature().accidentalCount() < 0;
}

bool prefersFlats(const GuitarTuning &tuning)
{
    static const QRegularExpression flatLetter(QStringLiteral("\\b[A-G]b"));
    const QString name = QString::fromStdString(tuning.name());
    if (name.contains(flatLetter))
        return true;
    const auto &pitches = tuning.midiNumbers();
    const auto isSharp = [](int midi) { return midi % 12 == 1 || midi % 12 == 6; };
    return !name.contains(QLatin1Char('#'))
        && std::none_of(pitches.begin(), pitches.end(), isSharp);
}

QString stringsText(const GuitarTuning &tuning)
{
    QStringList names;
    for (const int pitch : tuning.midiNumbers())
        names << pitchText(pitch, prefersFlats(tuning));
    return names.join(QLatin1Char(' '));
}

QString neckKey(const Staff &staff)
{
    QString key = QStringLiteral("%1 %2 %3 %4 ")
                      .arg(staff.capoFret())
                      .arg(staff.partialCapoFret())
                      .arg(staff.fretCount())
                      .arg(staff.hasShortDroneString() ? 1 : 0);
    for (const bool isHeld : staff.partialCapoStringFlags())
        key += QLatin1Char(isHeld ? '|' : '.');
    return key + stringsText(staff.tuning());
}

} // namespace zarn::editor
