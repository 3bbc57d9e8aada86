// SPDX-License-Identifier: MIT
#include "io/MusicXmlText.h"
#include "support/LaidOut.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using namespace zarn;
using namespace musicxml;
using layout::MarkKind;
using ::test::LaidOut;

constexpr auto fourQuarters = "<divisions>1</divisions><time><beats>4</beats>"
                              "<beat-type>4</beat-type></time><staves>1</staves>";

std::shared_ptr<ScoreModel> read(const std::string &measures)
{
    io::ImportReport report;
    return import(score(measures), report);
}

} // namespace

/// A score holds all staves at a time: a note that lasts over several such times shows one fermata.
TEST(DrawnMusicXmlTest, aLongNoteHasOneFermata)
{
    const auto model = read(measure(attributes(fourQuarters) + note("C", 5, 2, "half")
                                    + note("C", 5, 1, "quarter") + note("C", 5, 1, "quarter")));
    FermataMarks marks;
    for (const int quarters : {0, 1, 3, 4})
        marks.push_back(FermataMark::at(quarters, Fermata::Medium));
    model->masterTrack()->masterBar(0)->setFermatas(marks);
    EXPECT_EQ(LaidOut(*model).of(MarkKind::Fermata).size(), 3U);
}
