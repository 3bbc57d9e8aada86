// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>
#include <ZarnCore/ZarnTypes.h>
#include <ZarnCore/commands/ZarnCommandStack.h>
#include <ZarnCore/events/ZarnEventTable.h>
#include <ZarnCore/instruments/automations/ZarnAutomation.h>
#include <ZarnCore/instruments/sets/ZarnInstrumentSet.h>
#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/model/notes/ZarnRetuning.h>
#include <ZarnCore/model/places/ZarnScoreModelRange.h>
#include <ZarnCore/score/ZarnScoreCursor.h>
#include <ZarnCore/utils/SignalContainer.h>

#include <QLoggingCategory>
#include <QStringList>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <set>
#include <vector>

namespace zarn {

class AudioTrack;
class GuitarTuning;
class IZarnRendererStyleSheet;
class KeySignature;
class NoteDynamic;
class RhythmValue;
class Sound;
class TimeSignature;
struct WrittenStretch;

namespace fingering {
struct FingeringOptions;
struct FingeringReport;
} // namespace fingering
enum class DirectionMark : std::uint8_t;
enum class HeaderAndFooter : std::uint8_t;
enum class TripletFeel : std::uint8_t;

namespace evt {
class Event;
}

/// A document: the tree of the music, the commands that change it, the cursor, and the events that
/// announce every change.
///
/// A score is edited on one thread and changed only by its operations. Each builds a command and
/// has it executed; it answers whether that was done. What cannot be done is logged and changes
/// nothing. Indexes are counted from 0.
class ZARNCORE_EXPORT Score {
public:
    /// A score with a master track, no tracks and no bars.
    Score();

    /// Keeps a style sheet for the renderer of the application and hands it back; it may be empty.
    explicit Score(std::shared_ptr<IZarnRendererStyleSheet> styleSheet);

    /// A deep copy of the music, with the cursor at the same place. Commands and listeners stay
    /// with the original.
    Score(const Score &other);

    /// Replaces the music by a deep copy and moves the cursor, as `setScoreModel` does. The
    /// listeners stay.
    Score &operator=(const Score &other);

    ~Score();

    /// The tree; never empty. Changing it other than by commands is for importers.
    const std::shared_ptr<ScoreModel> &scoreModel() const noexcept { return _model; }

    /// Takes over a model that no score has, as importers make them, forgets all commands, those
    /// of open macros too, and sends `ScoreChanged`. The old model lives on for those who hold it,
    /// without a score. Waits for a reader who holds the command stack's lock to end.
    /// Raises for none and for the model of a score, and from inside a step of the stack.
    void setScoreModel(std::shared_ptr<ScoreModel> model);

    CommandStack &commandStack() noexcept { return _commands; }
    const CommandStack &commandStack() const noexcept { return _commands; }

    ScoreCursor &scoreCursor() noexcept { return _cursor; }
    const ScoreCursor &scoreCursor() const noexcept { return _cursor; }

    const std::shared_ptr<IZarnRendererStyleSheet> &rendererStyleSheet() const noexcept
    {
        return _styleSheet;
    }

    std::shared_ptr<MasterTrack> masterTrack() const;

    /// Empty for an index past the end.
    std::shared_ptr<Track> track(unsigned index) const;
    std::vector<std::shared_ptr<Track>> tracks() const;
    unsigned trackCount() const;
    QStringList tracksName() const;

    /// Whether a track is shown in a notation, see `Track::notations`; false past the end.
    bool hasSlash(unsigned track) const;
    bool hasStdNotation(unsigned track) const;
    bool hasTablature(unsigned track) const;

    /// Calls `callable(event)`, or a member function of `object`, for each event of the type `E`,
    /// in ascending priority; see `utils::Signal`.
    template <class E, class Object, class Callable>
    void connect(Object *object, Callable &&callable, int priority = 0)
    {
        _signals.signal<E>().connect(object, std::forward<Callable>(callable), priority);
    }

    /// The same, until the answer dies, which silences the listener at once.
    template <class E, class Object, class Callable>
    [[nodiscard]] utils::ScopedConnection connectScoped(Object *object, Callable &&callable,
                                                        int priority = 0)
    {
        return _signals.signal<E>().connectScoped(object, std::forward<Callable>(callable),
                                                  priority);
    }

    /// Ends all of the object's connections to the event; after the emission, if one is running.
    template <class E>
    void disconnect(const void *object)
    {
        if (auto *const signal = _signals.find<E>())
            signal->disconnect(object);
    }

    /// Delivers an event to its listeners. For commands; applications listen.
    template <class E>
    void notify(const void *sender, const E &event)
    {
        if (_eventsLog.isDebugEnabled())
            logNotify(event);
        if (_takingBack == 0)
            _signals.notify(sender, event);
        else
            notifyUnstopped([&] { _signals.notify(sender, event); });
    }

    /// Whether an event of the type would reach anybody, the log included.
    template <class E>
    bool isHeard() const noexcept
    {
        const auto *const signal = _signals.find<E>();
        return (signal != nullptr && signal->connectionCount() != 0) || _eventsLog.isDebugEnabled();
    }

    /// While one lives, a change that failed is taken back: what a listener of its events throws is
    /// logged and stops nothing. Without a score (null) it means nothing.
    class TakingBack {
    public:
        explicit TakingBack(Score *score) noexcept : _score(score)
        {
            if (_score != nullptr)
                ++_score->_takingBack;
        }
        ~TakingBack()
        {
            if (_score != nullptr)
                --_score->_takingBack;
        }
        TakingBack(const TakingBack &) = delete;
        TakingBack &operator=(const TakingBack &) = delete;

    private:
        Score *_score;
    };

    /// Who sent the event of the type `E` that is being delivered; null when none is.
    template <class E>
    const void *currentSender() const noexcept
    {
        const auto *const signal = _signals.find<E>();
        return signal != nullptr ? signal->currentSender() : nullptr;
    }

    // Operations. Ranges of bars include both ends; texts may hold anything.

    // Bars.

    bool createBar(unsigned index);

    /// Inserts empty bars, in every staff of every track, in front of a bar or at the end.
    bool createBars(unsigned index, unsigned count);

    bool removeBar(unsigned index);

    /// Removes bars, both ends included, from every staff of every track.
    bool removeBarRange(unsigned first, unsigned last);

    /// Puts bars of a staff under one clef; changes of clef inside them go.
    bool setClef(unsigned track, unsigned staff, unsigned first, unsigned last, ClefType clef);

    // Meter, key and form: what all tracks share of a bar.

    bool setMasterTimeSignature(unsigned first, unsigned last, const TimeSignature &signature);

    /// Sets the key at concert pitch; the notes keep their pitches.
    bool setMasterKeySignature(unsigned first, unsigned last, const KeySignature &signature);
    bool setMasterTripletFeel(unsigned first, unsigned last, TripletFeel feel);
    bool setMasterBarFreeTime(unsigned first, unsigned last, bool isFreeTime);
    bool setMasterBarDoubleBar(unsigned bar, bool hasDoubleBar);
    bool setBarRepeatStart(unsigned bar, bool isRepeatStart);

    /// Ends a repeat that is played `count` times in all, 2 or more; 0 for no repeat.
    bool setBarRepeatEnd(unsigned bar, unsigned count);

    /// Plays bars only in some passes of a repeat, bit 0 for the first; 0 for every pass.
    bool setBarAlternateEndings(unsigned first, unsigned last, std::uint32_t passes);

    /// Begins a movement at a bar, or joins it to the movement before: repeats and jumps stay
    /// inside of a movement.
    bool setMasterBarMovementStart(unsigned bar, bool isMovementStart);

    /// Moves a direction to a bar, or takes it away with -1. A score has one of each.
    bool setBarDirection(DirectionMark mark, int bar);

    /// Makes these, and no others, the directions of a bar.
    bool setBarDirections(int bar, const std::set<DirectionMark> &marks);

    /// Starts a section of the form at a bar, under a rehearsal letter, a title, or both.
    bool setMasterBarSection(unsigned bar, const QString &letter, const QString &text);
    bool unsetMasterBarSection(unsigned bar);

    // Tracks.

    /// Inserts a track as its instrument needs it, in front of a track or at the end.
    bool createTrack(unsigned index, InstrumentSet::Type type);

    /// The same with a detached track, which gets the bars that it lacks; none may be too many.
    bool insertTrack(unsigned index, std::shared_ptr<Track> track);
    bool removeTrack(unsigned index);

    bool setTrackName(unsigned track, const QString &name);
    bool setTrackShortName(unsigned track, const QString &name);
    bool setTrackIcon(unsigned track, ZarnIconID icon);

    /// Tunes a staff anew; see `cmd::SetGuitarFullTuning` for what becomes of the notes.
    bool setGuitarFullTuning(unsigned track, unsigned staff, const GuitarTuning &tuning,
                             unsigned capoFret = 0, Retuning retuning = Retuning::KeepFrets);

    /// Adds a sound behind those that a track can switch between.
    bool addTrackSound(unsigned track, const Sound &sound);
    bool addTrackSound(unsigned track, std::shared_ptr<const Sound> sound);
    bool removeTrackSound(unsigned track, unsigned index);

    /// Inserts a recording that plays along, in front of another or at the end.
    bool createAudioTrack(unsigned index, std::shared_ptr<AudioTrack> track);
    bool removeAudioTrack(unsigned index);

    // Automations. Those to be removed are named by type and place, those to be inserted are
    // copied and replace what stands at their place; either list may be empty. The master track
    // holds tempos and effect parameters, a track sounds and effect parameters.

    bool modifyMasterTrackAutomations(const std::vector<const Automation *> &removed,
                                      const std::vector<const Automation *> &inserted);
    bool modifyTrackAutomations(unsigned track, const std::vector<const Automation *> &removed,
                                const std::vector<const Automation *> &inserted);

    /// Makes playback leave out a type of automations, or heed it again.
    bool modifyMasterTrackAutomationBypass(Automation::Type type, bool isBypassed);
    bool modifyTrackAutomationBypass(unsigned track, Automation::Type type, bool isBypassed);

    /// Removes the reverb that a new score has in its mastering.
    bool removeMasterReverb();

    // The document.

    bool changeProperty(ScoreProperty property, const QString &text);
    bool changeProperties(const std::map<ScoreProperty, QString> &texts);

    /// The text may hold words such as "%Title%"; see `ScoreModel::formatHeaderAndFooter`.
    bool changeHeaderAndFooter(HeaderAndFooter part, const QString &text);

    /// Frequency of the a' in hertz, 220 to 880.
    bool setConcertTone(double hertz);

    // Beats and notes. Indexes and ranges are taken as places of this score, whatever their model.

    /// Inserts a rest in front of the beat that the index names, or behind the last one.
    bool createBeat(const ScoreModelIndex &index, const RhythmValue &rhythm);

    /// Writes beats with their notes over stretches of a staff's voices, or between them; see
    /// `cmd::WriteBeats`. Takes the beats over.
    bool writeBeats(unsigned track, unsigned staff, std::vector<WrittenStretch> stretches);

    /// Removes beats; those behind them move up, and nothing fills the bar.
    bool removeBeats(const ScoreModelRange &range);

    /// Gives every beat of a range a note value; nothing fills or cuts the bar.
    bool setBeatRhythm(const ScoreModelRange &range, const RhythmValue &rhythm);

    /// Sets how loud every beat of a range is played.
    bool setBeatDynamic(const ScoreModelRange &range, NoteDynamic dynamic);

    /// Writes a fret on a string (0 the lowest) of a beat, in place of what the string has there.
    bool setStringedNote(const ScoreModelIndex &index, int string, int fret);

    /// Writes a pitch on a beat: in place of the note that the index names by its MIDI key, else
    /// beside those that are there.
    bool setMIDINote(const ScoreModelIndex &index, int midi);

    /// Makes rests of the beats of a range.
    bool setNoteRest(const ScoreModelRange &range);

    /// Finds strings and frets for the notes of a range as a player would, and reports what no hand
    /// can play; see `cmd::AutomaticFingerPositioning`.
    bool automaticFingerPositioning(const ScoreModelRange &range,
                                    const fingering::FingeringOptions &options,
                                    std::shared_ptr<fingering::FingeringReport> report = nullptr);

private:
    static void logNotify(const evt::Event &event);
    static void notifyUnstopped(const std::function<void()> &notify) noexcept;
    void replaceDocument(std::shared_ptr<ScoreModel> model,
                         std::shared_ptr<IZarnRendererStyleSheet> styleSheet,
                         const ScoreCursor &cursor);
    void exchangeModel(std::shared_ptr<ScoreModel> &model) noexcept;

    std::shared_ptr<ScoreModel> _model;
    std::shared_ptr<IZarnRendererStyleSheet> _styleSheet;
    const QLoggingCategory &_eventsLog;
    utils::SignalContainer<evt::NumberCount> _signals;
    unsigned _takingBack = 0;
    ScoreCursor _cursor;
    CommandStack _commands;
};

} // namespace zarn
