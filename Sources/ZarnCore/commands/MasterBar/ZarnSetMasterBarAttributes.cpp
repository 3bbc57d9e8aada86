// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/MasterBar/ZarnSetMasterBarAttributes.h>

namespace zarn::cmd {

SetMasterBarAttributes::SetMasterBarAttributes()
    : SetMasterBarsByTable(QStringLiteral("SetMasterBarAttributes"))
{
}
SetMasterBarAttributes::~SetMasterBarAttributes() = default;

bool SetMasterBarAttributes::init(Score *score, unsigned first, unsigned last,
                                  const std::map<MasterBarAttribute, AttributeValue> &values)
{
    ZARN_ASSERT_IN("zarn::cmd::SetMasterBarAttributes::init", score != NULL);
    return prepare(score, first, last, {values.begin(), values.end()});
}

} // namespace zarn::cmd
