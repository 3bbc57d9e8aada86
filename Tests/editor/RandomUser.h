// SPDX-License-Identifier: MIT
#pragma once

#include "editor/EditorDriver.h"
#include "support/Random.h"

#include <string>

namespace test {

/// Someone who presses keys, clicks and chooses from menus without a thought. What it finds wrong
/// is a sentence: a picture that is not that of the score, an undo that leads elsewhere.
class RandomUser {
public:
    RandomUser(EditorDriver &driver, unsigned seed);

    /// One thing done, whatever it is; answers with its name.
    std::string act();

    /// Empty, or what is wrong with the picture.
    std::string checkPicture();

    /// Undoes all, compares with what there was at first, and does all again.
    std::string checkUndo();

private:
    bool hasGrownTooLarge() const;
    std::string chooseFromMenus();
    std::string click();
    std::string press();

    EditorDriver &_driver;
    Random _random;
    std::string _start;
};

} // namespace test
