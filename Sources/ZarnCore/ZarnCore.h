// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>
#include <ZarnCore/ZarnLogCrashException.h>

#include <QString>
#include <QStringList>

#include <list>
#include <memory>
#include <string>
#include <unordered_map>

class QFile;
class QObject;

namespace filesystem {
class FileHandle;
class FileSystem;
} // namespace filesystem

namespace zarn {

class GuitarTuningLibrary;
class InstrumentSetLibrary;
class NotationPatch;
class Soundbank;
class SoundbankPatch;
class Track;

namespace chord {
class FingeringLibrary;
} // namespace chord

namespace io {
class Exporter;
class Importer;
} // namespace io

/// The services of the library that a process has once: the catalogues, the formats of documents,
/// the file systems, and the log of the run.
///
///     filesystem::DiskFileSystem files;
///     zarn::Core::initialize(&files);
///     auto &core = zarn::Core::instance();
///     try {
///         core.initLogFiles(folder);
///     } catch (const zarn::LogCrashException &crash) {
///         // offer the log of the crashed run, crash.getLogFilename(), to the user
///     }
///     ... the application runs ...
///     core.closeLogFilesWithQuitTag();
///
/// Initialise first, on one thread. From then on the look-ups may be made from any thread; what
/// loads, registers or sets something belongs to the start and to the thread that starts.
class ZARNCORE_EXPORT Core {
public:
    /// Made when it is first asked for, from whatever thread; destroyed at exit, which waits for
    /// what is loaded in the background.
    static Core &instance();

    Core(const Core &) = delete;
    Core &operator=(const Core &) = delete;

    /// Registers the library's own importers and exporters, loads the tunings (the user's own too)
    /// and the instrument sets, and starts to load the General MIDI tracks, sound banks and patches
    /// in the background. The file system is not owned, and may be null.
    ///
    /// Called again it takes the new file system and loads nothing twice. Raises `CoreException`
    /// with the resource and the place for a catalogue that is missing or not what it should be;
    /// what is loaded by then stays, and a further call goes on from there.
    static void initialize(filesystem::FileSystem *fileSystem);
    /// Then loads the sound bank of a file too, unless the path is empty.
    static void initialize(filesystem::FileSystem *fileSystem, const QString &soundBankPath);

    int currentVersion() const { return 6000; }

    /// The most strings that a stringed staff may have.
    int maxNoteStringsCount() const { return 12; }

    // The log of the run. Logs are bytes whose lines end with CR LF.

    /// Makes the log of the run before "lastLog.log", with a compressed copy "lastLog.lgz", and
    /// begins "currentLog.log"; makes the folder if need be. Raises `LogCrashException` when the
    /// run before did not end with `closeLogFilesWithQuitTag`; the new log is open then.
    ///
    /// A run whose log is still open, in this process or another, has not ended: applications that
    /// run several times at once give each run a folder. Where no log can be written the run goes
    /// without one, and a warning on "zarn.core" says why. A log that cannot be moved away is
    /// appended to.
    void initLogFiles(const QString &folder);
    void closeLogFiles();
    /// Writes "[QUIT]" first, which marks the end of a run that did not crash.
    void closeLogFilesWithQuitTag();

    /// Whether a run's log is there and does not end with "[QUIT]" and CR LF. A log of 8 bytes or
    /// less, and one that cannot be read, count as those of a crashed run.
    bool wasThereACrash(const QString &logPath);

    /// Compresses a log, replacing `to`; false when there is no `from`. What else fails is logged.
    bool createLgzFromLog(const QString &from, const QString &to);
    /// The reverse; false too for a file that is no compressed log, which leaves `to` alone.
    bool createLogFromLgz(const QString &from, const QString &to);

    // Empty before `initLogFiles`.

    QString logPath() const;
    QString zippedLogPath() const;
    QString lastLogPath() const;
    QString zippedLastLogPath() const;
    /// Where to unpack the last log for a user; the core writes nothing there.
    QString unzippedLastLogPath() const;

    /// The open log, for modules that append to it; null without one. A line feed that is written
    /// to it becomes CR LF.
    QFile *logCommandStackFile() const;

    /// Writes nothing.
    void writeToLog(const QString &text);

    // The catalogues. Each look-up waits for what is still being loaded.

    GuitarTuningLibrary &tuningLibrary();
    /// Shapes of chords, the user's own too.
    chord::FingeringLibrary &fingeringLibrary();
    const InstrumentSetLibrary &instrumentSetLibrary() const;

    /// The ready-made track of a General MIDI program (0..127) or percussion key (35..81), as it
    /// stands in the catalogue: clone it to put it into a score. A number without a template is
    /// answered with the template of the lowest number; every percussion key with the whole drum
    /// kit, that of key 35. Empty when there are no templates or the file is damaged.
    std::shared_ptr<Track> findGMInstrument(unsigned program) const;
    std::shared_ptr<Track> findGMPercussion(unsigned key) const;

    /// Where the template lies; for percussion that of the key itself.
    QString findGMInstrumentPath(unsigned program) const;
    QString findGMPercussionPath(unsigned key) const;

    /// By id; empty when there is none.
    std::shared_ptr<Soundbank> findSoundbank(const std::string &id) const;

    /// The patch of an id, by way of its replacement (see `resolveSoundbankPatch`); empty, with a
    /// warning, when there is none.
    std::shared_ptr<SoundbankPatch> findSoundbankPatch(const std::string &id) const;

    /// By name; empty when there is none.
    std::shared_ptr<NotationPatch> findNotationPatch(const std::string &name) const;

    const std::unordered_map<std::string, std::shared_ptr<Soundbank>> &soundbanks() const;
    const std::unordered_map<std::string, std::shared_ptr<SoundbankPatch>> &
    soundbankPatches() const;
    const std::unordered_map<std::string, std::shared_ptr<NotationPatch>> &notationPatches() const;

    // What is loaded takes the place of what has the same id or name. Damaged files are skipped
    // with a warning on "zarn.core.sounfonts"; folders are read in the order of file names.

    /// The banks of a folder, files "*.zarn7bank".
    void loadSoundBankDirectory(const QString &folder);
    /// The patches of a folder, files "*.json".
    void loadSoundBankSetDirectory(const QString &folder);
    /// The bank of one file, in spite of the name; nothing for an empty path.
    void loadAdditionalSoundBanksDirectory(const QString &path);

    /// Loads the built-in notation patches. Raises `CoreException` for one that is missing or
    /// damaged.
    void loadNotationPatches();

    /// Waits for the sound banks and patches that are loaded in the background.
    void waitLazyConf() const;

    // The formats, in the order of registration; `initialize` adds the library's own. They are not
    // owned and stay for as long as the process runs. Places past the end, and null, raise
    // `CoreException`. Extensions have no dot and are compared exactly, case included.

    void addImporter(io::Importer *importer);
    void addExporter(io::Exporter *exporter);

    unsigned importersCount() const;
    QString importerDescription(unsigned index) const;
    QStringList importerExtensions(unsigned index) const;
    QStringList importerVisibleExtensions(unsigned index) const;

    unsigned exportersCount() const;
    std::string exporterDescription(unsigned index) const;
    std::list<std::string> exporterExtensions(unsigned index) const;

    // The first that fits, or null.

    io::Importer *importerByExtension(const QString &extension) const;
    io::Exporter *exporterByExtension(const std::string &extension) const;
    /// By the content of the file; its name does not count.
    io::Importer *importerByHandle(filesystem::FileHandle &handle) const;
    io::Importer *importerByHandleAndExtension(filesystem::FileHandle &handle,
                                               QString &extension) const;

    // File systems.

    /// The application's, not owned; null before `initialize`.
    filesystem::FileSystem *fileSystem() const;
    void setFileSystem(filesystem::FileSystem *fileSystem);
    /// One in memory, made when it is first asked for.
    filesystem::FileSystem *ramFileSystem() const;

    /// An object of the application's; only stored.
    void setWaitingWidget(QObject *widget);
    QObject *waitingWidget() const;

private:
    Core();
    ~Core();

    class Impl;
    struct BackgroundAtExit;
    std::unique_ptr<Impl> _impl;
};

} // namespace zarn
