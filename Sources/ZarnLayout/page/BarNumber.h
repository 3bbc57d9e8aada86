// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnLayout/page/SystemBuilder.h>

#include <memory>

namespace zarn::engraving {

/// The number of its first bar, which a system has above its first staff; none for bar 1. The only
/// thing in a system that depends on how many bars are in front of it, the names of places apart.
class BarNumber {
public:
    BarNumber(unsigned number, const SystemFrame &frame, const Pen &pen);

    bool isShown() const noexcept { return _isShown; }
    const Ink &ink() const noexcept { return _ink; }

private:
    bool _isShown;
    Ink _ink;
};

/// A built system as it is some bars further on, or back, where its first bar has another number;
/// its drawing is replaced. Null for one that gets or loses its number.
std::shared_ptr<const BuiltSystem> movedBy(const BuiltSystem &system,
                                           std::shared_ptr<const layout::SystemDrawing> &drawing,
                                           std::int32_t bars, unsigned number, const Pen &pen);

} // namespace zarn::engraving
