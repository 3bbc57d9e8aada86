// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/ZarnCommand.h>

namespace zarn {

Command::Command() = default;
Command::~Command() = default;

void Command::addArg(const QString &key, const QString &value)
{
    // Both are filled in one step, so that "%0" or "%1" in a key or a value stays as it is.
    _args.append(QLatin1Char('{') + key + QLatin1Char(':') + value + QLatin1Char('}'));
}

QString Command::args() const
{
    return _args.join(QString());
}

} // namespace zarn
