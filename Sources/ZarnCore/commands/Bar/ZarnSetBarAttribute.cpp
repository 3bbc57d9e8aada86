// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Bar/ZarnSetBarAttribute.h>

namespace zarn::cmd {

SetBarAttribute::SetBarAttribute() : SetBarsByTable(QStringLiteral("SetBarAttribute")) { }
SetBarAttribute::~SetBarAttribute() = default;

bool SetBarAttribute::init(Score *score, unsigned track, unsigned staff, unsigned first,
                           unsigned last, BarAttribute id, const AttributeValue &value)
{
    ZARN_ASSERT_IN("zarn::cmd::SetBarAttribute::init", score != NULL);
    return prepare(score, track, staff, first, last, {{id, value}});
}

} // namespace zarn::cmd
