// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/ZarnPlacingCommand.h>

namespace zarn {

PlacingCommand::PlacingCommand(const QString &name, Kind kind) : ScoreCommand(name), _kind(kind) { }

void PlacingCommand::apply()
{
    if (_kind == Kind::Inserts)
        putIn();
    else
        takeOut();
}

void PlacingCommand::revert()
{
    if (_kind == Kind::Inserts)
        takeOut();
    else
        putIn();
}

void PlacingCommand::announceApplied()
{
    if (_kind == Kind::Inserts)
        announceIn();
    else
        announceOut();
}

void PlacingCommand::announceReverted()
{
    if (_kind == Kind::Inserts)
        announceOut();
    else
        announceIn();
}

} // namespace zarn
