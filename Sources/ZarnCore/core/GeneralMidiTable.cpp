// SPDX-License-Identifier: MIT
#include <ZarnCore/core/GeneralMidiTable.h>

#include <ZarnCore/ZarnLog.h>
#include <ZarnCore/core/TrackTemplate.h>

#include <QDir>
#include <QFileInfo>

#include <array>
#include <exception>

namespace zarn {

namespace {

/// The families of General MIDI, eight programs each.
constexpr std::array<const char *, 16> families = {"001.Piano",         "002.Chromatic Percussion",
                                                   "003.Organ",         "004.Guitar",
                                                   "005.Bass",          "006.Strings",
                                                   "007.Ensemble",      "008.Brass",
                                                   "009.Reed",          "010.Pipe",
                                                   "011.Synth Lead",    "012.Synth Pad",
                                                   "013.Synth Effects", "014.Ethnic",
                                                   "015.Percussive",    "016.Sound Effects"};
constexpr auto drums = "017.Drums";

/// Percussion key of the template that holds the whole drum kit.
constexpr unsigned drumKitKey = 35;

/// The entry of a number, else that of the lowest one.
template <class Entries>
auto find(Entries &entries, unsigned number)
{
    const auto entry = entries.find(number);
    return entry != entries.end() ? entry : entries.begin();
}

} // namespace

GeneralMidiTable::GeneralMidiTable(const QString &root) : _root(root) { }

GeneralMidiTable::~GeneralMidiTable() = default;

void GeneralMidiTable::startBuilding(QThreadPool &pool)
{
    _building.start(pool, [this] { build(); });
}

void GeneralMidiTable::build()
{
    for (const char *family : families)
        list(_root + QLatin1Char('/') + QLatin1String(family), _instruments);
    list(_root + QLatin1Char('/') + QLatin1String(drums), _percussion);
}

void GeneralMidiTable::list(const QString &folder, Entries &entries) const
{
    const auto files = QDir(folder).entryInfoList(QDir::Files, QDir::Name);
    for (const QFileInfo &file : files) {
        if (file.suffix() != QLatin1String("zarn"))
            continue;
        bool isNumber = false;
        const unsigned number = file.fileName().mid(4, 3).toUInt(&isNumber);
        if (isNumber)
            entries[number].path = file.filePath();
        else
            qCWarning(log::core).noquote() << "[GeneralMidiTable]" << file.filePath()
                                           << "has no number at places 4 to 6 of its name";
    }
}

std::unique_lock<std::mutex> GeneralMidiTable::lockWhenBuilt() const
{
    _building.wait();
    return std::unique_lock<std::mutex>(_mutex);
}

std::shared_ptr<Track> GeneralMidiTable::instrument(unsigned program) const
{
    std::shared_ptr<Track> track;
    {
        const auto lock = lockWhenBuilt();
        track = trackOf(_instruments, program);
    }
    if (track == nullptr)
        qCWarning(log::core, "WARNING: findGMInstrument nullptr");
    return track;
}

QString GeneralMidiTable::instrumentPath(unsigned program) const
{
    const auto lock = lockWhenBuilt();
    return pathOf(_instruments, program);
}

std::shared_ptr<Track> GeneralMidiTable::percussion(unsigned key) const
{
    const auto lock = lockWhenBuilt();
    if (trackOf(_percussion, key) == nullptr)
        return nullptr;
    return trackOf(_percussion, drumKitKey);
}

QString GeneralMidiTable::percussionPath(unsigned key) const
{
    const auto lock = lockWhenBuilt();
    return pathOf(_percussion, key);
}

std::shared_ptr<Track> GeneralMidiTable::trackOf(Entries &entries, unsigned number)
{
    const auto found = find(entries, number);
    if (found == entries.end())
        return nullptr;
    Entry &entry = found->second;
    if (entry.wasRead)
        return entry.track;
    entry.wasRead = true;
    try {
        entry.track = readTrackTemplate(entry.path);
    } catch (const std::exception &error) {
        qCWarning(log::core).noquote()
            << QStringLiteral("[GeneralMidiTable] Error while midi table entry %1")
                   .arg(found->first);
        qCWarning(log::core).noquote() << "[GeneralMidiTable]" << error.what();
    }
    return entry.track;
}

QString GeneralMidiTable::pathOf(const Entries &entries, unsigned number)
{
    const auto found = find(entries, number);
    return found != entries.end() ? found->second.path : QString();
}

} // namespace zarn
