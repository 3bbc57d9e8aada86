// SPDX-License-Identifier: MIT
#include <ZarnCore/utils/JsonDocument.h>

#include <ZarnCore/ZarnAssert.h>
#include <ZarnCore/utils/JsonNumber.h>

#include <rapidjson/encodedstream.h>
#include <rapidjson/error/en.h>
#include <rapidjson/memorystream.h>

#include <algorithm>
#include <cmath>
#include <utility>

namespace utils {

namespace {

/// A document that converts numbers itself.
class ExactDocument : public rapidjson::Document {
public:
    /// Called by the reader for each number.
    bool RawNumber(const char *text, rapidjson::SizeType size, bool)
    {
        const std::string_view number(text, size);
        if (const auto whole = jsonWhole(number))
            return Int64(*whole);
        const double real = jsonReal(number);
        return std::isfinite(real) && Double(real);
    }
};

/// Iterative, so that no nesting overflows the stack.
rapidjson::ParseResult parseFromOutside(std::string_view text, ExactDocument &document)
{
    constexpr unsigned flags = rapidjson::kParseIterativeFlag
        | rapidjson::kParseNumbersAsStringsFlag | rapidjson::kParseValidateEncodingFlag;
    rapidjson::MemoryStream bytes(text.data(), text.size());
    rapidjson::EncodedInputStream<rapidjson::UTF8<>, rapidjson::MemoryStream> input(bytes);
    rapidjson::Reader reader;
    rapidjson::ParseResult result;
    auto generate = [&](rapidjson::Document &) {
        result = reader.Parse<flags>(input, document);
        return !result.IsError();
    };
    document.Populate(generate);
    return result;
}

std::string reasonOf(rapidjson::ParseErrorCode code)
{
    return code == rapidjson::kParseErrorTermination ? "The number is too large."
                                                     : rapidjson::GetParseError_En(code);
}

} // namespace

rapidjson::Document jsonDocument(std::string_view text, const std::string &name, JsonSource source)
{
    constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
    if (text.substr(0, byteOrderMark.size()) == byteOrderMark)
        text.remove_prefix(byteOrderMark.size());
    ExactDocument document;
    const rapidjson::ParseResult result = source == JsonSource::Build
        ? rapidjson::ParseResult(document.Parse(text.data(), text.size()))
        : parseFromOutside(text, document);
    if (result.IsError()) {
        const auto before = text.substr(0, result.Offset());
        const auto line = 1 + std::count(before.begin(), before.end(), '\n');
        const auto column = before.size() - (before.rfind('\n') + 1) + 1; // npos + 1 is 0
        ZARN_RAISE_IN("utils::jsonDocument",
                      name + ":" + std::to_string(line) + ":" + std::to_string(column) + ": "
                          + reasonOf(result.Code()));
    }
    return std::move(document);
}

} // namespace utils
