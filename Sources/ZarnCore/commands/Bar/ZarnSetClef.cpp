// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Bar/ZarnSetClef.h>

namespace zarn {

BarClefs barClefs(const Bar &bar)
{
    return {bar.clef(), bar.clefChanges()};
}

void setBarClefs(Bar &bar, const BarClefs &clefs)
{
    bar.setClef(clefs.clef);
    bar.setClefChanges(clefs.changes);
}

} // namespace zarn

namespace zarn::cmd {

SetClef::SetClef() : SetAttribute(QStringLiteral("SetClef")) { }
SetClef::~SetClef() = default;

bool SetClef::init(Score *score, unsigned track, unsigned staff, unsigned first, unsigned last,
                   ClefType clef)
{
    ZARN_ASSERT_IN("zarn::cmd::SetClef::init", score != NULL);
    addArg(QStringLiteral("TrackIndex"), QString::number(track));
    addArg(QStringLiteral("StaffIndex"), QString::number(staff));
    addArg(QStringLiteral("First"), QString::number(first));
    addArg(QStringLiteral("Last"), QString::number(last));
    addArg(QStringLiteral("Type"), QString::fromStdString(clefToString(clef)));
    const bool isClef = clef > ClefType::None && clef <= ClefType::Neutral;
    return isClef && prepare(score, {track, staff, first, last}, {clef, {}});
}

} // namespace zarn::cmd
