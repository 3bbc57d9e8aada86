// SPDX-License-Identifier: MIT
#include "app/PlaceText.h"

#include "document/Document.h"

#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/music/ZarnPitchClass.h>

#include <QCoreApplication>
#include <QStringList>

namespace zarn::editor {
namespace {

struct Text {
    Q_DECLARE_TR_FUNCTIONS(PlaceText)
};

} // namespace

QString placeText(const Document &document)
{
    const ScoreModelIndex &place = document.cursor();
    const auto track = place.track();
    if (track == nullptr || !place.isBarValid())
        return {};
    QStringList parts = {QString::fromStdString(track->name()),
                         Text::tr("bar %1").arg(place.barIndex() + 1),
                         Text::tr("beat %1").arg(place.beatIndex() + 1),
                         Text::tr("voice %1").arg(place.voiceIndex() + 1)};
    const auto staff = place.staff();
    if (staff != nullptr && staff->isFretted())
        parts << Text::tr("string %1").arg(staff->tuning().stringCount() - place.noteString());
    if (const auto note = place.note(); note != nullptr && note->midi() != Note::Unset) {
        const int sounding = note->midi() + track->transpositionOffset();
        constexpr int keysPerOctave = 12;
        parts << PitchClass::fromPitch(sounding, false).symbol()
                + QString::number(sounding / keysPerOctave - 1);
    }
    // A bar that is not full yet, or too full, is what one counts while writing.
    const auto voice = place.voice();
    const auto master = place.masterBar();
    if (voice != nullptr && master != nullptr && !voice->isEmpty()
        && voice->length() != master->length())
        parts << Text::tr("%1 of %2 quarters")
                     .arg(voice->length().toDouble())
                     .arg(master->length().toDouble());
    return parts.join(QStringLiteral(" · "));
}

} // namespace zarn::editor
