// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/ZarnSetBarsByTable.h>

#include <set>

namespace zarn::cmd {

/// Takes attributes off bars of a staff. A clef is taken off in favour of the one that holds in
/// front of the bars, so that the first bar keeps its own.
class ZARNCORE_EXPORT UnsetBarAttributes final : public SetBarsByTable {
public:
    UnsetBarAttributes();
    ~UnsetBarAttributes() override;

    /// The bars `first` to `last`; see `SetBarsByTable` for what is refused.
    bool init(Score *score, unsigned track, unsigned staff, unsigned first, unsigned last,
              const std::set<BarAttribute> &ids);

private:
    AttributeValue valueFor(const Staff &staff, unsigned bar, BarAttribute id,
                            const AttributeValue &given) const override;
};

} // namespace zarn::cmd
