// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnTypes.h>
#include <ZarnCore/model/ZarnVoice.h>
#include <ZarnCore/model/clip/ZarnClip.h>
#include <ZarnCore/model/places/ZarnScoreModelIndex.h>

#include <utility>
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

    bool isPossible();

    /// Where it is possible: adds the new content; answers how many bars the score needs.
    unsigned addTo(ContentSwap &swap);

    /// The first and the last beat of each stretch of a voice that will have notes without a string
    /// where they need one.
    using Stretch = std::pair<ScoreModelIndex, ScoreModelIndex>;
    const std::vector<Stretch> &openStretches() const noexcept { return _open; }

private:
    using Beats = Voice::Beats;
    using Length = utils::rational;

    /// A voice of a clip on its way into one of the score.
    struct Stream {
        unsigned track;
        unsigned staff;
        unsigned voice;
        Beats beats; ///< of all the copies
        bool hasOpen = false;
    };

    bool isThere() const;
    Length startTime() const;
    std::vector<Length> barLengths(const Length &until) const;
    std::vector<Stream> streams() const;
    Stream streamOf(const Voice &voice, const PastedStaff &pasted) const;
    const Voice *voiceAt(const VoicePlace &place) const;
    const Beats &beatsAt(const ContentSwap &swap, const VoicePlace &place) const;
    void insert(ContentSwap &swap, const Stream &stream);
    unsigned pour(ContentSwap &swap, const Stream &stream);
    void writeOutSimiles(ContentSwap &swap, const Stream &stream, unsigned barCount) const;

    const ScoreModel &_model;
    const Clip &_clip;
    ScoreModelIndex _place;
    unsigned _bar;
    unsigned _times;
    PasteMode _mode;
    std::vector<Stretch> _open;
    Length _start;                ///< time of the place in its bar
    Length _clipLength;           ///< of its longest voice
    std::vector<Length> _lengths; ///< of the bars from the place on, where it is not inserted
};

} // namespace zarn
