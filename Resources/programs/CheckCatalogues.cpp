// SPDX-License-Identifier: MIT
// Checks the built-in catalogues while the library is built, and fails the build with a line for
// each fault.
//
//     zarn_check_catalogues FOLDER       the folder Resources of the tree
#include "CatalogueChecks.h"

#include <QDir>
#include <QFile>

#include <cstdio>
#include <exception>
#include <stdexcept>

namespace {

using namespace zarn::resources;

CatalogueFile fileAt(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        throw std::runtime_error((path + QStringLiteral(": ") + file.errorString()).toStdString());
    return {path.toStdString(), file.readAll().toStdString()};
}

std::vector<CatalogueFile> filesIn(const QDir &folder, const QString &name)
{
    std::vector<CatalogueFile> files;
    for (const QFileInfo &file : QDir(folder.filePath(name)).entryInfoList(QDir::Files, QDir::Name))
        files.push_back(fileAt(file.filePath()));
    return files;
}

Complaints checkAll(const QDir &folder)
{
    const CatalogueFile sets =
        fileAt(folder.filePath(QStringLiteral("instrumentSet/ZarnInstrumentSets.json")));
    Complaints all =
        checkTunings(fileAt(folder.filePath(QStringLiteral("instrumentSet/ZarnTunings.json"))));
    const auto add = [&all](const Complaints &complaints) {
        all.insert(all.end(), complaints.begin(), complaints.end());
    };
    add(checkInstrumentSets(sets));
    add(checkSounds({sets, filesIn(folder, QStringLiteral("soundbankPatches")),
                     filesIn(folder, QStringLiteral("soundbanks")),
                     filesIn(folder, QStringLiteral("notationPatch"))}));
    return all;
}

} // namespace

int main(int argc, char **argv)
{
    if (argc != 2) {
        std::fprintf(stderr, "usage: %s FOLDER\n", argv[0]);
        return 2;
    }
    try {
        const Complaints complaints = checkAll(QDir(QString::fromLocal8Bit(argv[1])));
        for (const std::string &complaint : complaints)
            std::fprintf(stderr, "error: %s\n", complaint.c_str());
        return complaints.empty() ? 0 : 1;
    } catch (const std::exception &problem) {
        std::fprintf(stderr, "error: %s\n", problem.what());
        return 1;
    }
}
