// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnLayout/session/LayoutEngine.h>
#include <ZarnLayout/session/ZarnLayoutJob.h>

#include <atomic>
#include <memory>
#include <mutex>
#include <utility>

namespace zarn::layout {

/// One engine for a session and its jobs, one at a time.
class SharedEngine {
public:
    SharedEngine(std::shared_ptr<const MusicFont> font, const TextMeasure &texts)
        : _engine(std::move(font), texts)
    {
    }

    std::shared_ptr<const Layout> layOut(std::shared_ptr<const engraving::ScoreSource> source)
    {
        const std::lock_guard<std::mutex> lock(_mutex);
        return _engine.layOut(std::move(source));
    }

private:
    std::mutex _mutex;
    engraving::LayoutEngine _engine;
};

class LayoutJob::Impl {
public:
    std::shared_ptr<SharedEngine> engine;
    std::shared_ptr<const engraving::ScoreSource> source;
    unsigned reading = 0; ///< from which the source is
    std::once_flag once;
    std::shared_ptr<const Layout> layout;
    std::atomic<bool> isDone = false;
};

} // namespace zarn::layout
