// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace zarn {

/// How the bytes of an audio file without a header are to be read.
struct RawSampleFormat {
    /// Little and big endian integers (signed but for `U8`), floats, and the two laws of ITU-T
    /// G.711.
    enum class Encoding : std::uint8_t {
        S8,
        U8,
        S16Le,
        S16Be,
        S24Le,
        S24Be,
        S32Le,
        S32Be,
        F32Le,
        F32Be,
        F64Le,
        F64Be,
        ULaw,
        ALaw
    };

    Encoding encoding = Encoding::S16Le;
    int rate = 44100; ///< frames per second, 1 to 768000
    int channels = 1; ///< interleaved, 1 to 64

    friend bool operator==(const RawSampleFormat &a, const RawSampleFormat &b) noexcept
    {
        return a.encoding == b.encoding && a.rate == b.rate && a.channels == b.channels;
    }
    friend bool operator!=(const RawSampleFormat &a, const RawSampleFormat &b) noexcept
    {
        return !(a == b);
    }
};

/// Bytes that a sample of one channel has.
ZARNCORE_EXPORT int bytesOf(RawSampleFormat::Encoding encoding) noexcept;

/// "s16le", "f32be", "ulaw".
ZARNCORE_EXPORT std::string rawEncodingToString(RawSampleFormat::Encoding encoding);
ZARNCORE_EXPORT std::optional<RawSampleFormat::Encoding>
rawEncodingFromString(std::string_view text) noexcept;

} // namespace zarn
