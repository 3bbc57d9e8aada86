// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Bar/ZarnSetBarAttributes.h>

namespace zarn::cmd {

SetBarAttributes::SetBarAttributes() : SetBarsByTable(QStringLiteral("SetBarAttributes")) { }
SetBarAttributes::~SetBarAttributes() = default;

bool SetBarAttributes::init(Score *score, unsigned track, unsigned staff, unsigned first,
                            unsigned last, const std::map<BarAttribute, AttributeValue> &values)
{
    ZARN_ASSERT_IN("zarn::cmd::SetBarAttributes::init", score != NULL);
    return prepare(score, track, staff, first, last, {values.begin(), values.end()});
}

} // namespace zarn::cmd
