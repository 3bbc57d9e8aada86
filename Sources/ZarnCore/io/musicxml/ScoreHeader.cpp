// SPDX-License-Identifier: MIT
#include <ZarnCore/io/musicxml/ScoreHeader.h>

#include <ZarnCore/io/musicxml/CreditReader.h>
#include <ZarnCore/io/musicxml/ImportContext.h>
#include <ZarnCore/model/ZarnScoreModel.h>

#include <algorithm>
#include <cmath>
#include <string_view>
#include <utility>

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

const NamedProperty *find(const std::vector<NamedProperty> &rows, std::string_view type)
{
    const auto row = std::find_if(rows.begin(), rows.end(), [type](const NamedProperty &other) {
        return other.type == type;
    });
    return row == rows.end() ? nullptr : &*row;
}

void readCreator(pugi::xml_node node, ScoreModel &model, ImportContext &context)
{
    if (const auto *const row = find(creatorTypes(), node.attribute("type").value()))
        add(model, row->property, node.child_value());
    else
        context.addUnheld(node, Tag::Creator);
}

void readMiscellaneous(pugi::xml_node node, ScoreModel &model, ImportContext &context)
{
    for (const auto field : node.children()) {
        if (const auto *const row = find(miscellaneousFields(), field.attribute("name").value()))
            add(model, row->property, field.child_value());
        else
            context.addUnheld(field);
    }
}

/// The size of the sheet, its margins and that of the staves.
void readDefaults(pugi::xml_node node, ScoreModel &model, ImportContext &context)
{
    for (const auto child : node.children())
        if (const std::string_view name = child.name(); name != "scaling" && name != "page-layout")
            context.addUnheld(child);
    const auto scaling = node.child("scaling");
    const auto millimeters = parseDecimal(scaling.child_value("millimeters"));
    const auto tenths = parseDecimal(scaling.child_value("tenths"));
    if (!millimeters || !tenths || millimeters->sign() <= 0 || tenths->sign() <= 0)
        return;
    const double micrometres = 1000 * millimeters->toDouble() / tenths->toDouble();
    auto page = model.pageSetup();
    const auto read = [micrometres](pugi::xml_node parent, const char *name, int &length) {
        constexpr double most = 10'000'000;
        const auto value = parseDecimal(parent.child_value(name));
        const double read = value ? value->toDouble() * micrometres : -1;
        if (read >= 0 && read <= most)
            length = static_cast<int>(std::lround(read));
    };
    page.staffSpace = static_cast<int>(std::lround(10 * micrometres));
    if (page.staffSpace < 100 || page.staffSpace > 100'000)
        return;
    const auto layout = node.child("page-layout");
    read(layout, "page-width", page.width);
    read(layout, "page-height", page.height);
    if (page.width > page.height) {
        std::swap(page.width, page.height);
        page.orientation = PageSetup::Orientation::Landscape;
    }
    const auto margins = layout.child("page-margins");
    read(margins, "left-margin", page.leftMargin);
    read(margins, "right-margin", page.rightMargin);
    read(margins, "top-margin", page.topMargin);
    read(margins, "bottom-margin", page.bottomMargin);
    model.setPageSetup(page);
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
        case Tag::Miscellaneous:
            readMiscellaneous(child, model, context);
            break;
        default:
            context.addUnheld(child, tag);
        }
    }
}

} // namespace

const std::vector<NamedProperty> &creatorTypes()
{
    static const std::vector<NamedProperty> types = {
        {"composer", ScoreProperty::Music},         {"lyricist", ScoreProperty::Words},
        {"poet", ScoreProperty::Words, false},      {"translator", ScoreProperty::Words, false},
        {"artist", ScoreProperty::Artist},          {"transcriber", ScoreProperty::Tabber},
        {"arranger", ScoreProperty::Tabber, false},
    };
    return types;
}

const std::vector<NamedProperty> &miscellaneousFields()
{
    static const std::vector<NamedProperty> fields = {
        {"album", ScoreProperty::Album},
        {"words-and-music", ScoreProperty::WordsAndMusic},
        {"instructions", ScoreProperty::Instructions},
        {"notice", ScoreProperty::Notice},
    };
    return fields;
}

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
        case Tag::Defaults:
            readDefaults(child, model, context);
            break;
        case Tag::Identification:
            readIdentification(child, model, context);
            break;
        case Tag::Credit:
        case Tag::PartList:
        case Tag::Part:
        case Tag::Measure:
            break;
        default:
            context.addUnheld(child, tag);
        }
    }
    add(model, ScoreProperty::Title, work.empty() ? movement : work);
    if (!work.empty() && movement != work)
        add(model, ScoreProperty::Subtitle, movement);
    readCredits(root, model, context);
}

} // namespace zarn::io
