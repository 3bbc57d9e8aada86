// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnLayout/ZarnLayoutExport.h>
#include <ZarnLayout/draw/ZarnLayout.h>
#include <ZarnLayout/draw/ZarnLayoutSearch.h>
#include <ZarnLayout/session/ZarnFirstLayout.h>
#include <ZarnLayout/session/ZarnLayoutJob.h>
#include <ZarnLayout/session/ZarnScoreLayout.h>

#include <chrono>
#include <functional>
#include <memory>
#include <vector>

namespace zarn {

class Score;

namespace layout {

/// What an update of a layout came to.
struct LayoutUpdate {
    /// Never null.
    std::shared_ptr<const Layout> layout;

    /// What looks otherwise than in the layout before: all else of the sheets that both have may
    /// stay on the screen as it is. A sheet that grew has what it grew by named too, a new one is
    /// named as a whole, one that is gone is not named. The first layout names all of its sheets.
    std::vector<PlacedBox> changed;
};

/// Keeps the layout of a score up to date while it is edited. A session listens to the events of
/// the score and marks what they name; `update` then lays out again what is marked and whatever
/// that reaches. The layout is equal, value by value, to what `layOut` makes of the score.
///
/// It belongs to the thread that edits the score, which must outlive it. The layouts may go
/// anywhere.
class ZARNLAYOUT_EXPORT LayoutSession {
public:
    explicit LayoutSession(Score &score, LayoutOptions options = {});

    /// `texts` must outlive the session and its jobs.
    LayoutSession(Score &score, LayoutOptions options, std::shared_ptr<const MusicFont> font,
                  const TextMeasure &texts);

    /// Goes on from a layout of the score's model, which nobody has changed since. Raises
    /// `CoreException` when it is one of another model, or another session has taken it.
    LayoutSession(Score &score, FirstLayout first);
    ~LayoutSession();
    LayoutSession(const LayoutSession &) = delete;
    LayoutSession &operator=(const LayoutSession &) = delete;

    const LayoutOptions &options() const noexcept;
    /// The next update shows the score so.
    void setOptions(LayoutOptions options);

    /// Whether anything is marked or not laid out yet, so that an update might give another layout.
    bool isOutdated() const noexcept;

    /// Called when the layout becomes outdated, once until it is up to date again. It runs inside
    /// of the command: all that it may do is to arrange for a later update. Empty for nobody.
    void setOutdatedHandler(std::function<void()> handler);

    /// Lays out what is marked; waits for a job that is running. Never to be called from a listener
    /// of the score, which hears of a command while it runs; many commands between two updates cost
    /// one layout.
    LayoutUpdate update();

    /// Of the last update; null before the first one.
    const std::shared_ptr<const Layout> &layout() const noexcept;

    // A large score for which nobody wants to wait is read in slices, between which it may be
    // edited, and laid out on another thread, while it may be edited too:
    //
    //     while (!session.read(std::chrono::milliseconds(20)))
    //         ...                                      // on the next turn of the event loop
    //     const auto job = session.startJob();
    //     worker.run([job] { job->run(); ... });       // then, on this thread again:
    //     show(session.finishJob(*job));

    /// Reads what is marked for about so long, but one bar at least. Answers whether nothing is
    /// left to read.
    bool read(std::chrono::microseconds atMost);

    /// Reads what is left, and gives the work of laying it out.
    std::shared_ptr<LayoutJob> startJob();

    /// Takes what a job of this session has laid out, which must be done: raises `CoreException`
    /// when it is not. A layout that is newer than the job stays.
    LayoutUpdate finishJob(const LayoutJob &job);

private:
    class Impl;

    std::unique_ptr<Impl> _impl;
};

} // namespace layout
} // namespace zarn
