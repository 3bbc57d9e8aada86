// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace zarn::io {

class ImportReport;

/// The text of an XML file as UTF-8, without a byte order mark. The byte order mark and the first
/// bytes decide before the XML declaration does; a declaration that they contradict is reported.
/// Raises `ImportException`, with the line, for bytes that are not what they claim to be.
std::string decodeXml(const std::string &document, std::string bytes, ImportReport &report);

/// Name of the root element of what may be the start of an XML file in any encoding, or nothing.
std::string rootElementName(const std::string &start);

} // namespace zarn::io
