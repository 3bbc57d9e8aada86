// SPDX-License-Identifier: MIT
#include <ZarnCore/ZarnLog.h>

namespace zarn::log {

const QLoggingCategory &chords()
{
    static const QLoggingCategory category("zarn.core.chords");
    return category;
}

const QLoggingCategory &commands()
{
    static const QLoggingCategory category("zarn.core.commands");
    return category;
}

const QLoggingCategory &core()
{
    static const QLoggingCategory category("zarn.core");
    return category;
}

const QLoggingCategory &events()
{
    static const QLoggingCategory category("zarn.core.events");
    return category;
}

const QLoggingCategory &model()
{
    static const QLoggingCategory category("zarn.core.model");
    return category;
}

const QLoggingCategory &notation()
{
    static const QLoggingCategory category("zarn.core.notation");
    return category;
}

const QLoggingCategory &scales()
{
    static const QLoggingCategory category("zarn.core.scales");
    return category;
}

const QLoggingCategory &score()
{
    static const QLoggingCategory category("zarn.core.score");
    return category;
}

const QLoggingCategory &soundfonts()
{
    static const QLoggingCategory category("zarn.core.sounfonts");
    return category;
}

} // namespace zarn::log
