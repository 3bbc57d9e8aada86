// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnLayout/ZarnLayoutExport.h>
#include <ZarnLayout/draw/ZarnLayout.h>
#include <ZarnLayout/session/ZarnScoreLayout.h>

#include <memory>

namespace zarn::layout {

/// A model that is laid out before it is edited, on any thread, as when a file is opened. The
/// session that keeps the layout up to date goes on from there, and need not lay it out again.
class ZARNLAYOUT_EXPORT FirstLayout {
public:
    /// Lays a model out. While this runs, nobody may change it.
    explicit FirstLayout(const ScoreModel &model, LayoutOptions options = {});
    ~FirstLayout();
    FirstLayout(FirstLayout &&other) noexcept;
    FirstLayout &operator=(FirstLayout &&other) noexcept;

    /// Null when a session has taken it.
    std::shared_ptr<const Layout> layout() const noexcept;

private:
    friend class LayoutSession;
    class Impl;

    std::unique_ptr<Impl> _impl;
};

} // namespace zarn::layout
