// SPDX-License-Identifier: MIT
#include <ZarnCore/ZarnTypesEditing.h>

#include <ZarnCore/utils/EnumTable.h>

namespace zarn {

namespace {

using utils::enumTable;
using utils::KeyMatch;

constexpr auto trackPlaybackTexts = enumTable<TrackPlayback>(KeyMatch::UpperCase,
                                                             {
                                                                 {TrackPlayback::Normal, "Normal"},
                                                                 {TrackPlayback::Mute, "Mute"},
                                                                 {TrackPlayback::Solo, "Solo"},
                                                             });
static_assert(trackPlaybackTexts.isConsistent());

constexpr auto viewLayoutTexts = enumTable<ViewLayout>(KeyMatch::UpperCase,
                                                       {
                                                           {ViewLayout::Pages, "Pages"},
                                                           {ViewLayout::Continuous, "Continuous"},
                                                           {ViewLayout::SingleLine, "SingleLine"},
                                                       });
static_assert(viewLayoutTexts.isConsistent());

constexpr auto pasteModeTexts = enumTable<PasteMode>(KeyMatch::UpperCase,
                                                     {
                                                         {PasteMode::Insert, "Insert"},
                                                         {PasteMode::Replace, "Replace"},
                                                         {PasteMode::Merge, "Merge"},
                                                     });
static_assert(pasteModeTexts.isConsistent());

constexpr auto shiftTexts = enumTable<Shift>(KeyMatch::UpperCase,
                                             {
                                                 {Shift::Down, "Down"},
                                                 {Shift::Up, "Up"},
                                             });
static_assert(shiftTexts.isConsistent());

constexpr auto channelStripParameterTexts =
    enumTable<ChannelStripParameter>(KeyMatch::UpperCase,
                                     {
                                         {ChannelStripParameter::Volume, "Volume"},
                                         {ChannelStripParameter::Pan, "Pan"},
                                     });
static_assert(channelStripParameterTexts.isConsistent());

} // namespace

std::string trackPlaybackToString(TrackPlayback value)
{
    return std::string(trackPlaybackTexts.textOrFirst(value));
}

TrackPlayback trackPlaybackFromString(const std::string &text)
{
    return trackPlaybackTexts.valueOrFirst(text);
}

std::string viewLayoutToString(ViewLayout value)
{
    return std::string(viewLayoutTexts.textOrFirst(value));
}

ViewLayout viewLayoutFromString(const std::string &text)
{
    return viewLayoutTexts.valueOrFirst(text);
}

std::string pasteModeToString(PasteMode value)
{
    return std::string(pasteModeTexts.textOrFirst(value));
}

PasteMode pasteModeFromString(const std::string &text)
{
    return pasteModeTexts.valueOrFirst(text);
}

std::string shiftToString(Shift value)
{
    return std::string(shiftTexts.textOrFirst(value));
}

Shift shiftFromString(const std::string &text)
{
    return shiftTexts.valueOrFirst(text);
}

std::string channelStripParameterToString(ChannelStripParameter value)
{
    return std::string(channelStripParameterTexts.textOrFirst(value));
}

ChannelStripParameter channelStripParameterFromString(const std::string &text)
{
    return channelStripParameterTexts.valueOrFirst(text);
}

} // namespace zarn
