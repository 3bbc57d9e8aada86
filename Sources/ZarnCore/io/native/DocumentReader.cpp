// SPDX-License-Identifier: MIT
#include <ZarnCore/io/ZarnImportException.h>
#include <ZarnCore/io/native/DocumentReader.h>

namespace zarn::io::native {

namespace {

std::string escapedForPointer(std::string_view key)
{
    std::string text;
    for (const char letter : key) {
        if (letter == '~')
            text += "~0";
        else if (letter == '/')
            text += "~1";
        else
            text += letter;
    }
    return text;
}

} // namespace

std::string DocumentReader::pointer() const
{
    std::string text;
    for (const Step *step = _step; step != nullptr; step = step->_above) {
        const bool isMember = step->_key.data() != nullptr;
        text =
            "/" + (isMember ? escapedForPointer(step->_key) : std::to_string(step->_index)) + text;
    }
    return text.empty() ? "/" : text;
}

void DocumentReader::refuse(const std::string &reason) const
{
    refuseAt(pointer(), reason);
}

void DocumentReader::refuseAt(const std::string &pointer, const std::string &reason) const
{
    ZARN_REFUSE_IN("zarn::io::NativeImporter::read", _document, pointer, reason);
}

void DocumentReader::refuseKind(const std::string &expected, const rapidjson::Value &found) const
{
    refuse("expected " + expected + ", found " + kindOf(found));
}

void DocumentReader::meetUnknownKey(std::string_view key)
{
    const Step step(*this, key);
    if (!_isNewer)
        refuse("nothing of this name belongs here");
    const std::string name(key);
    if (_report.unheld().count(name) == 0)
        _report.addProblem({pointer() + " is unknown here and was left out", -1, -1, 0});
    _report.addUnheld(name);
}

std::string kindOf(const rapidjson::Value &json)
{
    switch (json.GetType()) {
    case rapidjson::kNullType:
        return "null";
    case rapidjson::kFalseType:
        return "false";
    case rapidjson::kTrueType:
        return "true";
    case rapidjson::kObjectType:
        return "an object";
    case rapidjson::kArrayType:
        return "an array";
    case rapidjson::kStringType:
        return "the text " + quoted(textOf(json));
    case rapidjson::kNumberType:
        if (json.IsInt64())
            return std::to_string(json.GetInt64());
        return json.IsUint64() ? std::to_string(json.GetUint64()) : "a number with a fraction";
    }
    return "something else";
}

std::string quoted(std::string_view text)
{
    constexpr std::size_t longest = 40;
    if (text.size() <= longest)
        return '"' + std::string(text) + '"';
    std::size_t end = longest;
    while (end > 0 && (static_cast<unsigned char>(text[end]) & 0xC0) == 0x80)
        --end; // not inside a character
    return '"' + std::string(text.substr(0, end)) + "...\"";
}

} // namespace zarn::io::native
