// SPDX-License-Identifier: MIT
#include <ZarnCore/io/musicxml/XmlDocument.h>

#include <ZarnCore/io/ZarnImportException.h>
#include <ZarnCore/io/ZarnImportReport.h>
#include <ZarnCore/io/musicxml/XmlText.h>

#include <algorithm>

namespace zarn::io {

namespace {

std::string reasonOf(const pugi::xml_parse_result &result)
{
    switch (result.status) {
    case pugi::status_end_element_mismatch:
        return "a closing tag does not match the open element, or the file ends inside of it";
    case pugi::status_no_document_element:
        return "there is no XML element in the file";
    case pugi::status_out_of_memory:
        return "there is not enough memory for the document";
    default:
        return std::string("this is no well-formed XML (") + result.description() + ")";
    }
}

} // namespace

XmlDocument::XmlDocument(std::string document, std::string bytes, ImportReport &report)
    : _name(std::move(document)), _text(decodeXml(_name, std::move(bytes), report))
{
    if (_text.find_first_not_of(" \t\r\n") == _text.npos)
        ZARN_REFUSE_IN("zarn::io::XmlDocument::XmlDocument", _name, "", "the file is empty");
    constexpr auto flags = pugi::parse_escapes | pugi::parse_cdata | pugi::parse_wconv_attribute
        | pugi::parse_trim_pcdata | pugi::parse_embed_pcdata;
    const auto result = _xml.load_buffer(_text.data(), _text.size(), flags, pugi::encoding_utf8);
    if (!result)
        ZARN_REFUSE_IN("zarn::io::XmlDocument::XmlDocument", _name,
                       "line " + std::to_string(lineAt(result.offset)), reasonOf(result));
    const auto prolog =
        static_cast<std::size_t>(std::max<std::ptrdiff_t>(root().offset_debug(), 0));
    if (const auto entity = _text.find("<!ENTITY"); entity < prolog)
        report.addProblem({"the document defines entities; they are not expanded", -1, -1,
                           lineAt(static_cast<std::ptrdiff_t>(entity))});
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
