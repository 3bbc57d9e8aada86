// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnLayout/draw/ZarnLayout.h>
#include <ZarnViews/ZarnViewsExport.h>

#include <vector>

namespace zarn::views {

/// Texts of a layout with characters that neither Edwin nor any font of the system has, each once,
/// with the characters in the message. Needs a `QGuiApplication`.
ZARNVIEWS_EXPORT std::vector<layout::LayoutProblem> undrawableTexts(const layout::Layout &layout);

} // namespace zarn::views
