// SPDX-License-Identifier: MIT
#include <ZarnCore/instruments/soundbanks/ZarnHVSoundFontManager.h>

#include <ZarnCore/ZarnException.h>
#include <ZarnCore/ZarnLog.h>
#include <ZarnCore/instruments/soundbanks/ZarnHVSoundFont.h>
#include <ZarnCore/instruments/soundbanks/ZarnSoundbank.h>
#include <ZarnCore/utils/JsonDocument.h>

#include <QFile>

namespace zarn {

namespace {

/// A description is a page of text; what is far longer is something else.
constexpr qint64 maximumFileSize = 4 << 20;

void warn(const QString &path, const QString &reason)
{
    qCWarning(log::soundfonts).noquote()
        << QStringLiteral("Sound bank skipped: %1: %2").arg(path, reason);
}

} // namespace

std::shared_ptr<Soundbank> HVSoundFontManager::soundbank(const std::string &path) const
{
    const QString name = QString::fromStdString(path);
    QFile file(name);
    if (!file.open(QIODevice::ReadOnly)) {
        warn(name, file.errorString());
        return nullptr;
    }
    const QByteArray text = file.read(maximumFileSize + 1);
    if (file.error() != QFile::NoError) {
        warn(name, file.errorString());
        return nullptr;
    }
    if (text.size() > maximumFileSize) {
        warn(name, QStringLiteral("it is longer than a description of a bank may be"));
        return nullptr;
    }
    try {
        const std::string_view bytes(text.constData(), static_cast<std::size_t>(text.size()));
        const auto document = utils::jsonDocument(bytes, "JSON");
        return std::make_shared<Soundbank>(
            std::make_shared<const HVSoundFont>(HVSoundFont::parse(document, path)));
    } catch (const CoreException &problem) {
        warn(name, QString::fromStdString(problem.message()));
        return nullptr;
    }
}

} // namespace zarn
