// SPDX-License-Identifier: MIT
#include <ZarnLayout/source/BarSource.h>

#include <algorithm>

namespace zarn::engraving {

bool BarSource::isEmpty() const noexcept
{
    if (simile != SimileMark::None || !clefChanges.empty())
        return false;
    return std::all_of(voices.begin(), voices.end(), [](const VoiceSource &voice) {
        return std::all_of(voice.beats.begin(), voice.beats.end(), [](const BeatSource &beat) {
            return (beat.isWholeBarRest || beat.isPlaceHolder || beat.isRest) && !beat.details
                && !beat.carriesSigns();
        });
    });
}

bool BeatSource::carriesSigns() const noexcept
{
    const bool hasWords = details
        && (!details->text.empty() || !details->textBelow.empty() || !details->chord.isEmpty()
            || !details->lyrics.empty() || details->textSpan != TextSpan::None);
    return hasWords || marks.dynamic() != NoteDynamic()
        || marks.attackDynamic() != AttackDynamic::None || marks.hairpin() != Hairpin::NoHairpin
        || marks.pedal() != PedalChange::None || marks.breath() != BreathSign::None
        || marks.fadding() != Fadding::NoFadding || marks.hasTimer();
}

namespace {

template <typename T>
bool haveEqualValue(const std::shared_ptr<const T> &a, const std::shared_ptr<const T> &b)
{
    return a == b || (a && b && *a == *b);
}

const BeatSource *firstNote(const VoiceSource &voice)
{
    const auto &beats = voice.beats;
    const auto found = std::find_if(beats.begin(), beats.end(),
                                    [](const BeatSource &beat) { return beat.noteCount > 0; });
    return found == beats.end() ? nullptr : &*found;
}

const BeatSource *lastNote(const VoiceSource &voice)
{
    const auto &beats = voice.beats;
    const auto found = std::find_if(beats.rbegin(), beats.rend(),
                                    [](const BeatSource &beat) { return beat.noteCount > 0; });
    return found == beats.rend() ? nullptr : &*found;
}

bool haveEqualOttava(const BeatSource *a, const BeatSource *b)
{
    return (!a && !b) || (a && b && a->marks.ottavia() == b->marks.ottavia());
}

/// Whether words lead alike to beats from the bar in front.
bool areSungAlike(const BeatSource &a, const BeatSource &b)
{
    const auto syllables = [](const BeatSource &beat) {
        return beat.details ? beat.details->lyrics : Syllables();
    };
    return a.isRest == b.isRest && a.isPlaceHolder == b.isPlaceHolder
        && syllables(a) == syllables(b);
}

bool lookAlikeFromOutside(const VoiceSource &a, const VoiceSource &b)
{
    if (a.number != b.number || a.beats.empty() != b.beats.empty())
        return false;
    return a.beats.empty()
        || (areSungAlike(a.beats.front(), b.beats.front())
            && a.beats.back().marks.hairpin() == b.beats.back().marks.hairpin()
            && haveEqualOttava(firstNote(a), firstNote(b))
            && haveEqualOttava(lastNote(a), lastNote(b)));
}

bool isEqual(const TempoMark &a, const TempoMark &b)
{
    return a.position == b.position && a.value == b.value && a.unit == b.unit && a.text == b.text
        && a.isLinear == b.isLinear;
}

} // namespace

bool operator==(const NoteSource &a, const NoteSource &b)
{
    return a.marks == b.marks && a.midi == b.midi && a.line == b.line && a.string == b.string
        && a.fret == b.fret && a.step == b.step && a.alteration == b.alteration
        && a.octave == b.octave && a.accidental == b.accidental && a.head == b.head
        && a.headFill == b.headFill && a.setHeads == b.setHeads && a.technique == b.technique
        && haveEqualValue(a.details, b.details);
}

bool operator==(const BeatSource &a, const BeatSource &b)
{
    return a.onset == b.onset && a.length == b.length && a.marks == b.marks && a.rhythm == b.rhythm
        && a.index == b.index && a.firstNote == b.firstNote && a.noteCount == b.noteCount
        && a.graceRank == b.graceRank && a.isRest == b.isRest
        && a.isWholeBarRest == b.isWholeBarRest && a.isPlaceHolder == b.isPlaceHolder
        && a.isBeamedOn == b.isBeamedOn && a.crossBeam == b.crossBeam
        && a.isCrossStemUp == b.isCrossStemUp && a.playingTime == b.playingTime
        && haveEqualValue(a.details, b.details);
}

bool operator==(const BarSource &a, const BarSource &b)
{
    return a.clef == b.clef && a.clefBefore == b.clefBefore && a.clefChanges == b.clefChanges
        && a.ottavia == b.ottavia && a.ottaviaBefore == b.ottaviaBefore && a.simile == b.simile
        && a.key == b.key && a.keyBefore == b.keyBefore && a.layoutRatio == b.layoutRatio
        && a.voices == b.voices && a.notes == b.notes;
}

bool lookAlikeFromOutside(const BarSource &a, const BarSource &b)
{
    return a.clef == b.clef && a.clefBefore == b.clefBefore && a.ottavia == b.ottavia
        && a.ottaviaBefore == b.ottaviaBefore && a.key == b.key && a.keyBefore == b.keyBefore
        && std::equal(a.voices.begin(), a.voices.end(), b.voices.begin(), b.voices.end(),
                      [](const VoiceSource &left, const VoiceSource &right) {
                          return lookAlikeFromOutside(left, right);
                      });
}

bool operator==(const ColumnSource &a, const ColumnSource &b)
{
    return a.length == b.length && a.meter == b.meter && a.meterSign == b.meterSign
        && a.showsMeter == b.showsMeter && a.repeatStart == b.repeatStart
        && a.repeatCount == b.repeatCount && a.doubleBar == b.doubleBar && a.freeTime == b.freeTime
        && a.startsFreeTime == b.startsFreeTime && a.barLine == b.barLine && a.endings == b.endings
        && a.movementStart == b.movementStart && a.section == b.section && a.fermatas == b.fermatas
        && a.directions == b.directions && a.jumps == b.jumps && a.endingText == b.endingText
        && a.newFeel == b.newFeel && a.layoutRatio == b.layoutRatio && a.isLast == b.isLast
        && std::equal(a.tempos.begin(), a.tempos.end(), b.tempos.begin(), b.tempos.end(), isEqual);
}

} // namespace zarn::engraving
