// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>

#include <cstdint>

namespace zarn::evt {

/// Base of all events: small values that say what changed and where, never owning what they name.
class ZARNCORE_EXPORT Event {
public:
    virtual ~Event();

    /// The event's number, its place in a score's signal table.
    virtual std::uint32_t type() const noexcept = 0;

    /// The name of the event's class, as the log shows it; empty for one that is not in the table.
    virtual const char *typeName() const noexcept;

protected:
    Event() = default;
    Event(const Event &) = default;
    Event &operator=(const Event &) = default;
};

} // namespace zarn::evt
