// SPDX-License-Identifier: MIT
#include "CatalogueReading.h"

#include <ZarnCore/ZarnAssert.h>

#include <rapidjson/error/en.h>

#include <algorithm>

namespace zarn::resources {

namespace {

rapidjson::Document documentOf(const CatalogueFile &file)
{
    rapidjson::Document document;
    document.Parse<rapidjson::kParseValidateEncodingFlag>(file.text.data(), file.text.size());
    if (document.HasParseError()) {
        const std::string before = file.text.substr(0, document.GetErrorOffset());
        const auto line = 1 + std::count(before.begin(), before.end(), '\n');
        ZARN_RAISE_IN("zarn::resources::readCatalogue",
                      "line " + std::to_string(line) + ": "
                          + rapidjson::GetParseError_En(document.GetParseError()));
    }
    return document;
}

} // namespace

void readCatalogue(const CatalogueFile &file, Complaints &complaints,
                   const std::function<void(const rapidjson::Document &)> &read)
{
    const std::size_t before = complaints.size();
    try {
        read(documentOf(file));
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
