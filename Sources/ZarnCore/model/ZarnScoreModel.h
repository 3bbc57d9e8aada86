// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>
#include <ZarnCore/ZarnTypes.h>
#include <ZarnCore/model/ZarnAudioTrack.h>
#include <ZarnCore/model/ZarnBarColumns.h>
#include <ZarnCore/model/ZarnChildList.h>
#include <ZarnCore/model/ZarnMasterTrack.h>
#include <ZarnCore/model/ZarnParentNode.h>
#include <ZarnCore/model/ZarnTrack.h>
#include <ZarnCore/model/layout/ZarnHeaderAndFooter.h>
#include <ZarnCore/model/layout/ZarnPageSetup.h>
#include <ZarnCore/model/layout/ZarnScoreView.h>
#include <ZarnCore/model/layout/ZarnTrackGroup.h>

#include <array>
#include <memory>
#include <string>
#include <vector>

namespace zarn {

class Score;

/// The document: the master track, the tracks, the audio tracks, and what belongs to the whole.
///
/// Only commands change the model of a score. Texts are UTF-8.
class ZARNCORE_EXPORT ScoreModel final : public std::enable_shared_from_this<ScoreModel>,
                                         public ParentNode<ScoreModel> {
public:
    using Tracks = std::vector<std::shared_ptr<Track>>;
    using AudioTracks = std::vector<std::shared_ptr<AudioTrack>>;

    /// Concert tones of documents and commands, in hertz: an octave around the usual 440.
    static constexpr double LowestConcertTone = 220;
    static constexpr double HighestConcertTone = 880;

    /// A master track, no tracks, no bars.
    ScoreModel();
    ScoreModel(const ScoreModel &other);
    ScoreModel &operator=(const ScoreModel &other);
    ~ScoreModel();

    /// A copy whose master track and tracks know it as their parent; without a score.
    std::shared_ptr<ScoreModel> clone() const;

    /// The score that owns this model; null when there is none, and once it is gone.
    Score *parentScore() const noexcept { return _score; }
    void setParentScore(Score *score) noexcept;

    const std::shared_ptr<MasterTrack> &masterTrack() const
    {
        linkChildren();
        return _masterTrack;
    }

    // Tracks.

    const Tracks &tracks() const
    {
        linkChildren();
        return _tracks.items();
    }
    unsigned trackCount() const noexcept { return _tracks.size(); }
    bool hasTracks() const noexcept { return trackCount() != 0; }
    bool hasTrackIndex(unsigned index) const noexcept { return index < trackCount(); }

    /// Empty past the end, and for first and last without tracks.
    std::shared_ptr<Track> track(unsigned index) const
    {
        linkChildren();
        return _tracks.at(index);
    }
    std::shared_ptr<Track> firstTrack() const { return track(0); }
    std::shared_ptr<Track> lastTrack() const;

    /// A detached track as its instrument needs it, with no bars.
    static std::shared_ptr<Track> createTrack(InstrumentSet::Type type);

    /// Makes a track with a bar per master bar and inserts it; past the end it is appended.
    std::shared_ptr<Track> createAndInsertTrack(unsigned index, InstrumentSet::Type type);

    /// Puts a detached track in front of `index`; past the end it is appended. With `alignBars`
    /// its staves get bars at their end, or lose them there, until there is one per master bar;
    /// without, the bars stay as they are. The groups of tracks follow here, when a track is taken
    /// out and when one moves; see `groupsAfterInsertion` and its neighbours.
    void addTrack(const std::shared_ptr<Track> &track);
    void insertTrack(unsigned index, const std::shared_ptr<Track> &track, bool alignBars = false);

    /// Returns the track; empty past the end.
    std::shared_ptr<Track> removeTrack(unsigned index);
    void clearTracks();

    /// Exchange two tracks, which then belong to each other's groups, or give a track another
    /// index. Nothing happens unless both places are there.
    void swapTrack(unsigned first, unsigned second);
    void moveTrack(unsigned from, unsigned to);

    // Audio tracks, shared with their users.

    const AudioTracks &audioTracks() const noexcept { return _audioTracks; }
    unsigned audioTrackCount() const noexcept { return static_cast<unsigned>(_audioTracks.size()); }
    bool hasAudioTracks() const noexcept { return !_audioTracks.empty(); }

    /// False, and `track` as it was, past the end.
    bool tryGetAudioTrack(unsigned index, std::shared_ptr<AudioTrack> &track) const;

    /// Raises for none; past the end it is appended.
    void addAudioTrack(const std::shared_ptr<AudioTrack> &track);
    void insertAudioTrack(unsigned index, const std::shared_ptr<AudioTrack> &track);
    std::shared_ptr<AudioTrack> removeAudioTrack(unsigned index);
    void clearAudioTracks();
    void swapAudioTrack(unsigned first, unsigned second);

    /// Removes tracks, audio tracks and master bars.
    void clear();

    // Bar columns: the master bar and the bar of every staff with one number. Automations and
    // directions follow their bars, and so does the play list.

    /// Inserts empty columns in front of `index`; past the end they are appended. Returns what
    /// that changes in the other columns, for `restoreSurroundings`.
    BarColumnSurroundings insertEmptyBarColumns(unsigned index, unsigned count);

    /// Takes the columns `first` to `last` inclusive out, clipped to those that are there. Simile
    /// bars that lose what they repeat, or their other half, are unmarked.
    BarColumns takeBarColumns(unsigned first, unsigned last);

    /// Puts columns back where they were taken; the rest of the model must be as it was then.
    void putBackBarColumns(BarColumns columns);

    /// Takes inserted columns back: gives the other columns what the insertion changed.
    void restoreSurroundings(const BarColumnSurroundings &surroundings);

    // Texts and settings.

    const std::string &property(ScoreProperty property) const noexcept;
    void setScoreProperty(ScoreProperty property, const std::string &value);

    /// The text as it was set, with words such as "%Title%" in it.
    const std::string &headerAndFooter(HeaderAndFooter place) const noexcept;
    void setHeaderAndFooter(HeaderAndFooter place, const std::string &text);

    /// Replaces "%Title%", "%Artist%" and so on by the score's properties, "%Page%" and "%Pages%"
    /// by the numbers, "%%" by a percent sign; other words stay as they are.
    std::string formatHeaderAndFooter(const std::string &text, unsigned page = 1,
                                      unsigned pageCount = 1) const;

    /// The same for the text of a place.
    std::string formatedHeaderAndFooter(HeaderAndFooter place, unsigned page = 1,
                                        unsigned pageCount = 1) const;

    const PageSetup &pageSetup() const noexcept { return _pageSetup; }
    void setPageSetup(const PageSetup &setup) noexcept { _pageSetup = setup; }

    /// Frequency of the a' (MIDI key 69) in hertz.
    double concertTone() const noexcept { return _concertTone; }
    void setConcertTone(double hertz) noexcept { _concertTone = hertz; }

    /// Whether fret numbers count from the nut although there is a capo.
    bool ignoreCapo() const noexcept { return _ignoreCapo; }
    void setIgnoreCapo(bool ignore) noexcept { _ignoreCapo = ignore; }
    bool isPrintable() const noexcept { return _printable; }
    void setPrintable(bool printable) noexcept { _printable = printable; }
    bool isProtected() const noexcept { return _protected; }
    void setProtected(bool isProtected) noexcept { _protected = isProtected; }

    /// Bars per system of the full score, from the first system on; systems after the list hold
    /// the default number, or as many as find room when that is 0. Columns that come or go change
    /// their system.
    const std::vector<int> &fullScoreSystemsLayout() const noexcept { return _systemsLayout; }
    void setFullScoreSystemsLayout(const std::vector<int> &layout) { _systemsLayout = layout; }
    void pushInFullScoreSystemsLayout(int barCount) { _systemsLayout.push_back(barCount); }

    /// Removes the last number and returns it; 0 from an empty list.
    int popInFullScoreSystemsLayout();
    unsigned fullScoreDefaultBarCountBySystem() const noexcept { return _defaultBarsPerSystem; }
    void setFullScoreDefaultBarCountBySystem(unsigned count) noexcept
    {
        _defaultBarsPerSystem = count;
    }

    /// How the views show the score; the first one is the full score and always there. Raises for
    /// no view and for an unknown layout.
    const std::vector<ScoreView> &views() const noexcept { return _views; }
    void setViews(std::vector<ScoreView> views);

    /// Groups of tracks, outer ones in front of those inside. Raises for a group whose last track
    /// is in front of its first.
    const std::vector<TrackGroup> &trackGroups() const noexcept { return _trackGroups; }
    void setTrackGroups(std::vector<TrackGroup> groups);

    /// Compares the documents, not the scores that own them.
    friend ZARNCORE_EXPORT bool operator==(const ScoreModel &left, const ScoreModel &right);
    friend bool operator!=(const ScoreModel &left, const ScoreModel &right)
    {
        return !(left == right);
    }

private:
    friend struct ChildLinkAccess;
    friend struct ParentNodeAccess;
    friend class ParentNode<ScoreModel>;

    static constexpr unsigned PropertyCount = static_cast<unsigned>(ScoreProperty::Notice) + 1;

    void linkOrphans(const std::weak_ptr<ScoreModel> &self);

    Score *_score = nullptr;
    std::shared_ptr<MasterTrack> _masterTrack;
    ChildList<ScoreModel, Track> _tracks;
    AudioTracks _audioTracks;
    std::array<std::string, PropertyCount> _properties;
    std::array<std::string, HeaderAndFooterCount> _headersAndFooters;
    PageSetup _pageSetup;
    std::vector<int> _systemsLayout;
    double _concertTone = 440;
    unsigned _defaultBarsPerSystem = 4;
    bool _ignoreCapo = false;
    bool _printable = true;
    bool _protected = false;
    std::vector<ScoreView> _views = {ScoreView()};
    std::vector<TrackGroup> _trackGroups;
};

} // namespace zarn
