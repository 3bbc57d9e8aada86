// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Execute.h>

#include <ZarnCore/ZarnLog.h>

namespace zarn {

void logExecute(const Command &command)
{
    qCInfo(log::commands).noquote() << "execute" << command.name() << command.args();
}

void logCannotExecute(const Command &command)
{
    qCWarning(log::commands).noquote().nospace()
        << "Cannot execute " << command.name() << " " << command.args();
}

} // namespace zarn
