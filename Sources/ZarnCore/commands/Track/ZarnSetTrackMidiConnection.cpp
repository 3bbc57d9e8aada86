// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Track/ZarnSetTrackMidiConnection.h>

namespace zarn::cmd {

SetTrackMidiConnection::SetTrackMidiConnection()
    : SetAttribute(QStringLiteral("SetTrackMidiConnection"))
{
}
SetTrackMidiConnection::~SetTrackMidiConnection() = default;

bool SetTrackMidiConnection::init(Score *score, unsigned track,
                                  const std::optional<MidiConnection> &connection)
{
    ZARN_ASSERT_IN("zarn::cmd::SetTrackMidiConnection::init", score != NULL);
    addArg(QStringLiteral("TrackIndex"), QString::number(track));
    if (connection) {
        addArg(QStringLiteral("Port"), QString::number(connection->port));
        addArg(QStringLiteral("Channel"), QString::number(connection->channel));
        addArg(QStringLiteral("BendChannel"), QString::number(connection->bendChannel));
    }
    return (!connection || connection->isValid()) && prepare(score, {track}, connection);
}

} // namespace zarn::cmd
