// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <utility>
#include <vector>

namespace zarn::tool {

/// Words that stand for numbers.
using Choices = std::vector<std::pair<QString, int>>;

/// A word for a value of an enumeration.
template <class E>
Choices::value_type choice(const char *word, E value)
{
    return {QLatin1String(word), static_cast<int>(value)};
}

/// Words that stand for the values of the library's enumerations, as people type them.
const Choices &clefChoices();
const Choices &dynamicChoices(); ///< "none", "pppp" to "ffff"
const Choices &feelChoices();
const Choices &directionChoices(); ///< "segno", "da-capo-al-coda"
const Choices &iconChoices();
const Choices &instrumentChoices(); ///< "nylonGuitar"
const Choices &propertyChoices();   ///< "title", "words-and-music"
const Choices &headerChoices();     ///< "header-left", "first-page-footer-center"
const Choices &tempoUnitChoices();
const Choices &retuningChoices();
const Choices &stepChoices(); ///< "beat", "bar": `CursorStep`

} // namespace zarn::tool
