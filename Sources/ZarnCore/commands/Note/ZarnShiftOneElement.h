// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnTypes.h>
#include <ZarnCore/commands/ZarnMoveNotes.h>
#include <ZarnCore/instruments/sets/ZarnInstrumentSet.h>

#include <memory>

namespace zarn::cmd {

/// Puts percussion notes on the next place of the staff that an articulation of their instrument
/// set has; `Direction` is the number of `Shift`. What they are tied to goes along.
template <unsigned Direction>
class ZARNCORE_EXPORT ShiftOneElement final : public MoveNotes {
public:
    ShiftOneElement();
    ~ShiftOneElement() override;

    /// The percussion notes of the range, as one. False when the range has none, when for one of
    /// them there is no further place, and when a place is held by a note that stays.
    bool init(Score *score, const ScoreModelRange &range);

private:
    void enterStaff(const Staff &staff) override;
    bool takes(const MarkedPlace &place, const Note &note) const override;
    std::optional<NoteMove> moved(const MarkedPlace &place, const Note &note,
                                  const NotePosition &from) const override;
    int lineOf(const Note &note) const;

    std::shared_ptr<const InstrumentSet> _set; ///< of the staff at hand
};

extern template class ShiftOneElement<0>;
extern template class ShiftOneElement<1>;

} // namespace zarn::cmd
