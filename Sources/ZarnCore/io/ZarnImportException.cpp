// SPDX-License-Identifier: MIT
#include <ZarnCore/io/ZarnImportException.h>

namespace zarn::io {

namespace {

std::string joined(const std::string &document, const std::string &place, const std::string &reason)
{
    std::string text;
    for (const auto *lead : {&document, &place})
        if (!lead->empty())
            text += *lead + ": ";
    return text + reason;
}

} // namespace

ImportException::ImportException(const std::string &document, const std::string &place,
                                 const std::string &reason, const char *file, const char *function,
                                 int line)
    : CoreException(joined(document, place, reason), file, function, line), _document(document),
      _place(place), _reason(reason)
{
}

ImportException::~ImportException() = default;

} // namespace zarn::io
