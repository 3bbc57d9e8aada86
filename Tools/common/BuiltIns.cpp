// SPDX-License-Identifier: MIT
#include "common/BuiltIns.h"

#include "common/Documents.h"
#include "common/Terminal.h"

#include <ZarnCore/model/ZarnScoreModel.h>

#include <filesystem/DiskFileSystem.h>

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>

#include <algorithm>

namespace zarn::tool {

namespace {

constexpr unsigned ProgramCount = 128;
constexpr unsigned FirstKey = 35;
constexpr unsigned LastKey = 81;
constexpr int NumberWidth = 4; ///< "001." in front of the names of families and numbers

/// What the path "001.Piano/001.000.Acoustic Grand Piano.zarn" says, and the track in the file:
/// for percussion the core knows the path of each key, but one track for all.
TrackTemplate templateAt(const QString &path, TrackTemplate::Kind kind, unsigned number)
{
    const QFileInfo file(path);
    static const Terminal quiet(80, true, false);
    TrackTemplate made;
    made.kind = kind;
    made.number = number;
    made.name = file.completeBaseName().mid(2 * NumberWidth);
    made.family = file.dir().dirName().mid(NumberWidth);
    made.track = openDocument(path.toStdString(), quiet).model->track(0);
    return made;
}

} // namespace

Core &loadedCore()
{
    static filesystem::DiskFileSystem disk;
    static Core &core = [&]() -> Core & {
        // The user's tunings and sound banks lie in a folder of this name.
        QCoreApplication::setApplicationName(QStringLiteral("zarn"));
        Core::initialize(&disk);
        const QString banks = QStandardPaths::writableLocation(QStandardPaths::AppDataLocation)
            + QStringLiteral("/soundbanks");
        if (QFileInfo(banks).isDir()) // or else what is built in is not waited for
            Core::instance().loadSoundBankDirectory(banks);
        return Core::instance();
    }();
    return core;
}

void loadDrumKitsFor(const ScoreModel &model)
{
    const auto &tracks = model.tracks();
    if (std::any_of(tracks.begin(), tracks.end(),
                    [](const auto &track) { return InstrumentSet::isUnpitched(track->type()); }))
        loadedCore();
}

const std::vector<TrackTemplate> &trackTemplates()
{
    static const std::vector<TrackTemplate> all = [] {
        const Core &core = loadedCore();
        std::vector<TrackTemplate> templates;
        for (unsigned program = 0; program < ProgramCount; ++program)
            templates.push_back(templateAt(core.findGMInstrumentPath(program),
                                           TrackTemplate::Kind::Program, program));
        for (unsigned key = FirstKey; key <= LastKey; ++key)
            templates.push_back(templateAt(core.findGMPercussionPath(key),
                                           TrackTemplate::Kind::PercussionKey, key));
        return templates;
    }();
    return all;
}

} // namespace zarn::tool
