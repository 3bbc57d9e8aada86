// SPDX-License-Identifier: MIT
#pragma once

/// Marks what the shared library offers; everything else stays hidden in it.
#if defined(_WIN32)
#if defined(ZARNCORE_LIBRARY)
#define ZARNCORE_EXPORT __declspec(dllexport)
#else
#define ZARNCORE_EXPORT __declspec(dllimport)
#endif
#else
#define ZARNCORE_EXPORT __attribute__((visibility("default")))
#endif
