// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/core/BackgroundTask.h>
#include <ZarnCore/instruments/soundbanks/ZarnHVSoundFontManager.h>
#include <ZarnCore/instruments/soundbanks/ZarnSoundCatalogue.h>

#include <QString>

#include <memory>
#include <mutex>
#include <string>
#include <unordered_map>

class QThreadPool;

namespace zarn {

class NotationPatch;

/// The sound banks, soundbank patches and notation patches that the process knows.
///
/// Everything but `startLoading` first waits for the built-in ones to be loaded. What is loaded
/// later under the same key takes the place of what was there. Files from outside the build that
/// are damaged are skipped with a warning; folders are read in the order of their file names.
class ZARNCORE_EXPORT InstalledSounds final : public SoundCatalogue {
public:
    using Banks = std::unordered_map<std::string, std::shared_ptr<Soundbank>>;
    using Patches = std::unordered_map<std::string, std::shared_ptr<SoundbankPatch>>;
    using NotationPatches = std::unordered_map<std::string, std::shared_ptr<NotationPatch>>;

    InstalledSounds();
    /// Waits for the loading to end.
    ~InstalledSounds() override;
    InstalledSounds(const InstalledSounds &) = delete;
    InstalledSounds &operator=(const InstalledSounds &) = delete;

    /// Loads the built-in banks and patches in the background.
    void startLoading(QThreadPool &pool);
    void waitUntilLoaded() const;

    /// An empty path is skipped. Replacing a bank of the same id is logged with the new one's file.
    void loadBank(const QString &path);
    /// Files "*.zarn7bank".
    void loadBankFolder(const QString &folder);
    /// Files "*.json".
    void loadPatchFolder(const QString &folder);
    /// Every file of a folder of the library's; raises `CoreException` for one that cannot be read.
    void loadNotationPatches(const QString &folder);

    // The maps do not move; they change only while something is loaded.

    /// By id.
    const Banks &banks() const;
    const Patches &patches() const;
    /// By name.
    const NotationPatches &notationPatches() const;

    std::shared_ptr<Soundbank> soundbank(const std::string &id) const override;
    std::shared_ptr<SoundbankPatch> soundbankPatch(const std::string &id) const override;
    std::shared_ptr<NotationPatch> notationPatch(const std::string &name) const;

private:
    std::unique_lock<std::mutex> lockWhenLoaded() const;
    void loadBuiltIn();
    void addBanks(const QString &folder);
    void addBank(const QString &path);
    void addPatches(const QString &folder);
    void addPatch(const QString &path);

    HVSoundFontManager _manager;
    mutable std::mutex _mutex;
    Banks _banks;
    Patches _patches;
    NotationPatches _notationPatches;
    BackgroundTask _loading;
};

} // namespace zarn
