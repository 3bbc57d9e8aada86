// SPDX-License-Identifier: MIT
#include "Fuzzing.h"

#include <QLoggingCategory>

#include <cstddef>
#include <cstdint>
#include <iostream>

/// Inputs that are refused are what this is about: they need no warning each.
extern "C" int LLVMFuzzerInitialize(int *, char ***)
{
    QLoggingCategory::setFilterRules(QStringLiteral("*=false"));
    std::cerr.rdbuf(nullptr);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    fuzz::check({reinterpret_cast<const char *>(data), size});
    return 0;
}
