// SPDX-License-Identifier: MIT
#include "document/Attributes.h"

#include "document/Document.h"

#include <ZarnCore/model/ZarnBarAttribute.h>
#include <ZarnCore/model/ZarnBeatAttribute.h>
#include <ZarnCore/model/ZarnMasterBarAttribute.h>
#include <ZarnCore/model/ZarnNoteAttribute.h>
#include <ZarnCore/model/ZarnScoreModel.h>

namespace zarn::editor {
namespace {

const Beat *nodeAt(const ScoreModelIndex &place, const Beat *)
{
    return place.findBeat();
}

/// The note of the string, else the first one of the beat.
const Note *nodeAt(const ScoreModelIndex &place, const Note *)
{
    const Note *const named = place.findNote();
    const Beat *const beat = place.findBeat();
    return named != nullptr || beat == nullptr || !beat->hasNotes() ? named : beat->note(0).get();
}

const MasterBar *nodeAt(const ScoreModelIndex &place, const MasterBar *)
{
    return place.findMasterBar();
}

const Bar *nodeAt(const ScoreModelIndex &place, const Bar *)
{
    return place.findBar();
}

/// Values that can be typed or chosen.
bool isTyped(const AttributeRange &range)
{
    const auto &held = range.sample().held();
    return !std::holds_alternative<RhythmValue>(held) && !std::holds_alternative<Syllables>(held)
        && !std::holds_alternative<SlurEnds>(held) && !std::holds_alternative<KeySignature>(held)
        && !std::holds_alternative<Section>(held) && !std::holds_alternative<ChordMark>(held)
        && !std::holds_alternative<std::vector<ClefChange>>(held);
}

} // namespace

template <>
bool isOfMenus<Beat>(BeatAttribute id)
{
    const BeatAttributeRow &row = rowOf(id);
    return isTyped(row.range) && !row.isLink && id != BeatAttribute::PlaceHolder
        && id != BeatAttribute::WholeBarRest && id != BeatAttribute::GraceType;
}

template <>
bool isOfMenus<Note>(NoteAttribute id)
{
    const NoteAttributeRow &row = rowOf(id);
    return isTyped(row.range) && !row.isLink;
}

template <>
bool isOfMenus<MasterBar>(MasterBarAttribute id)
{
    return isTyped(rowOf(id).range) && id != MasterBarAttribute::TimeSignature
        && id != MasterBarAttribute::Fermatas && id != MasterBarAttribute::FurtherDirections;
}

template <>
bool isOfMenus<Bar>(BarAttribute id)
{
    return isTyped(rowOf(id).range) && id != BarAttribute::Clef;
}

template <class Node>
std::optional<AttributeValue> valueAtCursor(const Document &document,
                                            typename AttributeOf<Node>::Id id)
{
    const Node *const node = nodeAt(document.cursor(), static_cast<const Node *>(nullptr));
    if (node == nullptr)
        return std::nullopt;
    return rowOf(id).get(*node);
}

template std::optional<AttributeValue> valueAtCursor<Beat>(const Document &, BeatAttribute);
template std::optional<AttributeValue> valueAtCursor<Note>(const Document &, NoteAttribute);
template std::optional<AttributeValue> valueAtCursor<MasterBar>(const Document &,
                                                                MasterBarAttribute);
template std::optional<AttributeValue> valueAtCursor<Bar>(const Document &, BarAttribute);

template <>
bool setSelected<Beat>(const Document &document, Score &score, BeatAttribute id,
                       const AttributeValue &value)
{
    return score.setBeatAttribute(document.selection().beats(score), id, value);
}

template <>
bool setSelected<Note>(const Document &document, Score &score, NoteAttribute id,
                       const AttributeValue &value)
{
    return score.setNoteAttribute(document.selection().notes(score), id, value);
}

template <>
bool setSelected<MasterBar>(const Document &document, Score &score, MasterBarAttribute id,
                            const AttributeValue &value)
{
    const auto bars = document.selection().bars(score);
    return score.setMasterBarAttribute(bars.first, bars.second, id, value);
}

template <>
bool setSelected<Bar>(const Document &document, Score &score, BarAttribute id,
                      const AttributeValue &value)
{
    const auto bars = document.selection().bars(score);
    const ScoreModelIndex &place = document.cursor();
    return score.setBarAttribute(static_cast<unsigned>(place.trackIndex()), place.staffIndex(),
                                 bars.first, bars.second, id, value);
}

} // namespace zarn::editor
