// SPDX-License-Identifier: MIT
#include <ZarnCore/io/musicxml/CreditReader.h>

#include <ZarnCore/io/musicxml/ImportContext.h>
#include <ZarnCore/io/musicxml/XmlNumber.h>
#include <ZarnCore/model/ZarnScoreModel.h>

#include <algorithm>
#include <cctype>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zarn::io {

namespace {

constexpr std::size_t mostText = 4096;

struct Credit {
    pugi::xml_node node;
    std::string text;
    std::string_view type;    ///< of its <credit-type>, empty for none
    std::string_view justify; ///< of its first words
    double y = -1;            ///< above the lower edge of the sheet, in tenths; -1 for none
    double size = 0;          ///< of its letters, in points
};

struct TypedProperty {
    std::string_view type;
    ScoreProperty property;
};

/// The credit types of MusicXML 4.0 that are properties of a score.
constexpr TypedProperty typedProperties[] = {
    {"title", ScoreProperty::Title},     {"subtitle", ScoreProperty::Subtitle},
    {"composer", ScoreProperty::Music},  {"lyricist", ScoreProperty::Words},
    {"arranger", ScoreProperty::Tabber}, {"rights", ScoreProperty::Copyright},
};

double number(const char *text, double fallback)
{
    const auto value = parseDecimal(text);
    return value ? value->toDouble() : fallback;
}

bool isSpace(char letter)
{
    return std::isspace(static_cast<unsigned char>(letter)) != 0;
}

/// Numbers in the corners and at the foot are those of the page.
bool isNumber(const std::string &text)
{
    return parseInteger(text.c_str()).has_value();
}

/// The text without any white space, to compare texts that are broken into lines otherwise.
std::string withoutSpace(std::string text)
{
    text.erase(std::remove_if(text.begin(), text.end(), isSpace), text.end());
    return text;
}

std::optional<Credit> creditOf(pugi::xml_node node)
{
    const auto page = parseInteger(node.attribute("page").as_string("1"));
    Credit credit{node, {}, node.child_value("credit-type"), {}};
    for (const auto words : node.children("credit-words")) {
        if (credit.text.empty()) {
            const std::string_view justify = words.attribute("justify").value();
            credit.justify = justify.empty() ? words.attribute("halign").value() : justify;
            credit.y = number(words.attribute("default-y").value(), -1);
            credit.size = number(words.attribute("font-size").value(), 0);
        }
        // What stands around a text was cut off when it was parsed, ends of lines among it.
        credit.text += credit.text.empty() ? "" : " ";
        credit.text += words.child_value();
    }
    if (page != 1 || credit.text.empty() || credit.text.size() > mostText)
        return std::nullopt;
    return credit;
}

/// The height of the sheet, in tenths; of one that the document does not give, the highest credit.
double sheetHeight(pugi::xml_node root, const std::vector<Credit> &credits)
{
    const auto layout = root.child("defaults").child("page-layout");
    if (const double height = number(layout.child_value("page-height"), 0); height > 0)
        return height;
    double height = 0;
    for (const Credit &credit : credits)
        height = std::max(height, credit.y);
    return height;
}

class CreditTaker {
public:
    explicit CreditTaker(ScoreModel &model) : _model(model) { }

    /// Sets an empty property.
    bool take(const Credit &credit, ScoreProperty property)
    {
        if (!_model.property(property).empty())
            return false;
        _model.setScoreProperty(property, credit.text);
        return true;
    }

    bool isHeld(const Credit &credit) const
    {
        const auto text = withoutSpace(credit.text);
        for (const TypedProperty &row : typedProperties)
            if (withoutSpace(_model.property(row.property)) == text)
                return true;
        return false;
    }

    bool takeTyped(const Credit &credit)
    {
        for (const TypedProperty &row : typedProperties)
            if (row.type == credit.type)
                return take(credit, row.property);
        return false;
    }

    bool takePlaced(const Credit &credit, double height)
    {
        const bool isAbove = credit.y > height / 2;
        const bool isCentred = credit.justify == "center";
        if (isAbove && isCentred)
            return take(credit, ScoreProperty::Title) || take(credit, ScoreProperty::Subtitle);
        if (credit.y < 0 || isNumber(credit.text))
            return false;
        if (isAbove)
            return credit.justify == "right" && take(credit, ScoreProperty::Music);
        return isCentred && take(credit, ScoreProperty::Copyright);
    }

private:
    ScoreModel &_model;
};

} // namespace

void readCredits(pugi::xml_node root, ScoreModel &model, ImportContext &context)
{
    std::vector<Credit> credits;
    for (const auto node : root.children("credit")) {
        if (auto credit = creditOf(node))
            credits.push_back(std::move(*credit));
        else
            context.addUnheld(node, Tag::Credit);
    }
    const double height = sheetHeight(root, credits);
    CreditTaker taker(model);
    // What says its type comes before what is guessed; of the others the largest is the title.
    std::stable_sort(credits.begin(), credits.end(), [](const Credit &left, const Credit &right) {
        if (left.type.empty() != right.type.empty())
            return !left.type.empty();
        return left.type.empty() && left.size > right.size;
    });
    for (const Credit &credit : credits) {
        const bool isHeld = taker.isHeld(credit)
            || (credit.type.empty() ? taker.takePlaced(credit, height) : taker.takeTyped(credit));
        if (!isHeld)
            context.addUnheld(credit.node, Tag::Credit);
    }
}

} // namespace zarn::io
