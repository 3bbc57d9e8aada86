// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>
#include <ZarnCore/ZarnTypes.h>
#include <ZarnCore/music/ZarnRhythmValue.h>

#include <QString>

#include <cstdint>
#include <map>
#include <vector>

namespace zarn {

class AttributeValue;
class NoteDynamic;
class ScoreModelIndex;
class ScoreModelRange;
struct Barre;
struct ChordMark;
struct WhammyBar;
struct WrittenStretch;
enum class BeatAttribute : std::uint8_t;

/// What can be done to the beats of a score. Indexes and ranges are taken as places of this score,
/// whatever their model. The commands of the same names, in `cmd`, say more. Each answers whether
/// it was done: what cannot be done is logged and changes nothing.
class ZARNCORE_EXPORT ScoreBeatOperations {
public:
    /// Inserts a rest in front of the beat that the index names, or behind the last one.
    bool createBeat(const ScoreModelIndex &index, const RhythmValue &rhythm);

    /// Writes beats with their notes over stretches of a staff's voices, or between them; see
    /// `cmd::WriteBeats`. Takes the beats over.
    bool writeBeats(unsigned track, unsigned staff, std::vector<WrittenStretch> stretches);

    /// Removes beats; those behind them move up, and nothing fills the bar.
    bool removeBeats(const ScoreModelRange &range);

    /// Makes plain rests of beats, with nothing left of what they had; grace beats go.
    bool clearBeats(const ScoreModelRange &range);

    /// Repeats a beat up to the end of its bar, over what is behind it.
    bool copyBeatToEOB(const ScoreModelIndex &index);

    /// Slaps the dead strings in place of notes or rests, or makes rests of such slaps.
    bool setBeatDeadSlapped(const ScoreModelRange &range, bool checked);

    /// Makes grace notes of beats, or beats of grace notes; nothing fills the bar.
    bool setBeatGraceNotes(const ScoreModelRange &range, GraceType type);

    /// Gives every beat of a range a note value; nothing fills or cuts the bar.
    bool setBeatRhythm(const ScoreModelRange &range, const RhythmValue &rhythm);

    // Parts of the note value alone; each beat by itself.

    /// (3, 2) is three in the time of two, (0, 0) none; the inner one stands in the outer one.
    bool setBeatTuplet(const ScoreModelRange &range, RhythmValue::TupletRatio outer,
                       RhythmValue::TupletRatio inner = {0, 0});

    /// Steps longer or, negative, shorter: an eighth, a quarter, a half.
    bool incrementBeatDuration(const ScoreModelRange &range, int steps);
    bool setNoteDuration(const ScoreModelRange &range, RhythmValue::NoteValue noteValue);

    /// 0 to 3 dots.
    bool setNoteAugmentationDot(const ScoreModelRange &range, unsigned dots);

    /// Note value of a beat and velocity of its note, or notes, in one step.
    bool setNoteDurationAndVelocity(const ScoreModelIndex &index, const RhythmValue &rhythm,
                                    unsigned velocity);

    /// Sets how loud every beat of a range is played.
    bool setBeatDynamic(const ScoreModelRange &range, NoteDynamic dynamic);

    /// Writes a chord over a beat, or takes those of a range away; the working sets of the staff
    /// keep what was written.
    bool setChord(const ScoreModelIndex &beat, const ChordMark &chord);
    bool unsetChord(const ScoreModelRange &range);

    // Attributes, by their ids in the table of beats; beats that do not take one are passed over.

    bool setBeatAttribute(const ScoreModelRange &range, BeatAttribute id,
                          const AttributeValue &value);
    bool setBeatAttributes(const ScoreModelRange &range,
                           const std::map<BeatAttribute, AttributeValue> &values);
    bool switchBeatAttribute(const ScoreModelRange &range, BeatAttribute id);
    bool unsetBeatAttribute(const ScoreModelRange &range, BeatAttribute id);
    bool incrementBeatSecondaryAttribute(const ScoreModelRange &range, BeatAttribute id, int steps);

    // The same by names of their own.

    bool setBeatFreeText(const ScoreModelRange &range, const QString &text);
    bool setBeatArpeggio(const ScoreModelRange &range, Direction direction, unsigned length = 0,
                         StrumAnchor anchor = StrumAnchor::StartsOnBeat);
    bool setBrush(const ScoreModelRange &range, Direction direction, unsigned length = 0,
                  StrumAnchor anchor = StrumAnchor::StartsOnBeat);
    bool setBeatFadding(const ScoreModelRange &range, Fadding fadding);
    bool setBeatOttavia(const ScoreModelRange &range, Ottavia ottavia);
    bool setBeatTimer(const ScoreModelRange &range, bool checked);
    bool setBeatSlashed(const ScoreModelRange &range, bool checked);
    bool setBeatPickStroke(const ScoreModelRange &range, Direction direction);
    bool setBeatRasgueado(const ScoreModelRange &range, RasgueadoType type);
    bool setBeatGolpe(const ScoreModelRange &range, ZarnGolpeType type);
    bool setBeatTremolo(const ScoreModelRange &range, unsigned speed);
    bool setBeatBarre(const ScoreModelRange &range, const Barre &barre);
    bool setStringedBeatBassAttack(const ScoreModelRange &range, BassAttack attack);
    bool setStringedBeatVibrato(const ScoreModelRange &range, Vibrato vibrato);
    bool setStringedBeatWhammyBar(const ScoreModelRange &range, const WhammyBar &bar);
    bool setWah(const ScoreModelRange &range, WahWah wah);
    bool setStemOrientations(const ScoreModelRange &range, ZarnStemOrientation orientation);

protected:
    ScoreBeatOperations() = default;
    ~ScoreBeatOperations() = default;
};

} // namespace zarn
