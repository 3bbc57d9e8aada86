// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/model/ZarnAttributeValue.h>

#include <optional>

namespace zarn {
class Bar;
class Beat;
class MasterBar;
class Note;
class Score;
enum class BarAttribute : std::uint8_t;
enum class BeatAttribute : std::uint8_t;
enum class MasterBarAttribute : std::uint8_t;
enum class NoteAttribute : std::uint8_t;
} // namespace zarn

/// The tables of attributes, as menus and panels use them: for beats, notes, bars and what all
/// staves share of bars alike.
namespace zarn::editor {

class Document;

template <class Node>
struct AttributeOf;
template <>
struct AttributeOf<Beat> {
    using Id = BeatAttribute;
};
template <>
struct AttributeOf<Note> {
    using Id = NoteAttribute;
};
template <>
struct AttributeOf<MasterBar> {
    using Id = MasterBarAttribute;
};
template <>
struct AttributeOf<Bar> {
    using Id = BarAttribute;
};

/// Whether it is chosen by itself. Others are set by actions of their own, which know what belongs
/// together: rhythms, ties, slurs, chords, lyrics.
template <class Node>
bool isOfMenus(typename AttributeOf<Node>::Id id);

/// Of the beat, the note or the bar at the cursor; nothing where there is none.
template <class Node>
std::optional<AttributeValue> valueAtCursor(const Document &document,
                                            typename AttributeOf<Node>::Id id);

/// Gives it to what is selected, or to what is at the cursor. False when nothing takes it.
template <class Node>
bool setSelected(const Document &document, Score &score, typename AttributeOf<Node>::Id id,
                 const AttributeValue &value);

} // namespace zarn::editor
