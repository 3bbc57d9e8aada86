// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/music/ZarnKeySignature.h>

#include <QString>
#include <QStringList>

#include <functional>
#include <vector>

namespace zarn::tool {

class Arguments;

/// What the options --notes and --key of the commands that name notes say.

/// The pitches of "64,67,71,74" or "E4 G4 B4 D5", separated by commas or spaces; none for an empty
/// text. Raises `Failure` for what is no pitch.
std::vector<int> pitchesOf(const QString &text);

/// The key of --key, C major when it was not given. Raises `UsageError` for what is no key.
KeySignature keyOf(const Arguments &arguments);

/// Prints the names of the sets of --notes: of one set a name a line, of sets from standard input
/// ("-") a line each. With --json, arrays. Answers the exit code: a single set without a name is a
/// failure, which `nothing` explains, as is a line that is no set; the others are still answered.
int printNames(const Arguments &arguments,
               const std::function<QStringList(const std::vector<int> &)> &namesOf,
               const QString &nothing);

} // namespace zarn::tool
