// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnTypes.h>
#include <ZarnCore/model/ZarnVoice.h>
#include <ZarnCore/model/clip/ZarnClip.h>
#include <ZarnCore/model/places/ZarnScoreModelIndex.h>

#include <vector>

namespace zarn {

class ContentSwap;
struct PastedStaff;
struct VoicePlace;

/// Works out what stands where once a clip of beats is pasted, and leaves the score as it is.
class BeatPasting {
public:
    BeatPasting(const ScoreModel &model, const Clip &clip, const ScoreModelIndex &place,
                unsigned times, PasteMode mode);

    bool isPossible() const;

    /// Adds the new content; answers how many bars the score needs.
    unsigned addTo(ContentSwap &swap);

private:
    using Beats = Voice::Beats;
    using Length = utils::rational;

    /// A voice of a clip on its way into one of the score.
    struct Stream {
        unsigned track;
        unsigned staff;
        unsigned voice;
        Beats beats; ///< of all the copies
    };

    bool isThere() const;
    Length startTime() const;
    std::vector<Length> barLengths(const Length &until) const;
    std::vector<Stream> streams() const;
    Beats copiesOf(const Voice &voice, const PastedStaff &pasted) const;
    const Voice *voiceAt(const VoicePlace &place) const;
    Beats beatsAt(const ContentSwap &swap, const VoicePlace &place) const;
    void insert(ContentSwap &swap, Stream stream) const;
    unsigned pour(ContentSwap &swap, const Stream &stream,
                  const std::vector<Length> &lengths) const;
    void writeOutSimiles(ContentSwap &swap, const Stream &stream, unsigned barCount) const;

    const ScoreModel &_model;
    const Clip &_clip;
    ScoreModelIndex _place;
    unsigned _bar;
    unsigned _times;
    PasteMode _mode;
    Length _start;      ///< time of the place in its bar
    Length _clipLength; ///< of its longest voice
};

} // namespace zarn
