// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>
#include <ZarnCore/ZarnTypes.h>
#include <ZarnCore/model/ZarnBeatDetails.h>
#include <ZarnCore/model/ZarnBeatMarks.h>
#include <ZarnCore/model/ZarnChildList.h>
#include <ZarnCore/model/ZarnNote.h>
#include <ZarnCore/model/ZarnOnDemand.h>
#include <ZarnCore/model/ZarnParentNode.h>
#include <ZarnCore/model/notes/ZarnInstrumentNotes.h>
#include <ZarnCore/music/ZarnNoteDynamic.h>
#include <ZarnCore/music/ZarnRhythmValue.h>
#include <ZarnCore/utils/rational.h>

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace zarn {

class Voice;

/// One rhythmic event of a voice: a note, a chord, a rest or a place holder.
///
/// Without notes a beat is a rest, unless it is marked as a place holder, a stretch of time that is
/// kept free and not written, or slaps the dead strings.
class ZARNCORE_EXPORT Beat final : public std::enable_shared_from_this<Beat>,
                                   public IndexedChildLink<Voice>,
                                   public ParentNode<Beat>,
                                   public BeatMarkAccessors<Beat> {
public:
    using Notes = std::vector<std::shared_ptr<Note>>;

    Beat() = default;
    explicit Beat(const RhythmValue &rhythm);
    Beat(const Beat &other) = default;
    Beat &operator=(const Beat &other);
    ~Beat() = default;

    /// A copy whose notes know it as their parent.
    std::shared_ptr<Beat> clone() const;

    /// Empty while the beat is detached.
    std::shared_ptr<Voice> parentVoice() const noexcept { return lockParent(); }

    /// Place in the voice; 0 while detached.
    unsigned index() const noexcept { return place(); }

    /// The notes, in the order in which they were added.
    const Notes &notes() const
    {
        linkChildren();
        return _notes.items();
    }
    unsigned noteCount() const noexcept { return _notes.size(); }
    bool hasNotes() const noexcept { return _notes.size() != 0; }

    /// Empty past the end.
    std::shared_ptr<Note> note(unsigned index) const
    {
        linkChildren();
        return _notes.at(index);
    }

    /// The first note on a string, or of a MIDI key; empty when there is none.
    std::shared_ptr<Note> noteOnString(int string) const;
    std::shared_ptr<Note> noteWithMidi(int midi) const;

    /// Adds a detached note behind the others, or in front of `index`.
    void addNote(const std::shared_ptr<Note> &note);
    void insertNote(unsigned index, const std::shared_ptr<Note> &note);
    void insertNotes(unsigned index, Notes notes);

    /// Takes a note out and returns it; empty past the end. The other form answers whether the
    /// beat held the note.
    std::shared_ptr<Note> removeNote(unsigned index);
    bool removeNote(const std::shared_ptr<Note> &note);

    /// Takes all notes out, in order.
    Notes takeNotes();

    /// Place of a note in the beat; -1 when it is not here.
    int indexOfNote(const Note &note) const noexcept;

    const RhythmValue &rhythmValue() const noexcept { return _rhythm; }
    void setRhythmValue(const RhythmValue &rhythm);

    /// Time that the beat takes in its bar, in quarters: the rhythm's length, 0 for a grace beat,
    /// the length of the bar for a whole-bar rest.
    utils::rational length() const;

    bool isRest() const noexcept
    {
        return !hasNotes() && !hasPlaceHolderMark() && !isDeadSlapped();
    }

    /// Time without notes that is not written as a rest.
    bool isPlaceHolder() const noexcept { return hasPlaceHolderMark() && !hasNotes(); }

    /// The rest that fills its bar, whatever the meter.
    bool isWholeBarRest() const noexcept { return hasWholeBarRestMark() && !hasNotes(); }

    // These change the length of the beat, which its voice hears of.

    void setWholeBarRest(bool wholeBar);
    void setGraceType(GraceType type);

    // The voice hears of pedals and of all else that `hasSpanMarks` names.

    void setPedal(PedalChange change);

    /// Whether it is marked with what leads on to other beats and is marked at its ends alone: a
    /// pedal, a line behind words, a numbered slur or a syllable.
    bool hasSpanMarks() const noexcept
    {
        return (_marks & spanMask) != 0 || (hasDetails() && hasSpanDetails());
    }

    /// All that the accessors of the marks reach, as one value.
    BeatMarks marks() const noexcept { return BeatMarks(_marks); }
    void setMarks(const BeatMarks &marks) noexcept;

    // What few beats have. The setters raise for a value that is not valid.

    const BeatDetails &details() const noexcept { return _details.get(); }
    void setDetails(BeatDetails details);
    bool hasDetails() const noexcept { return _details.isHeld(); }

    /// Whether it has none of the attributes that most beats of most scores lack.
    bool isCommon() const noexcept { return (_marks & ~commonMask) == 0 && !hasDetails(); }

    // Free texts over and under the beat, UTF-8; each line is words of its own.

    const std::string &text() const noexcept { return details().text; }
    void setText(const std::string &text);
    const std::string &textBelow() const noexcept { return details().textBelow; }
    void setTextBelow(const std::string &text);

    /// Dashes behind one of the texts, or the end of such dashes.
    TextSpan textSpan() const noexcept { return details().textSpan; }
    void setTextSpan(TextSpan span);

    const ChordMark &chord() const noexcept { return details().chord; }
    void setChord(const ChordMark &chord);

    /// The symbol of the chord alone.
    const std::string &chordSymbol() const noexcept { return chord().symbol; }
    void setChordSymbol(const std::string &symbol);

    // Chords that are struck note by note; a beat has one or the other.

    Strum brush() const noexcept { return strum(brushDirection()); }
    void setBrush(const Strum &strum);
    Strum arpeggio() const noexcept { return strum(arpeggioDirection()); }
    void setArpeggio(const Strum &strum);

    const WhammyBar &whammyBar() const noexcept { return details().whammyBar; }
    void setWhammyBar(const WhammyBar &bar);

    Barre barre() const noexcept { return details().barre; }
    void setBarre(const Barre &barre);

    const Syllables &lyrics() const noexcept { return details().lyrics; }
    void setLyrics(const Syllables &syllables);

    // The curve of the slur of the marks that begins at the beat or goes on over it, else of the
    // one that ends there; all of it is drawn as its first beat says.

    SlurLine slurLine() const noexcept { return details().slurLine; }
    void setSlurLine(SlurLine line);
    SlurSide slurSide() const noexcept { return details().slurSide; }
    void setSlurSide(SlurSide side);

    // The side of the level and of the attack, and that of the hairpin: all of one is drawn as its
    // first beat says.

    MarkSide dynamicSide() const noexcept { return details().dynamicSide; }
    void setDynamicSide(MarkSide side);
    MarkSide hairpinSide() const noexcept { return details().hairpinSide; }
    void setHairpinSide(MarkSide side);

    /// Slurs beside the one of the marks.
    const SlurEnds &slurEnds() const noexcept { return details().slurEnds; }
    void setSlurEnds(const SlurEnds &ends);

    /// Compares the notes and what is written, not where.
    friend ZARNCORE_EXPORT bool operator==(const Beat &left, const Beat &right);
    friend bool operator!=(const Beat &left, const Beat &right) { return !(left == right); }

private:
    friend struct ChildLinkAccess;
    friend struct ParentNodeAccess;
    friend class ParentNode<Beat>;

    friend class BeatMarkAccessors<Beat>;

    Strum strum(Direction direction) const noexcept;
    void setStrum(const Strum &strum, Direction other);

    void linkOrphans(const std::weak_ptr<Beat> &self) { _notes.link(self); }

    bool hasSpanDetails() const noexcept;
    void spansChanged() const noexcept;
    void lengthChanged() const noexcept;
    void notesChanged() const noexcept
    {
        if (hasWholeBarRestMark())
            lengthChanged();
    }

    ChildList<Beat, Note> _notes; ///< close to the links, which are read with it
    std::uint64_t _marks = 0;
    RhythmValue _rhythm;
    OnDemand<BeatDetails> _details;
};

} // namespace zarn
