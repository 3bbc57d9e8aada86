// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/io/musicxml/WrittenMusic.h>
#include <ZarnCore/io/musicxml/signs/Beams.h>
#include <ZarnCore/model/form/ZarnTupletGroup.h>

#include <array>
#include <vector>

namespace zarn {
class MasterBar;
class Voice;
} // namespace zarn

namespace zarn::io {

/// The tuplets of a rhythm that shorten it, the outer one first.
struct TupletRatios {
    std::array<TupletRatio, 2> ratios;
    int count = 0;

    TupletRatio product() const;
};
TupletRatios tupletRatios(const RhythmValue &rhythm);

/// A beat of a voice with what is to be written of its rhythm.
struct RhythmicBeat {
    const Beat *beat = nullptr;
    utils::rational onset;
    utils::rational length; ///< 0 for a grace beat
    TupletRatios tuplets;
    std::array<bool, 2> starts = {}; ///< the bracket of each tuplet
    std::array<bool, 2> stops = {};
    bool isBeamedFrom = false; ///< a beam leads here
    bool isBeamedOn = false;   ///< and on
    bool isBeamSaid = false;   ///< what the beat says of its beam shows
    bool isOfTremolo = false;  ///< one of two notes that last as long as one
    bool isInChord = false;    ///< sounds with the beat that was written before it
    bool isPlain = false;      ///< neither the beat nor its notes have any sign of their own
    int beamsFrom = 0;         ///< levels that it shares with the beat before
    int beamsOn = 0;

    /// Whether it is a rest that is as long as the bar, whatever its value.
    bool fillsBar() const { return beat->isWholeBarRest() && !beat->isGrace(); }
};

/// Whether a voice is a whole-bar rest, and grace notes at most.
bool isWholeBarRest(const Voice &voice);

/// Works out when the beats of a voice begin, their tuplet brackets and their beams.
class VoiceRhythm {
public:
    /// A whole-bar rest that is all of the voice lasts as long as the bar is written; see
    /// `ScorePlan::lengths`.
    void read(const Voice &voice, const MasterBar &bar, const utils::rational &written);
    void read(const std::vector<const Beat *> &beats, const MasterBar &bar);

    const std::vector<RhythmicBeat> &beats() const noexcept { return _beats; }
    const utils::rational &end() const noexcept { return _end; }

private:
    void start();
    void add(const Beat &beat);
    void finish(const MasterBar &bar);
    void setTuplets(TupletLevel level);
    void setBeams(const MasterBar &bar);

    std::vector<RhythmicBeat> _beats;
    std::vector<BeamedBeat> _beamed;
    utils::rational _end;
    utils::rational _wholeBar; ///< what a whole-bar rest lasts
    bool _hasTuplets = false;
    bool _hasFlags = false;
};

} // namespace zarn::io
