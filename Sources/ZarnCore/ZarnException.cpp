// SPDX-License-Identifier: MIT
#include <ZarnCore/ZarnException.h>

namespace zarn {

CoreException::CoreException(const std::string &message, const char *file, const char *function,
                             int line)
    : _message(message), _line(line), _file(file != nullptr ? file : ""),
      _function(function != nullptr ? function : ""), _what(getMessage())
{
}

CoreException::CoreException(const CoreException &other) = default;
CoreException &CoreException::operator=(const CoreException &other) = default;
CoreException::~CoreException() = default;

std::string CoreException::getMessage() const
{
    // Unlike streams, to_string knows no locale.
    return _message + " (file: " + _file + " line: " + std::to_string(_line) + " func: " + _function
        + ")";
}

const char *CoreException::what() const noexcept
{
    return _what.c_str();
}

} // namespace zarn
