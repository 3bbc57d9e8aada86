// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <string_view>

namespace zarn::editor {

/// What a reader sees for a word of the tables of attributes, such as "PalmMute" or "Crescendo", in
/// the user's language: "Palm mute". Words that no translation knows are only parted.
QString attributeText(std::string_view word);

} // namespace zarn::editor
