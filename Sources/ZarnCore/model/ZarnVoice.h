// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>
#include <ZarnCore/model/ZarnBeat.h>
#include <ZarnCore/model/ZarnChildList.h>
#include <ZarnCore/model/ZarnLazy.h>
#include <ZarnCore/model/ZarnLinkMode.h>
#include <ZarnCore/model/ZarnParentNode.h>
#include <ZarnCore/utils/rational.h>

#include <memory>
#include <vector>

namespace zarn {

class Bar;

/// One line of beats in a bar. Its operations touch this voice alone (with `LinkMode::Mend` also
/// what leads into it and out of it).
///
/// Where the beats start is worked out when it is asked for first, and kept until a beat comes,
/// goes or gets another length. Between changes any number of threads may ask at once.
class ZARNCORE_EXPORT Voice final : public std::enable_shared_from_this<Voice>,
                                    public IndexedChildLink<Bar>,
                                    public ParentNode<Voice> {
public:
    using Beats = std::vector<std::shared_ptr<Beat>>;
    using Notes = Beat::Notes;

    Voice() = default;
    Voice(const Voice &other) = default;
    Voice &operator=(const Voice &other);
    ~Voice() = default;

    /// A copy whose beats know it as their parent.
    std::shared_ptr<Voice> clone() const;

    /// Empty while the voice is detached.
    std::shared_ptr<Bar> parentBar() const noexcept { return lockParent(); }

    /// Voice slot of the bar, 0 to 3; 0 while detached.
    unsigned index() const noexcept { return place(); }

    const Beats &beats() const
    {
        linkChildren();
        return _beats.items();
    }
    unsigned beatCount() const noexcept { return _beats.size(); }
    bool isEmpty() const noexcept { return _beats.size() == 0; }

    /// Empty past the end.
    std::shared_ptr<Beat> beat(unsigned index) const
    {
        linkChildren();
        return _beats.at(index);
    }

    /// Puts detached beats in front of `index`; past the end they are appended.
    void addBeat(const std::shared_ptr<Beat> &beat, LinkMode mode = LinkMode::None);
    void insertBeat(unsigned index, const std::shared_ptr<Beat> &beat,
                    LinkMode mode = LinkMode::None);
    void insertBeats(unsigned index, Beats beats, LinkMode mode = LinkMode::None);

    /// Takes a beat, or the beats `first` to `last` inclusive, out; empty past the end.
    std::shared_ptr<Beat> removeBeat(unsigned index, LinkMode mode = LinkMode::None);
    Beats takeBeats(unsigned first, unsigned last, LinkMode mode = LinkMode::None);
    void clear();

    /// Removes the place holders among the beats `first` to `last` inclusive; returns how many.
    unsigned removePlaceHolderBeats(unsigned first, unsigned last);

    /// Whether a beat may have span marks (`Beat::hasSpanMarks`): true when one has, and also when
    /// one had. Whoever looks for such marks passes all other voices by.
    bool mayHoldSpans() const
    {
        linkChildren();
        return _mayHoldSpans || hasOrphans();
    }

    // Time, in quarters from the start of the bar. Asked of one beat after the other, all of these
    // take constant or logarithmic time. (A whole-bar rest is as long as its bar, which the voice
    // does not hear of: with one among them the beats are added up each time.)

    /// Sum of the beats' lengths.
    utils::rational length() const;

    /// Where a beat of this voice stands as written. A grace beat takes no time: it stands where
    /// the beat does that it leads to. Raises for a beat of another voice.
    utils::rational beatDrawingOffset(const Beat &beat) const;

    /// Sum of the lengths of the beats before this one that are no grace beats.
    utils::rational beatOffsetIgnoringGraceBeats(const Beat &beat) const;

    /// When a beat of this voice sounds: as written, with the triplet feel of the master bar. The
    /// feel moves the middle of a pair of equal values where two beats meet there and neither is
    /// shorter than the value nor cut across by tuplets. Grace beats take no time.
    utils::rational beatSoundingOffset(const Beat &beat) const;

    /// Time from a beat's sounding offset to the next one's.
    utils::rational beatSoundingLength(const Beat &beat) const;

    /// The beat (no grace beat) that starts at an offset; empty when none does.
    std::shared_ptr<Beat> beatStartingAt(const utils::rational &offset) const;

    /// The beat that sounds at an offset, the start included and the end not; empty outside.
    std::shared_ptr<Beat> beatAt(const utils::rational &offset) const;

    /// Places a note from `start` for `length` quarters. Beats that reach over the ends are cut
    /// there, what they held being tied on; a gap behind the last beat is filled with place
    /// holders. Every beat in between gets the note, all but the first tied to the one before;
    /// a note of the same string (of the same key when there is no string) gives way. The note
    /// itself goes into the first beat, copies into the others. Returns those beats in order;
    /// none, and no change, when start is negative or length is not above 0.
    Beats insertNoteWithCut(const std::shared_ptr<Note> &note, const utils::rational &start,
                            const utils::rational &length);

    /// The same for the notes of a chord, from `start` to `end`.
    Beats insertNotesInBeatsBetween(const Notes &notes, const utils::rational &start,
                                    const utils::rational &end);

    /// Compares the beats, not where the voice is.
    friend ZARNCORE_EXPORT bool operator==(const Voice &left, const Voice &right);
    friend bool operator!=(const Voice &left, const Voice &right) { return !(left == right); }

private:
    friend struct ChildLinkAccess;
    friend struct ParentNodeAccess;
    friend class ParentNode<Voice>;

    friend class Beat;

    /// Where each beat starts, and behind the last the length of the voice.
    using Offsets = std::vector<utils::rational>;

    void linkOrphans(const std::weak_ptr<Voice> &self)
    {
        _beats.link(self);
        forgetOffsets();
        _mayHoldSpans = false;
        for (const auto &beat : _beats.items())
            noteSpans(*beat);
    }

    void noteSpans(const Beat &beat) noexcept
    {
        _mayHoldSpans = _mayHoldSpans || beat.hasSpanMarks();
    }
    void joinInserted(unsigned index, unsigned count);
    Offsets sumUp() const;
    const Offsets &offsets(Offsets &scratch) const;
    utils::rational offsetOf(const Beat &beat, const char *function) const;
    utils::rational soundingJoint(unsigned index) const;

    /// To be called whenever the length of a beat may have changed.
    void forgetOffsets() noexcept { _offsets.forget(); }

    bool _mayHoldSpans = false; ///< set when a beat comes or changes; what is copied is asked anew
    ChildList<Voice, Beat> _beats;

    /// No numbers when they depend on more than the beats.
    Lazy<Offsets> _offsets;
};

} // namespace zarn
