// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>
#include <ZarnCore/ZarnTypes.h>
#include <ZarnCore/instruments/automations/ZarnAutomationContainer.h>
#include <ZarnCore/instruments/sets/ZarnInstrumentSet.h>
#include <ZarnCore/instruments/sounds/ZarnSound.h>
#include <ZarnCore/model/ZarnChildList.h>
#include <ZarnCore/model/ZarnLinkMode.h>
#include <ZarnCore/model/ZarnParentNode.h>
#include <ZarnCore/model/ZarnStaff.h>
#include <ZarnCore/model/ZarnTrackNotations.h>
#include <ZarnCore/model/ZarnTrackSettings.h>

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace zarn {

class ScoreModel;

/// One part of the score: an instrument, its staves, sounds and playback automations.
///
/// Operations on bars touch this track alone; `ScoreModel` has those that keep the bar columns of
/// all tracks aligned. A track attached to a model gives new staves a bar per master bar.
class ZARNCORE_EXPORT Track final : public std::enable_shared_from_this<Track>,
                                    public IndexedChildLink<ScoreModel>,
                                    public ParentNode<Track> {
public:
    using Staves = std::vector<std::shared_ptr<Staff>>;
    using Sounds = std::vector<std::shared_ptr<const Sound>>;

    /// The bars taken from each staff, in staff order.
    using BarBlocks = std::vector<Staff::Bars>;

    /// A track with one staff, for no particular instrument.
    Track();

    /// A track as its instrument needs it: name, icon, number of staves, standard tuning.
    explicit Track(InstrumentSet::Type type);
    Track(const Track &other) = default;
    Track &operator=(const Track &other);
    ~Track() = default;

    /// A copy whose staves know it as their parent.
    std::shared_ptr<Track> clone() const;

    /// A copy with its staves but without their bars and what stands at bars, the automations.
    std::shared_ptr<Track> cloneWithoutBars() const;

    /// Empty while the track is detached.
    std::shared_ptr<ScoreModel> parentScoreModel() const noexcept { return lockParent(); }

    /// Sets the link alone; the model's own operations do so for its tracks.
    void setParentScoreModel(const std::shared_ptr<ScoreModel> &model);

    /// Place in the model; 0 while detached.
    unsigned index() const noexcept { return place(); }

    // Staves.

    const Staves &staves() const
    {
        linkChildren();
        return _staves.items();
    }
    unsigned staffCount() const noexcept { return _staves.size(); }

    /// Empty past the end.
    std::shared_ptr<Staff> staff(unsigned index) const
    {
        linkChildren();
        return _staves.at(index);
    }

    /// Adds staves behind or removes the last ones; a new staff has as many bars as the others,
    /// or as the model. Raises for 0.
    void setStaffCount(unsigned count);

    /// Puts a detached staff in the place of another, which becomes detached; raises past the
    /// end. Its bars are not adapted.
    void setStaff(unsigned index, const std::shared_ptr<Staff> &staff);

    /// Puts staves behind the others as they are, or takes the last ones out; to undo a change
    /// of their number with the very same staves.
    void addStaves(Staves staves);
    Staves takeStavesFrom(unsigned index);

    // Bars; see `Staff` for what the forms do. Those without a staff number act on all staves and
    // move the automations with their bars.

    /// Bars of the first staff.
    unsigned barCount() const noexcept;

    /// Raises when there is no such staff.
    const Staff::Bars &bars(unsigned staffIndex = 0) const;

    /// Empty when there is no such bar or staff.
    std::shared_ptr<Bar> bar(unsigned barIndex, unsigned staffIndex = 0) const;

    /// Nothing happens when there is no such staff.
    void addBar(const std::shared_ptr<Bar> &bar, unsigned staffIndex,
                LinkMode mode = LinkMode::None);
    void insertBar(unsigned index, const std::shared_ptr<Bar> &bar, unsigned staffIndex,
                   LinkMode mode = LinkMode::None);

    void addEmptyBars(unsigned count, LinkMode mode = LinkMode::None);
    void insertEmptyBars(unsigned index, unsigned count, LinkMode mode = LinkMode::None);
    void removeBar(unsigned index, LinkMode mode = LinkMode::None);
    void removeAllBars();

    // Sounds.

    const Sounds &sounds() const noexcept { return _sounds; }
    void addSound(std::shared_ptr<const Sound> sound);

    /// In front of `index`; past the end it is appended. Raises for none.
    void insertSound(unsigned index, std::shared_ptr<const Sound> sound);

    /// Puts a sound in the place of another, which it returns. Raises past the end and for none.
    std::shared_ptr<const Sound> replaceSound(unsigned index, std::shared_ptr<const Sound> sound);

    /// Raises unless both are there.
    void swapSounds(unsigned first, unsigned second);

    /// Returns the sound; empty past the end.
    std::shared_ptr<const Sound> removeSoundAtIndex(unsigned index);

    /// Place of the first equal sound; -1 when there is none.
    int indexOfSound(const Sound &sound) const noexcept;

    const AutomationContainer &automations() const noexcept { return _automations; }
    AutomationContainer &mutableAutomations() noexcept { return _automations; }

    // Attributes; texts are UTF-8.

    InstrumentSet::Type type() const noexcept { return _type; }
    void setType(InstrumentSet::Type type) noexcept { _type = type; }

    /// Whether any staff is; see `Staff::isFretted`.
    bool isFretted() const;

    /// The set of the type in the installed library (`InstrumentSetLibrary::install`); empty when
    /// there is none.
    std::shared_ptr<const InstrumentSet> instrumentSet() const noexcept;

    const std::string &name() const noexcept { return _name; }
    void setName(const std::string &name) { _name = name; }
    const std::string &shortName() const noexcept { return _shortName; }
    void setShortName(const std::string &name) { _shortName = name; }

    ZarnIconID iconID() const noexcept { return _icon; }
    void setIconID(ZarnIconID icon) noexcept { _icon = icon; }

    /// 0xRRGGBB.
    std::uint32_t color() const noexcept { return _color; }
    void setColor(std::uint32_t color) noexcept { _color = color; }

    /// Semitones from the written pitch to what sounds: -2 for a clarinet in B flat.
    int transpositionOffset() const noexcept { return _transpositionOffset; }
    void setTranspositionOffset(int semitones) noexcept { _transpositionOffset = semitones; }

    /// The notations that the track is shown in: those that were chosen, else what its instrument
    /// is read from, tablature under notes for fretted strings, notes for all others.
    TrackNotations notations() const;

    /// Chooses notations, or with nothing leaves them to the instrument. Raises for none at all.
    void setChosenNotations(const std::optional<TrackNotations> &notations);
    const std::optional<TrackNotations> &chosenNotations() const noexcept { return _notations; }

    /// How the track is played, heard and laid out; see `TrackSettings` for each. The setters raise
    /// for what is not valid.
    const TrackSettings &settings() const noexcept { return _settings; }
    void setSettings(const TrackSettings &settings);

    PlayingStyle playingStyle() const noexcept { return _settings.playingStyle; }
    void setPlayingStyle(PlayingStyle style) { change(&TrackSettings::playingStyle, style); }
    float palmMuteStrength() const noexcept { return _settings.palmMuteStrength; }
    void setPalmMuteStrength(float strength) { change(&TrackSettings::palmMuteStrength, strength); }
    bool letsRingThroughout() const noexcept { return _settings.letRingThroughout; }
    void setLetRingThroughout(bool letRing) { change(&TrackSettings::letRingThroughout, letRing); }
    bool hasAutoAccentuation() const noexcept { return _settings.autoAccentuation; }
    void setAutoAccentuation(bool accentuates)
    {
        change(&TrackSettings::autoAccentuation, accentuates);
    }
    bool hasAutoBrush() const noexcept { return _settings.autoBrush; }
    void setAutoBrush(bool brushes) { change(&TrackSettings::autoBrush, brushes); }
    bool hasOneChannelPerString() const noexcept { return _settings.oneChannelPerString; }
    void setOneChannelPerString(bool oneChannel)
    {
        change(&TrackSettings::oneChannelPerString, oneChannel);
    }
    const ZarnVolumePan &volumePan() const noexcept { return _settings.volumePan; }
    void setVolumePan(const ZarnVolumePan &volumePan)
    {
        change(&TrackSettings::volumePan, volumePan);
    }
    TrackPlayback playback() const noexcept { return _settings.playback; }
    void setPlayback(TrackPlayback playback) { change(&TrackSettings::playback, playback); }
    int forcedSoundIndex() const noexcept { return _settings.forcedSoundIndex; }
    void setForcedSoundIndex(int index) { change(&TrackSettings::forcedSoundIndex, index); }

    /// The one that was chosen, else channel 9 for percussion and the first for all others.
    MidiConnection midiConnection() const noexcept;
    const std::optional<MidiConnection> &chosenMidiConnection() const noexcept
    {
        return _settings.midiConnection;
    }
    void setMidiConnection(const std::optional<MidiConnection> &connection)
    {
        change(&TrackSettings::midiConnection, connection);
    }

    const std::vector<int> &systemsLayout() const noexcept { return _settings.systemsLayout; }
    void setSystemsLayout(const std::vector<int> &layout)
    {
        change(&TrackSettings::systemsLayout, layout);
    }
    unsigned defaultBarCountBySystem() const noexcept { return _settings.defaultBarCountBySystem; }
    void setDefaultBarCountBySystem(unsigned count)
    {
        change(&TrackSettings::defaultBarCountBySystem, count);
    }
    std::uint8_t lyricsVisible() const noexcept { return _settings.lyricsVisible; }
    void setLyricsVisible(std::uint8_t lines) { change(&TrackSettings::lyricsVisible, lines); }
    const std::array<std::string, Syllable::LineCount> &lyricsLeftOver() const noexcept
    {
        return _settings.lyricsLeftOver;
    }
    void setLyricsLeftOver(const std::array<std::string, Syllable::LineCount> &texts)
    {
        change(&TrackSettings::lyricsLeftOver, texts);
    }

    /// Compares the staves and what is written, not where.
    friend ZARNCORE_EXPORT bool operator==(const Track &left, const Track &right);
    friend bool operator!=(const Track &left, const Track &right) { return !(left == right); }

private:
    friend struct ChildLinkAccess;
    friend struct ParentNodeAccess;
    friend class ParentNode<Track>;

    void linkOrphans(const std::weak_ptr<Track> &self) { _staves.link(self); }
    void copySettings(const Track &other);

    template <class Value>
    void change(Value TrackSettings::*setting, const Value &value)
    {
        TrackSettings settings = _settings;
        settings.*setting = value;
        setSettings(settings);
    }
    std::shared_ptr<Staff> makeStaff(unsigned barCount) const;

    InstrumentSet::Type _type = InstrumentSet::unknown;
    ChildList<Track, Staff> _staves;
    Sounds _sounds;
    AutomationContainer _automations;
    std::string _name;
    std::string _shortName;
    ZarnIconID _icon;
    std::uint32_t _color = 0xDB5E55;
    int _transpositionOffset = 0;
    std::optional<TrackNotations> _notations;
    TrackSettings _settings;
};

} // namespace zarn
