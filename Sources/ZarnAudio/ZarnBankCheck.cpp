// SPDX-License-Identifier: MIT
#include <ZarnAudio/ZarnBankCheck.h>

#include <ZarnCore/ZarnException.h>
#include <ZarnCore/instruments/soundbanks/ZarnHVSoundFont.h>
#include <ZarnCore/instruments/soundbanks/ZarnHVSoundFontManager.h>
#include <streams/BankArchive.h>

#include <algorithm>
#include <array>
#include <bitset>
#include <cmath>
#include <map>
#include <set>

namespace Halvec::audio {

namespace {

/// From so much below full scale on nobody hears anything (-90 dB).
constexpr float silence = 3.2e-5F;

class Checker {
public:
    Checker(const streams::BankArchive &archive, BankCheck &check)
        : _archive(archive), _bank(*check.bank), _check(check)
    {
    }

    void run()
    {
        for (const auto &name : _bank.samples())
            checkSample(name);
        for (std::size_t i = 0; i < _bank.regions().size(); ++i)
            checkRegion(i);
        checkKeys();
        checkUse();
        if (_bank.samples().empty())
            _check.warnings.push_back("the bank has no samples");
    }

private:
    void checkSample(const std::string &name)
    {
        std::string error;
        const auto decoder = openBankSample(_archive, _bank, name, &error);
        if (decoder == nullptr) {
            _check.errors.push_back(error);
            return;
        }
        BankCheck::Sample sample{name, decoder->frames(), decoder->channels(), decoder->rate(), 0};
        std::vector<float> block(std::size_t(1) << 16);
        const auto blockFrames = static_cast<std::int64_t>(block.size()) / sample.channels;
        while (const auto count = decoder->read(block.data(), blockFrames))
            for (std::int64_t i = 0; i < count * sample.channels; ++i)
                sample.peak = std::max(sample.peak, std::abs(block[static_cast<std::size_t>(i)]));
        if (decoder->hasError())
            _check.errors.push_back(decoder->errorText());
        else if (sample.peak < silence)
            _check.warnings.push_back(name + ": is silent");
        _frames[name] = sample.frames;
        _check.samples.push_back(std::move(sample));
    }

    void checkRegion(std::size_t index)
    {
        const auto &region = _bank.regions()[index];
        const auto frames = _frames.find(region.sample);
        if (frames == _frames.end() || !region.loop || region.loop->end <= frames->second)
            return;
        _check.errors.push_back("regions[" + std::to_string(index) + "]: the loop ends at frame "
                                + std::to_string(region.loop->end) + ", " + region.sample + " has "
                                + std::to_string(frames->second));
    }

    /// Every key between the lowest and the highest one is to sound, at every velocity.
    void checkKeys()
    {
        constexpr int velocities = 128;
        std::array<std::bitset<velocities>, 128> isPlayed;
        for (const auto &region : _bank.regions())
            for (int key = region.keys.first; key <= region.keys.last; ++key)
                for (int v = region.velocities.first; v <= region.velocities.last; ++v)
                    isPlayed[static_cast<std::size_t>(key)].set(static_cast<std::size_t>(v));
        for (std::size_t key = 0; key < isPlayed.size(); ++key) {
            const auto count = isPlayed[key].count();
            if (count == 0 || count == velocities - 1)
                continue;
            std::size_t silent = 1;
            while (isPlayed[key].test(silent))
                ++silent;
            _check.warnings.push_back("key " + std::to_string(key) + " has no region for velocity "
                                      + std::to_string(silent));
        }
        const auto plays = [](const auto &set) { return set.any(); };
        const auto first = std::find_if(isPlayed.begin(), isPlayed.end(), plays);
        const auto last = std::find_if(isPlayed.rbegin(), isPlayed.rend(), plays).base();
        for (auto key = first; key < last && _bank.instrumentType() != zarn::Instrument::unknown
             && zarn::Instrument::isPitched(_bank.instrumentType());
             ++key)
            if (key->none())
                _check.warnings.push_back("key " + std::to_string(key - isPlayed.begin())
                                          + " has no region");
    }

    /// What the archive holds beside, and samples that no region plays.
    void checkUse()
    {
        const std::set<std::string> named(_bank.samples().begin(), _bank.samples().end());
        for (const auto &file : _archive.packedFiles()) {
            std::string error;
            if (named.count(file) == 0)
                _check.warnings.push_back(file + ": the description does not name it");
            else if (!_archive.verify(file, &error))
                _check.errors.push_back(error);
        }
        if (_bank.regions().empty())
            return;
        std::set<std::string> played;
        for (const auto &region : _bank.regions())
            played.insert(region.sample);
        for (const auto &name : named)
            if (played.count(name) == 0)
                _check.warnings.push_back(name + ": no region plays it");
    }

    const streams::BankArchive &_archive;
    const zarn::HVSoundFont &_bank;
    BankCheck &_check;
    std::map<std::string, std::int64_t> _frames;
};

} // namespace

std::unique_ptr<AudioDecoder> openBankSample(const streams::BankArchive &archive,
                                             const zarn::HVSoundFont &bank,
                                             const std::string &sample, std::string *error)
{
    auto stream = archive.openSample(sample, error);
    if (stream == nullptr)
        return nullptr;
    const auto *const raw = bank.rawFormat(sample);
    return raw == nullptr ? AudioDecoder::open(std::move(stream), error)
                          : AudioDecoder::openRaw(std::move(stream), *raw, error);
}

BankCheck checkBank(filesystem::FileSystem &files, const std::string &path)
{
    BankCheck check;
    std::string error;
    const auto archive = streams::BankArchive::open(files, path, &error);
    if (archive == nullptr) {
        check.errors.push_back(error);
        return check;
    }
    check.isPacked = archive->isPacked();
    try {
        check.bank = zarn::HVSoundFontManager::readSoundFont(*archive);
    } catch (const zarn::CoreException &problem) {
        check.errors.push_back(archive->path() + ": " + problem.message());
        return check;
    }
    Checker(*archive, check).run();
    return check;
}

} // namespace Halvec::audio
