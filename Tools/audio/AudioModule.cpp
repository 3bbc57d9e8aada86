// SPDX-License-Identifier: MIT
#include "audio/AudioPart.h"
#include "audio/bank/BankCommand.h"
#include "audio/fonts/FontCatalogue.h"
#include "audio/play/PlayCommand.h"
#include "audio/render/RenderCommand.h"

extern "C" __attribute__((visibility("default"))) const zarn::tool::AudioPart *zarnAudioPart()
{
    using namespace zarn::tool;
    static const AudioPart part = {{bankCommand(), renderCommand(), playCommand()},
                                   soundFontCatalogue};
    return &part;
}
