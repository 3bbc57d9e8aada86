// SPDX-License-Identifier: MIT
#include <ZarnCore/instruments/sets/ZarnInstrumentSetElement.h>

#include <ZarnCore/instruments/sets/ZarnInstrumentSet.h>

#include <utility>

namespace zarn {

InstrumentSetElement::InstrumentSetElement(std::string name, std::string soundbankName,
                                           Instrument::Type type, unsigned index)
    : _name(std::move(name)), _soundbankName(std::move(soundbankName)), _type(type), _index(index)
{
}

std::string InstrumentSetElement::typeName() const
{
    return InstrumentSet::typeName(static_cast<InstrumentSet::Type>(_type));
}

} // namespace zarn
