// SPDX-License-Identifier: MIT
#include <ZarnCore/utils/JsonDocument.h>

#include <ZarnCore/ZarnAssert.h>

#include <rapidjson/error/en.h>

#include <algorithm>

namespace utils {

rapidjson::Document jsonDocument(std::string_view text, const std::string &name, JsonSource source)
{
    constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
    if (text.substr(0, byteOrderMark.size()) == byteOrderMark)
        text.remove_prefix(byteOrderMark.size());
    // Iterative, so that no nesting overflows the stack.
    constexpr unsigned flags = rapidjson::kParseIterativeFlag | rapidjson::kParseFullPrecisionFlag
        | rapidjson::kParseValidateEncodingFlag;
    rapidjson::Document document;
    if (source == JsonSource::Build)
        document.Parse(text.data(), text.size());
    else
        document.Parse<flags>(text.data(), text.size());
    if (document.HasParseError()) {
        const auto before = text.substr(0, document.GetErrorOffset());
        const auto line = 1 + std::count(before.begin(), before.end(), '\n');
        const auto column = before.size() - (before.rfind('\n') + 1) + 1; // npos + 1 is 0
        ZARN_RAISE_IN("utils::jsonDocument",
                      name + ":" + std::to_string(line) + ":" + std::to_string(column) + ": "
                          + rapidjson::GetParseError_En(document.GetParseError()));
    }
    return document;
}

} // namespace utils
