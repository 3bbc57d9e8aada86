// SPDX-License-Identifier: MIT
#include "audio/AudioPart.h"

#include "common/Failure.h"
#include "common/Part.h"

namespace zarn::tool {

const AudioPart &audioPart()
{
    QString error;
    const auto function = reinterpret_cast<AudioPartFunction>(
        partFunction(QStringLiteral("zarn-audio.so"), audioPartFunction, error));
    if (function == nullptr)
        throw Failure("sound needs a part of zarn that cannot be loaded (" + error.toStdString()
                      + ")");
    return *function();
}

} // namespace zarn::tool
