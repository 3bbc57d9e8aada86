// SPDX-License-Identifier: MIT
#include "Documents.h"
#include "Fuzzing.h"

#include <ZarnCore/ZarnException.h>
#include <ZarnCore/io/ZarnScoreText.h>
#include <ZarnCore/model/ZarnScoreModel.h>

/// The input is a score in short text.
void fuzz::check(std::string_view input)
{
    const auto model = std::make_shared<zarn::ScoreModel>();
    try {
        zarn::io::readScoreText(std::string(input), *model);
    } catch (const zarn::CoreException &error) {
        if (error.message().compare(0, 5, "line ") != 0)
            breakLaw("a refusal begins with line and column", error.what());
        return;
    }
    expectToBeSound(*model);
    expectToBeUsable(*model);
    expectToComeBack(*model);
}
