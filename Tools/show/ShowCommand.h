// SPDX-License-Identifier: MIT
#pragma once

#include "common/Arguments.h"

#include <ZarnCore/io/sheet/SheetBuilder.h>

#include <string>

namespace zarn {

class ScoreModel;

namespace tool {

using sheet::ShownPart;

/// `zarn show`.
Subcommand showCommand();

/// The picture of a part of a score as text, with its title and the legend of its signs.
std::string pictureOf(const ScoreModel &model, const ShownPart &part, const Terminal &terminal);

} // namespace tool
} // namespace zarn
