// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnTypes.h>
#include <ZarnCore/commands/ZarnScoreCommand.h>
#include <ZarnCore/commands/ZarnTouchedBars.h>
#include <ZarnCore/model/ZarnMasterTrack.h>
#include <ZarnCore/model/ZarnStaff.h>

#include <map>
#include <memory>
#include <set>
#include <utility>
#include <vector>

namespace zarn {

class KeptJoints;

/// Bars of a staff that are to stand in the place of as many others; detached.
struct BarStretch {
    unsigned track = 0;
    unsigned staff = 0;
    unsigned first = 0;
    Staff::Bars bars;

    /// Whether the place keeps its clefs and ottavas: for music of another instrument.
    bool keepsClefs = false;

    /// Every so many bars, as far as there are, another copy of the same music begins: what leads
    /// over is mended there too. 0 for one that is whole.
    unsigned copyLength = 0;
};

/// Base of commands that put prepared bars in the place of bars of staves, and master bars in the
/// place of others, as many as there were. What leads over the bar lines around them is mended;
/// double simile marks that lose a half go.
///
/// Sends `ModifyBarRange` for the bars of each staff, or `ModifyBarRangeAllTracks` when all are
/// replaced, and `ModifyBarRange` for a bar beside them where a link ended; then, each for the bars
/// where it is different, `SimileMarkBarChanged`, `TrackClefChanged`, `BarLayoutRatiosChanged`,
/// and the events of the master bars' attributes.
class ZARNCORE_EXPORT SwapBars : public ScoreCommand {
public:
    ~SwapBars() override;

protected:
    explicit SwapBars(const QString &name);

    /// Takes the bars over. False for no bars, and for a bar that is null, twice among them or part
    /// of a staff.
    bool prepare(Score *score, std::vector<BarStretch> stretches);

    /// The same for whole columns from `first` on: one stretch for each staff, and master bars.
    bool prepareColumns(Score *score, std::vector<BarStretch> stretches, unsigned first,
                        MasterTrack::MasterBars masterBars);

    /// Whether the bars have a place.
    bool isPossible() const;

private:
    using Runs = std::vector<std::pair<unsigned, unsigned>>;

    void apply() override;
    void revert() override;
    void announceApplied() override;
    void announceReverted() override;
    bool areComplete() const;
    Staff &staffOf(const BarStretch &stretch) const;
    void exchange();
    void mendSimiles(const BarStretch &stretch);
    void compareBars();
    void compareMasterBars();

    std::vector<BarStretch> _stretches; ///< with the bars that are out
    unsigned _firstMasterBar = 0;
    MasterTrack::MasterBars _masterBars; ///< those that are out
    bool _areColumns = false;

    /// Marks of bars beside the stretches that lost their other half.
    struct LostHalf {
        unsigned track;
        unsigned staff;
        unsigned bar;
        SimileMark mark;
    };
    std::vector<LostHalf> _lostHalves;
    std::unique_ptr<KeptJoints> _joints;
    TouchedBars _touched;

    // What differs, besides the beats, and where.
    std::vector<Runs> _clefs; ///< of each stretch
    Runs _ratios;
    std::map<unsigned, std::pair<unsigned, unsigned>> _masterEvents; ///< first and last bar
    bool _isFormChanged = false;
};

} // namespace zarn
