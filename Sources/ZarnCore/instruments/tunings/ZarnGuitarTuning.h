// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>

#include <QObject>
#include <QString>

#include <rapidjson/fwd.h>

#include <cstdint>
#include <initializer_list>
#include <iosfwd>
#include <list>
#include <memory>
#include <string>
#include <vector>

namespace zarn {

class FrettedString;
class Tone;
struct TuningData;

/// Which pitch each open string of a fretted or bowed instrument sounds, as MIDI numbers.
///
/// String 0 is the lowest of a usual tuning (40, 45, 50, 55, 59, 64 on a guitar). A value in spite
/// of its base class, which is there for the texts of the enumerations: copies get an id of their
/// own. Different tunings may be used by different threads.
class ZARNCORE_EXPORT GuitarTuning : public QObject {
    Q_OBJECT

public:
    enum Instrument : std::uint32_t {
        Undefined = 0,
        Guitar = 1,
        Bass = 2,
        Shamisen = 3,
        Banjo = 4,
        Mandolin = 5,
        Ukulele = 6,
        Violin = 7,
        Viola = 8,
        Cello = 9,
        Contrabass = 10
    };
    Q_ENUM(Instrument)

    /// Part of the library that a tuning belongs to; bits, so that a search can name several.
    enum Role : std::uint32_t { NoRole = 1, CoreRole = 2, UserRole = 4 };
    Q_ENUM(Role)

    /// What two tunings are compared on; bits.
    enum CompareOption : std::uint32_t {
        ComparePitches = 1,
        CompareNames = 2,
        CompareInstruments = 4,
        CompareDrones = 8,
        CompareRoles = 16,
        CompareFlat = 32,
        CompareLabel = 64,
        CompareLabelVisible = 128,
        CompareStringCount = 256,
        CompareAll = 511
    };
    Q_ENUM(CompareOption)

    enum ComparisonMode : std::uint32_t {
        DifferentTuningsComparator = 0,
        SameTuningsComparator = 1
    };
    Q_ENUM(ComparisonMode)

    /// Range that the pitches of `setTuning`, of constructors and of documents are clamped to.
    static constexpr int minimumMidi = 12;
    static constexpr int maximumMidi = 119;

    /// Documents and the user's file hold no tuning with more strings.
    static constexpr unsigned maximumStringCount = 128;

    /// Fret of the long neck at which a short drone string begins.
    static constexpr int droneFret = 5;

    /// No strings.
    GuitarTuning();
    /// That many strings, all of pitch 0 until they are set. Mind the parentheses: braces would
    /// mean one string of that pitch.
    explicit GuitarTuning(unsigned stringCount);
    explicit GuitarTuning(const std::vector<unsigned> &pitches);
    GuitarTuning(std::initializer_list<unsigned> pitches);
    GuitarTuning(Instrument instrument, unsigned stringCount);
    GuitarTuning(Instrument instrument, std::initializer_list<unsigned> pitches);
    /// Copies all but the id. The range of pitches is taken anew from the pitches.
    GuitarTuning(const GuitarTuning &other);
    GuitarTuning &operator=(const GuitarTuning &other);
    ~GuitarTuning() override;

    /// Unique in the process, never stored.
    std::uint32_t id() const noexcept;

    Instrument instrument() const noexcept;
    void setInstrument(Instrument instrument) noexcept;

    /// Whether this is a lowered variant of a reference tuning.
    bool isFlat() const noexcept;
    void setFlat(bool flat) noexcept;

    /// Highest and lowest open pitch seen so far: they only widen as strings are set. A tuning
    /// that never had a pitch answers highest 12 and lowest 119.
    int highestMidi() const noexcept;
    int lowestMidi() const noexcept;

    const std::string &name() const noexcept;
    void setName(const std::string &name);

    /// Semitones that this tuning lies below a reference tuning with the same intervals: 1 for a
    /// guitar a semitone down, -2 for one a tone up, 0 when no reference has these intervals.
    /// Computed from the pitches; `setMidiOffset` does not change it.
    int midiOffset() const noexcept;
    /// The offset as it was set or read.
    int storedMidiOffset() const noexcept;
    void setMidiOffset(int offset) noexcept;

    Role role() const noexcept;
    void setRole(Role role) noexcept;

    const std::vector<int> &midiNumbers() const noexcept;
    /// Stores the pitches as they are, unclamped, and takes the range from them.
    void setMidiNumbers(const std::vector<int> &midiNumbers);

    /// Whether string 0 is a short one that starts at fret 5, as on a five-string banjo.
    bool hasShortDroneString() const noexcept;
    void setShortDroneString(bool hasDrone) noexcept;

    /// Short text to draw at the staff.
    const std::string &label() const noexcept;
    void setLabel(const std::string &label);
    bool labelVisible() const noexcept;
    void setLabelVisible(bool visible) noexcept;

    /// What is drawn at the staff: the label, or the name when the label is empty; nothing when
    /// the label is hidden.
    std::string displayedLabel() const;

    unsigned stringCount() const noexcept;

    /// Open pitch of a string; 0 when there is no such string.
    int tuning(unsigned string) const noexcept;
    /// Clamps and stores an open pitch; ignored when there is no such string.
    void setTuning(unsigned string, int midi) noexcept;

    /// Pitch of a string at a fret; the open pitch counts as 0 when there is no such string. The
    /// frets of a short drone string are numbered along the long neck, so its open pitch is
    /// `midi(0, 5)`.
    int midi(unsigned string, int fret) const noexcept;

    /// Fret between the string's first and `lastFret` at which it sounds a pitch; -1 when there
    /// is none. `fret(0, 45, 24)` is 5 on a guitar; on a short drone string the first fret is 5.
    int fret(unsigned string, int midi, int lastFret) const noexcept;

    /// The lowest fret from `firstFret` to `lastFret` at which a string sounds a tone in any
    /// octave; -1 when there is none. `fret(0, Tone(4), 1, 24)`, E on a guitar's lowest string
    /// above the open one, is 12.
    int fret(unsigned string, const Tone &tone, unsigned firstFret, int lastFret) const noexcept;
    int fret(unsigned string, const Tone &tone, int lastFret) const = delete;

    /// All frets up to `lastFret` at which a string sounds a tone, ascending, in place of what the
    /// list held. E on a guitar's lowest string up to fret 24 gives 0, 12, 24.
    void frets(unsigned string, const Tone &tone, int lastFret, std::list<int> &frets) const;

    /// The easiest place of a pitch: the first string, from the highest down to `lowestString`,
    /// on which `fret` finds it. MIDI 60 on a guitar with 24 frets is string 4, fret 1. False,
    /// and nothing is set, when no string has it.
    bool firstStringAndFret(int midi, unsigned lowestString, int lastFret, unsigned &string,
                            int &fret) const noexcept;

    Tone tone(unsigned string, int fret) const noexcept;

    /// Tones of the open strings without separator, string 0 first: "EADGBE". Black keys are
    /// sharps or flats.
    QString toString(bool preferSharp) const;

    /// The same with spaces between: "E A D G B E". With a drone, string 0 is named after its
    /// pitch at fret 5.
    QString defaultNameFromTuning(bool preferSharp, bool hasDrone) const;

    /// The name, a space, and the tones: "Standard E A D G B E".
    QString nameWithNotes(bool preferSharp, bool hasDrone) const;

    /// True as soon as one of the properties that the options select differs.
    static bool differentTunings(const GuitarTuning &a, const GuitarTuning &b, unsigned options);
    static bool sameTunings(const GuitarTuning &a, const GuitarTuning &b, unsigned options);

    /// All fields but the id, the range of pitches and the stored offset included.
    bool operator==(const GuitarTuning &other) const noexcept;
    bool operator!=(const GuitarTuning &other) const noexcept { return !(*this == other); }

    /// "Guitar"; "Undefined" for a value that is no instrument.
    static std::string instrumentToString(Instrument instrument);
    /// The instrument of an exactly matching text; `Undefined` when there is none.
    static Instrument instrumentFromString(const std::string &text);

    /// Reads an object with "name", "instrument" (an unknown one is `Undefined`), "midiNumbers"
    /// (clamped), and optionally "offset" (above 0 makes the tuning flat) and "shortDrone". All
    /// else but id and role goes back to its default. Raises a `CoreException` that names the
    /// member, and changes nothing, when one is missing or of another type.
    void parse(const rapidjson::Value &value);

private:
    FrettedString stringAt(unsigned string) const noexcept;

    std::unique_ptr<TuningData> _data;

    friend ZARNCORE_EXPORT std::ostream &operator<<(std::ostream &stream,
                                                    const GuitarTuning &tuning);
    friend ZARNCORE_EXPORT std::istream &operator>>(std::istream &stream, GuitarTuning &tuning);
};

/// All that `operator==` compares, in one line of text that `>>` reads back.
ZARNCORE_EXPORT std::ostream &operator<<(std::ostream &stream, const GuitarTuning &tuning);
/// Text that is no tuning sets the stream's fail bit and leaves the tuning as it was.
ZARNCORE_EXPORT std::istream &operator>>(std::istream &stream, GuitarTuning &tuning);

} // namespace zarn
