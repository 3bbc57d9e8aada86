// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/io/ZarnExporter.h>
#include <ZarnCore/playback/ZarnPlaybackPlan.h>

namespace zarn::io {

struct MidiFile;

struct MidiExportOptions {
    static constexpr int LeastTicks = 24;
    static constexpr int MostTicks = 32767;

    int ticksPerQuarter = 960;
    int format =
        1; ///< 1: a track for each track of the score behind one for the tempo; 0: all in one
    playback::Channels channels = playback::Channels::OnePerTrack;

    /// Whether files of format 1 say how their bars are written, in events for sequencers (FF 7F)
    /// that other programs pass over: `MidiImporter` then has staves, voices, lengths, ties and
    /// spelling as they were.
    bool saysNotation = true;
};

/// Writes Standard MIDI Files, suffix "mid", of what a score sounds like (`PlaybackPlan`): all
/// tracks, whichever are switched off for listening.
///
/// The first track has tempos, meters, keys and the sections as markers. The others have the names
/// of their tracks, what they sing as lyrics, and a port where fifteen channels are not enough.
/// Ticks are rounded from exact times; tempos follow slides so closely that no time is half a
/// millisecond off. Where grace notes begin in front of the first bar, a bar of whole quarters
/// stands before it.
class ZARNCORE_EXPORT MidiExporter final : public Exporter {
public:
    /// Raises for ticks or a format outside of what there is.
    explicit MidiExporter(const MidiExportOptions &options = {});
    ~MidiExporter() override;

    std::string description() const override;
    std::list<std::string> extensions() const override;

    using Exporter::write;
    void write(const ScoreModel &model, filesystem::FileHandle &handle,
               ExportReport &report) const override;

    /// What `write` writes.
    MidiFile toFile(const ScoreModel &model, ExportReport &report) const;

private:
    MidiExportOptions _options;
};

} // namespace zarn::io
