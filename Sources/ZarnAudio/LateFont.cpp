// SPDX-License-Identifier: MIT
#include <ZarnAudio/LateFont.h>

#include <ZarnAudio/ZarnSoundFonts.h>

#include <chrono>
#include <vector>

namespace Halvec::audio {

namespace {

LateFont::Loaded load(const std::string &wanted, const Synthesizer::Settings &settings,
                      const MasterSound &master)
{
    LateFont::Loaded loaded;
    loaded.path = findSoundFont(wanted, &loaded.error);
    if (loaded.path.empty())
        return loaded;
    auto instrument = std::make_shared<Instrument>(
        settings, std::vector<std::string>(Synthesizer::mostChannels), master);
    if (instrument->synthesizer.loadFont(loaded.path, &loaded.error))
        loaded.instrument = std::move(instrument);
    return loaded;
}

} // namespace

void LateFont::begin(std::launch launch, const std::string &wanted,
                     const Synthesizer::Settings &settings, const MasterSound &master)
{
    if (!_loading.valid())
        _loading = std::async(launch, load, wanted, settings, master);
}

bool LateFont::isBusy() const
{
    using namespace std::chrono_literals;
    return _loading.valid() && _loading.wait_for(0s) == std::future_status::timeout;
}

} // namespace Halvec::audio
