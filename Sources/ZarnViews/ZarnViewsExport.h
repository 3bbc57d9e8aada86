// SPDX-License-Identifier: MIT
#pragma once

/// Marks what the library of views offers; everything else stays hidden in it.
#if defined(_WIN32)
#if defined(ZARNVIEWS_LIBRARY)
#define ZARNVIEWS_EXPORT __declspec(dllexport)
#else
#define ZARNVIEWS_EXPORT __declspec(dllimport)
#endif
#else
#define ZARNVIEWS_EXPORT __attribute__((visibility("default")))
#endif
