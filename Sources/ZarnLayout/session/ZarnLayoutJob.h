// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnLayout/ZarnLayoutExport.h>

#include <memory>

namespace zarn::layout {

/// The work of laying out what a session has read. It holds all that it needs: the score may be
/// edited meanwhile, and the session may go.
class ZARNLAYOUT_EXPORT LayoutJob {
public:
    ~LayoutJob();
    LayoutJob(const LayoutJob &) = delete;
    LayoutJob &operator=(const LayoutJob &) = delete;

    /// Lays out; on any thread. A second call does nothing.
    void run();
    bool isDone() const noexcept;

private:
    friend class LayoutSession;
    class Impl;

    explicit LayoutJob(std::unique_ptr<Impl> impl);

    std::unique_ptr<Impl> _impl;
};

} // namespace zarn::layout
