// SPDX-License-Identifier: MIT
#include <ZarnCore/model/ZarnTrackSettings.h>

#include <algorithm>

namespace zarn {

bool TrackSettings::isValid() const noexcept
{
    return playingStyle <= PlayingStyle::DrumKitHotRod && palmMuteStrength >= 0
        && palmMuteStrength <= 1 && playback <= TrackPlayback::Solo
        && forcedSoundIndex >= NoForcedSound && (!midiConnection || midiConnection->isValid())
        && lyricsVisible <= AllLyrics
        && std::all_of(systemsLayout.begin(), systemsLayout.end(),
                       [](int count) { return count >= 1; });
}

bool operator==(const TrackSettings &left, const TrackSettings &right)
{
    return left.playingStyle == right.playingStyle
        && left.palmMuteStrength == right.palmMuteStrength
        && left.letRingThroughout == right.letRingThroughout
        && left.autoAccentuation == right.autoAccentuation && left.autoBrush == right.autoBrush
        && left.oneChannelPerString == right.oneChannelPerString
        && left.volumePan == right.volumePan && left.playback == right.playback
        && left.forcedSoundIndex == right.forcedSoundIndex
        && left.midiConnection == right.midiConnection && left.systemsLayout == right.systemsLayout
        && left.defaultBarCountBySystem == right.defaultBarCountBySystem
        && left.lyricsVisible == right.lyricsVisible && left.lyricsLeftOver == right.lyricsLeftOver;
}

} // namespace zarn
