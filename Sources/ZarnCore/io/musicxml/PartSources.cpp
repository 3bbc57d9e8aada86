// SPDX-License-Identifier: MIT
#include <ZarnCore/io/musicxml/PartSources.h>

#include <ZarnCore/io/musicxml/ImportContext.h>

#include <algorithm>
#include <unordered_map>
#include <unordered_set>

namespace zarn::io {

namespace {

/// What the part list says about a part; a part that it leaves out is reported. `number` parts were
/// found before.
ListedPart listedPart(pugi::xml_node node, std::size_t number, const PartList &list,
                      ImportContext &context)
{
    if (number >= mostParts)
        context.refuse(node, "a score has no more than " + std::to_string(mostParts) + " parts");
    const std::string id = node.attribute("id").value();
    if (const auto *listed = list.find(id))
        return *listed;
    context.addProblem(node, "the part list has no part \"" + id + "\"; it was read all the same");
    ListedPart part;
    part.id = id;
    part.name = id;
    return part;
}

std::vector<PartSource> partwiseSources(pugi::xml_node root, const PartList &list,
                                        ImportContext &context)
{
    std::vector<PartSource> sources;
    std::unordered_set<std::string> ids;
    for (auto part = root.child("part"); part; part = part.next_sibling("part")) {
        if (const std::string id = part.attribute("id").value(); !ids.insert(id).second)
            context.addProblem(part,
                               "there is music for part \"" + id
                                   + "\" before; this became a track of its own");
        sources.push_back({listedPart(part, sources.size(), list, context), part, {}});
    }
    return sources;
}

std::vector<PartSource> timewiseSources(pugi::xml_node root, const PartList &list,
                                        ImportContext &context)
{
    std::vector<PartSource> sources;
    std::unordered_map<std::string, std::size_t> numbers;
    std::size_t bar = 0;
    for (auto measure = root.child("measure"); measure;
         measure = measure.next_sibling("measure"), ++bar) {
        for (const auto part : measure.children()) {
            if (tagOf(part.name()) != Tag::Part) {
                context.addUnheld(part);
                continue;
            }
            const auto [found, isNew] =
                numbers.insert({part.attribute("id").value(), sources.size()});
            if (isNew)
                sources.push_back({listedPart(part, sources.size(), list, context), {}, {}});
            auto &measures = sources[found->second].measures;
            if (measures.size() > bar) {
                context.addProblem(part,
                                   "a part stands twice in one measure; the second one was "
                                   "left out");
                continue;
            }
            measures.resize(bar, {measure, {}});
            measures.push_back({measure, part});
        }
    }
    return sources;
}

} // namespace

std::vector<PartSource> partSources(pugi::xml_node root, const PartList &list,
                                    ImportContext &context)
{
    auto sources = tagOf(root.name()) == Tag::ScoreTimewise ? timewiseSources(root, list, context)
                                                            : partwiseSources(root, list, context);
    for (const auto &listed : list.parts()) {
        const bool found =
            std::any_of(sources.begin(), sources.end(),
                        [&](const PartSource &source) { return source.listed.id == listed.id; });
        if (!found)
            context.addProblem(listed.node,
                               "the part \"" + listed.id + "\" of the part list has no music");
    }
    if (sources.empty())
        context.refuse(root, "the document has no part");
    return sources;
}

} // namespace zarn::io
