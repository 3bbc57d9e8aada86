// SPDX-License-Identifier: MIT
#include <ZarnCore/instruments/soundbanks/ZarnRawSampleFormat.h>

#include <algorithm>
#include <array>

namespace zarn {

namespace {

using Encoding = RawSampleFormat::Encoding;

struct Row {
    Encoding encoding;
    std::string_view text;
    int bytes;
};

constexpr std::array<Row, 14> rows = {{
    {Encoding::S8, "s8", 1},
    {Encoding::U8, "u8", 1},
    {Encoding::S16Le, "s16le", 2},
    {Encoding::S16Be, "s16be", 2},
    {Encoding::S24Le, "s24le", 3},
    {Encoding::S24Be, "s24be", 3},
    {Encoding::S32Le, "s32le", 4},
    {Encoding::S32Be, "s32be", 4},
    {Encoding::F32Le, "f32le", 4},
    {Encoding::F32Be, "f32be", 4},
    {Encoding::F64Le, "f64le", 8},
    {Encoding::F64Be, "f64be", 8},
    {Encoding::ULaw, "ulaw", 1},
    {Encoding::ALaw, "alaw", 1},
}};

constexpr bool isInOrder()
{
    for (std::size_t i = 0; i < rows.size(); ++i)
        if (rows[i].encoding != static_cast<Encoding>(i))
            return false;
    return true;
}
static_assert(isInOrder());

const Row &rowOf(Encoding encoding)
{
    return rows[static_cast<std::size_t>(encoding)];
}

} // namespace

int bytesOf(Encoding encoding) noexcept
{
    return rowOf(encoding).bytes;
}

std::string rawEncodingToString(Encoding encoding)
{
    return std::string(rowOf(encoding).text);
}

std::optional<Encoding> rawEncodingFromString(std::string_view text) noexcept
{
    const auto found =
        std::find_if(rows.begin(), rows.end(), [text](const Row &row) { return row.text == text; });
    return found == rows.end() ? std::nullopt : std::optional(found->encoding);
}

} // namespace zarn
