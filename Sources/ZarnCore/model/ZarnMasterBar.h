// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>
#include <ZarnCore/ZarnTypesSigns.h>
#include <ZarnCore/model/ZarnChildList.h>
#include <ZarnCore/model/ZarnOnDemand.h>
#include <ZarnCore/model/attributes/ZarnBeamGroups.h>
#include <ZarnCore/model/attributes/ZarnFermataMark.h>
#include <ZarnCore/model/form/ZarnTripletFeel.h>
#include <ZarnCore/music/ZarnKeySignature.h>
#include <ZarnCore/music/ZarnTimeSignature.h>
#include <ZarnCore/utils/rational.h>

#include <QString>

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

namespace zarn {

class Bar;
class MasterTrack;

/// A named part of the form: a rehearsal letter and a title, UTF-8; both empty for none.
struct Section {
    std::string letter;
    std::string text;
    bool isCircled = false; ///< the letter: it stands in a circle, not in a box

    bool isEmpty() const noexcept { return letter.empty() && text.empty(); }
    friend bool operator==(const Section &left, const Section &right)
    {
        return left.letter == right.letter && left.text == right.text
            && left.isCircled == right.isCircled;
    }
    friend bool operator!=(const Section &left, const Section &right) { return !(left == right); }
};

/// What all staves share of one bar.
class ZARNCORE_EXPORT MasterBar final : public std::enable_shared_from_this<MasterBar>,
                                        public IndexedChildLink<MasterTrack> {
public:
    /// Passes that alternate endings can name, 1 to 32.
    static constexpr unsigned MaxEndings = 32;

    MasterBar() = default;
    MasterBar(const MasterBar &other) = default;
    MasterBar &operator=(const MasterBar &other) = default;
    ~MasterBar() = default;

    std::shared_ptr<MasterBar> clone() const;

    /// Empty while the master bar is detached.
    std::shared_ptr<MasterTrack> parentMasterTrack() const noexcept { return lockParent(); }

    /// Bar number, counted from 0; 0 while detached.
    unsigned index() const noexcept { return place(); }

    /// The bar of one staff in this column; empty when there is none.
    std::shared_ptr<Bar> barOfTrack(unsigned trackIndex, unsigned staffIndex = 0) const;

    /// Beam groups that do not fill a bar of another meter are dropped, and so is the sign of the
    /// one before.
    const TimeSignature &timeSignature() const noexcept { return _timeSignature; }
    void setTimeSignature(const TimeSignature &signature);

    /// How the meter is written where it or its sign is another than in the bar before.
    MeterSign meterSign() const noexcept { return _meterSign; }
    void setMeterSign(MeterSign sign) noexcept { _meterSign = sign; }

    /// Key at concert pitch.
    const KeySignature &concertKeySignature() const noexcept { return _keySignature; }
    void setConcertKeySignature(const KeySignature &signature) { _keySignature = signature; }

    /// Length in quarters: what the time signature says unless an own length is set, as for a
    /// pickup bar or the halves of a divided bar.
    utils::rational length() const;
    const std::optional<utils::rational> &ownLength() const noexcept { return _ownLength; }

    /// Raises for a length that is not above 0.
    void setOwnLength(const std::optional<utils::rational> &length);

    TripletFeel tripletFeel() const noexcept { return _tripletFeel; }
    void setTripletFeel(TripletFeel feel) noexcept { _tripletFeel = feel; }
    static QString tripletFeelToQString(TripletFeel feel)
    {
        return zarn::tripletFeelToQString(feel);
    }

    bool isFreeTime() const noexcept { return _freeTime; }
    void setFreeTime(bool freeTime) noexcept { _freeTime = freeTime; }

    /// Ends with a double bar line.
    bool hasDoubleBar() const noexcept { return _doubleBar; }
    void setDoubleBar(bool doubleBar) noexcept { _doubleBar = doubleBar; }

    bool isRepeatStart() const noexcept { return _repeatStart; }
    void setRepeatStart(bool start) noexcept { _repeatStart = start; }

    bool isRepeatEnd() const noexcept { return _repeatCount != 0; }

    /// How often the repeat that ends here is played in all, 2 or more; 0 when none ends. Raises
    /// for 1 and above 255.
    unsigned repeatCount() const noexcept { return _repeatCount; }
    void setRepeatCount(unsigned count);

    /// Passes of a repeat in which the bar is played, bit 0 for the first; 0 for every pass. Each
    /// bar under an ending's bracket carries them.
    std::uint32_t alternateEndings() const noexcept { return _alternateEndings; }
    void setAlternateEndings(std::uint32_t passes) noexcept { _alternateEndings = passes; }
    bool isPlayedInPass(unsigned pass) const noexcept;

    /// What stands under the bracket of an ending that begins here, UTF-8; empty for the numbers of
    /// its passes.
    const std::string &endingText() const noexcept { return _details.get().endingText; }
    void setEndingText(const std::string &text);

    /// The bracket of the ending is not drawn over this bar, though its passes hold.
    bool isEndingHidden() const noexcept { return _endingHidden; }
    void setEndingHidden(bool hidden) noexcept { _endingHidden = hidden; }

    /// Directions that stand here while the slot of their kind, which is the master track's, has
    /// another bar: a bit for each `DirectionMark`. Raises for bits that are none.
    std::uint32_t furtherDirections() const noexcept { return _details.get().furtherDirections; }
    void setFurtherDirections(std::uint32_t marks);

    /// What the jumps at the end of the bar, and its fine, read as, UTF-8: a line for each, in the
    /// order of `DirectionMark`; an empty one for the words of its kind. See `endDirections`.
    const std::string &jumpText() const noexcept { return _details.get().jumpText; }
    void setJumpText(const std::string &text);

    /// Begins a movement: no repeat and no jump leads from behind this bar to one before it, and
    /// none ahead past it. The first bar of a score begins one without saying so.
    bool isMovementStart() const noexcept { return _movementStart; }
    void setMovementStart(bool start) noexcept { _movementStart = start; }

    const Section &section() const noexcept { return _section; }
    /// A circle around nothing is none.
    void setSection(const Section &section)
    {
        _section = section;
        _section.isCircled = section.isCircled && !section.letter.empty();
    }
    bool hasSection() const noexcept { return !_section.isEmpty(); }

    /// How beams are grouped. Raises for groups that do not fill a bar of the meter.
    const BeamGroups &beamGroups() const noexcept { return _details.get().beamGroups; }
    void setBeamGroups(const BeamGroups &groups);

    /// Raises for marks out of order. Those behind the end of the bar are kept, unseen.
    const FermataMarks &fermatas() const noexcept { return _details.get().fermatas; }
    void setFermatas(const FermataMarks &marks);

    BarLine barLine() const noexcept { return _barLine; }
    void setBarLine(BarLine line) noexcept { _barLine = line; }

    /// Width of the column among the others of its system, in the full score: 0.1 to 10, and 1 for
    /// what its notes ask for. Raises outside.
    float layoutRatio() const noexcept { return _layoutRatio; }
    void setLayoutRatio(float ratio);

    /// Compares what is written, not where.
    friend ZARNCORE_EXPORT bool operator==(const MasterBar &left, const MasterBar &right);
    friend bool operator!=(const MasterBar &left, const MasterBar &right)
    {
        return !(left == right);
    }

private:
    friend struct ChildLinkAccess;

    /// What few bars have.
    struct Details {
        BeamGroups beamGroups;
        FermataMarks fermatas;
        std::string endingText;
        std::string jumpText;
        std::uint32_t furtherDirections = 0;

        friend bool operator==(const Details &left, const Details &right) noexcept
        {
            return left.beamGroups == right.beamGroups && left.fermatas == right.fermatas
                && left.endingText == right.endingText && left.jumpText == right.jumpText
                && left.furtherDirections == right.furtherDirections;
        }
    };

    TimeSignature _timeSignature;
    KeySignature _keySignature{0, true, true};
    std::optional<utils::rational> _ownLength;
    Section _section;
    std::uint32_t _alternateEndings = 0;
    std::uint8_t _repeatCount = 0;
    TripletFeel _tripletFeel = TripletFeel::NoTripletFeel;
    bool _freeTime = false;
    bool _doubleBar = false;
    bool _repeatStart = false;
    bool _movementStart = false;
    bool _endingHidden = false;
    BarLine _barLine = BarLine::Auto;
    MeterSign _meterSign = MeterSign::Numbers;
    float _layoutRatio = 1;
    OnDemand<Details> _details;
};

} // namespace zarn
