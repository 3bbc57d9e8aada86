// SPDX-License-Identifier: MIT
#include <ZarnCore/ZarnCore.h>

#include <ZarnCore/ZarnLog.h>
#include <ZarnCore/core/BuiltInFormats.h>
#include <ZarnCore/core/CoreImpl.h>
#include <ZarnCore/instruments/sets/ZarnNotationPatch.h>
#include <ZarnCore/io/ZarnExporter.h>
#include <ZarnCore/io/ZarnImporter.h>

namespace zarn {

struct Core::BackgroundAtExit {
    ~BackgroundAtExit() { impl.waitForBackground(); }
    Impl &impl;
};

Core::Core() : _impl(std::make_unique<Impl>()) { }

Core::~Core() = default;

Core &Core::instance()
{
    static Core core;
    return core;
}

void Core::initialize(filesystem::FileSystem *fileSystem)
{
    static std::once_flag once;
    std::call_once(once, [] { addBuiltInFormats(instance()._impl->formats); });
    instance().setFileSystem(fileSystem);
    instance()._impl->start();
    // At exit what was made last goes first. This is made behind all that Qt made for the start,
    // such as its default locale, so the background is waited for while it still has them.
    static const BackgroundAtExit waiting{*instance()._impl};
}

void Core::initialize(filesystem::FileSystem *fileSystem, const QString &soundBankPath)
{
    initialize(fileSystem);
    instance()._impl->sounds.loadBank(soundBankPath);
}

// The log of the run.

void Core::initLogFiles(const QString &folder)
{
    if (_impl->logs.begin(folder) == LogFiles::LastRun::Crashed)
        throw LogCrashException("previous run crashed", "ZarnCore", "zarn::Core::initLogFiles", 756,
                                zippedLastLogPath());
}

void Core::closeLogFiles()
{
    _impl->logs.close();
}

void Core::closeLogFilesWithQuitTag()
{
    _impl->logs.closeWithQuitTag();
}

bool Core::wasThereACrash(const QString &logPath)
{
    return LogFiles::wasThereACrash(logPath);
}

bool Core::createLgzFromLog(const QString &from, const QString &to)
{
    return LogFiles::pack(from, to);
}

bool Core::createLogFromLgz(const QString &from, const QString &to)
{
    return LogFiles::unpack(from, to);
}

QString Core::logPath() const
{
    return _impl->logs.current();
}

QString Core::zippedLogPath() const
{
    return _impl->logs.packedCurrent();
}

QString Core::lastLogPath() const
{
    return _impl->logs.last();
}

QString Core::zippedLastLogPath() const
{
    return _impl->logs.packedLast();
}

QString Core::unzippedLastLogPath() const
{
    return _impl->logs.unpackedLast();
}

QFile *Core::logCommandStackFile() const
{
    return _impl->logs.file();
}

void Core::writeToLog(const QString &) { }

// The catalogues.

GuitarTuningLibrary &Core::tuningLibrary()
{
    waitLazyConf();
    return _impl->tunings;
}

chord::FingeringLibrary &Core::fingeringLibrary()
{
    waitLazyConf();
    return _impl->fingerings;
}

const InstrumentSetLibrary &Core::instrumentSetLibrary() const
{
    waitLazyConf();
    return _impl->instrumentSets;
}

std::shared_ptr<Track> Core::findGMInstrument(unsigned program) const
{
    waitLazyConf();
    return _impl->generalMidi.instrument(program);
}

std::shared_ptr<Track> Core::findGMPercussion(unsigned key) const
{
    waitLazyConf();
    return _impl->generalMidi.percussion(key);
}

QString Core::findGMInstrumentPath(unsigned program) const
{
    waitLazyConf();
    return _impl->generalMidi.instrumentPath(program);
}

QString Core::findGMPercussionPath(unsigned key) const
{
    waitLazyConf();
    return _impl->generalMidi.percussionPath(key);
}

std::shared_ptr<Soundbank> Core::findSoundbank(const std::string &id) const
{
    return _impl->sounds.soundbank(id);
}

std::shared_ptr<SoundbankPatch> Core::findSoundbankPatch(const std::string &id) const
{
    auto patch = _impl->sounds.soundbankPatch(id);
    if (patch == nullptr)
        qCWarning(log::core, "[ZarnCore] zarn::Core::findSoundbankSet : id not found : %s",
                  id.c_str());
    return patch;
}

std::shared_ptr<NotationPatch> Core::findNotationPatch(const std::string &name) const
{
    return _impl->sounds.notationPatch(name);
}

const std::unordered_map<std::string, std::shared_ptr<Soundbank>> &Core::soundbanks() const
{
    return _impl->sounds.banks();
}

const std::unordered_map<std::string, std::shared_ptr<SoundbankPatch>> &
Core::soundbankPatches() const
{
    return _impl->sounds.patches();
}

const std::unordered_map<std::string, std::shared_ptr<NotationPatch>> &Core::notationPatches() const
{
    return _impl->sounds.notationPatches();
}

void Core::loadSoundBankDirectory(const QString &folder)
{
    _impl->sounds.loadBankFolder(folder);
}

void Core::loadSoundBankSetDirectory(const QString &folder)
{
    _impl->sounds.loadPatchFolder(folder);
}

void Core::loadAdditionalSoundBanksDirectory(const QString &path)
{
    _impl->sounds.loadBank(path);
}

void Core::loadNotationPatches()
{
    _impl->sounds.loadNotationPatches(QString::fromLatin1(NotationPatch::builtInFolder));
}

void Core::waitLazyConf() const
{
    _impl->sounds.waitUntilLoaded();
}

// The formats.

void Core::addImporter(io::Importer *importer)
{
    _impl->formats.add(importer);
}

void Core::addExporter(io::Exporter *exporter)
{
    _impl->formats.add(exporter);
}

unsigned Core::importersCount() const
{
    return _impl->formats.importersCount();
}

QString Core::importerDescription(unsigned index) const
{
    return _impl->formats.importer(index).description();
}

QStringList Core::importerExtensions(unsigned index) const
{
    return _impl->formats.importer(index).extensions();
}

QStringList Core::importerVisibleExtensions(unsigned index) const
{
    return _impl->formats.importer(index).visibleExtensions();
}

unsigned Core::exportersCount() const
{
    return _impl->formats.exportersCount();
}

std::string Core::exporterDescription(unsigned index) const
{
    return _impl->formats.exporter(index).description();
}

std::list<std::string> Core::exporterExtensions(unsigned index) const
{
    return _impl->formats.exporter(index).extensions();
}

io::Importer *Core::importerByExtension(const QString &extension) const
{
    return _impl->formats.importerByExtension(extension);
}

io::Exporter *Core::exporterByExtension(const std::string &extension) const
{
    return _impl->formats.exporterByExtension(extension);
}

io::Importer *Core::importerByHandle(filesystem::FileHandle &handle) const
{
    return _impl->formats.importerByHandle(handle);
}

io::Importer *Core::importerByHandleAndExtension(filesystem::FileHandle &handle,
                                                 QString &extension) const
{
    return _impl->formats.importerByHandleAndExtension(handle, extension);
}

// File systems.

filesystem::FileSystem *Core::fileSystem() const
{
    return _impl->fileSystem;
}

void Core::setFileSystem(filesystem::FileSystem *fileSystem)
{
    _impl->fileSystem = fileSystem;
}

filesystem::FileSystem *Core::ramFileSystem() const
{
    return &_impl->ramFileSystem();
}

void Core::setWaitingWidget(QObject *widget)
{
    _impl->waitingWidget = widget;
}

QObject *Core::waitingWidget() const
{
    return _impl->waitingWidget;
}

} // namespace zarn
