// SPDX-License-Identifier: MIT
// Makes the track templates of General MIDI from their table while the library is built: native
// documents of one track without bars, in folders as the resources name them, and the .qrc file
// that lists them. A file is written only when its content changes.
//
//     zarn_make_track_templates RESOURCES FOLDER     from the folder Resources of the tree
#include "CatalogueReading.h"
#include "GeneralMidiTable.h"
#include "TemplateSounds.h"

#include <ZarnCore/ZarnAssert.h>
#include <ZarnCore/instruments/sounds/ZarnSound.h>
#include <ZarnCore/instruments/tunings/ZarnGuitarTuningLibrary.h>
#include <ZarnCore/io/ZarnNativeExporter.h>
#include <ZarnCore/model/ZarnScoreModel.h>

#include <QCryptographicHash>
#include <QDir>
#include <QFile>

#include <cstdio>
#include <exception>

namespace {

using namespace zarn;
using namespace zarn::resources;

/// Bank select (controller 0) of the rhythm channel's sounds in General MIDI level 2.
constexpr int percussionBank = 120;

[[noreturn]] void fail(const QString &path, const QString &reason)
{
    ZARN_RAISE_IN("main", (path + QStringLiteral(": ") + reason).toStdString());
}

QByteArray contentOf(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        fail(path, file.errorString());
    return file.readAll();
}

/// The tunings that rows name as "Instrument: Name"; "none" is that of an instrument that has no
/// strings to finger.
class TuningNames {
public:
    explicit TuningNames(const QString &path)
    {
        Complaints complaints;
        readCatalogue({path.toStdString(), contentOf(path).toStdString()}, complaints,
                      [this](const rapidjson::Document &document) {
                          _library.parse(arrayOf(document, "tunings"));
                      });
        if (!complaints.empty())
            ZARN_RAISE_IN("main", complaints.front());
    }

    GuitarTuning find(const std::string &name) const
    {
        if (name == "none")
            return GuitarTuning();
        for (const auto &tuning : _library.getTunings(GuitarTuning::CoreRole))
            if (GuitarTuning::instrumentToString(tuning->instrument()) + ": " + tuning->name()
                == name)
                return *tuning;
        ZARN_RAISE_IN("main", "there is no tuning \"" + name + "\"");
    }

private:
    GuitarTuningLibrary _library;
};

/// A piece of percussion is named after its category ("Congas" for each of three keys), a program
/// has its own name.
std::shared_ptr<Track> makeTrack(const TemplateFamily &family, const TemplateRow &row,
                                 const TuningNames &tunings, const TemplateSounds &sounds)
{
    const auto track = ScoreModel::createTrack(row.type);
    if (!family.isPercussion)
        track->setName(row.name);
    track->setShortName(row.shortName);
    track->setColor(family.color);
    track->setStaffCount(row.staves.value_or(track->staffCount()));
    track->setTranspositionOffset(row.transposition.value_or(track->transpositionOffset()));
    track->setIconID(row.icon.value_or(track->iconID()));
    for (unsigned staff = 0; !row.tuning.empty() && staff < track->staffCount(); ++staff)
        track->staff(staff)->setTuning(tunings.find(row.tuning));
    const auto program = static_cast<int>(row.number);
    Sound sound(track->name(),
                family.isPercussion ? MIDISound(0, percussionBank) : MIDISound(program));
    sound.setOrkaSound(OrkaSound(sounds.patchId(row)));
    track->addSound(std::make_shared<const Sound>(std::move(sound)));
    return track;
}

QByteArray documentOf(const std::shared_ptr<Track> &track)
{
    const auto model = std::make_shared<ScoreModel>();
    model->addTrack(track);
    return QByteArray::fromStdString(io::NativeExporter().toText(*model));
}

/// "001.024.Acoustic Guitar (nylon).zarn": the family, the number, the name.
QString fileName(const TemplateFamily &family, const TemplateRow &row)
{
    return QStringLiteral("%1.%2.%3.zarn")
        .arg(family.folder.left(3))
        .arg(row.number, 3, 10, QLatin1Char('0'))
        .arg(QString::fromStdString(row.name));
}

void update(const QString &path, const QByteArray &content)
{
    QFile file(path);
    if (file.open(QIODevice::ReadOnly) && file.readAll() == content)
        return;
    file.close();
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size() || !file.flush())
        fail(path, file.errorString());
}

/// The hash in the listing makes it change with any template, so that a build need only watch it.
void makeTemplates(const QDir &resources, const QDir &folder)
{
    const QString table = resources.filePath(QStringLiteral("generalMidi/GeneralMidi.json"));
    const TuningNames tunings(resources.filePath(QStringLiteral("instrumentSet/ZarnTunings.json")));
    const TemplateSounds sounds(resources);
    QString listing;
    QCryptographicHash hash(QCryptographicHash::Sha256);
    for (const TemplateFamily &family : readGeneralMidiTable(table)) {
        if (!folder.mkpath(family.folder))
            fail(folder.filePath(family.folder), QStringLiteral("cannot be made"));
        for (const TemplateRow &row : family.rows) {
            const QString name = family.folder + QLatin1Char('/') + fileName(family, row);
            const QByteArray document = documentOf(makeTrack(family, row, tunings, sounds));
            update(folder.filePath(name), document);
            hash.addData(document);
            listing += QStringLiteral("    <file>%1</file>\n").arg(name.toHtmlEscaped());
        }
    }
    const QString qrc = QStringLiteral("<!-- %1 -->\n"
                                       "<RCC><qresource prefix=\"/track_templates/004.Midi\">\n"
                                       "%2</qresource></RCC>\n")
                            .arg(QString::fromLatin1(hash.result().toHex()), listing);
    update(folder.filePath(QStringLiteral("track_templates.qrc")), qrc.toUtf8());
}

} // namespace

int main(int argc, char **argv)
{
    if (argc != 3) {
        std::fprintf(stderr, "usage: %s RESOURCES FOLDER\n", argv[0]);
        return 2;
    }
    try {
        makeTemplates(QDir(QString::fromLocal8Bit(argv[1])), QDir(QString::fromLocal8Bit(argv[2])));
    } catch (const CoreException &problem) {
        std::fprintf(stderr, "error: %s\n", problem.message().c_str());
        return 1;
    } catch (const std::exception &problem) {
        std::fprintf(stderr, "error: %s\n", problem.what());
        return 1;
    }
    return 0;
}
