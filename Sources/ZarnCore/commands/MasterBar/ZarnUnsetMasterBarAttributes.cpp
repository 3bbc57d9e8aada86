// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/MasterBar/ZarnUnsetMasterBarAttributes.h>

namespace zarn::cmd {

UnsetMasterBarAttributes::UnsetMasterBarAttributes()
    : SetMasterBarsByTable(QStringLiteral("UnsetMasterBarAttributes"))
{
}
UnsetMasterBarAttributes::~UnsetMasterBarAttributes() = default;

bool UnsetMasterBarAttributes::init(Score *score, unsigned first, unsigned last,
                                    const std::set<MasterBarAttribute> &ids)
{
    ZARN_ASSERT_IN("zarn::cmd::UnsetMasterBarAttributes::init", score != NULL);
    Values values;
    for (const MasterBarAttribute id : ids) {
        const bool hasNone = isAttribute(id) && id != MasterBarAttribute::TimeSignature
            && id != MasterBarAttribute::KeySignature;
        if (!hasNone)
            return false;
        values.emplace_back(id, defaultOf(rowOf(id)));
    }
    return prepare(score, first, last, values);
}

} // namespace zarn::cmd
