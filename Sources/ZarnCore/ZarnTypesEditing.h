// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>

#include <cstdint>
#include <string>

/// Enumerations of what is chosen while a score is edited, shown and heard.
/// The texts are the vocabulary of documents and command arguments; `ZarnTypes.h` says how they
/// are read and printed.
namespace zarn {

/// Which tracks are heard: when any is solo, those alone.
enum class TrackPlayback : std::uint8_t {
    Normal,
    Mute,
    Solo,
};

/// How a view lays music out: on pages, on one endless sheet, in one line.
enum class ViewLayout : std::uint8_t {
    Pages,
    Continuous,
    SingleLine,
};

/// What pasted music does to what is there.
enum class PasteMode : std::uint8_t {
    Insert,
    Replace,
    Merge,
};

enum class Shift : std::uint8_t {
    Down,
    Up,
};

enum class ChannelStripParameter : std::uint8_t {
    Volume,
    Pan,
};

ZARNCORE_EXPORT std::string trackPlaybackToString(TrackPlayback value);
ZARNCORE_EXPORT TrackPlayback trackPlaybackFromString(const std::string &text);

ZARNCORE_EXPORT std::string viewLayoutToString(ViewLayout value);
ZARNCORE_EXPORT ViewLayout viewLayoutFromString(const std::string &text);

ZARNCORE_EXPORT std::string pasteModeToString(PasteMode value);
ZARNCORE_EXPORT PasteMode pasteModeFromString(const std::string &text);

ZARNCORE_EXPORT std::string shiftToString(Shift value);
ZARNCORE_EXPORT Shift shiftFromString(const std::string &text);

ZARNCORE_EXPORT std::string channelStripParameterToString(ChannelStripParameter value);
ZARNCORE_EXPORT ChannelStripParameter channelStripParameterFromString(const std::string &text);

} // namespace zarn
