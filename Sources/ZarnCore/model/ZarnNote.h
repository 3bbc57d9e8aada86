// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>
#include <ZarnCore/ZarnTypes.h>
#include <ZarnCore/model/ZarnChildList.h>
#include <ZarnCore/model/ZarnNoteDetails.h>
#include <ZarnCore/model/ZarnNoteMarks.h>
#include <ZarnCore/model/ZarnOnDemand.h>
#include <ZarnCore/model/notes/ZarnWrittenPitch.h>
#include <ZarnCore/music/ZarnPitchClass.h>

#include <cstdint>
#include <memory>
#include <optional>

namespace zarn {

class Beat;

/// One note of a beat.
///
/// A setter given a number outside its range raises.
class ZARNCORE_EXPORT Note final : public std::enable_shared_from_this<Note>,
                                   public ChildLink<Beat>,
                                   public NoteMarkAccessors<Note> {
public:
    static constexpr int Unset = -1;
    static constexpr int NoStaffLine = -128;
    static constexpr int MaxArticulation = 2047;

    Note() noexcept;
    explicit Note(int midi);
    Note(const Note &other) = default;
    Note &operator=(const Note &other) = default;
    ~Note() = default;

    std::shared_ptr<Note> clone() const;

    /// Empty while the note is detached.
    std::shared_ptr<Beat> parentBeat() const noexcept { return lockParent(); }

    /// MIDI key of the pitch as written, 0 to 127 (the track's transposition leads to what
    /// sounds); -1 when unset. For an unpitched note its General MIDI percussion key.
    int midi() const noexcept { return _midi; }
    void setMidi(int midi);

    /// How the written pitch is spelled; nothing when the key signature decides.
    std::optional<PitchClass> spelling() const;
    void setSpelling(const PitchClass &pitchClass);
    void clearSpelling() noexcept { _spelling = NoSpelling; }

    /// The same as a number: letter (C = 0) times 5 plus accidental (double flat = 0);
    /// `NoSpelling` for none.
    std::uint8_t spellingNumber() const noexcept { return static_cast<std::uint8_t>(_spelling); }
    void setSpellingNumber(std::uint8_t number);
    static constexpr std::uint8_t NoSpelling = 0xFF;

    /// String of the staff's tuning, 0 the lowest; -1 when unset.
    int string() const noexcept { return _string; }
    void setString(int string);

    /// Fret above the nut or capo, 0 the open string; -1 when unset.
    int fret() const noexcept { return _fret; }
    void setFret(int fret);

    /// Number of the articulation in the track's instrument set, up to 2047; -1 when unset.
    int percussionArticulation() const noexcept { return _articulation; }
    void setPercussionArticulation(int articulation);

    /// Place on the staff of an unpitched note: half spaces above the bottom line, -127 to 127;
    /// `NoStaffLine` when unset.
    int staffLine() const noexcept { return _staffLine; }
    void setStaffLine(int line);

    NoteHead noteHead() const noexcept { return static_cast<NoteHead>(_head); }
    void setNoteHead(NoteHead head) noexcept { _head = static_cast<std::uint32_t>(head); }

    HeadFill headFill() const noexcept { return static_cast<HeadFill>(_headFill); }
    void setHeadFill(HeadFill fill);

    /// All that the accessors of the marks reach, as one value.
    NoteMarks marks() const noexcept { return NoteMarks(_marks); }
    void setMarks(const NoteMarks &marks) noexcept { _marks = marks._marks; }

    // What few notes have. The setters raise for a value that is not valid.

    const NoteDetails &details() const noexcept { return _details.get(); }
    void setDetails(NoteDetails details);
    bool hasDetails() const noexcept { return _details.isHeld(); }

    /// Whether it has none of the attributes that most notes of most scores lack.
    bool isCommon() const noexcept
    {
        return (_marks & ~commonMask) == 0 && _headFill == 0 && !hasDetails();
    }

    const Bend &bend() const noexcept { return details().bend; }
    void setBend(const Bend &bend);

    /// Compares what is written, not where.
    friend ZARNCORE_EXPORT bool operator==(const Note &left, const Note &right) noexcept;
    friend bool operator!=(const Note &left, const Note &right) noexcept
    {
        return !(left == right);
    }

private:
    friend struct ChildLinkAccess;
    friend class NoteMarkAccessors<Note>;

    // Scores hold notes by the hundred thousand: the first part of this is eight bytes, and so are
    // the marks.
    std::int32_t _articulation : 12;
    std::uint32_t _spelling : 8;
    std::uint32_t _head : 6;
    std::uint32_t _headFill : 2;
    std::int8_t _midi = Unset;
    std::int8_t _string = Unset;
    std::int8_t _fret = Unset;
    std::int8_t _staffLine = NoStaffLine;
    std::uint64_t _marks = 0;
    OnDemand<NoteDetails> _details;
};

} // namespace zarn
