// SPDX-License-Identifier: MIT
#include "entry/DrumEntry.h"

#include "document/Document.h"

#include <ZarnCore/ZarnCore.h>
#include <ZarnCore/instruments/sets/ZarnInstrumentSetLibrary.h>
#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/model/notes/ZarnInstrumentNotes.h>
#include <ZarnCore/music/ZarnDrumKeys.h>

#include <QCoreApplication>

#include <array>

namespace zarn::editor {
namespace {

struct Text {
    Q_DECLARE_TR_FUNCTIONS(DrumEntry)
};

/// Keys of the General MIDI percussion map, by digit.
constexpr std::array<int, 10> keys = {51, 36, 38, 42, 46, 44, 50, 47, 45, 49};

} // namespace

void enterDrum(Document &document, int digit)
{
    const ScoreModelIndex place = document.cursor();
    const auto track = place.track();
    const int key = keys.at(static_cast<std::size_t>(digit));
    const DrumKey *const drum = drumKey(key);
    if (track == nullptr || drum == nullptr)
        return;
    const auto set =
        Core::instance().instrumentSetLibrary().findInstrumentSetWithType(track->type());
    const int articulation = set != nullptr ? set->indexOfArticulationWithMidi(key) : -1;
    const QString name =
        QString::fromLatin1(drum->drum.data(), static_cast<int>(drum->drum.size()));
    const auto beat = place.beat();
    const auto present =
        beat != nullptr && articulation >= 0 ? noteWithArticulation(*beat, articulation) : nullptr;
    const bool isDone = articulation >= 0 && document.edit(name, [&](Score &score) {
        if (present != nullptr) {
            ScoreModelIndex named = place;
            named.invalidateNote();
            named.setNotePercussionActiculation(static_cast<std::uint32_t>(articulation));
            if (present->midi() != Note::Unset)
                named.setNoteMidi(static_cast<std::uint32_t>(present->midi()));
            return score.removeNote(named);
        }
        return (beat != nullptr || score.createBeat(place, document.entry().rhythm))
            && score.createNonPitchedNote(place, articulation);
    });
    if (!isDone)
        Q_EMIT document.refused(Text::tr("This instrument has no %1.").arg(name));
}

} // namespace zarn::editor
