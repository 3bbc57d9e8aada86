// SPDX-License-Identifier: MIT
#include <ZarnLayout/page/RowEngravers.h>

#include <ZarnLayout/page/BeamEngraver.h>
#include <ZarnLayout/page/BeatSigns.h>
#include <ZarnLayout/page/BeatTexts.h>
#include <ZarnLayout/page/BendEngraver.h>
#include <ZarnLayout/page/FormSigns.h>
#include <ZarnLayout/page/LyricLines.h>
#include <ZarnLayout/page/SideItem.h>
#include <ZarnLayout/page/SlurEngraver.h>
#include <ZarnLayout/page/Stretches.h>
#include <ZarnLayout/page/StringLinks.h>
#include <ZarnLayout/page/TieEngraver.h>
#include <ZarnLayout/page/TremoloEngraver.h>
#include <ZarnLayout/page/TupletEngraver.h>
#include <ZarnLayout/page/UprightCutter.h>
#include <ZarnLayout/page/WordSigns.h>

namespace zarn::engraving {

namespace {

using EngraveRow = void (*)(RowDraft &row, const SystemDraft &draft);

/// What is nearer to the notes comes first; what bends round other marks behind those.
constexpr EngraveRow rowEngravers[] = {
    addTremolosBetween, addBends,    addStringLinks, addTies,         addArticulations, addSlurs,
    addWhammyBars,      cutUprights, addTuplets,     addBeatSigns,    addFermatas,      addDynamics,
    addStretches,       addWords,    addLyrics,      addChordSymbols,
};

} // namespace

void addRowSigns(SystemDraft &draft)
{
    for (RowDraft &row : draft.rows)
        row.carriers = carriersOf(row);
    for (const EngraveRow engrave : rowEngravers)
        for (RowDraft &row : draft.rows)
            engrave(row, draft);
    addFormSigns(draft);
}

} // namespace zarn::engraving
