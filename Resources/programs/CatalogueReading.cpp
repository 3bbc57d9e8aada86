// SPDX-License-Identifier: MIT
#include "CatalogueReading.h"

#include <ZarnCore/ZarnAssert.h>
#include <ZarnCore/utils/JsonDocument.h>

#include <algorithm>

namespace zarn::resources {

void readCatalogue(const CatalogueFile &file, Complaints &complaints,
                   const std::function<void(const rapidjson::Document &)> &read)
{
    const std::size_t before = complaints.size();
    try {
        read(utils::jsonDocument(file.text, file.name));
    } catch (const CoreException &problem) {
        complaints.push_back(problem.message());
    }
    for (std::size_t i = before; i < complaints.size(); ++i)
        if (complaints[i].compare(0, file.name.size(), file.name) != 0)
            complaints[i].insert(0, file.name + ": ");
}

const rapidjson::Value &arrayOf(const rapidjson::Document &document, const char *name)
{
    if (!document.IsObject() || !document.HasMember(name) || !document[name].IsArray())
        ZARN_RAISE_IN("zarn::resources::arrayOf",
                      std::string("is no object with the array \"") + name + "\"");
    return document[name];
}

void allowOnly(const rapidjson::Value &object, std::initializer_list<const char *> members,
               const std::string &place, Complaints &complaints)
{
    for (const auto &member : object.GetObject()) {
        const std::string name(member.name.GetString(), member.name.GetStringLength());
        if (std::find(members.begin(), members.end(), name) == members.end())
            complaints.push_back(place + ": \"" + name + "\" means nothing here");
    }
}

} // namespace zarn::resources
