// SPDX-License-Identifier: MIT
#pragma once

/// Marks what the audio library offers.
#if defined(_WIN32)
#if defined(ZARNAUDIO_LIBRARY)
#define ZARNAUDIO_EXPORT __declspec(dllexport)
#else
#define ZARNAUDIO_EXPORT __declspec(dllimport)
#endif
#else
#define ZARNAUDIO_EXPORT __attribute__((visibility("default")))
#endif
