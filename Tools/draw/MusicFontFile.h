// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

namespace zarn {

namespace layout {
class MusicFont;
}

namespace tool {

class Arguments;

/// The font that --font names, with the metadata that lie beside it: in a file of its name with
/// `.json` in place of its suffix or behind it, with `_metadata.json`, or in `metadata.json`. Else
/// the built-in one. Raises `Failure` for files that cannot be read and are not what they should
/// be.
std::shared_ptr<const layout::MusicFont> readMusicFont(const Arguments &arguments);

} // namespace tool
} // namespace zarn
