// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Track/ZarnCreateTrack.h>

#include <ZarnCore/ZarnAssert.h>
#include <ZarnCore/model/ZarnScoreModel.h>

namespace zarn::cmd {

CreateTrack::CreateTrack() : TrackPlacing(QStringLiteral("CreateTrack"), Kind::Inserts) { }
CreateTrack::~CreateTrack() = default;

bool CreateTrack::init(Score *score, unsigned index, InstrumentSet::Type type)
{
    ZARN_ASSERT_IN("zarn::cmd::CreateTrack::init", score != NULL);
    addArg(QStringLiteral("TrackIndex"), QString::number(index));
    addArg(QStringLiteral("Type"), QString::fromStdString(InstrumentSet::typeToString(type)));
    return prepareInsertion(score, index, ScoreModel::createTrack(type));
}

} // namespace zarn::cmd
