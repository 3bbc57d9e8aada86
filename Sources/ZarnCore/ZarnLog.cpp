// SPDX-License-Identifier: MIT
#include <ZarnCore/ZarnLog.h>

namespace zarn::log {

const QLoggingCategory &chords()
{
    static const QLoggingCategory category("zarn.core.chords", QtWarningMsg);
    return category;
}

const QLoggingCategory &commands()
{
    static const QLoggingCategory category("zarn.core.commands", QtWarningMsg);
    return category;
}

const QLoggingCategory &core()
{
    static const QLoggingCategory category("zarn.core", QtWarningMsg);
    return category;
}

const QLoggingCategory &events()
{
    static const QLoggingCategory category("zarn.core.events", QtWarningMsg);
    return category;
}

const QLoggingCategory &model()
{
    static const QLoggingCategory category("zarn.core.model", QtWarningMsg);
    return category;
}

const QLoggingCategory &notation()
{
    static const QLoggingCategory category("zarn.core.notation", QtWarningMsg);
    return category;
}

const QLoggingCategory &scales()
{
    static const QLoggingCategory category("zarn.core.scales", QtWarningMsg);
    return category;
}

const QLoggingCategory &score()
{
    static const QLoggingCategory category("zarn.core.score", QtWarningMsg);
    return category;
}

const QLoggingCategory &soundfonts()
{
    static const QLoggingCategory category("zarn.core.sounfonts", QtWarningMsg);
    return category;
}

} // namespace zarn::log
