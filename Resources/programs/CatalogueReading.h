// SPDX-License-Identifier: MIT
#pragma once

#include "CatalogueChecks.h"

#include <rapidjson/document.h>

#include <functional>
#include <string>

namespace zarn::resources {

/// Parses a file and hands its document over; whatever is raised on the way becomes a complaint,
/// with the file in front.
void readCatalogue(const CatalogueFile &file, Complaints &complaints,
                   const std::function<void(const rapidjson::Document &)> &read);

/// The array that a catalogue holds under a name. Raises when it does not.
const rapidjson::Value &arrayOf(const rapidjson::Document &document, const char *name);

/// Complains about a member that no reader looks at: a slip of the pen in an optional one.
void allowOnly(const rapidjson::Value &object, std::initializer_list<const char *> members,
               const std::string &place, Complaints &complaints);

} // namespace zarn::resources
