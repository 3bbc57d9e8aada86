// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>

#include <array>
#include <cstdint>
#include <string>

/// Writes small zip archives, damaged ones too.
class ZipWriter {
public:
    /// Adds a deflated file.
    void add(const std::string &name, const QByteArray &content)
    {
        // qCompress: four bytes of length, two of zlib header, deflated data, four of checksum.
        const auto zlib = qCompress(content, 9);
        const auto packed = zlib.mid(6, zlib.size() - 10);
        QByteArray fields;
        number(fields, 20, 2);
        number(fields, 0, 2);
        number(fields, 8, 2);
        number(fields, 0x21, 4);
        number(fields, checksum(content), 4);
        number(fields, static_cast<std::uint32_t>(packed.size()), 4);
        number(fields, static_cast<std::uint32_t>(content.size()), 4);
        number(fields, static_cast<std::uint32_t>(name.size()), 2);
        number(fields, 0, 2);
        _directory += QByteArray("PK\x01\x02\x14\x00", 6) + fields + QByteArray(10, '\0');
        number(_directory, static_cast<std::uint32_t>(_files.size()), 4);
        _directory += QByteArray::fromStdString(name);
        _files += QByteArray("PK\x03\x04", 4) + fields + QByteArray::fromStdString(name) + packed;
        ++_count;
    }

    QByteArray archive() const
    {
        QByteArray end("PK\x05\x06\0\0\0\0", 8);
        number(end, _count, 2);
        number(end, _count, 2);
        number(end, static_cast<std::uint32_t>(_directory.size()), 4);
        number(end, static_cast<std::uint32_t>(_files.size()), 4);
        number(end, 0, 2);
        return _files + _directory + end;
    }

private:
    static void number(QByteArray &bytes, std::uint32_t value, int count)
    {
        for (int i = 0; i < count; ++i)
            bytes.append(static_cast<char>(value >> (8 * i) & 0xFF));
    }

    static std::uint32_t checksum(const QByteArray &bytes)
    {
        static const auto table = [] {
            std::array<std::uint32_t, 256> rows = {};
            for (std::uint32_t i = 0; i < rows.size(); ++i) {
                rows[i] = i;
                for (int bit = 0; bit < 8; ++bit)
                    rows[i] = rows[i] >> 1 ^ (rows[i] & 1 ? 0xEDB88320u : 0u);
            }
            return rows;
        }();
        std::uint32_t sum = 0xFFFFFFFFu;
        for (const char byte : bytes)
            sum = table[(sum ^ static_cast<unsigned char>(byte)) & 0xFF] ^ sum >> 8;
        return ~sum;
    }

    QByteArray _files;
    QByteArray _directory;
    std::uint32_t _count = 0;
};
