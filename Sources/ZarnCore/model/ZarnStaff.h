// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>
#include <ZarnCore/ZarnTypes.h>
#include <ZarnCore/chords/ZarnChordDiagram.h>
#include <ZarnCore/instruments/tunings/ZarnGuitarTuning.h>
#include <ZarnCore/model/ZarnBar.h>
#include <ZarnCore/model/ZarnChildList.h>
#include <ZarnCore/model/ZarnLinkMode.h>
#include <ZarnCore/model/ZarnParentNode.h>

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace zarn {

class Track;

/// The clef and ottava that a bar stands under.
struct ClefAndOttavia {
    ClefType clef = ClefType::G2;
    Ottavia ottavia = Ottavia::None;
};

/// One staff of a track. Its operations touch this staff alone: whoever uses them keeps the bar
/// columns of the model aligned (`ScoreModel::insertEmptyBarColumns` does).
class ZARNCORE_EXPORT Staff final : public std::enable_shared_from_this<Staff>,
                                    public IndexedChildLink<Track>,
                                    public ParentNode<Staff> {
public:
    using Bars = std::vector<std::shared_ptr<Bar>>;

    Staff() = default;
    Staff(const Staff &other) = default;
    Staff &operator=(const Staff &other);
    ~Staff() = default;

    /// A copy whose bars know it as their parent.
    std::shared_ptr<Staff> clone() const;
    std::shared_ptr<Staff> cloneWithoutBars() const;

    /// Empty while the staff is detached.
    std::shared_ptr<Track> track() const noexcept { return lockParent(); }

    /// Sets the link alone; the track's own operations do so for its staves.
    void setParentTrack(const std::shared_ptr<Track> &track);

    /// Place in the track; 0 while detached.
    unsigned index() const noexcept { return place(); }

    const Bars &bars() const
    {
        linkChildren();
        return _bars.items();
    }
    unsigned barCount() const noexcept { return _bars.size(); }

    /// Empty past the end.
    std::shared_ptr<Bar> bar(unsigned index) const
    {
        linkChildren();
        return _bars.at(index);
    }

    /// Puts a detached bar in front of `index`; past the end it is appended. The bar gets the
    /// clef and ottava of its new place, and a simile bar that it pushes on is unmarked, because
    /// what it repeats has changed; of a double simile both halves are.
    void addBar(const std::shared_ptr<Bar> &bar, LinkMode mode = LinkMode::None);
    void insertBar(unsigned index, const std::shared_ptr<Bar> &bar, LinkMode mode = LinkMode::None);

    /// The same for `count` new bars without voices, as one block.
    void addEmptyBars(unsigned count, LinkMode mode = LinkMode::None);
    void insertEmptyBars(unsigned index, unsigned count, LinkMode mode = LinkMode::None);

    /// Puts detached bars in as they are: clefs, ottavas and simile marks stay.
    void insertBars(unsigned index, Bars bars);

    /// Takes a bar, or the bars `first` to `last` inclusive, out; empty past the end.
    std::shared_ptr<Bar> removeBar(unsigned index, LinkMode mode = LinkMode::None);
    Bars takeBars(unsigned first, unsigned last, LinkMode mode = LinkMode::None);
    void removeAllBars();

    /// Puts a detached bar in the place of another, which is returned; raises past the end.
    std::shared_ptr<Bar> replaceBar(unsigned index, const std::shared_ptr<Bar> &bar);

    /// What a bar put in at `index` stands under: as the bar before it ends, at the front as the
    /// first bar starts, in an empty staff what the track's instrument asks for.
    ClefAndOttavia deduceBarClefAndOttavia(unsigned index) const;

    /// Takes the simile mark off a bar, and off the other half of a double simile.
    void unmarkSimile(unsigned index);

    const GuitarTuning &tuning() const noexcept { return _tuning; }
    void setTuning(const GuitarTuning &tuning);

    /// Whether it has strings, so that its notes are at a string and a fret. On strings without
    /// frets, such as those of a violin, a fret is a semitone above the open string.
    bool isFretted() const { return _tuning.stringCount() != 0; }

    /// Fret of the capo over all strings; 0 is none.
    unsigned capoFret() const noexcept { return _capoFret; }
    void setCapoFret(std::uint8_t fret) noexcept { _capoFret = fret; }

    /// Fret of a capo over some strings, counted like `capoFret`, and which strings, the lowest
    /// first.
    unsigned partialCapoFret() const noexcept { return _partialCapoFret; }
    void setPartialCapoFret(std::uint8_t fret) noexcept { _partialCapoFret = fret; }
    const std::vector<bool> &partialCapoStringFlags() const noexcept { return _partialCapoStrings; }
    void setPartialCapoStringFlags(const std::vector<bool> &flags);

    unsigned fretCount() const noexcept { return _fretCount; }
    void setFretCount(unsigned count) noexcept { _fretCount = count; }

    /// Whether string 0 is a short drone string, banjo style; kept in the tuning.
    bool hasShortDroneString() const { return _tuning.hasShortDroneString(); }
    void setShortDroneString(bool drone) { _tuning.setShortDroneString(drone); }

    /// Lowest MIDI key that a staff can hold.
    int lowestMidi() const noexcept { return 12; }

    /// Chord names and diagrams that this staff knows (collections), and those of them that are
    /// at hand for writing (working sets).
    const std::vector<std::string> &chordCollection() const noexcept { return _chordCollection; }
    void setChordCollection(std::vector<std::string> names);
    const std::vector<std::string> &chordWorkingSet() const noexcept { return _chordWorkingSet; }
    void setChordWorkingSet(std::vector<std::string> names);
    const std::vector<ChordDiagram> &diagramCollection() const noexcept
    {
        return _diagramCollection;
    }
    void setDiagramCollection(std::vector<ChordDiagram> diagrams);
    const std::vector<ChordDiagram> &diagramWorkingSet() const noexcept
    {
        return _diagramWorkingSet;
    }
    void setDiagramWorkingSet(std::vector<ChordDiagram> diagrams);

    /// Compares the bars and what is written, not where.
    friend ZARNCORE_EXPORT bool operator==(const Staff &left, const Staff &right);
    friend bool operator!=(const Staff &left, const Staff &right) { return !(left == right); }

private:
    friend struct ChildLinkAccess;
    friend struct ParentNodeAccess;
    friend class ParentNode<Staff>;

    void linkOrphans(const std::weak_ptr<Staff> &self) { _bars.link(self); }
    void copySettings(const Staff &other);
    void mendSimilesAround(unsigned index);

    /// What new bars parted: similes and ties.
    void mendAround(unsigned index, unsigned count);

    ChildList<Staff, Bar> _bars;
    GuitarTuning _tuning;
    std::uint8_t _capoFret = 0;
    std::uint8_t _partialCapoFret = 0;
    unsigned _fretCount = 24;
    std::vector<bool> _partialCapoStrings;
    std::vector<std::string> _chordCollection;
    std::vector<std::string> _chordWorkingSet;
    std::vector<ChordDiagram> _diagramCollection;
    std::vector<ChordDiagram> _diagramWorkingSet;
};

} // namespace zarn
