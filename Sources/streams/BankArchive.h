// SPDX-License-Identifier: MIT
#pragma once

#include <streams/Stream.h>
#include <streams/ZipArchive.h>

#include <memory>
#include <string>
#include <vector>

namespace filesystem {
class FileSystem;
}

namespace streams {

/// A sound bank as it lies on the disk: a description and its samples, either side by side in a
/// folder or in one archive. What the description says is not looked at here.
///
/// An archive is refused as a whole when a name leads out of it or stands there twice. It and its
/// samples belong to one thread at a time.
class STREAMS_EXPORT BankArchive {
    struct Opened;

public:
    /// Name of the description in an archive and in a folder that was unpacked.
    static constexpr const char *descriptionName = "bank.json";

    /// A description is a page of text for every few samples; what is far longer is something else.
    static constexpr std::int64_t maximumDescription = std::int64_t(4) << 20;

    /// `path` is an archive, a description (samples lie in its folder), or a folder with a
    /// description of the usual name. Null, and the path with the reason, when there is none.
    static std::unique_ptr<BankArchive> open(filesystem::FileSystem &files, const std::string &path,
                                             std::string *error);
    explicit BankArchive(Opened opened);
    ~BankArchive();
    BankArchive(const BankArchive &) = delete;
    BankArchive &operator=(const BankArchive &) = delete;

    /// The file that the description comes from.
    const std::string &path() const noexcept { return _path; }
    bool isPacked() const noexcept { return _zip != nullptr; }

    /// The description as it stands, JSON in UTF-8.
    const std::string &description() const noexcept { return _description; }

    /// Whether there is a sample of a name: a path relative to the description, inside its folder.
    bool has(const std::string &sample) const;

    /// The bytes of a sample; null, and the reason with the name, when they cannot be had.
    std::unique_ptr<Stream> openSample(const std::string &sample, std::string *error) const;

    /// All files of an archive but the description, in its order; of a folder, which may hold
    /// anything, none.
    std::vector<std::string> packedFiles() const;

    /// Reads a packed file to its end and checks its sum; of a folder always true.
    bool verify(const std::string &file, std::string *error) const;

private:
    struct Opened {
        filesystem::FileSystem *files;
        std::string path;
        std::string description;
        std::unique_ptr<ZipArchive> zip;
    };

    std::string fullPath(const std::string &sample) const;

    filesystem::FileSystem &_files;
    std::string _path;
    std::string _description;
    std::unique_ptr<ZipArchive> _zip; ///< null for a folder
};

} // namespace streams
