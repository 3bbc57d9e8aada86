// SPDX-License-Identifier: MIT
#pragma once

#include <QStringList>

#include <string>

namespace zarn::tool {

/// "Name: one, two, three" in lines of at most `width` columns, as far as items allow; of a long
/// list the beginning, and how many there are. Empty for an empty list.
std::string listText(const char *name, const QStringList &items, int width,
                     const char *separator = ", ");

} // namespace zarn::tool
