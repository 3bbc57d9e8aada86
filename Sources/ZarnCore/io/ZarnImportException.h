// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnException.h>

namespace zarn::io {

/// A document was refused. The message is "document: place: reason"; an empty document or place
/// is left out with its colon.
class ZARNCORE_EXPORT ImportException final : public CoreException {
public:
    /// `document` is the name of the file read, `place` a line ("line 12, column 3"), a JSON
    /// pointer or a part and bar; the last three name the raising source code.
    ImportException(const std::string &document, const std::string &place,
                    const std::string &reason, const char *file, const char *function, int line);
    ~ImportException() override;

    const std::string &document() const noexcept { return _document; }
    const std::string &place() const noexcept { return _place; }
    const std::string &reason() const noexcept { return _reason; }

private:
    std::string _document;
    std::string _place;
    std::string _reason;
};

} // namespace zarn::io

/// Refuses a document, naming the enclosing function by its qualified name.
#define ZARN_REFUSE_IN(function, document, place, reason)                                          \
    throw ::zarn::io::ImportException((document), (place), (reason), __FILE__, (function), __LINE__)
