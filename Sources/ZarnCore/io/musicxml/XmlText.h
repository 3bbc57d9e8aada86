// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string>

namespace zarn::io {

class ImportReport;

/// The text of an XML file.
struct XmlText {
    std::string bytes;    ///< UTF-8, without a byte order mark
    std::size_t tags = 0; ///< that begin or end an element, or look so; counted on the way
};

/// The text of an XML file as UTF-8, without a byte order mark. The byte order mark and the first
/// bytes decide before the XML declaration does; a declaration that they contradict is reported.
/// Raises `ImportException`, with the line, for bytes that are not what they claim to be.
XmlText decodeXml(const std::string &document, std::string bytes, ImportReport &report);

/// Name of the root element of what may be the start of an XML file in any encoding, or nothing.
std::string rootElementName(const std::string &start);

} // namespace zarn::io
