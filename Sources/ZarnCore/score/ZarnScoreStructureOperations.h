// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>
#include <ZarnCore/model/ZarnStaff.h>

#include <cstdint>

namespace zarn {

class ScoreModelIndex;
class ScoreModelRange;
struct BarColumns;
struct Clip;
enum class PasteMode : std::uint8_t;

/// What can be done to the order of the music in bars and voices. Indexes are counted from 0,
/// ranges of bars include both ends. The commands of the same names, in `cmd`, say more. Each
/// answers whether it was done: what cannot be done is logged and changes nothing.
class ZARNCORE_EXPORT ScoreStructureOperations {
public:
    /// Puts prepared bars in the place of bars of a staff, from `first` on; takes them over.
    bool modifyBarRange(unsigned track, unsigned staff, unsigned first, Staff::Bars bars);

    /// Puts prepared columns in the place of the columns `first` to `last`; takes over their master
    /// bars and bars. Their number may differ.
    bool modifyBarRangeAllTracks(unsigned first, unsigned last, BarColumns columns);

    /// Exchanges two voices in the bars of a range.
    bool swapVoices(const ScoreModelRange &range, unsigned voice, unsigned other);

    /// Moves beats of one voice to another one, at the same time.
    bool moveVoice(const ScoreModelRange &range, unsigned voice);

    /// Makes the bars of a range as long as the meter asks, by rests at their ends.
    bool completeReduceBarsWithRests(const ScoreModelRange &range);

    /// Pours the music of bars anew into bars of the length that they have now; columns are
    /// inserted where it does not fit.
    bool arrangeBars(unsigned first, unsigned last);

    /// Pastes copied bars (`copyOfBars`) in front of a bar or over the music from it on, the first
    /// track of the clip into `firstTrack`, so many times in a row.
    bool pasteBarRange(const Clip &clip, unsigned bar, unsigned firstTrack, unsigned times,
                       PasteMode mode);

    /// Pastes copied beats (`copyOfBeats`) in front of a beat, over the music from it on, or into
    /// it.
    bool pasteBeatRange(const Clip &clip, const ScoreModelIndex &place, unsigned times,
                        PasteMode mode);

protected:
    ScoreStructureOperations() = default;
    ~ScoreStructureOperations() = default;
};

} // namespace zarn
