// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>
#include <ZarnCore/instruments/sets/ZarnInstrumentSet.h>

#include <rapidjson/fwd.h>

#include <cstddef>
#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

namespace zarn {

/// Every known instrument set.
///
/// Sets are not changed once they are here, so they are found in constant time; several threads
/// may look up at once, none while the library is filled.
class ZARNCORE_EXPORT InstrumentSetLibrary {
public:
    using Sets = std::vector<std::shared_ptr<const InstrumentSet>>;

    InstrumentSetLibrary() = default;
    /// A library may be installed under its address.
    InstrumentSetLibrary(const InstrumentSetLibrary &) = delete;
    InstrumentSetLibrary &operator=(const InstrumentSetLibrary &) = delete;
    ~InstrumentSetLibrary();

    /// Adds the sets of an array behind those that are here. Raises a `CoreException` that names
    /// the place ("instrumentSets[3].elements[2]: ..."), and adds none, when one is broken.
    void parse(const rapidjson::Value &array);

    const Sets &instrumentSets() const noexcept { return _sets; }
    /// Raises for an empty pointer, and changes nothing.
    void setInstrumentSets(Sets sets);

    // The first that fits; empty when there is none.

    std::shared_ptr<const InstrumentSet> findInstrumentSetWithName(const std::string &name) const;
    std::shared_ptr<const InstrumentSet>
    findInstrumentSetWithType(InstrumentSet::Type type) const noexcept;

    /// Makes a library the one that the score model asks, or none with null. It is not owned; it
    /// is uninstalled when it is destroyed. The core installs its own while it lives.
    static void install(const InstrumentSetLibrary *library) noexcept;
    /// Null when none is installed. From any thread.
    static const InstrumentSetLibrary *installed() noexcept;

private:
    void add(Sets sets);

    Sets _sets;
    std::unordered_map<std::string, std::size_t> _placeOfName;
    std::unordered_map<std::uint32_t, std::size_t> _placeOfType;
};

} // namespace zarn
