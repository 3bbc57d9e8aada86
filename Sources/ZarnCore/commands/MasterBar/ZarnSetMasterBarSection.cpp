// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/MasterBar/ZarnSetMasterBarSection.h>

namespace zarn::cmd {

SetMasterBarSection::SetMasterBarSection() : SetAttribute(QStringLiteral("SetMasterBarSection")) { }
SetMasterBarSection::~SetMasterBarSection() = default;

bool SetMasterBarSection::init(Score *score, unsigned bar, const Section &section)
{
    ZARN_ASSERT_IN("zarn::cmd::SetMasterBarSection::init", score != NULL);
    addArg(QStringLiteral("Index"), QString::number(bar));
    addArg(QStringLiteral("Letter"), QString::fromStdString(section.letter));
    addArg(QStringLiteral("Text"), QString::fromStdString(section.text));
    addArg(QStringLiteral("Circled"),
           section.isCircled ? QStringLiteral("true") : QStringLiteral("false"));
    return prepare(score, {bar, bar}, section);
}

void SetMasterBarSection::announce()
{
    const int bar = static_cast<int>(places().first);
    if (model().masterTrack()->masterBars()[places().first]->hasSection())
        score().notify(this, evt::SetBarSection(bar, bar));
    else
        score().notify(this, evt::UnsetBarSection(bar, bar));
}

} // namespace zarn::cmd
