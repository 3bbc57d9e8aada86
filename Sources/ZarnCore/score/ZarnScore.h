// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>
#include <ZarnCore/commands/ZarnCommandStack.h>
#include <ZarnCore/events/ZarnEventNumber.h>
#include <ZarnCore/score/ZarnScoreCursor.h>
#include <ZarnCore/utils/SignalContainer.h>

#include <QLoggingCategory>
#include <QStringList>
#include <memory>
#include <vector>

namespace zarn {

class IZarnRendererStyleSheet;
class MasterTrack;
class ScoreModel;
class Track;

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

    /// Replaces the music by a deep copy, forgets all commands and sends `ScoreChanged`. The
    /// listeners stay. The old model lives on for those who hold it, without a score.
    Score &operator=(const Score &other);

    ~Score();

    /// The tree; never empty. Changing it other than by commands is for importers.
    const std::shared_ptr<ScoreModel> &scoreModel() const noexcept { return _model; }

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
        _signals.notify(sender, event);
    }

    /// Who sent the event of the type `E` that is being delivered; null when none is.
    template <class E>
    const void *currentSender() const noexcept
    {
        const auto *const signal = _signals.find<E>();
        return signal != nullptr ? signal->currentSender() : nullptr;
    }

    bool createBar(unsigned index);

    /// Inserts empty bars, in every staff of every track, in front of a bar or at the end.
    bool createBars(unsigned index, unsigned count);

    bool removeBar(unsigned index);

    /// Removes bars, both ends included, from every staff of every track.
    bool removeBarRange(unsigned first, unsigned last);

private:
    static void logNotify(const evt::Event &event);
    void adoptModel(std::shared_ptr<ScoreModel> model);

    std::shared_ptr<ScoreModel> _model;
    std::shared_ptr<IZarnRendererStyleSheet> _styleSheet;
    const QLoggingCategory &_eventsLog;
    utils::SignalContainer<evt::NumberCount> _signals;
    ScoreCursor _cursor;
    CommandStack _commands;
};

} // namespace zarn
