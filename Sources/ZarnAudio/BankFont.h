// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnAudio/ZarnSampleUse.h>
#include <ZarnCore/instruments/soundbanks/ZarnSoundbankRegion.h>

#include <fluidsynth.h>

#include <array>
#include <memory>
#include <string>
#include <vector>

namespace streams {
class BankArchive;
}

namespace zarn {
class HVSoundFont;
}

namespace Halvec::audio {

class SampleCache;

/// A sound bank as FluidSynth plays it: a font of one preset, whose regions begin exactly at a
/// frame of the block that is rendered next.
class BankFont {
public:
    /// Frames that FluidSynth renders at a time; a note begins so many frames after its block, and
    /// the ramp with which FluidSynth begins every voice falls into that silence.
    static constexpr int blockFrames = 64;

    /// Loads all samples that regions play; null with the reason when one cannot be.
    static std::unique_ptr<BankFont> load(std::shared_ptr<streams::BankArchive> archive,
                                          SampleCache &cache, int rate, std::string *error);
    explicit BankFont(const zarn::HVSoundFont &bank);
    ~BankFont();
    BankFont(const BankFont &) = delete;
    BankFont &operator=(const BankFont &) = delete;

    /// Makes the font known to a synthesizer, which is gone before this object; its number there.
    int addTo(fluid_synth_t *synth);

    /// Where in the block the next note begins, and how far its channel is bent.
    void setStart(int phase, double semitones) noexcept
    {
        _phase = phase;
        _bend = semitones;
    }

    /// Whether some region of a key that a note may have ends with the note.
    bool endsWithNote(int key) const noexcept { return _endsWithNote[static_cast<unsigned>(key)]; }

    int noteOn(fluid_synth_t *synth, int channel, int key, int velocity);
    const std::string &name() const noexcept { return _name; }
    fluid_preset_t *preset() noexcept { return _preset.get(); }

private:
    template <class Object, void (*destroy)(Object *)>
    struct Destroy {
        void operator()(Object *object) const { destroy(object); }
    };
    static void deleteFont(fluid_sfont_t *font) { delete_fluid_sfont(font); }
    using Sample = std::unique_ptr<fluid_sample_t, Destroy<fluid_sample_t, delete_fluid_sample>>;
    using Preset = std::unique_ptr<fluid_preset_t, Destroy<fluid_preset_t, delete_fluid_preset>>;
    using Font = std::unique_ptr<fluid_sfont_t, Destroy<fluid_sfont_t, deleteFont>>;

    /// A region with its sample; for a stereo one two of them.
    struct Voice {
        zarn::SoundbankRegion region;
        std::vector<Sample> samples;
        double rateRatio = 1; ///< of the sample to what is rendered
        std::size_t turn = 0; ///< index of its round-robin group; 0 for none
    };

    bool addVoice(const zarn::SoundbankRegion &region, const SampleUse &use, int rate);
    void indexKeys();
    bool startVoice(fluid_synth_t *synth, int channel, int key, int velocity, const Voice &voice,
                    std::size_t side) const;

    std::string _name;
    std::vector<SampleUse> _uses;
    std::vector<Voice> _voices;
    std::array<std::vector<const Voice *>, 128> _byKey;
    std::array<bool, 128> _endsWithNote{};
    std::vector<unsigned> _turns; ///< notes that each round-robin group has played
    int _phase = 0;
    double _bend = 0;
    Font _font;
    Preset _preset;
};

} // namespace Halvec::audio
