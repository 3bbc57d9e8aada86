// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/instruments/UserFile.h>
#include <ZarnCore/instruments/tunings/TuningStore.h>

#include <QByteArray>
#include <QString>

#include <memory>

namespace zarn {

/// The store of the user's tunings and its file; `GuitarTuningLibrary` says what happens to it.
class UserTunings {
public:
    /// The store must outlive it. For the path see `UserFile`.
    UserTunings(TuningStore &store, QString (*path)())
        : _store(store), _file("GuitarTuningLibrary", path)
    {
    }

    void load();
    void save();

private:
    void add(const std::shared_ptr<GuitarTuning> &tuning);
    bool loadUsualForm(const QByteArray &content);
    void loadAndRewrite(const QByteArray &content, bool rewrites);
    bool takeOver(const QByteArray &content);
    QByteArray text() const;

    TuningStore &_store;
    UserFile _file;
    KnownUserText _known;
};

} // namespace zarn
