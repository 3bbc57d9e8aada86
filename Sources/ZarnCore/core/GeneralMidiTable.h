// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>
#include <ZarnCore/core/BackgroundTask.h>

#include <QString>

#include <map>
#include <memory>
#include <mutex>

class QThreadPool;

namespace zarn {

class Track;

/// Ready-made tracks by General MIDI program (0..127) and by percussion key (35..81).
///
/// Look-ups wait for the table to be built, may be made from any thread, and read a template when
/// it is first asked for. A number without a template is answered with the template of the lowest
/// number; only an empty table answers nothing. The tracks belong to no score and are handed out
/// as they are: whoever puts one into a score clones it.
class ZARNCORE_EXPORT GeneralMidiTable {
public:
    /// The folder that holds the sixteen families and the drums.
    explicit GeneralMidiTable(const QString &root);
    /// Waits for the table to be built.
    ~GeneralMidiTable();
    GeneralMidiTable(const GeneralMidiTable &) = delete;
    GeneralMidiTable &operator=(const GeneralMidiTable &) = delete;

    /// Starts to list the templates. A file is named by its number: "001.024.Acoustic Guitar
    /// (nylon).zarn" is program 24. One without a number is skipped with a warning.
    void startBuilding(QThreadPool &pool);

    std::shared_ptr<Track> instrument(unsigned program) const;
    QString instrumentPath(unsigned program) const;

    /// The whole drum kit (key 35) for every key for which there is any template.
    std::shared_ptr<Track> percussion(unsigned key) const;
    /// The template of this very key.
    QString percussionPath(unsigned key) const;

private:
    struct Entry {
        QString path;
        std::shared_ptr<Track> track;
        bool wasRead = false;
    };
    using Entries = std::map<unsigned, Entry>;

    void build();
    void list(const QString &folder, Entries &entries) const;
    std::unique_lock<std::mutex> lockWhenBuilt() const;
    static std::shared_ptr<Track> trackOf(Entries &entries, unsigned number);
    static QString pathOf(const Entries &entries, unsigned number);

    QString _root;
    /// Held while templates are looked up and read.
    mutable std::mutex _mutex;
    mutable Entries _instruments;
    mutable Entries _percussion;
    BackgroundTask _building;
};

} // namespace zarn
