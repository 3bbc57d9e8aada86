// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Bar/ZarnModifyBarRange.h>

#include <ZarnCore/ZarnAssert.h>

namespace zarn::cmd {

ModifyBarRange::ModifyBarRange() : SwapBars(QStringLiteral("ModifyBarRange")) { }
ModifyBarRange::~ModifyBarRange() = default;

bool ModifyBarRange::init(Score *score, unsigned track, unsigned staff, unsigned first,
                          Staff::Bars bars)
{
    ZARN_ASSERT_IN("zarn::cmd::ModifyBarRange::init", score != NULL);
    addArg(QStringLiteral("TrackIndex"), QString::number(track));
    addArg(QStringLiteral("StaffIndex"), QString::number(staff));
    addArg(QStringLiteral("First"), QString::number(first));
    addArg(QStringLiteral("Count"), QString::number(bars.size()));
    return prepare(score, {BarStretch{track, staff, first, std::move(bars)}})
        && expectPlace([this] { return isPossible(); });
}

} // namespace zarn::cmd
