// SPDX-License-Identifier: MIT
#include <ZarnCore/io/musicxml/XmlDocument.h>

#include <ZarnCore/io/ZarnImportException.h>
#include <ZarnCore/io/ZarnImportReport.h>
#include <ZarnCore/io/musicxml/ImportLimits.h>
#include <ZarnCore/io/musicxml/MusicXmlTag.h>
#include <ZarnCore/io/musicxml/XmlText.h>

#include <algorithm>
#include <cstring>
#include <memory>
#include <new>
#include <string_view>

namespace zarn::io {

namespace {

/// The tag that stands, or begins, at a place: from the last "<" on.
std::string tagAt(const std::string &text, std::size_t offset)
{
    constexpr std::size_t longest = 60;
    const auto begin = std::min(text.rfind('<', offset), text.size());
    const auto end = std::min(text.find('>', begin), text.size() - 1);
    return text.substr(begin, std::min(end + 1 - begin, longest));
}

std::string reasonOf(const pugi::xml_parse_result &result, const std::string &text)
{
    switch (result.status) {
    case pugi::status_no_document_element:
        return "there is no XML element in the file";
    case pugi::status_out_of_memory:
        return "there is not enough memory for the document";
    default:
        break;
    }
    const auto offset = static_cast<std::size_t>(std::max<std::ptrdiff_t>(result.offset, 0));
    const bool isAtEnd = offset + 1 >= text.size() || text.find('>', offset) == text.npos;
    if (isAtEnd)
        return "the file is cut off: it ends inside of an element";
    if (result.status == pugi::status_end_element_mismatch)
        return "the closing tag " + tagAt(text, offset) + " does not match the open element";
    return std::string("this is not well-formed XML (") + result.description() + ")";
}

/// Refuses a text with more elements than music has, before they take memory.
void checkElements(const std::string &document, const XmlText &decoded, std::size_t fileSize)
{
    const auto &text = decoded.bytes;
    const auto most = mostElements(text.size(), fileSize);
    // Closing tags count, too, in this first and quick look.
    if (decoded.tags <= most)
        return;
    std::size_t elements = 0;
    for (auto at = text.find('<'); at != text.npos; at = text.find('<', at + 1))
        elements += at + 1 < text.size() && text[at + 1] != '/';
    if (elements > most)
        ZARN_REFUSE_IN("zarn::io::XmlDocument::XmlDocument", document, "",
                       "the text has " + std::to_string(elements) + " elements, and a document of "
                           + "this size may have no more than " + std::to_string(most));
}

} // namespace

XmlDocument::XmlDocument(std::string document, std::string bytes, ImportReport &report,
                         std::optional<std::size_t> packedSize)
    : _name(std::move(document))
{
    auto decoded = decodeXml(_name, std::move(bytes), report);
    if (decoded.bytes.find_first_not_of(" \t\r\n") == std::string::npos)
        ZARN_REFUSE_IN("zarn::io::XmlDocument::XmlDocument", _name, "", "the file is empty");
    checkElements(_name, decoded, packedSize.value_or(decoded.bytes.size()));
    _text = std::move(decoded.bytes);
    const auto result = parse();
    if (!result)
        ZARN_REFUSE_IN("zarn::io::XmlDocument::XmlDocument", _name,
                       "line " + std::to_string(lineAt(result.offset)), reasonOf(result, _text));
    const auto prolog =
        static_cast<std::size_t>(std::max<std::ptrdiff_t>(root().offset_debug(), 0));
    if (const auto entity = std::string_view(_text).substr(0, prolog).find("<!ENTITY");
        entity != std::string_view::npos)
        report.addProblem({"the document defines entities; they are not expanded", -1, -1,
                           lineAt(static_cast<std::ptrdiff_t>(entity))});
}

/// Parses a copy of the text, in which the names of elements may be read past their ends.
pugi::xml_parse_result XmlDocument::parse()
{
    using Free = void (*)(void *);
    std::unique_ptr<void, Free> copy(
        pugi::get_memory_allocation_function()(_text.size() + longestTagName),
        pugi::get_memory_deallocation_function());
    if (!copy)
        throw std::bad_alloc();
    auto *const letters = static_cast<char *>(copy.get());
    std::memcpy(letters, _text.data(), _text.size());
    std::memset(letters + _text.size(), 0, longestTagName);
    constexpr auto flags = pugi::parse_escapes | pugi::parse_cdata | pugi::parse_wconv_attribute
        | pugi::parse_trim_pcdata | pugi::parse_embed_pcdata;
    const auto withEnd = _text.size() + 1; // The parser would put a zero on the last letter.
    return _xml.load_buffer_inplace_own(copy.release(), withEnd, flags, pugi::encoding_utf8);
}

std::size_t XmlDocument::line(pugi::xml_node node) const
{
    return lineAt(node.offset_debug());
}

std::size_t XmlDocument::lineAt(std::ptrdiff_t offset) const
{
    if (_lineEnds.empty()) {
        for (auto at = _text.find('\n'); at != _text.npos; at = _text.find('\n', at + 1))
            _lineEnds.push_back(static_cast<std::uint32_t>(at));
        _lineEnds.push_back(static_cast<std::uint32_t>(_text.size()));
    }
    const auto position = static_cast<std::uint32_t>(
        std::clamp<std::ptrdiff_t>(offset, 0, static_cast<std::ptrdiff_t>(_text.size())));
    const auto end = std::lower_bound(_lineEnds.begin(), _lineEnds.end(), position);
    return static_cast<std::size_t>(end - _lineEnds.begin()) + 1;
}

void XmlDocument::refuse(pugi::xml_node node, const std::string &reason) const
{
    ZARN_REFUSE_IN("zarn::io::XmlDocument::refuse", _name, "line " + std::to_string(line(node)),
                   reason);
}

} // namespace zarn::io
