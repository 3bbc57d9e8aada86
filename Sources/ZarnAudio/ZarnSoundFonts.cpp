// SPDX-License-Identifier: MIT
#include <ZarnAudio/ZarnSoundFonts.h>

#include <filesystem/DiskFileSystem.h>

#include <QDir>
#include <QFileInfo>
#include <QSet>
#include <QStandardPaths>

#include <array>
#include <cstring>

namespace Halvec::audio {

namespace {

/// Fonts of a folder, the system's default first.
QFileInfoList fontsOf(const QString &folder)
{
    auto fonts = QDir(folder).entryInfoList({QStringLiteral("*.sf2"), QStringLiteral("*.sf3")},
                                            QDir::Files, QDir::Name);
    std::stable_partition(fonts.begin(), fonts.end(), [](const QFileInfo &font) {
        return font.fileName().startsWith(QLatin1String("default-GM"), Qt::CaseInsensitive);
    });
    return fonts;
}

} // namespace

std::vector<std::string> installedSoundFonts()
{
    std::vector<std::string> found;
    QSet<QString> files;
    for (const QString &data :
         QStandardPaths::standardLocations(QStandardPaths::GenericDataLocation))
        for (const auto &kind : {QStringLiteral("/sounds/sf2"), QStringLiteral("/sounds/sf3")})
            for (const QFileInfo &font : fontsOf(data + kind)) {
                const QString file = font.canonicalFilePath();
                if (file.isEmpty() || files.contains(file))
                    continue;
                files.insert(file);
                found.push_back(font.filePath().toStdString());
            }
    return found;
}

bool isSoundFont(const std::string &path, std::string *error)
{
    filesystem::DiskFileSystem files;
    const auto handle = files.open(path, filesystem::OpenMode::Read, error);
    if (handle == nullptr)
        return false;
    std::array<char, 12> start{};
    const bool isFont = handle->readSome(start.data(), start.size()) == 12
        && std::memcmp(start.data(), "RIFF", 4) == 0 && std::memcmp(&start[8], "sfbk", 4) == 0;
    if (!isFont && error != nullptr)
        *error = path + ": is no sound font (SF2 or SF3)";
    return isFont;
}

std::string findSoundFont(const std::string &named, std::string *error)
{
    std::string path = named;
    if (path.empty())
        path = qEnvironmentVariable(soundFontVariable).toStdString();
    if (!path.empty())
        return isSoundFont(path, error) ? path : std::string();
    for (const auto &font : installedSoundFonts())
        if (isSoundFont(font, nullptr))
            return font;
    if (error != nullptr)
        *error = "there is no sound font; Debian's package timgm6mb-soundfont brings one, or name "
                 "one by ZARN_SOUNDFONT";
    return {};
}

} // namespace Halvec::audio
