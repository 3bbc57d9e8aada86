// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace zarn::tool {

/// Reads lines that a person types, with editing, a history that is kept between runs, and
/// completion by the tabulator key.
class LineEditor {
public:
    /// Words that could stand in place of the last one of a text, which may be empty.
    using Completer = std::function<std::vector<std::string>(const std::string &text)>;

    explicit LineEditor(Completer completer);
    ~LineEditor();
    LineEditor(const LineEditor &) = delete;
    LineEditor &operator=(const LineEditor &) = delete;

    /// The next line without its end; nothing at the end of the input.
    std::optional<std::string> read(const std::string &prompt);

private:
    struct Private;
    std::unique_ptr<Private> _p;
};

} // namespace zarn::tool
