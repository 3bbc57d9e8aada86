// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>
#include <ZarnCore/instruments/sounds/ZarnInstrument.h>

#include <string>
#include <tuple>

namespace zarn {

/// One sounding element of an instrument set: the snare of a drum kit.
class ZARNCORE_EXPORT InstrumentSetElement {
public:
    InstrumentSetElement() = default;
    InstrumentSetElement(std::string name, std::string soundbankName, Instrument::Type type,
                         unsigned index);

    /// Name for people, which sound-bank patches use too: "Snare"; UTF-8.
    const std::string &name() const noexcept { return _name; }
    void setName(const std::string &name) { _name = name; }

    /// Id of the sound bank that plays it; may be empty.
    const std::string &soundbankName() const noexcept { return _soundbankName; }
    void setSoundbankName(const std::string &name) { _soundbankName = name; }

    Instrument::Type type() const noexcept { return _type; }
    void setType(Instrument::Type type) noexcept { _type = type; }

    /// Place in the set's list of elements.
    unsigned index() const noexcept { return _index; }
    void setIndex(unsigned index) noexcept { _index = index; }

    /// English name of the type for people: "Kick Drum"; a clarinet is a "Harmonica", as its code.
    std::string typeName() const;

    /// All fields, by place first.
    friend bool operator==(const InstrumentSetElement &a, const InstrumentSetElement &b) noexcept
    {
        return a.fields() == b.fields();
    }
    friend bool operator!=(const InstrumentSetElement &a, const InstrumentSetElement &b) noexcept
    {
        return !(a == b);
    }
    friend bool operator<(const InstrumentSetElement &a, const InstrumentSetElement &b) noexcept
    {
        return a.fields() < b.fields();
    }

private:
    std::tuple<unsigned, const std::string &, const std::string &, Instrument::Type>
    fields() const noexcept
    {
        return {_index, _name, _soundbankName, _type};
    }

    std::string _name;
    std::string _soundbankName;
    Instrument::Type _type = Instrument::unknown;
    unsigned _index = 0;
};

} // namespace zarn
