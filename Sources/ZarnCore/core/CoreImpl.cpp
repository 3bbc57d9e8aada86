// SPDX-License-Identifier: MIT
#include <ZarnCore/core/CoreImpl.h>

#include <ZarnCore/ZarnLog.h>
#include <ZarnCore/core/CatalogueFile.h>

#include <QTextCodec>

namespace zarn {

Core::Impl::Impl() : generalMidi(QStringLiteral(":/track_templates/004.Midi"))
{
    // What the background tasks use lives longer than they do: it is made before the core is.
    log::core().isWarningEnabled();
    log::soundfonts().isWarningEnabled();
    QTextCodec::codecForLocale();
    _tasks.setMaxThreadCount(2);
}

Core::Impl::~Impl()
{
    SoundCatalogue::install(nullptr);
}

void Core::Impl::start()
{
    const std::lock_guard<std::mutex> lock(_starting);
    loadConfiguration();
    if (!_hasBackground)
        startBackground();
}

void Core::Impl::waitForBackground()
{
    _tasks.waitForDone();
}

void Core::Impl::loadConfiguration()
{
    if (!_hasTunings) {
        qCDebug(log::core, "Parsing ZarnTunings configuration file (json)...");
        readCatalogue(QStringLiteral(":/instrumentSet/ZarnTunings.json"), "tunings",
                      [this](const rapidjson::Value &value) { tunings.parse(value); });
        tunings.loadUserTunings();
        fingerings.loadUserShapes();
        qCDebug(log::core, "Finished parsing ZarnTuning configuration file (json).");
        _hasTunings = true;
    }
    if (!_hasInstrumentSets) {
        qCDebug(log::core, "Parsing ZarnInstrumentSet configuration file (json)...");
        readCatalogue(QStringLiteral(":/instrumentSet/ZarnInstrumentSets.json"), "instrumentSets",
                      [this](const rapidjson::Value &value) { instrumentSets.parse(value); });
        InstrumentSetLibrary::install(&instrumentSets);
        qCDebug(log::core, "Finished parsing ZarnInstrumentSet configuration file (json).");
        _hasInstrumentSets = true;
    }
}

void Core::Impl::startBackground()
{
    qCDebug(log::core, "Parsing General Midi file ...");
    generalMidi.startBuilding(_tasks);
    qCDebug(log::core, "Finished parsing General Midi file.");
    sounds.startLoading(_tasks);
    SoundCatalogue::install(&sounds);
    _hasBackground = true;
}

filesystem::RAMFileSystem &Core::Impl::ramFileSystem()
{
    std::call_once(_ramOnce,
                   [this] { _ramFileSystem = std::make_unique<filesystem::RAMFileSystem>(); });
    return *_ramFileSystem;
}

} // namespace zarn
