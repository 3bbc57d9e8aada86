// SPDX-License-Identifier: MIT
#pragma once

#include "entry/EntryState.h"

#include <ZarnCore/model/places/ZarnScoreModelIndex.h>
#include <ZarnCore/model/places/ZarnScoreModelRange.h>
#include <ZarnLayout/draw/ZarnDrawPlace.h>
#include <ZarnLayout/draw/ZarnLayoutSearch.h>

#include <vector>

/// From places of a layout to those of a score, and back.
namespace zarn::editor {

/// The beat, and the note, that a mark draws.
ScoreModelIndex placeOfMark(ScoreModel &model, const layout::DrawPlace &place);

/// The beat at a spot of a staff in a voice: the one that sounds there, else the place where the
/// next one is entered; on a tablature with the string.
ScoreModelIndex placeOfSpot(ScoreModel &model, const layout::FoundSpot &spot, unsigned voice);

/// Where a place is drawn on a staff of a kind, be there a mark or not.
layout::FoundSpot spotOfPlace(const ScoreModelIndex &place, layout::StaffKind kind);

/// The beat, and the note, of a place.
layout::DrawPlace drawPlaceOf(const ScoreModelIndex &place);

/// What a range selects, in as few places as say it.
std::vector<layout::DrawPlace> drawPlacesOf(ScoreModel &model, const ScoreModelRange &range);

} // namespace zarn::editor
