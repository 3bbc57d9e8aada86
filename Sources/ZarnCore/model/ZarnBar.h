// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>
#include <ZarnCore/ZarnTypes.h>
#include <ZarnCore/model/ZarnChildList.h>
#include <ZarnCore/model/ZarnOnDemand.h>
#include <ZarnCore/model/ZarnParentNode.h>
#include <ZarnCore/model/ZarnVoice.h>
#include <ZarnCore/utils/rational.h>

#include <array>
#include <memory>
#include <vector>

namespace zarn {

class MasterBar;
class MasterTrack;
class Staff;

/// A clef that changes inside a bar, at a position in quarters above 0.
struct ClefChange {
    utils::rational position;
    ClefType clef = ClefType::None;

    friend bool operator==(const ClefChange &left, const ClefChange &right) noexcept
    {
        return left.position == right.position && left.clef == right.clef;
    }
};

/// One bar of one staff: up to four voices, under a clef.
class ZARNCORE_EXPORT Bar final : public std::enable_shared_from_this<Bar>,
                                  public IndexedChildLink<Staff>,
                                  public ParentNode<Bar> {
public:
    static constexpr unsigned MaxVoices = 4;
    using Voices = std::array<std::shared_ptr<Voice>, MaxVoices>;

    Bar() = default;
    Bar(const Bar &other);
    Bar &operator=(const Bar &other);
    ~Bar() = default;

    /// A copy whose voices know it as their parent.
    std::shared_ptr<Bar> clone() const;

    /// Empty while the bar is detached.
    std::shared_ptr<Staff> parentStaff() const noexcept { return lockParent(); }

    /// Place in the staff, the number of its master bar; 0 while detached.
    unsigned index() const noexcept { return place(); }

    /// Number of the staff in its track and of the track in its model; 0 while detached.
    unsigned staffIndex() const noexcept;
    unsigned trackIndex() const noexcept;

    /// What all staves share of this bar; empty while the bar is not part of a model.
    std::shared_ptr<MasterBar> masterBar() const;
    std::shared_ptr<MasterTrack> masterTrack() const;

    /// The four slots; empty ones hold no voice.
    const Voices &voices() const
    {
        linkChildren();
        return _voices;
    }

    /// Empty for an empty slot and past the last one.
    std::shared_ptr<Voice> voice(unsigned index) const;

    /// Number of slots that hold a voice.
    unsigned voiceCount() const noexcept;

    /// Puts a detached voice, or none, into a slot; the voice that was there becomes detached.
    /// Raises past the last slot.
    void setVoice(unsigned index, const std::shared_ptr<Voice> &voice);

    /// The voice of a slot, made when the slot is empty. Raises past the last slot.
    std::shared_ptr<Voice> ensureVoice(unsigned index);

    bool hasBeats() const noexcept;

    /// One beat per voice, those that start at an offset in quarters; no grace beats.
    Voice::Beats findBeatAtDrawingOffset(const utils::rational &offset) const;

    /// Length in quarters that the master bar asks for; 4 while detached.
    utils::rational length() const;

    /// The clef at the start of the bar.
    ClefType clef() const noexcept { return _clef; }
    void setClef(ClefType clef) noexcept { _clef = clef; }

    /// Changes inside the bar, sorted by position when they are set.
    const std::vector<ClefChange> &clefChanges() const noexcept { return _clefChanges.get(); }
    void setClefChanges(std::vector<ClefChange> changes);

    /// The clef that holds at a position in quarters.
    ClefType clefAt(const utils::rational &position) const;

    Ottavia ottavia() const noexcept { return _ottavia; }
    void setOttavia(Ottavia ottavia) noexcept { _ottavia = ottavia; }

    SimileMark simileMark() const noexcept { return _simileMark; }
    void setSimileMark(SimileMark mark) noexcept { _simileMark = mark; }
    bool isSimile() const noexcept { return _simileMark != SimileMark::None; }

    /// Width of the bar among the others of its system, in the layout of its track alone: 0.1 to
    /// 10, and 1 for what its notes ask for. Raises outside.
    float layoutRatio() const noexcept { return _layoutRatio; }
    void setLayoutRatio(float ratio);

    /// Compares the voices and what is written, not where. A slot without a voice equals one
    /// whose voice is empty.
    friend ZARNCORE_EXPORT bool operator==(const Bar &left, const Bar &right);
    friend bool operator!=(const Bar &left, const Bar &right) { return !(left == right); }

private:
    friend struct ChildLinkAccess;
    friend struct ParentNodeAccess;
    friend class ParentNode<Bar>;

    void copyVoices(const Bar &other);
    void linkOrphans(const std::weak_ptr<Bar> &self);

    ClefType _clef = ClefType::G2;
    Ottavia _ottavia = Ottavia::None;
    SimileMark _simileMark = SimileMark::None;
    float _layoutRatio = 1;
    Voices _voices;
    OnDemand<std::vector<ClefChange>> _clefChanges;
};

} // namespace zarn
