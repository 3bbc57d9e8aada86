// SPDX-License-Identifier: MIT
#include <streams/BankArchive.h>

#include <filesystem/FileSystem.h>
#include <streams/FileStream.h>
#include <streams/MemberName.h>

#include <array>

namespace streams {

namespace {

std::nullptr_t refuse(std::string *error, const std::string &reason)
{
    if (error != nullptr)
        *error = reason;
    return nullptr;
}

bool startsLikeZip(Stream &stream)
{
    std::array<char, 4> start{};
    const auto count = stream.readSome(start.data(), start.size());
    stream.seek(0);
    return ZipArchive::isZip({start.data(), static_cast<std::size_t>(count)});
}

/// What makes an archive no bank; empty for nothing.
std::string faultOf(const ZipArchive &zip)
{
    for (const auto &member : zip.members())
        if (!staysInside(member.name))
            return "holds a file that lies outside of it (\"" + member.name + "\")";
    if (!zip.doubledName().empty())
        return "holds \"" + zip.doubledName() + "\" twice";
    if (zip.find(BankArchive::descriptionName) == nullptr)
        return std::string("holds no ") + BankArchive::descriptionName;
    return {};
}

} // namespace

std::unique_ptr<BankArchive> BankArchive::open(filesystem::FileSystem &files,
                                               const std::string &path, std::string *error)
{
    Opened opened{&files, path, {}, nullptr};
    if (files.isFolder(path))
        opened.path += (path.back() == '/' ? "" : "/") + std::string(descriptionName);
    auto handle = files.open(opened.path, filesystem::OpenMode::Read, error);
    if (handle == nullptr)
        return nullptr;
    auto stream = std::make_unique<FileStream>(std::move(handle));
    if (!startsLikeZip(*stream)) {
        if (!stream->readRest(opened.description, maximumDescription))
            return refuse(error, stream->errorText());
        return std::make_unique<BankArchive>(std::move(opened));
    }
    std::string reason;
    opened.zip = ZipArchive::open(std::move(stream), &reason);
    if (opened.zip != nullptr)
        reason = faultOf(*opened.zip);
    if (!reason.empty())
        return refuse(error, opened.path + ": " + reason);
    if (!opened.zip->read(*opened.zip->find(descriptionName), maximumDescription,
                          opened.description, &reason))
        return refuse(error, opened.path + ": " + descriptionName + ": " + reason);
    return std::make_unique<BankArchive>(std::move(opened));
}

BankArchive::BankArchive(Opened opened)
    : _files(*opened.files), _path(std::move(opened.path)),
      _description(std::move(opened.description)), _zip(std::move(opened.zip))
{
}

BankArchive::~BankArchive() = default;

std::string BankArchive::fullPath(const std::string &sample) const
{
    return _path.substr(0, _path.find_last_of('/') + 1) + sample;
}

bool BankArchive::has(const std::string &sample) const
{
    if (!staysInside(sample))
        return false;
    if (_zip != nullptr)
        return _zip->find(sample) != nullptr;
    const std::string file = fullPath(sample);
    return _files.exists(file) && !_files.isFolder(file);
}

std::unique_ptr<Stream> BankArchive::openSample(const std::string &sample, std::string *error) const
{
    const auto about = [&](const std::string &reason) {
        return refuse(error, _path + ": " + sample + ": " + reason);
    };
    if (!staysInside(sample))
        return about("lies outside of the bank");
    if (_zip == nullptr) {
        auto handle = _files.open(fullPath(sample), filesystem::OpenMode::Read, error);
        if (handle == nullptr)
            return nullptr;
        return std::make_unique<FileStream>(std::move(handle));
    }
    const auto *const member = _zip->find(sample);
    if (member == nullptr)
        return about("is not in the archive");
    std::string reason;
    auto stream = _zip->openMember(*member, &reason);
    if (stream == nullptr)
        return about(reason);
    return stream;
}

std::vector<std::string> BankArchive::packedFiles() const
{
    std::vector<std::string> names;
    if (_zip != nullptr)
        for (const auto &member : _zip->members())
            if (member.name != descriptionName)
                names.push_back(member.name);
    return names;
}

bool BankArchive::verify(const std::string &file, std::string *error) const
{
    if (_zip == nullptr)
        return true;
    const auto *const member = _zip->find(file);
    std::string reason = "is not in the archive";
    if (member != nullptr && _zip->verify(*member, &reason))
        return true;
    refuse(error, _path + ": " + file + ": " + reason);
    return false;
}

} // namespace streams
