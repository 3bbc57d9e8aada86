// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>
#include <ZarnCore/events/ZarnEventTable.h>
#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/utils/SignalContainer.h>

#include <QLoggingCategory>
#include <QStringList>

#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace zarn {

namespace evt {
class Event;
}

/// What commands and listeners need of a score: its tree, and the signals that announce what
/// changes. What can be done to a score is in `Score`, so that commands do not depend on it.
class ZARNCORE_EXPORT ScoreBase {
public:
    ScoreBase(const ScoreBase &) = delete;
    ScoreBase &operator=(const ScoreBase &) = delete;

    /// The tree; never empty. Changing it other than by commands is for importers.
    const std::shared_ptr<ScoreModel> &scoreModel() const noexcept { return _model; }

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

    /// Delivers an event to its listeners, to all of them: what one throws reaches the caller when
    /// the others have heard. A command whose event fails so is taken back, and all listeners hear
    /// of that too. For commands; applications listen.
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
        explicit TakingBack(ScoreBase *score) noexcept : _score(score)
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
        ScoreBase *_score;
    };

    /// Who sent the event of the type `E` that is being delivered; null when none is.
    template <class E>
    const void *currentSender() const noexcept
    {
        const auto *const signal = _signals.find<E>();
        return signal != nullptr ? signal->currentSender() : nullptr;
    }

protected:
    ScoreBase();
    ~ScoreBase();

    std::shared_ptr<ScoreModel> _model;
    utils::SignalContainer<evt::NumberCount> _signals;

private:
    static void logNotify(const evt::Event &event);
    static void notifyUnstopped(const std::function<void()> &notify) noexcept;

    const QLoggingCategory &_eventsLog;
    unsigned _takingBack = 0;
};

} // namespace zarn
