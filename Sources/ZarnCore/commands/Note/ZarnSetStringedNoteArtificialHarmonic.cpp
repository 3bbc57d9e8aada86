// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Note/ZarnSetStringedNoteArtificialHarmonic.h>

#include <ZarnCore/model/ZarnStaff.h>

#include <algorithm>

namespace zarn::cmd {

SetStringedNoteArtificialHarmonic::SetStringedNoteArtificialHarmonic()
    : SetByTable(QStringLiteral("SetStringedNoteArtificialHarmonic"))
{
}
SetStringedNoteArtificialHarmonic::~SetStringedNoteArtificialHarmonic() = default;

bool SetStringedNoteArtificialHarmonic::init(Score *score, const ScoreModelRange &range,
                                             HarmonicType type, unsigned partial)
{
    ZARN_ASSERT_IN("zarn::cmd::SetStringedNoteArtificialHarmonic::init", score != NULL);
    Harmonic harmonic;
    harmonic.type = type;
    if (type != HarmonicType::NoHarmonic)
        harmonic.partial = static_cast<std::uint8_t>(std::min(partial, 255U));
    return type != HarmonicType::Natural
        && prepare(score, range, {{NoteAttribute::Harmonic, harmonic}});
}

bool SetStringedNoteArtificialHarmonic::takes(const MarkedPlace &place, const Beat &beat,
                                              const Note &note) const
{
    if (!SetByTable::takes(place, beat, note))
        return false;
    const auto harmonic = given()[0].value.to<Harmonic>();
    return harmonic.type != HarmonicType::Tapped
        || note.fret() + static_cast<int>(Harmonic::fretOfPartial(harmonic.partial))
        <= static_cast<int>(place.staff.fretCount());
}

} // namespace zarn::cmd
