// SPDX-License-Identifier: MIT
#include <ZarnCore/io/musicxml/ImportContext.h>

#include <ZarnCore/io/ZarnImportReport.h>
#include <ZarnCore/io/musicxml/ImportLimits.h>
#include <ZarnCore/io/musicxml/ScoreHeader.h>
#include <ZarnCore/io/musicxml/XmlDocument.h>

#include <QString>

#include <algorithm>
#include <cstring>

namespace zarn::io {

namespace {

bool hasAllBeamsOf(pugi::xml_node encoding)
{
    const auto supported = encoding.children("supports");
    return std::any_of(supported.begin(), supported.end(), [](pugi::xml_node supports) {
        return std::strcmp(supports.attribute("element").value(), "beam") == 0
            && std::strcmp(supports.attribute("type").value(), "yes") == 0;
    });
}

} // namespace

ImportContext::ImportContext(const XmlDocument &document, ImportReport &report)
    : _document(document), _report(report)
{
    const auto encoding = document.root().child("identification").child("encoding");
    _isOwnDocument = std::strcmp(encoding.child_value("software"), ownSoftware) == 0;
    _hasAllBeams = hasAllBeamsOf(encoding);
}

void ImportContext::setPlace(int part, int bar) noexcept
{
    _part = part;
    _bar = bar;
}

void ImportContext::addProblem(pugi::xml_node node, const std::string &text)
{
    addProblemInBar(_bar, node, text);
}

void ImportContext::addProblemInBar(int bar, pugi::xml_node node, const std::string &text)
{
    _report.addProblem({text, _part, bar, node ? _document.line(node) : 0});
}

std::string ImportContext::fewWords(pugi::xml_node node, const std::string &text)
{
    constexpr int most = 500;
    const auto read = QString::fromStdString(text);
    if (read.size() <= most)
        return text;
    addProblem(node, "words of more than 500 characters were shortened");
    return read.left(most).toStdString();
}

void ImportContext::addUnheld(pugi::xml_node node, Tag tag)
{
    if (tag != Tag::Unknown)
        ++_unheld[static_cast<std::size_t>(tag)];
    else if (node.type() == pugi::node_element)
        ++_unheldUnknown[node.name()];
}

void ImportContext::addUnheldChildren(pugi::xml_node node)
{
    for (const auto child : node.children())
        addUnheld(child);
}

int ImportContext::integer(pugi::xml_node node, int fallback)
{
    const auto value = parseInteger(node.child_value());
    if (!value)
        addNoNumber(node);
    return value.value_or(fallback);
}

utils::rational ImportContext::decimal(pugi::xml_node node, const utils::rational &fallback)
{
    const auto value = parseDecimal(node.child_value());
    if (!value)
        addNoNumber(node);
    return value.value_or(fallback);
}

void ImportContext::addNoNumber(pugi::xml_node node)
{
    addProblem(node,
               std::string("<") + node.name() + "> holds no number that can be used: \""
                   + std::string(node.child_value()).substr(0, 40) + "\"");
}

void ImportContext::addEmptyNodes(pugi::xml_node node, std::size_t count)
{
    _emptyNodes += count;
    const auto most = mostEmptyNodes(_document.size());
    if (_emptyNodes > most)
        refuse(node,
               "the score would hold more than " + std::to_string(most)
                   + " empty bars and place holders, more than a document of this size may");
}

void ImportContext::refuse(pugi::xml_node node, const std::string &reason) const
{
    _document.refuse(node, reason);
}

void ImportContext::finish()
{
    for (std::size_t tag = 1; tag < tagCount; ++tag)
        _report.addUnheld(tagName(static_cast<Tag>(tag)), _unheld[tag]);
    for (const auto &[name, count] : _unheldUnknown)
        _report.addUnheld(name, count);
    _unheld = {};
    _unheldUnknown.clear();
}

} // namespace zarn::io
