// SPDX-License-Identifier: MIT
#pragma once

/// Marks what the streams library offers.
#if defined(_WIN32)
#if defined(STREAMS_LIBRARY)
#define STREAMS_EXPORT __declspec(dllexport)
#else
#define STREAMS_EXPORT __declspec(dllimport)
#endif
#else
#define STREAMS_EXPORT __attribute__((visibility("default")))
#endif
