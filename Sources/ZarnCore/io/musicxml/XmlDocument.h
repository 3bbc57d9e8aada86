// SPDX-License-Identifier: MIT
#pragma once

#include <pugixml.hpp>

#include <cstdint>
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
    /// Decodes and parses. Raises `ImportException` with the line for anything that is no XML.
    XmlDocument(std::string document, std::string bytes, ImportReport &report);

    const std::string &name() const noexcept { return _name; }
    pugi::xml_node root() const noexcept { return _xml.document_element(); }

    /// Length of the decoded text in bytes.
    std::size_t size() const noexcept { return _text.size(); }

    /// Line of an element, counted from 1. The first call builds a table of the lines.
    std::size_t line(pugi::xml_node node) const;

    /// Refuses the document for what stands in `node`.
    [[noreturn]] void refuse(pugi::xml_node node, const std::string &reason) const;

private:
    std::size_t lineAt(std::ptrdiff_t offset) const;

    std::string _name;
    std::string _text;
    pugi::xml_document _xml;
    mutable std::vector<std::uint32_t> _lineEnds;
};

} // namespace zarn::io
