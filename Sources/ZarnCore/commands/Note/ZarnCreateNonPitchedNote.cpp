// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Note/ZarnCreateNonPitchedNote.h>

#include <ZarnCore/ZarnAssert.h>
#include <ZarnCore/commands/Note/NonPitchedNotes.h>
#include <ZarnCore/model/ZarnBeat.h>

namespace zarn::cmd {

CreateNonPitchedNote::CreateNonPitchedNote() : WriteNote(QStringLiteral("CreateNonPitchedNote")) { }
CreateNonPitchedNote::~CreateNonPitchedNote() = default;

bool CreateNonPitchedNote::init(Score *score, const ScoreModelIndex &index, int articulation)
{
    ZARN_ASSERT_IN("zarn::cmd::CreateNonPitchedNote::init", score != NULL);
    addArg(QStringLiteral("Index"), index.toQString());
    addArg(QStringLiteral("Type"), QString::number(articulation));
    _articulation = articulation;
    return articulation >= 0 && prepare(score, index);
}

std::optional<WriteNote::Placement> CreateNonPitchedNote::placement(const Staff &staff,
                                                                    const Beat &beat) const
{
    const auto set = nonPitchedSetOf(staff);
    const auto position =
        set != nullptr ? positionOfArticulation(*set, _articulation) : std::nullopt;
    if (!position || noteWithArticulation(beat, _articulation) != nullptr)
        return std::nullopt;
    return Placement{nullptr, position};
}

} // namespace zarn::cmd
