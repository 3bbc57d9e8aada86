// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/io/musicxml/MusicXmlTag.h>
#include <ZarnCore/io/musicxml/XmlNumber.h>

#include <pugixml.hpp>

#include <array>
#include <map>
#include <string>

namespace zarn::io {

class ImportReport;
class XmlDocument;

/// Where the reading stands, and the way to the report from there.
class ImportContext {
public:
    ImportContext(const XmlDocument &document, ImportReport &report);

    /// Part and bar of what is read next, counted from 0; -1 for none.
    void setPlace(int part, int bar) noexcept;
    int part() const noexcept { return _part; }
    int bar() const noexcept { return _bar; }

    /// Whether the library wrote the document itself: it leaves out no staff that is shown.
    bool isOwnDocument() const noexcept { return _isOwnDocument; }

    /// Whether the document says that it has all beams: notes without one are under none.
    bool hasAllBeams() const noexcept { return _hasAllBeams; }

    void addProblem(pugi::xml_node node, const std::string &text);

    /// As above for another bar of the same part.
    void addProblemInBar(int bar, pugi::xml_node node, const std::string &text);

    /// Words of a sign, or the first 500 characters of what is a book; that is reported.
    std::string fewWords(pugi::xml_node node, const std::string &text);

    /// Counts an element that the tree has no place for.
    void addUnheld(pugi::xml_node node, Tag tag);
    void addUnheld(pugi::xml_node node) { addUnheld(node, tagOf(node.name())); }

    /// Counts all child elements of a node.
    void addUnheldChildren(pugi::xml_node node);

    /// The number in an element; what is no number is reported and read as the fallback.
    int integer(pugi::xml_node node, int fallback);
    utils::rational decimal(pugi::xml_node node, const utils::rational &fallback);

    /// Counts nodes that the tree gets and no note or rest of the text stands for; refuses the
    /// document when they are more than it may have (see ImportLimits.h).
    void addEmptyNodes(pugi::xml_node node, std::size_t count);

    [[noreturn]] void refuse(pugi::xml_node node, const std::string &reason) const;

    /// Hands the counts of the elements to the report.
    void finish();

private:
    void addNoNumber(pugi::xml_node node);

    const XmlDocument &_document;
    ImportReport &_report;
    bool _isOwnDocument;
    bool _hasAllBeams;
    int _part = -1;
    int _bar = -1;
    std::size_t _emptyNodes = 0;
    std::array<std::uint32_t, tagCount> _unheld = {};
    std::map<std::string, std::uint32_t> _unheldUnknown;
};

} // namespace zarn::io
