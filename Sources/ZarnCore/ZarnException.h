// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>

#include <cstdint>
#include <exception>
#include <string>

namespace zarn {

/// The exception of the library: what went wrong, and where in the source.
class ZARNCORE_EXPORT CoreException : public std::exception {
public:
    CoreException(const std::string &message, const char *file, const char *function, int line);
    CoreException(const CoreException &other);
    CoreException &operator=(const CoreException &other);
    ~CoreException() override;

    /// Message, " (file: ", file, " line: ", line, " func: ", function, ")".
    std::string getMessage() const;

    /// The text of `getMessage()`; lives as long as this object.
    const char *what() const noexcept override;

    /// The message alone, as it was given.
    const std::string &message() const noexcept { return _message; }
    const std::string &file() const noexcept { return _file; }
    const std::string &function() const noexcept { return _function; }
    std::int32_t line() const noexcept { return _line; }

private:
    std::string _message;
    std::int32_t _line;
    std::string _file;
    std::string _function;
    std::string _what;
};

} // namespace zarn
