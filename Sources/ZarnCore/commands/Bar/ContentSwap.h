// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/commands/Bar/KeptJoints.h>
#include <ZarnCore/commands/ZarnTouchedBars.h>
#include <ZarnCore/model/ZarnBar.h>
#include <ZarnCore/model/ZarnMasterBar.h>

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <tuple>
#include <utility>
#include <vector>

namespace zarn {

class ScoreBase;
class ScoreModel;

/// One voice of a bar.
struct VoicePlace {
    unsigned track = 0;
    unsigned staff = 0;
    unsigned bar = 0;
    unsigned voice = 0;

    friend bool operator<(const VoicePlace &a, const VoicePlace &b) noexcept
    {
        return std::tie(a.track, a.staff, a.bar, a.voice)
            < std::tie(b.track, b.staff, b.bar, b.voice);
    }
};

/// What is to stand in voices and bars in the place of what is there: whole voices, as lists of
/// beats, with what hangs on their time. It is exchanged with the score, which gives back what was
/// there, the very same nodes; a beat may be in both lists. Then the joints that are named are
/// mended.
class ContentSwap {
public:
    using Beats = Voice::Beats;

    /// Who finds the joints of beats that were not neighbours in their voice before: this one, or
    /// the caller, who names them with `addJoint` and `addNewBeats`.
    enum class Joints { Found, Named };

    /// All beats that a voice is to have; one that is missing is made. Named again, a place takes
    /// the newer list.
    void setBeats(const VoicePlace &place, Beats beats, Joints joints = Joints::Found);

    /// Takes the voice out of its bar.
    void dropVoice(const VoicePlace &place);

    /// What a voice is to have, where that was set.
    const Beats *beatsAt(const VoicePlace &place) const;

    void setSimileMark(unsigned track, unsigned staff, unsigned bar, SimileMark mark);
    void setClefs(unsigned track, unsigned staff, unsigned bar, ClefType clef,
                  std::vector<ClefChange> changes);
    void setFermatas(unsigned bar, FermataMarks marks);

    /// See `KeptJoints`; by the numbers that hold after the exchange.
    void addJoint(const VoicePlace &place, unsigned beat);
    void addNewBeats(const VoicePlace &place, unsigned first, unsigned end);
    void addBarLine(unsigned track, unsigned staff, unsigned bar);

    /// Ties notes of the first beat of a voice, by their numbers, to the beat in front of it, as
    /// they were before something came between.
    void holdOver(const VoicePlace &place, std::vector<unsigned> notes);

    /// Announces the bars as those of all tracks.
    void announceAllTracks(unsigned first, unsigned last) { _allTracks = {first, last}; }

    bool isEmpty() const noexcept;

    /// Whether all the bars are there.
    bool fits(const ScoreModel &model) const;

    /// Calls `beforeBar(track, staff, bar)` in front of the first change of the voices of a bar;
    /// bars of one staff come in their order.
    using BeforeBar = std::function<void(unsigned, unsigned, unsigned)>;
    void apply(ScoreModel &model, const BeforeBar &beforeBar);
    void revert(ScoreModel &model);

    /// Sends `ModifyBarRange` or `ModifyBarRangeAllTracks`, then `SimileMarkBarChanged`,
    /// `TrackClefChanged` and `MasterBarFermata` where these changed.
    void announce(ScoreBase &score, const void *sender) const;

private:
    struct Content {
        Beats beats;
        bool hasSlot = true;
        Joints joints = Joints::Found;
        std::shared_ptr<Voice> voice; ///< while it is out of the bar
    };
    struct Clefs {
        ClefType clef;
        std::vector<ClefChange> changes;
    };

    /// A bar of a staff, as the three first numbers of a place.
    using BarPlace = std::tuple<unsigned, unsigned, unsigned>;

    Content &contentOf(const VoicePlace &place);
    void exchange(ScoreModel &model, const BeforeBar &beforeBar);
    void tieOver(const ScoreModel &model) const;
    void addChangedJoints(const ScoreModel &model);
    void collectTouched(const ScoreModel &model);

    std::map<VoicePlace, Content> _voices;
    std::map<BarPlace, SimileMark> _similes;
    std::map<BarPlace, Clefs> _clefs;
    std::map<unsigned, FermataMarks> _fermatas;
    std::vector<std::pair<VoicePlace, unsigned>> _jointPlaces;
    std::vector<std::pair<VoicePlace, std::pair<unsigned, unsigned>>> _newBeats;
    std::vector<BarPlace> _barLines;
    std::map<VoicePlace, std::vector<unsigned>> _heldOver;
    std::optional<std::pair<unsigned, unsigned>> _allTracks;
    KeptJoints _joints;
    TouchedBars _touched;
    std::vector<BarPlace> _changedClefs;
};

} // namespace zarn
