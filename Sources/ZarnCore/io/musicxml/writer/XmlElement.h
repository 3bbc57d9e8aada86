// SPDX-License-Identifier: MIT
#pragma once

#include <pugixml.hpp>

#include <string>

namespace zarn::io {

// The few calls that every writer of elements makes. Texts are UTF-8 and have no sign in them that
// XML cannot hold; see `xmlText`.

inline pugi::xml_node addElement(pugi::xml_node parent, const char *name)
{
    return parent.append_child(name);
}

inline pugi::xml_node addElement(pugi::xml_node parent, const char *name, const char *text)
{
    auto node = parent.append_child(name);
    node.append_child(pugi::node_pcdata).set_value(text);
    return node;
}

inline pugi::xml_node addElement(pugi::xml_node parent, const char *name, const std::string &text)
{
    return addElement(parent, name, text.c_str());
}

pugi::xml_node addElement(pugi::xml_node parent, const char *name, long long number);

inline pugi::xml_node addElement(pugi::xml_node parent, const char *name, int number)
{
    return addElement(parent, name, static_cast<long long>(number));
}

/// The element of a name, made when it is not there.
inline pugi::xml_node ensureElement(pugi::xml_node parent, const char *name)
{
    const auto found = parent.child(name);
    return found ? found : parent.append_child(name);
}

template <class Value>
void addAttribute(pugi::xml_node node, const char *name, const Value &value)
{
    node.append_attribute(name).set_value(value);
}
inline void addAttribute(pugi::xml_node node, const char *name, const std::string &value)
{
    addAttribute(node, name, value.c_str());
}

/// A text as XML 1.0 can hold it: without control characters, halves of surrogates and bytes that
/// are no UTF-8 (XML 1.0, production 2).
std::string xmlText(const std::string &text);

/// Takes white space away from both ends of a text, as readers of elements do; whether there was
/// any.
bool trimXmlSpace(std::string &text);

/// A decimal with no more digits than it needs, and at most six behind the point.
std::string decimalText(double value);

} // namespace zarn::io
