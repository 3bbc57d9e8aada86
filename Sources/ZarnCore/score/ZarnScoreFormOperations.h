// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>
#include <ZarnCore/ZarnTypesNotation.h>
#include <ZarnCore/utils/rational.h>

#include <QString>

#include <cstdint>
#include <map>
#include <set>

namespace zarn {

class AttributeValue;
class BeamGroups;
class KeySignature;
class ScoreModelIndex;
class TimeSignature;
enum class DirectionMark : std::uint8_t;
struct FermataMark;
enum class MasterBarAttribute : std::uint8_t;
enum class TripletFeel : std::uint8_t;

/// What can be done to meter, key and form of a score: what all tracks share of a bar. Ranges of
/// bars include both ends; texts may hold anything. Each answers whether it was done: what cannot
/// be done is logged and changes nothing.
class ZARNCORE_EXPORT ScoreFormOperations {
public:
    bool setMasterTimeSignature(unsigned first, unsigned last, const TimeSignature &signature);

    /// Sets the key at concert pitch; the notes keep their pitches.
    bool setMasterKeySignature(unsigned first, unsigned last, const KeySignature &signature);
    bool setMasterTripletFeel(unsigned first, unsigned last, TripletFeel feel);
    bool setMasterBarFreeTime(unsigned first, unsigned last, bool isFreeTime);
    bool setMasterBarDoubleBar(unsigned bar, bool hasDoubleBar);
    bool setBarRepeatStart(unsigned bar, bool isRepeatStart);

    /// Ends a repeat that is played `count` times in all, 2 or more; 0 for no repeat.
    bool setBarRepeatEnd(unsigned bar, unsigned count);

    /// Plays bars only in some passes of a repeat, bit 0 for the first; 0 for every pass.
    bool setBarAlternateEndings(unsigned first, unsigned last, std::uint32_t passes);

    /// Begins a movement at a bar, or joins it to the movement before: repeats and jumps stay
    /// inside of a movement.
    bool setMasterBarMovementStart(unsigned bar, bool isMovementStart);

    /// Groups beams, or with no groups leaves that to the meter.
    bool setMasterBarBeamGroups(unsigned first, unsigned last, const BeamGroups &groups);

    /// Puts a fermata over the time at which a beat starts, or takes it away with `Fermata::None`.
    bool setFermata(const ScoreModelIndex &beat, Fermata kind);

    /// Makes the fermata at a position of a bar, in quarters, another one or moves it.
    bool editFermata(unsigned bar, const utils::rational &position, const FermataMark &mark);

    /// Moves a direction to a bar, or takes it away with -1. Further ones of its kind, which are
    /// attributes of their bars, stay.
    bool setBarDirection(DirectionMark mark, int bar);

    /// Makes these, and no others, the directions of a bar.
    bool setBarDirections(int bar, const std::set<DirectionMark> &marks);

    /// Starts a section of the form at a bar, under a rehearsal letter in a box or a circle, a
    /// title, or both.
    bool setMasterBarSection(unsigned bar, const QString &letter, const QString &text,
                             bool isCircled = false);
    bool unsetMasterBarSection(unsigned bar);

    // Attributes by their ids in the table of columns.

    bool setMasterBarAttribute(unsigned first, unsigned last, MasterBarAttribute id,
                               const AttributeValue &value);
    bool setMasterBarAttributes(unsigned first, unsigned last,
                                const std::map<MasterBarAttribute, AttributeValue> &values);
    bool unsetMasterBarAttributes(unsigned first, unsigned last,
                                  const std::set<MasterBarAttribute> &ids);

protected:
    ScoreFormOperations() = default;
    ~ScoreFormOperations() = default;
};

} // namespace zarn
