// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>

#include <memory>
#include <utility>
#include <vector>

namespace zarn {

class Bar;
class Beat;
class Note;
class ScoreModel;
class ScoreModelRange;

/// The bars, beats or notes that a range selects, in the order of the tree; empty when the range
/// names no place of the model. Both ends belong to it.
///
/// - A range over several tracks (`isMultiTrack`) takes the bars of every staff, any other those of
///   `stavesOf` in the track of its first end.
/// - In multi-voice mode whole bars of all voices are taken; otherwise the voice of the first end,
///   in the first and last bar from and up to the beats of the ends. An end without a beat takes
///   its whole bar.
/// - A single place that names a note (by string, MIDI pitch or element) takes that note alone.
template <class Node>
std::vector<std::shared_ptr<Node>> nodesInRange(ScoreModel &model, const ScoreModelRange &range);

template <>
ZARNCORE_EXPORT std::vector<std::shared_ptr<Bar>> nodesInRange(ScoreModel &model,
                                                               const ScoreModelRange &range);
template <>
ZARNCORE_EXPORT std::vector<std::shared_ptr<Beat>> nodesInRange(ScoreModel &model,
                                                                const ScoreModelRange &range);
template <>
ZARNCORE_EXPORT std::vector<std::shared_ptr<Note>> nodesInRange(ScoreModel &model,
                                                                const ScoreModelRange &range);

/// The staves, first and last, that a range over one track reaches: from end to end in multi-voice
/// mode, else that of the first end.
ZARNCORE_EXPORT std::pair<unsigned, unsigned> stavesOf(const ScoreModelRange &range) noexcept;

} // namespace zarn
