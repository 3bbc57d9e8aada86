// SPDX-License-Identifier: MIT
#pragma once

#include <exception>
#include <stdexcept>
#include <string>

namespace zarn::tool {

/// Something that the user asked for cannot be done; the text is complete and for people.
class Failure : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// What went wrong, in one line and without source places.
std::string explain(const std::exception &error);

} // namespace zarn::tool
