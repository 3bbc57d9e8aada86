// SPDX-License-Identifier: MIT
#include <ZarnCore/io/musicxml/writer/ElementStock.h>

#include <cstdint>
#include <string>

namespace zarn::io {

void ElementStock::start(pugi::xml_document &document)
{
    document.reset();
    _elements = document.append_child("stock");
    _items.fill({});
    _copyCount = 0;
}

template <class MakeXml>
pugi::xml_node ElementStock::add(pugi::xml_node parent, const Item &wanted, MakeXml makeXml)
{
    const auto hash = reinterpret_cast<std::uintptr_t>(wanted.name)
        + 3 * reinterpret_cast<std::uintptr_t>(wanted.text)
        + 5 * static_cast<std::uintptr_t>(wanted.number);
    const auto isAnother = [&wanted](const Item &item) {
        return item.name != wanted.name || item.text != wanted.text || item.number != wanted.number;
    };
    auto at = (hash ^ hash >> 7) % _items.size();
    for (int tries = 0; tries < mostTries && _items[at].name && isAnother(_items[at]); ++tries)
        at = (at + 1) % _items.size();
    auto &item = _items[at];
    if (isAnother(item)) {
        item = wanted;
        const std::string xml = makeXml();
        _elements.append_buffer(xml.data(), xml.size(),
                                pugi::parse_minimal | pugi::parse_embed_pcdata,
                                pugi::encoding_utf8);
        item.element = _elements.last_child();
    }
    ++_copyCount;
    return parent.append_copy(item.element);
}

pugi::xml_node ElementStock::addEmpty(pugi::xml_node parent, const char *name)
{
    return add(parent, {name, nullptr}, [&] { return std::string("<") + name + "/>"; });
}

void ElementStock::addText(pugi::xml_node parent, const char *name, const char *text)
{
    add(parent, {name, text},
        [&] { return std::string("<") + name + ">" + text + "</" + name + ">"; });
}

void ElementStock::addNumber(pugi::xml_node parent, const char *name, long long number)
{
    add(parent, {name, nullptr, number},
        [&] { return std::string("<") + name + ">" + std::to_string(number) + "</" + name + ">"; });
}

void ElementStock::addNumbered(pugi::xml_node parent, const char *name, int number,
                               const char *text)
{
    add(parent, {name, text, number}, [&] {
        return std::string("<") + name + " number=\"" + std::to_string(number) + "\">" + text + "</"
            + name + ">";
    });
}

} // namespace zarn::io
