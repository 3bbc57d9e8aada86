// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>
#include <ZarnCore/instruments/automations/ZarnAutomationContainer.h>
#include <ZarnCore/instruments/effects/ZarnMastering.h>
#include <ZarnCore/model/ZarnChildList.h>
#include <ZarnCore/model/ZarnMasterBar.h>
#include <ZarnCore/model/ZarnParentNode.h>
#include <ZarnCore/model/form/ZarnDirectionAccessors.h>
#include <ZarnCore/model/form/ZarnTempoSettings.h>

#include <array>
#include <memory>
#include <set>
#include <string>
#include <vector>

namespace zarn {

class ScoreModel;
class ScoreModelRange;

/// What belongs to the whole score: the master bars, the tempo, the order of playing, the
/// mastering, and (as the container that it is) the automations of tempo and master effects.
///
/// Inserting and removing master bars moves the automations and directions here with their bars
/// and touches nothing else: `ScoreModel` has the operations that keep the tracks aligned.
class ZARNCORE_EXPORT MasterTrack final : public AutomationContainer,
                                          public std::enable_shared_from_this<MasterTrack>,
                                          public ChildLink<ScoreModel>,
                                          public ParentNode<MasterTrack>,
                                          public DirectionAccessors<MasterTrack> {
public:
    using MasterBars = std::vector<std::shared_ptr<MasterBar>>;
    using PlayList = std::vector<int>;
    using DirectionSlots = std::array<int, DirectionMarkCount>;

    /// Neither commands nor documents make more bars than this: two days of music in 4/4.
    static constexpr unsigned MaxBars = 100'000;

    MasterTrack();
    MasterTrack(const MasterTrack &other);
    MasterTrack &operator=(const MasterTrack &other);
    ~MasterTrack() override;

    /// A copy whose master bars know it as their parent.
    std::shared_ptr<MasterTrack> cloneMasterTrack() const;

    /// Copies from another master track. With a range, master bars, automations and directions of
    /// the bars `range->first()` to `range->second()` alone replace all that was here, counted
    /// from 0; the rest (tempo, mastering, anacrusis) is copied in both cases.
    void copyFrom(const MasterTrack &other, const ScoreModelRange *range = nullptr);

    /// Empty while the master track is detached.
    std::shared_ptr<ScoreModel> parentScoreModel() const noexcept { return lockParent(); }
    void setParentScoreModel(const std::shared_ptr<ScoreModel> &model);

    // Master bars.

    const MasterBars &masterBars() const
    {
        linkChildren();
        return _masterBars.items();
    }
    unsigned masterBarCount() const noexcept { return _masterBars.size(); }
    bool hasMasterBars() const noexcept { return masterBarCount() != 0; }
    bool hasMasterBarIndex(unsigned index) const noexcept { return index < masterBarCount(); }

    /// Empty past the end.
    std::shared_ptr<MasterBar> masterBar(unsigned index) const
    {
        linkChildren();
        return _masterBars.at(index);
    }

    /// Puts a detached master bar in front of `index`; past the end it is appended.
    void addMasterBar(const std::shared_ptr<MasterBar> &bar);
    void insertMasterBar(unsigned index, const std::shared_ptr<MasterBar> &bar);

    /// New master bars as one block, with the meter, key and triplet feel of the bar before (at
    /// the front, of the first bar).
    void addEmptyMasterBars(unsigned count);
    void insertEmptyMasterBars(unsigned index, unsigned count);

    /// Removes the bars `first` to `last` inclusive; nothing happens past the end. A direction on
    /// a removed bar is unset; a movement that loses its first bars begins with those it keeps.
    void removeMasterBar(unsigned index);
    void removeMasterBars(unsigned first, unsigned last);
    void clear();

    /// The bare lists, for those who keep automations and directions themselves.
    void insertMasterBarBlock(unsigned index, MasterBars bars);
    MasterBars takeMasterBarBlock(unsigned first, unsigned last);

    /// First bar of the movement that a bar belongs to; 0 past the end.
    unsigned movementStart(unsigned bar) const noexcept;

    // Order of playing; see `DirectionAccessors` for each direction by its name. A slot has the
    // first of its kind, or the one that is there; bars may have further ones.

    /// Bar index of a direction; -1 when it is not set or is none of the nineteen.
    int directionIndex(DirectionMark mark) const noexcept;

    /// Puts a direction at a bar, or unsets it with -1; nothing happens for a kind outside 0 to
    /// 18.
    void setDirection(int kind, int barIndex) noexcept;
    const DirectionSlots &directionSlots() const noexcept;
    void setDirectionSlots(const DirectionSlots &bars) noexcept;

    /// Those whose slots name the bar, and those that it has besides; see
    /// `MasterBar::furtherDirections`.
    std::set<DirectionMark> directionsAtBarIndex(int barIndex) const;
    bool hasAnyDirectionAtBarIndex(int barIndex) const noexcept;

    /// Bar index to which a direction of this kind sends the player; -1 when it is no jump or
    /// what it leads to is not set. A da capo leads to the first bar of its movement.
    int jumpIndexForDirection(int kind) const noexcept;

    static QString directionToQString(DirectionMark mark) { return directionMarkToQString(mark); }
    static QString directionSetToQString(const std::set<DirectionMark> &marks)
    {
        return directionMarksToQString(marks);
    }

    /// The bars in the order in which they are played: repeats, alternate endings and directions
    /// unfolded when somebody asks; see `unfoldPlayList`. Any number of threads may ask at once.
    /// The list lives until it changes: with master bars that come and go, with directions, and
    /// with `updatePlayList()`, to be called after a change of repeats or endings.
    const PlayList &playlist() const;
    void updatePlayList() noexcept;

    // Tempo at the start.

    const TempoSettings &tempoSettings() const noexcept;
    void setTempoSettings(const TempoSettings &settings);
    double tempoValue() const noexcept { return tempoSettings().value; }
    TempoUnit tempoUnit() const noexcept { return tempoSettings().unit; }
    const std::string &tempoLabel() const noexcept { return tempoSettings().label; }
    bool tempoVisible() const noexcept { return tempoSettings().visible; }
    void setTempoValue(double value);
    void setTempoUnit(TempoUnit unit);
    void setTempoLabel(const std::string &label);
    void setTempoVisible(bool visible);

    /// The tempo in quarters per minute.
    double quarterTempoValue() const noexcept;

    /// Whether the first bar is a pickup bar.
    bool hasAnacrusis() const noexcept;
    void setAnacrusis(bool anacrusis) noexcept;

    const Mastering &mastering() const noexcept;
    Mastering &mutableMastering() noexcept;
    void setMastering(const Mastering &mastering);
    const ZarnVolumePan &volumePan() const noexcept { return mastering().volumePan(); }
    void setVolumePan(const ZarnVolumePan &volumePan)
    {
        mutableMastering().setVolumePan(volumePan);
    }

    /// Compares all but the play list, which follows from the rest.
    friend ZARNCORE_EXPORT bool operator==(const MasterTrack &left, const MasterTrack &right);
    friend bool operator!=(const MasterTrack &left, const MasterTrack &right)
    {
        return !(left == right);
    }

private:
    friend struct ChildLinkAccess;
    friend struct ParentNodeAccess;
    friend class ParentNode<MasterTrack>;
    friend class BarColumnEdit;
    struct Private;

    void linkOrphans(const std::weak_ptr<MasterTrack> &self) { _masterBars.link(self); }
    void moveMarks(unsigned index, unsigned count);
    void removeDirections(unsigned first, unsigned last) noexcept;
    std::uint32_t furtherDirectionsAt(int bar) const noexcept;
    bool handOnMovementStart(unsigned first, unsigned last) noexcept;

    ChildList<MasterTrack, MasterBar> _masterBars;
    std::unique_ptr<Private> _d;
};

} // namespace zarn
