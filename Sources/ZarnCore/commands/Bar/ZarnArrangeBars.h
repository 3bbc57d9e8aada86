// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/ZarnCompoundCommand.h>

#include <memory>
#include <vector>

namespace zarn {
class AutomationContainer;
class BarArrangement;
} // namespace zarn

namespace zarn::cmd {

/// Bars the music anew after a change of meter: pours what the voices hold, in its order and with
/// its lengths, into the bars from the first on, and cuts notes at bar lines into tied ones. All
/// voices of all tracks stay together: a voice that is shorter than the others of a column keeps
/// its silence. Where music is left over, columns are inserted behind the last bar; none is
/// removed.
///
/// Bars of their own length, such as a pickup, keep it; bars in free time are left alone, and the
/// music in front of one and behind it is barred for itself. Rests that fill a bar do so again.
/// Simile marks go and the music that they stand for is written out; fermatas, changes of clefs and
/// automations stay at their time.
///
/// Sends what `CreateBars` does for new columns, then `ModifyBarRangeAllTracks`, and what
/// `SwapContent` does, then the events of automations that moved.
class ZARNCORE_EXPORT ArrangeBars final : public CompoundCommand {
public:
    ArrangeBars();
    ~ArrangeBars() override;

    /// False for bars that are not there, for bars without beats and for free time alone.
    bool init(Score *score, unsigned first, unsigned last);

private:
    void plan() override;
    bool isPossible() const;
    void addAutomations(int track);
    const AutomationContainer &container(int track) const;
    std::unique_ptr<Command> moveAutomations(int track) const;

    std::vector<BarArrangement> _parts;
    Score *_target = nullptr;
    unsigned _first = 0;
    unsigned _last = 0;
};

} // namespace zarn::cmd
