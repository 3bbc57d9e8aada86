// SPDX-License-Identifier: MIT
#include <ZarnCore/score/ZarnScore.h>

#include <ZarnCore/commands/Bar/ZarnCreateBars.h>
#include <ZarnCore/commands/Bar/ZarnRemoveBars.h>
#include <ZarnCore/commands/Bar/ZarnSetClef.h>
#include <ZarnCore/commands/Execute.h>

namespace zarn {

bool Score::createBar(unsigned index)
{
    return createBars(index, 1);
}

bool Score::createBars(unsigned index, unsigned count)
{
    return execute<cmd::CreateBars>(*this, index, count);
}

bool Score::removeBar(unsigned index)
{
    return removeBarRange(index, index);
}

bool Score::removeBarRange(unsigned first, unsigned last)
{
    return execute<cmd::RemoveBars>(*this, first, last);
}

bool Score::setClef(unsigned track, unsigned staff, unsigned first, unsigned last, ClefType clef)
{
    return execute<cmd::SetClef>(*this, track, staff, first, last, clef);
}

} // namespace zarn
