// SPDX-License-Identifier: MIT
#include <ZarnCore/io/musicxml/writer/HeaderWriter.h>

#include <ZarnCore/io/musicxml/ScoreHeader.h>
#include <ZarnCore/io/musicxml/writer/ExportContext.h>
#include <ZarnCore/model/ZarnScoreModel.h>

#include <numeric>

namespace zarn::io {

namespace {

/// Tenths of MusicXML are tenths of the space between two staff lines.
constexpr double tenthsOfSpace = 10;

/// Whether every bar is in a system that the score says the length of.
bool hasAllSystems(const ScoreModel &model)
{
    const auto &systems = model.fullScoreSystemsLayout();
    return !systems.empty()
        && std::accumulate(systems.begin(), systems.end(), 0LL)
        >= static_cast<long long>(model.masterTrack()->masterBarCount());
}

void writeIdentification(const ScoreModel &model, pugi::xml_node root, ExportContext &context)
{
    auto node = addElement(root, "identification");
    const auto textOf = [&](ScoreProperty property) {
        return context.text(model.property(property));
    };
    for (const auto &row : creatorTypes())
        if (const auto text = textOf(row.property); row.isWritten && !text.empty())
            addAttribute(addElement(node, "creator", text), "type", row.type.data());
    if (const auto text = textOf(ScoreProperty::Copyright); !text.empty())
        addElement(node, "rights", text);
    auto encoding = addElement(node, "encoding");
    addElement(encoding, "software", ownSoftware);
    for (const char *const element : {"accidental", "beam"}) {
        auto supports = addElement(encoding, "supports");
        addAttribute(supports, "element", element);
        addAttribute(supports, "type", "yes");
    }
    if (hasAllSystems(model)) {
        auto supports = addElement(encoding, "supports");
        addAttribute(supports, "attribute", "new-system");
        addAttribute(supports, "element", "print");
        addAttribute(supports, "type", "yes");
        addAttribute(supports, "value", "yes");
    }
    pugi::xml_node miscellaneous;
    for (const auto &row : miscellaneousFields())
        if (const auto text = textOf(row.property); !text.empty()) {
            if (!miscellaneous)
                miscellaneous = addElement(node, "miscellaneous");
            addAttribute(addElement(miscellaneous, "miscellaneous-field", text), "name",
                         row.type.data());
        }
}

/// The size of a tenth, the page and its margins.
void writeDefaults(const ScoreModel &model, pugi::xml_node root)
{
    const auto &page = model.pageSetup();
    if (page.staffSpace <= 0)
        return;
    const auto tenths = [&](int micrometres) {
        return decimalText(tenthsOfSpace * micrometres / page.staffSpace);
    };
    auto defaults = addElement(root, "defaults");
    auto scaling = addElement(defaults, "scaling");
    addElement(scaling, "millimeters", decimalText(4 * page.staffSpace / 1000.0));
    addElement(scaling, "tenths", static_cast<int>(4 * tenthsOfSpace));
    auto layout = addElement(defaults, "page-layout");
    const bool isUpright = page.orientation == PageSetup::Orientation::Portrait;
    addElement(layout, "page-height", tenths(isUpright ? page.height : page.width));
    addElement(layout, "page-width", tenths(isUpright ? page.width : page.height));
    auto margins = addElement(layout, "page-margins");
    addAttribute(margins, "type", "both");
    addElement(margins, "left-margin", tenths(page.leftMargin));
    addElement(margins, "right-margin", tenths(page.rightMargin));
    addElement(margins, "top-margin", tenths(page.topMargin));
    addElement(margins, "bottom-margin", tenths(page.bottomMargin));
}

/// What stands over the first system, so that programs which draw credits alone show it.
void writeCredits(const ScoreModel &model, pugi::xml_node root, ExportContext &context)
{
    struct Credit {
        ScoreProperty property;
        const char *type;
        const char *justify;
        int below; ///< the top margin, in tenths
        int size;  ///< of the letters, in points
    };
    constexpr Credit credits[] = {
        {ScoreProperty::Title, "title", "center", 0, 22},
        {ScoreProperty::Subtitle, "subtitle", "center", 60, 14},
        {ScoreProperty::Music, "composer", "right", 100, 11},
        {ScoreProperty::Words, "lyricist", "left", 100, 11},
    };
    const auto &page = model.pageSetup();
    if (page.staffSpace <= 0) {
        context.addUnheldIf(model.property(ScoreProperty::Title).empty()
                                && !model.property(ScoreProperty::Subtitle).empty(),
                            "subtitle without a title");
        return;
    }
    const auto tenths = [&](int micrometres) {
        return tenthsOfSpace * micrometres / page.staffSpace;
    };
    const bool isUpright = page.orientation == PageSetup::Orientation::Portrait;
    const double width = tenths(isUpright ? page.width : page.height);
    const double height = tenths(isUpright ? page.height : page.width);
    for (const auto &row : credits) {
        const auto text = context.text(model.property(row.property));
        if (text.empty())
            continue;
        const std::string justify = row.justify;
        const double x = justify == "center" ? width / 2
            : justify == "left"              ? tenths(page.leftMargin)
                                             : width - tenths(page.rightMargin);
        auto credit = addElement(root, "credit");
        addAttribute(credit, "page", 1);
        addElement(credit, "credit-type", row.type);
        auto words = addElement(credit, "credit-words", text);
        addAttribute(words, "default-x", decimalText(x));
        addAttribute(words, "default-y", decimalText(height - tenths(page.topMargin) - row.below));
        addAttribute(words, "font-size", row.size);
        addAttribute(words, "justify", justify);
        addAttribute(words, "valign", "top");
    }
}

} // namespace

void writeHeader(const ScoreModel &model, pugi::xml_node root, ExportContext &context)
{
    const auto title = context.text(model.property(ScoreProperty::Title));
    const auto subtitle = context.text(model.property(ScoreProperty::Subtitle));
    if (!title.empty())
        addElement(addElement(root, "work"), "work-title", title);
    // Without a title the subtitle would be read as one; it is among the credits.
    if (!title.empty() && !subtitle.empty())
        addElement(root, "movement-title", subtitle);
    writeIdentification(model, root, context);
    writeDefaults(model, root);
    writeCredits(model, root, context);
}

} // namespace zarn::io
