// SPDX-License-Identifier: MIT
#include <ZarnCore/core/InstalledSounds.h>

#include <ZarnCore/ZarnException.h>
#include <ZarnCore/ZarnLog.h>
#include <ZarnCore/core/CatalogueFile.h>
#include <ZarnCore/instruments/sets/ZarnNotationPatch.h>
#include <ZarnCore/instruments/soundbanks/ZarnHVSoundFont.h>
#include <ZarnCore/instruments/soundbanks/ZarnSoundbank.h>
#include <ZarnCore/instruments/soundbanks/ZarnSoundbankPatch.h>
#include <ZarnCore/instruments/soundbanks/ZarnSoundbankPatchReplacement.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace zarn {

namespace {

/// The files of a folder, by name, whose names have an ending.
QStringList filesOf(const QString &folder, const QString &ending)
{
    const auto files = QDir(folder).entryInfoList(QDir::Files | QDir::Hidden, QDir::Name);
    QStringList paths;
    for (const QFileInfo &file : files) {
        if (file.fileName().endsWith(ending))
            paths << file.filePath();
    }
    return paths;
}

/// A patch is a page of text; what is far longer is something else.
constexpr qint64 maximumPatchSize = 4 << 20;

void warnOfPatch(const QString &problem)
{
    qCWarning(log::soundfonts).noquote() << "Soundbank patch skipped:" << problem;
}

template <class Map>
typename Map::mapped_type find(const Map &map, const std::string &key)
{
    const auto found = map.find(key);
    return found != map.end() ? found->second : nullptr;
}

} // namespace

InstalledSounds::InstalledSounds() = default;

InstalledSounds::~InstalledSounds() = default;

void InstalledSounds::startLoading(QThreadPool &pool)
{
    _loading.start(pool, [this] { loadBuiltIn(); });
}

void InstalledSounds::waitUntilLoaded() const
{
    _loading.wait();
}

std::unique_lock<std::mutex> InstalledSounds::lockWhenLoaded() const
{
    waitUntilLoaded();
    return std::unique_lock<std::mutex>(_mutex);
}

void InstalledSounds::loadBuiltIn()
{
    addBanks(QString::fromLatin1(HVSoundFontManager::builtInFolder));
    addPatches(QString::fromLatin1(SoundbankPatch::builtInFolder));
}

void InstalledSounds::loadBank(const QString &path)
{
    const auto lock = lockWhenLoaded();
    addBank(path);
}

void InstalledSounds::loadBankFolder(const QString &folder)
{
    const auto lock = lockWhenLoaded();
    addBanks(folder);
}

void InstalledSounds::loadPatchFolder(const QString &folder)
{
    const auto lock = lockWhenLoaded();
    addPatches(folder);
}

void InstalledSounds::addBanks(const QString &folder)
{
    for (const QString &path : filesOf(folder, QStringLiteral(".zarn7bank")))
        addBank(path);
}

void InstalledSounds::addBank(const QString &path)
{
    if (path.isEmpty())
        return;
    const auto bank = _manager.soundbank(path.toStdString());
    if (bank == nullptr)
        return;
    auto &place = _banks[bank->id()];
    if (place != nullptr)
        qCInfo(log::soundfonts).noquote().nospace()
            << "Bank " << QString::fromStdString(bank->id()) << " overrided ("
            << QString::fromStdString(bank->soundfont()->path()) << ")\n";
    place = bank;
}

void InstalledSounds::addPatches(const QString &folder)
{
    for (const QString &path : filesOf(folder, QStringLiteral(".json")))
        addPatch(path);
}

void InstalledSounds::addPatch(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        warnOfPatch(path + QStringLiteral(": ") + file.errorString());
        return;
    }
    if (file.size() > maximumPatchSize) {
        warnOfPatch(path + QStringLiteral(": it is longer than a patch may be"));
        return;
    }
    try {
        parseJson(file.readAll(), path, [this](const rapidjson::Value &value) {
            const auto patch = SoundbankPatch::parse(value);
            _patches[patch->id()] = patch;
        });
    } catch (const CoreException &error) {
        warnOfPatch(QString::fromStdString(error.message()));
    }
}

void InstalledSounds::loadNotationPatches(const QString &folder)
{
    const auto lock = lockWhenLoaded();
    for (const QString &path : filesOf(folder, QString())) {
        const QByteArray bytes =
            readBuiltInFile(path, "zarn::Core::Impl::loadNotationPatches", 129);
        parseJson(bytes, path, [this](const rapidjson::Value &value) {
            const auto patch = NotationPatch::parse(value);
            _notationPatches[patch->name()] = patch;
        });
    }
}

const InstalledSounds::Banks &InstalledSounds::banks() const
{
    const auto lock = lockWhenLoaded();
    return _banks;
}

const InstalledSounds::Patches &InstalledSounds::patches() const
{
    const auto lock = lockWhenLoaded();
    return _patches;
}

const InstalledSounds::NotationPatches &InstalledSounds::notationPatches() const
{
    const auto lock = lockWhenLoaded();
    return _notationPatches;
}

std::shared_ptr<Soundbank> InstalledSounds::soundbank(const std::string &id) const
{
    const auto lock = lockWhenLoaded();
    return find(_banks, id);
}

std::shared_ptr<SoundbankPatch> InstalledSounds::soundbankPatch(const std::string &id) const
{
    const auto lock = lockWhenLoaded();
    return resolveSoundbankPatch(_patches, id);
}

std::shared_ptr<NotationPatch> InstalledSounds::notationPatch(const std::string &name) const
{
    const auto lock = lockWhenLoaded();
    return find(_notationPatches, name);
}

} // namespace zarn
