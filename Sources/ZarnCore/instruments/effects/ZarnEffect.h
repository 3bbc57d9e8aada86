// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>

#include <string>
#include <tuple>
#include <vector>

namespace zarn {

/// One audio effect with the settings of its knobs. The effect without identifier is no effect:
/// it is what an empty slot of a chain holds.
class ZARNCORE_EXPORT Effect {
public:
    Effect() = default;
    Effect(std::string identifier, std::string name, std::vector<float> parameters);

    bool isEmpty() const noexcept { return _identifier.empty(); }

    /// Key of the effect, the same in every language: "masterReverb".
    const std::string &identifier() const noexcept { return _identifier; }

    /// English name for people: "Reverb".
    const std::string &name() const noexcept { return _name; }

    const std::vector<float> &parameters() const noexcept { return _parameters; }
    unsigned parameterCount() const noexcept { return static_cast<unsigned>(_parameters.size()); }

    /// A knob's setting, usually from 0 to 1; 0 for a knob that the effect does not have.
    float parameter(unsigned index) const noexcept;

    /// Raises a `CoreException` when there is no such knob or the value is no finite number.
    void setParameter(unsigned index, float value);

    /// Turns all knobs; raises for another number of them and for what is no finite number.
    void setParameters(const std::vector<float> &values);

    /// Whether the settings of all knobs are finite numbers, as documents need them.
    bool isFinite() const noexcept;

    /// A bypassed effect keeps its settings and lets the sound through.
    bool isBypassed() const noexcept { return _bypassed; }
    void setBypassed(bool bypassed) noexcept { _bypassed = bypassed; }

private:
    std::string _identifier;
    std::string _name;
    std::vector<float> _parameters;
    bool _bypassed = false;

    auto fields() const noexcept { return std::tie(_identifier, _name, _parameters, _bypassed); }

public:
    /// All fields; an order for sorted containers.
    friend bool operator==(const Effect &a, const Effect &b) noexcept
    {
        return a.fields() == b.fields();
    }
    friend bool operator!=(const Effect &a, const Effect &b) noexcept { return !(a == b); }
    friend bool operator<(const Effect &a, const Effect &b) noexcept
    {
        return a.fields() < b.fields();
    }
};

} // namespace zarn
