// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Bar/ZarnUnsetBarAttributes.h>

#include <ZarnCore/model/ZarnStaff.h>

namespace zarn::cmd {

UnsetBarAttributes::UnsetBarAttributes() : SetBarsByTable(QStringLiteral("UnsetBarAttributes")) { }
UnsetBarAttributes::~UnsetBarAttributes() = default;

bool UnsetBarAttributes::init(Score *score, unsigned track, unsigned staff, unsigned first,
                              unsigned last, const std::set<BarAttribute> &ids)
{
    ZARN_ASSERT_IN("zarn::cmd::UnsetBarAttributes::init", score != NULL);
    Values values;
    for (const BarAttribute id : ids) {
        if (!isAttribute(id) || (id == BarAttribute::Clef && first == 0))
            return false;
        values.emplace_back(id, defaultOf(rowOf(id)));
    }
    return prepare(score, track, staff, first, last, values);
}

AttributeValue UnsetBarAttributes::valueFor(const Staff &staff, unsigned bar, BarAttribute id,
                                            const AttributeValue &given) const
{
    if (id != BarAttribute::Clef)
        return given;
    const Bar &before = *staff.bars()[bar - 1];
    return before.clefChanges().empty() ? before.clef() : before.clefChanges().back().clef;
}

} // namespace zarn::cmd
