// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>
#include <ZarnCore/ZarnTypes.h>
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
/// Without notes a beat is a rest, unless it is marked as a place holder: a stretch of time that
/// is kept free and not written.
class ZARNCORE_EXPORT Beat final : public std::enable_shared_from_this<Beat>,
                                   public IndexedChildLink<Voice>,
                                   public ParentNode<Beat> {
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

    bool isRest() const noexcept { return !_placeHolder && !hasNotes(); }

    /// Time without notes that is not written as a rest.
    bool isPlaceHolder() const noexcept { return _placeHolder && !hasNotes(); }
    void setPlaceHolder(bool placeHolder) noexcept { _placeHolder = placeHolder; }

    /// The rest that fills its bar, whatever the meter.
    bool isWholeBarRest() const noexcept { return _wholeBarRest && !hasNotes(); }
    void setWholeBarRest(bool wholeBar) noexcept;

    NoteDynamic dynamic() const { return NoteDynamic(static_cast<NoteDynamic::Value>(_dynamic)); }
    void setDynamic(const NoteDynamic &dynamic)
    {
        _dynamic = static_cast<std::uint8_t>(dynamic.value());
    }

    GraceType graceType() const noexcept { return _graceType; }
    void setGraceType(GraceType type) noexcept;
    bool isGrace() const noexcept { return _graceType != GraceType::None; }

    /// Drawn with a stroke through the stem.
    bool isSlashedGrace() const noexcept { return _slashedGrace; }
    void setSlashedGrace(bool slashed) noexcept { _slashedGrace = slashed; }

    Ottavia ottavia() const noexcept { return _ottavia; }
    void setOttavia(Ottavia ottavia) noexcept { _ottavia = ottavia; }

    /// Free text over the beat, UTF-8.
    const std::string &text() const noexcept { return _words.get().text; }
    void setText(const std::string &text);

    /// Chord symbol over the beat as it reads, such as "C#m7/G#"; UTF-8.
    const std::string &chordSymbol() const noexcept { return _words.get().chordSymbol; }
    void setChordSymbol(const std::string &symbol);

    /// Compares the notes and what is written, not where.
    friend ZARNCORE_EXPORT bool operator==(const Beat &left, const Beat &right);
    friend bool operator!=(const Beat &left, const Beat &right) { return !(left == right); }

private:
    friend struct ChildLinkAccess;
    friend struct ParentNodeAccess;
    friend class ParentNode<Beat>;

    struct Words {
        std::string text;
        std::string chordSymbol;
        friend bool operator==(const Words &left, const Words &right)
        {
            return left.text == right.text && left.chordSymbol == right.chordSymbol;
        }
    };

    void linkOrphans(const std::weak_ptr<Beat> &self) { _notes.link(self); }

    void lengthChanged() const noexcept;
    void notesChanged() const noexcept
    {
        if (_wholeBarRest)
            lengthChanged();
    }

    std::uint8_t _dynamic = 0;
    GraceType _graceType = GraceType::None;
    Ottavia _ottavia = Ottavia::None;
    bool _placeHolder = false;
    bool _wholeBarRest = false;
    bool _slashedGrace = false;
    ChildList<Beat, Note> _notes; ///< close to the links, which are read with it
    RhythmValue _rhythm;
    OnDemand<Words> _words;
};

} // namespace zarn
