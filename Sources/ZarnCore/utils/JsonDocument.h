// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>

#include <rapidjson/document.h>

#include <string>
#include <string_view>

namespace utils {

enum class JsonSource {
    Outside, ///< anything at all
    Build, ///< part of the library and checked when it was built: sound UTF-8, nested a few levels
};

/// Parses a text in UTF-8, however deep it is nested. Raises `zarn::CoreException` with the name of
/// the text, line and column and the reason when it is no JSON: "x.json:3:7: Missing a comma ...".
ZARNCORE_EXPORT rapidjson::Document jsonDocument(std::string_view text, const std::string &name,
                                                 JsonSource source = JsonSource::Outside);

} // namespace utils
