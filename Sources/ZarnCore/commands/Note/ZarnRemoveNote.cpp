// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Note/ZarnRemoveNote.h>

#include <ZarnCore/ZarnAssert.h>
#include <ZarnCore/model/ZarnScoreModel.h>

namespace zarn::cmd {

RemoveNote::RemoveNote() : WriteNote(QStringLiteral("RemoveNote")) { }
RemoveNote::~RemoveNote() = default;

bool RemoveNote::init(Score *score, const ScoreModelIndex &index)
{
    ZARN_ASSERT_IN("zarn::cmd::RemoveNote::init", score != NULL);
    addArg(QStringLiteral("Index"), index.toQString());
    return prepare(score, index);
}

std::optional<WriteNote::Placement> RemoveNote::placement(const Staff &, const Beat &beat) const
{
    ScoreModelIndex place = index();
    place.setModel(&model());
    const auto note = place.note();
    if (note == nullptr || beat.indexOfNote(*note) < 0)
        return std::nullopt;
    return Placement{note, std::nullopt};
}

} // namespace zarn::cmd
