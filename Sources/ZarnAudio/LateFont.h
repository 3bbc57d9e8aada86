// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnAudio/Performance.h>

#include <future>
#include <memory>
#include <string>

namespace Halvec::audio {

/// A sound font that is read while its player goes on, with the instrument that plays it.
class LateFont {
public:
    struct Loaded {
        std::string path;
        std::shared_ptr<Instrument> instrument; ///< null when the font could not be read
        std::string error;                      ///< then why
    };

    /// Begins to read a font, the first one that is found when `wanted` is empty: on a thread of
    /// its own, or `std::launch::deferred` when it is taken. Does nothing while one is on its way.
    void begin(std::launch launch, const std::string &wanted, const Synthesizer::Settings &settings,
               const MasterSound &master);

    /// Whether one is on its way that is not there yet.
    bool isBusy() const;

    /// What was begun, for once. Waits for it.
    Loaded take() { return _loading.get(); }

private:
    std::future<Loaded> _loading; ///< valid until it was taken
};

} // namespace Halvec::audio
