// SPDX-License-Identifier: MIT
#include <ZarnCore/instruments/soundbanks/ZarnSoundCatalogue.h>

#include <atomic>

namespace zarn {

namespace {

std::atomic<const SoundCatalogue *> installedCatalogue = nullptr;

} // namespace

SoundCatalogue::~SoundCatalogue() = default;

void SoundCatalogue::install(const SoundCatalogue *catalogue) noexcept
{
    installedCatalogue.store(catalogue, std::memory_order_release);
}

const SoundCatalogue *SoundCatalogue::installed() noexcept
{
    return installedCatalogue.load(std::memory_order_acquire);
}

} // namespace zarn
