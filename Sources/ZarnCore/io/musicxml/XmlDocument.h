// SPDX-License-Identifier: MIT
#pragma once

#include <pugixml.hpp>

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace zarn::io {

class ImportReport;

/// A parsed XML file that still knows on which line each element stands.
///
/// Entities that the document defines are never expanded and nothing outside of it is opened. Text
/// is trimmed; comments and processing instructions are dropped.
class XmlDocument {
public:
    /// Decodes and parses. Raises `ImportException` with the line for anything that is no XML, and
    /// for more elements than the size of the text, or of the packed file that it comes from,
    /// explains (see ImportLimits.h).
    XmlDocument(std::string document, std::string bytes, ImportReport &report,
                std::optional<std::size_t> packedSize = std::nullopt);

    const std::string &name() const noexcept { return _name; }
    pugi::xml_node root() const noexcept { return _xml.document_element(); }

    /// Length of the decoded text in bytes.
    std::size_t size() const noexcept { return _text.size(); }

    /// Line of an element, counted from 1. The first call builds a table of the lines.
    std::size_t line(pugi::xml_node node) const;

    /// Refuses the document for what stands in `node`.
    [[noreturn]] void refuse(pugi::xml_node node, const std::string &reason) const;

private:
    pugi::xml_parse_result parse();
    std::size_t lineAt(std::ptrdiff_t offset) const;

    std::string _name;
    std::string _text;
    pugi::xml_document _xml;
    mutable std::vector<std::uint32_t> _lineEnds;
};

} // namespace zarn::io
