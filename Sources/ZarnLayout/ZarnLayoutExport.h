// SPDX-License-Identifier: MIT
#pragma once

/// Marks what the layout library offers; everything else stays hidden in it.
#if defined(_WIN32)
#if defined(ZARNLAYOUT_LIBRARY)
#define ZARNLAYOUT_EXPORT __declspec(dllexport)
#else
#define ZARNLAYOUT_EXPORT __declspec(dllimport)
#endif
#else
#define ZARNLAYOUT_EXPORT __attribute__((visibility("default")))
#endif
