// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnLayout/session/LayoutJobImpl.h>
#include <ZarnLayout/session/ScoreMarks.h>
#include <ZarnLayout/session/ScoreReader.h>
#include <ZarnLayout/session/ZarnFirstLayout.h>

#include <memory>

namespace zarn::layout {

/// All that a session knows of a score that it has laid out.
class FirstLayout::Impl {
public:
    const ScoreModel *model = nullptr; ///< that was laid out
    LayoutOptions options;
    engraving::ScoreMarks marks;
    engraving::ScoreReader reader;
    std::shared_ptr<SharedEngine> engine;
    std::shared_ptr<const Layout> layout;
};

} // namespace zarn::layout
