// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnException.h>

/// Raises a `CoreException` with a message, naming the enclosing function by its qualified name.
#define ZARN_RAISE_IN(function, message)                                                           \
    throw ::zarn::CoreException((message), __FILE__, (function), __LINE__)

/// Raises "Assertion failed: " and the text of the expression when it does not hold. The text is
/// part of the message, so write it exactly: `ZARN_ASSERT_IN("zarn::X::f", score != NULL)`.
#define ZARN_ASSERT_IN(function, ...)                                                              \
    do {                                                                                           \
        if (!(__VA_ARGS__))                                                                        \
            ZARN_RAISE_IN(function, "Assertion failed: " #__VA_ARGS__);                            \
    } while (false)
