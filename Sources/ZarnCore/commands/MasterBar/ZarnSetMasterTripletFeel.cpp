// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/MasterBar/ZarnSetMasterTripletFeel.h>

namespace zarn::cmd {

SetMasterTripletFeel::SetMasterTripletFeel() : SetAttribute(QStringLiteral("SetMasterTripletFeel"))
{
}
SetMasterTripletFeel::~SetMasterTripletFeel() = default;

bool SetMasterTripletFeel::init(Score *score, unsigned first, unsigned last, TripletFeel feel)
{
    ZARN_ASSERT_IN("zarn::cmd::SetMasterTripletFeel::init", score != NULL);
    addArg(QStringLiteral("First"), QString::number(first));
    addArg(QStringLiteral("Last"), QString::number(last));
    addArg(QStringLiteral("Type"), tripletFeelToQString(feel));
    return feel <= TripletFeel::Scottish16th && prepare(score, {first, last}, feel);
}

} // namespace zarn::cmd
