// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnTypes.h>
#include <ZarnCore/commands/Bar/ZarnSwapBars.h>
#include <ZarnCore/commands/ZarnCompoundCommand.h>
#include <ZarnCore/model/clip/ZarnClip.h>

namespace zarn {
class AutomationContainer;
}

namespace zarn::cmd {

/// Pastes copied bars, in new columns or over the music of bars, any number of times in a row. What
/// sounds stays the same in another instrument as far as it can; where strings sound otherwise, it
/// is fingered anew. Over music, columns are appended
/// where the score ends too soon.
///
/// A clip of bars of all tracks brings meter, key and form when it is inserted, with automations
/// and those directions that the score has not yet; any other clip brings the music alone. Sends
/// what `CreateBars` does for new columns, what `SwapBars` does, then the events of the automations
/// and directions.
class ZARNCORE_EXPORT PasteBarRange final : public CompoundCommand {
public:
    static constexpr unsigned MostTimes = 99;

    PasteBarRange();
    ~PasteBarRange() override;

    /// In front of a bar or behind the last, or from a bar on; the first track of the clip goes to
    /// `firstTrack`. False for a clip of beats or an empty one, for 0 times or more than
    /// `MostTimes`, for `Merge`, for a place that is not there, for a clip with more tracks or
    /// staves than there are, and for too many bars in all.
    bool init(Score *score, const Clip &clip, unsigned bar, unsigned firstTrack, unsigned times,
              PasteMode mode);

private:
    void plan() override;
    bool isPossible() const;
    unsigned pastedCount() const noexcept;
    unsigned missingCount() const noexcept;
    std::vector<BarStretch> stretches();
    void addEmptyStretches(std::vector<BarStretch> &stretches) const;
    void addAutomations(int track, const AutomationContainer &from);
    void addDirections();
    void addFingerings();

    Score *_target = nullptr;
    Clip _clip;
    unsigned _bar = 0;
    unsigned _firstTrack = 0;
    unsigned _times = 0;
    PasteMode _mode = PasteMode::Insert;
    std::vector<std::pair<unsigned, unsigned>> _open; ///< staves with notes that need a string
};

} // namespace zarn::cmd
