// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/MasterBar/ZarnSetMasterBarAttribute.h>

namespace zarn::cmd {

SetMasterBarAttribute::SetMasterBarAttribute()
    : SetMasterBarsByTable(QStringLiteral("SetMasterBarAttribute"))
{
}
SetMasterBarAttribute::~SetMasterBarAttribute() = default;

bool SetMasterBarAttribute::init(Score *score, unsigned first, unsigned last, MasterBarAttribute id,
                                 const AttributeValue &value)
{
    ZARN_ASSERT_IN("zarn::cmd::SetMasterBarAttribute::init", score != NULL);
    return prepare(score, first, last, {{id, value}});
}

} // namespace zarn::cmd
