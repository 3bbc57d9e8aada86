// SPDX-License-Identifier: MIT
#pragma once

#include <pugixml.hpp>

namespace zarn {
class ScoreModel;
}

namespace zarn::io {

class ImportContext;

/// Reads the credits of the first page into the properties that the header of the document left
/// empty: many programs write title and composer as text on the page alone.
///
/// A <credit-type> says what a credit is. One without is taken by its place on the sheet: above the
/// music the largest centred text is the title, the next one the subtitle and what stands at the
/// right the composer; centred below the music is the copyright. What stands at the left may be a
/// tempo as well as a poet, and is not taken for either.
///
/// Credits that only repeat a property are held by it; all others are counted in the report.
void readCredits(pugi::xml_node root, ScoreModel &model, ImportContext &context);

} // namespace zarn::io
