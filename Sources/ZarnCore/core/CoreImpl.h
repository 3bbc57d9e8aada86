// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnCore.h>
#include <ZarnCore/chords/ZarnFingeringLibrary.h>
#include <ZarnCore/core/FormatRegistry.h>
#include <ZarnCore/core/GeneralMidiTable.h>
#include <ZarnCore/core/InstalledSounds.h>
#include <ZarnCore/core/LogFiles.h>
#include <ZarnCore/instruments/sets/ZarnInstrumentSetLibrary.h>
#include <ZarnCore/instruments/tunings/ZarnGuitarTuningLibrary.h>
#include <filesystem/RAMFileSystem.h>

#include <QThreadPool>

#include <atomic>
#include <memory>
#include <mutex>

namespace zarn {

/// What the core holds, and the order in which it starts.
class Core::Impl {
public:
    Impl();
    ~Impl();

    /// Loads what is not loaded yet, each part once.
    void start();
    void waitForBackground();

    FormatRegistry formats;
    std::atomic<filesystem::FileSystem *> fileSystem = nullptr;
    GeneralMidiTable generalMidi;
    LogFiles logs;
    InstalledSounds sounds;
    GuitarTuningLibrary tunings;
    chord::FingeringLibrary fingerings;
    InstrumentSetLibrary instrumentSets;
    QObject *waitingWidget = nullptr;

    filesystem::RAMFileSystem &ramFileSystem();

private:
    void loadConfiguration();
    void startBackground();

    std::mutex _starting;
    bool _hasTunings = false;
    bool _hasInstrumentSets = false;
    bool _hasBackground = false;
    std::once_flag _ramOnce;
    std::unique_ptr<filesystem::RAMFileSystem> _ramFileSystem;
    /// Destroyed first, which waits for the tasks. A pool of its own, so that they do not wait for
    /// those of the application.
    QThreadPool _tasks;
};

} // namespace zarn
