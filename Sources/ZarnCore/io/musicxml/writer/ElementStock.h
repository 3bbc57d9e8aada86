// SPDX-License-Identifier: MIT
#pragma once

#include <pugixml.hpp>

#include <array>

namespace zarn::io {

/// Elements that notes have again and again, such as <voice>1</voice>. A copy of an element that
/// pugixml has parsed shares its strings, and has its text without a node of its own: it takes half
/// the time of one that is built.
///
/// Names and texts are literals, or live as long: they are told apart by where they are.
class ElementStock {
public:
    /// Empties a document and begins anew in it.
    void start(pugi::xml_document &document);

    /// Whether so much was copied that the document is better emptied; so it is before the start.
    bool isFull() const noexcept { return _copyCount > mostCopies; }

    // Each adds a copy to a parent in the document.

    pugi::xml_node addEmpty(pugi::xml_node parent, const char *name);
    void addText(pugi::xml_node parent, const char *name, const char *text);
    void addNumber(pugi::xml_node parent, const char *name, long long number);

    /// A text in an element with the attribute "number".
    void addNumbered(pugi::xml_node parent, const char *name, int number, const char *text);

private:
    static constexpr int mostCopies = 1200;
    static constexpr int mostTries = 8;

    struct Item {
        const char *name = nullptr;
        const char *text = nullptr;
        long long number = -1;
        pugi::xml_node element = {};
    };

    template <class MakeXml>
    pugi::xml_node add(pugi::xml_node parent, const Item &wanted, MakeXml makeXml);

    pugi::xml_node _elements;
    std::array<Item, 128> _items; ///< by a hash, or a few places behind it
    int _copyCount = mostCopies + 1;
};

} // namespace zarn::io
