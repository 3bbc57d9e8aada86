// SPDX-License-Identifier: MIT
#pragma once

/// The enumerations that the score carries, each with a pair of functions from and to its text.
///
/// The texts are published as they stand, odd spellings included. A parser compares its input in
/// upper case, or letter by letter where the published words are in mixed or lower case, and also
/// reads whatever a value prints. Unless its comment says otherwise, it gives the first value of
/// its enumeration for an unknown text, and a printer gives the text of the first value for a
/// number that has none.
#include <ZarnCore/ZarnTypesDocument.h>
#include <ZarnCore/ZarnTypesEditing.h>
#include <ZarnCore/ZarnTypesNotation.h>
#include <ZarnCore/ZarnTypesPlaying.h>
#include <ZarnCore/ZarnTypesSigns.h>
#include <ZarnCore/ZarnTypesTechniques.h>
