// SPDX-License-Identifier: MIT
#include <ZarnCore/core/CatalogueFile.h>

#include <ZarnCore/ZarnException.h>
#include <ZarnCore/ZarnLog.h>
#include <ZarnCore/utils/JsonMembers.h>

#include <QFile>

#include <string>

namespace zarn {

namespace {

constexpr auto here = "zarn::Core::Impl::loadConfiguration";

} // namespace

QByteArray readBuiltInFile(const QString &path, const char *function, int line)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        qCCritical(log::core).noquote().nospace()
            << "[ZarnCore] " << path << ": cannot be opened: " << file.errorString();
        throw CoreException("Assertion failed: success", "ZarnCore", function, line);
    }
    return file.readAll();
}

void parseJson(const QByteArray &bytes, const QString &path,
               const std::function<void(const rapidjson::Value &)> &read, utils::JsonSource source)
{
    const std::string name = path.toStdString();
    const auto document = utils::jsonDocument(
        {bytes.constData(), static_cast<std::size_t>(bytes.size())}, name, source);
    try {
        read(document);
    } catch (const CoreException &error) {
        throw CoreException(name + ": " + error.message(), error.file().c_str(),
                            error.function().c_str(), error.line());
    }
}

void readCatalogue(const QString &path, const char *member,
                   const std::function<void(const rapidjson::Value &)> &read)
{
    const auto readMember = [&](const rapidjson::Value &root) {
        const utils::JsonMembers members(root, here);
        const auto *const value = members.find(member);
        if (value == nullptr)
            members.raise(std::string("member \"") + member + "\" is missing");
        read(*value);
    };
    // A file on the disk, in the place of a resource, was not checked by the build.
    const auto source = path.startsWith(QLatin1String(":/")) ? utils::JsonSource::Build
                                                             : utils::JsonSource::Outside;
    parseJson(readBuiltInFile(path, here, 173), path, readMember, source);
}

} // namespace zarn
