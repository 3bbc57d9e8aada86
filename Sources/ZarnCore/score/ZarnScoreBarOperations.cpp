// SPDX-License-Identifier: MIT
#include <ZarnCore/score/ZarnScoreBarOperations.h>

#include <ZarnCore/commands/Bar/ZarnCreateBars.h>
#include <ZarnCore/commands/Bar/ZarnRemoveBars.h>
#include <ZarnCore/commands/Bar/ZarnSetBarAttribute.h>
#include <ZarnCore/commands/Bar/ZarnSetBarAttributes.h>
#include <ZarnCore/commands/Bar/ZarnSetBarSimileMark.h>
#include <ZarnCore/commands/Bar/ZarnSetClef.h>
#include <ZarnCore/commands/Bar/ZarnUnsetBarAttributes.h>
#include <ZarnCore/commands/Execute.h>

namespace zarn {

bool ScoreBarOperations::createBar(unsigned index)
{
    return createBars(index, 1);
}

bool ScoreBarOperations::createBars(unsigned index, unsigned count)
{
    return execute<cmd::CreateBars>(*this, index, count);
}

bool ScoreBarOperations::removeBar(unsigned index)
{
    return removeBarRange(index, index);
}

bool ScoreBarOperations::removeBarRange(unsigned first, unsigned last)
{
    return execute<cmd::RemoveBars>(*this, first, last);
}

bool ScoreBarOperations::setClef(unsigned track, unsigned staff, unsigned first, unsigned last,
                                 ClefType clef)
{
    return execute<cmd::SetClef>(*this, track, staff, first, last, clef);
}

bool ScoreBarOperations::setBarSimileMark(unsigned track, unsigned staff, unsigned first,
                                          unsigned last, SimileMark mark)
{
    return execute<cmd::SetBarSimileMark>(*this, track, staff, first, last, mark);
}

bool ScoreBarOperations::setBarAttribute(unsigned track, unsigned staff, unsigned first,
                                         unsigned last, BarAttribute id,
                                         const AttributeValue &value)
{
    return execute<cmd::SetBarAttribute>(*this, track, staff, first, last, id, value);
}

bool ScoreBarOperations::setBarAttributes(unsigned track, unsigned staff, unsigned first,
                                          unsigned last,
                                          const std::map<BarAttribute, AttributeValue> &values)
{
    return execute<cmd::SetBarAttributes>(*this, track, staff, first, last, values);
}

bool ScoreBarOperations::unsetBarAttributes(unsigned track, unsigned staff, unsigned first,
                                            unsigned last, const std::set<BarAttribute> &ids)
{
    return execute<cmd::UnsetBarAttributes>(*this, track, staff, first, last, ids);
}

} // namespace zarn
