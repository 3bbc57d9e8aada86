// SPDX-License-Identifier: MIT
#pragma once

/// Marks what the file system library offers.
#if defined(_WIN32)
#if defined(FILESYSTEM_LIBRARY)
#define FILESYSTEM_EXPORT __declspec(dllexport)
#else
#define FILESYSTEM_EXPORT __declspec(dllimport)
#endif
#else
#define FILESYSTEM_EXPORT __attribute__((visibility("default")))
#endif
