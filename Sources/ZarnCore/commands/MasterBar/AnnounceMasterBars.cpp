// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/MasterBar/AnnounceMasterBars.h>

#include <ZarnCore/events/ZarnBarEvents.h>
#include <ZarnCore/events/ZarnMasterBarEvents.h>
#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/score/ZarnScoreBase.h>

namespace zarn {

namespace {

/// Runs of bars that have a section now, and of bars that have none.
void announceSections(ScoreBase &score, const void *sender, unsigned first, unsigned last)
{
    const auto &bars = score.scoreModel()->masterTrack()->masterBars();
    for (unsigned i = first; i <= last;) {
        const bool hasSection = bars[i]->hasSection();
        const int from = static_cast<int>(i);
        while (i <= last && bars[i]->hasSection() == hasSection)
            ++i;
        const int to = static_cast<int>(i) - 1;
        if (hasSection)
            score.notify(sender, evt::SetBarSection(from, to));
        else
            score.notify(sender, evt::UnsetBarSection(from, to));
    }
}

} // namespace

void announceMasterBars(ScoreBase &score, const void *sender, unsigned event, unsigned first,
                        unsigned last)
{
    const int from = static_cast<int>(first);
    const int to = static_cast<int>(last);
    const auto tell = [&](const auto &told) { score.notify(sender, told); };
    switch (event) {
    case evt::SetBarSection::TypeNumber:
        return announceSections(score, sender, first, last);
    case evt::MasterBarTimeSignature::TypeNumber:
        return tell(evt::MasterBarTimeSignature(from, to));
    case evt::MasterBarKeySignature::TypeNumber:
        return tell(evt::MasterBarKeySignature(from, to));
    case evt::MasterBarTripletFeel::TypeNumber:
        return tell(evt::MasterBarTripletFeel(from, to));
    case evt::MasterBarFreeTime::TypeNumber:
        return tell(evt::MasterBarFreeTime(from, to));
    case evt::MasterBarDoubleBar::TypeNumber:
        return tell(evt::MasterBarDoubleBar(from, to));
    case evt::MasterBarRepeat::TypeNumber:
        return tell(evt::MasterBarRepeat(from, to));
    case evt::MasterBarAlternateEnding::TypeNumber:
        return tell(evt::MasterBarAlternateEnding(from, to));
    case evt::MasterBarBeamGroups::TypeNumber:
        return tell(evt::MasterBarBeamGroups(from, to));
    case evt::MasterBarFermata::TypeNumber:
        return tell(evt::MasterBarFermata(from, to));
    case evt::BarLayoutRatiosChanged::TypeNumber:
        return tell(evt::BarLayoutRatiosChanged(from, to));
    default:
        return tell(evt::MasterBarAttribute(from, to));
    }
}

} // namespace zarn
