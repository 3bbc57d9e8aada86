// SPDX-License-Identifier: MIT
#include <ZarnCore/io/musicxml/ScoreHeader.h>

#include <ZarnCore/io/musicxml/ImportContext.h>
#include <ZarnCore/model/ZarnScoreModel.h>

#include <string_view>

namespace zarn::io {

namespace {

/// Sets a property, behind what it holds already.
void add(ScoreModel &model, ScoreProperty property, const std::string &text)
{
    constexpr std::size_t mostText = 4096;
    const auto before = model.property(property);
    if (!text.empty() && before != text && before.size() + text.size() <= mostText)
        model.setScoreProperty(property, before.empty() ? text : before + ", " + text);
}

void readCreator(pugi::xml_node node, ScoreModel &model, ImportContext &context)
{
    const std::string_view type = node.attribute("type").value();
    if (type == "composer")
        add(model, ScoreProperty::Music, node.child_value());
    else if (type == "lyricist" || type == "poet")
        add(model, ScoreProperty::Words, node.child_value());
    else if (type == "artist")
        add(model, ScoreProperty::Artist, node.child_value());
    else if (type == "arranger" || type == "transcriber")
        add(model, ScoreProperty::Tabber, node.child_value());
    else
        context.addUnheld(node, Tag::Creator);
}

void readIdentification(pugi::xml_node node, ScoreModel &model, ImportContext &context)
{
    for (const auto child : node.children()) {
        switch (const auto tag = tagOf(child.name()); tag) {
        case Tag::Creator:
            readCreator(child, model, context);
            break;
        case Tag::Rights:
            add(model, ScoreProperty::Copyright, child.child_value());
            break;
        default:
            context.addUnheld(child, tag);
        }
    }
}

} // namespace

void readScoreHeader(pugi::xml_node root, ScoreModel &model, ImportContext &context)
{
    std::string work;
    std::string movement;
    for (const auto child : root.children()) {
        switch (const auto tag = tagOf(child.name()); tag) {
        case Tag::Work:
            for (const auto part : child.children()) {
                if (tagOf(part.name()) == Tag::WorkTitle)
                    work = part.child_value();
                else
                    context.addUnheld(part);
            }
            break;
        case Tag::MovementTitle:
            movement = child.child_value();
            break;
        case Tag::Identification:
            readIdentification(child, model, context);
            break;
        case Tag::PartList:
        case Tag::Part:
        case Tag::Measure:
            break;
        default:
            context.addUnheld(child, tag);
        }
    }
    add(model, ScoreProperty::Title, work.empty() ? movement : work);
    if (!work.empty())
        add(model, ScoreProperty::Subtitle, movement);
}

} // namespace zarn::io
