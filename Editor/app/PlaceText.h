// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace zarn::editor {

class Document;

/// Where the cursor is, for the status line and for screen readers.
QString placeText(const Document &document);

} // namespace zarn::editor
