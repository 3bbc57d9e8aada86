// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>

#include <memory>
#include <string>

namespace zarn {

class Soundbank;
class SoundbankPatch;

/// Where sounds and patches, which lie below the core, look up the banks and patches that they
/// name. The core is the one that is installed; without it nothing is found.
class ZARNCORE_EXPORT SoundCatalogue {
public:
    virtual ~SoundCatalogue();

    /// The bank of an id; empty when there is none.
    virtual std::shared_ptr<Soundbank> soundbank(const std::string &id) const = 0;

    /// The patch that an id stands for, after `resolveSoundbankPatch`; empty when there is none.
    /// Asked again and again while a score is shown, so it logs nothing.
    virtual std::shared_ptr<SoundbankPatch> soundbankPatch(const std::string &id) const = 0;

    /// The one that is asked from now on, or null; it has to live until another one is installed.
    static void install(const SoundCatalogue *catalogue) noexcept;

    /// May be called from any thread; null without one.
    static const SoundCatalogue *installed() noexcept;

protected:
    SoundCatalogue() = default;
    SoundCatalogue(const SoundCatalogue &) = default;
    SoundCatalogue &operator=(const SoundCatalogue &) = default;
};

} // namespace zarn
