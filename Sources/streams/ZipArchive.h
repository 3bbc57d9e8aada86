// SPDX-License-Identifier: MIT
#pragma once

#include <streams/Stream.h>

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

struct zip;

namespace streams {

/// Reads a zip archive. What an archive claims takes no memory: sizes are held against limits first
/// and watched while unpacking, and members that are stored rather than deflated are read in place.
/// The archive and the streams of its members belong to one thread at a time.
class STREAMS_EXPORT ZipArchive {
    struct Opened;

public:
    struct Member {
        std::string name;            ///< as UTF-8, "/" between folders
        std::int64_t size = 0;       ///< bytes, as the archive claims
        std::int64_t packedSize = 0; ///< the same, never more than the archive has
        bool isStored = false;       ///< neither deflated nor encrypted
    };

    /// Whether bytes are the start of a zip archive.
    static bool isZip(std::string_view start) noexcept;

    /// Null, and the reason, for what is no whole archive.
    static std::unique_ptr<ZipArchive> open(std::unique_ptr<Stream> stream, std::string *error);
    explicit ZipArchive(Opened opened);
    ~ZipArchive();
    ZipArchive(const ZipArchive &) = delete;
    ZipArchive &operator=(const ZipArchive &) = delete;

    /// What the archive is called, for messages.
    const std::string &name() const noexcept { return _name; }

    /// Files in the order of the archive's directory; names may stand there twice.
    const std::vector<Member> &members() const noexcept { return _members; }

    /// The first member of a name, or null.
    const Member *find(const std::string &name) const;

    /// A name that several members have, or an empty text.
    const std::string &doubledName() const noexcept { return _doubledName; }

    /// Unpacks a whole member and checks its sum; false, and the reason, when that fails or when it
    /// has more than `limit` bytes.
    bool read(const Member &member, std::int64_t limit, std::string &bytes,
              std::string *error) const;

    /// Reads a member without keeping it and checks its sum.
    bool verify(const Member &member, std::string *error) const;

    /// The bytes of a member: in place when it is stored, else unpacked, up to `unpackedLimit`
    /// bytes. Null, and the reason, when that fails. The stream keeps the archive open. A member
    /// that is read from its start to its end in one go has its sum checked.
    std::unique_ptr<Stream> openMember(const Member &member, std::string *error) const;

    /// The most that `openMember` unpacks into memory.
    static constexpr std::int64_t unpackedLimit = std::int64_t(16) << 20;

private:
    struct Opened {
        std::string name;
        std::int64_t size;
        std::shared_ptr<struct zip> zip;
    };

    std::string _name;
    std::shared_ptr<struct zip> _zip;
    std::vector<Member> _members;
    std::vector<std::uint64_t> _indexes; ///< of the members in the directory
    std::unordered_map<std::string, std::size_t> _places;
    std::string _doubledName;
};

} // namespace streams
