// SPDX-License-Identifier: MIT
#include <ZarnCore/ZarnException.h>
#include <ZarnCore/instruments/sets/ZarnNotationPatch.h>
#include <ZarnCore/utils/JsonDocument.h>

#include <gtest/gtest.h>

namespace {

using namespace zarn;

std::shared_ptr<NotationPatch> patchOf(const std::string &members)
{
    return NotationPatch::parse(utils::jsonDocument("{" + members + "}", "patch"));
}

TEST(NotationPatch, readsEveryMember)
{
    const auto patch = patchOf(R"("name": "Both", "instrumentSets": ["stringed", "harp"],
        "tablature": true, "slash": true, "staves": [{"clef": "F4", "lineCount": 1}, {}],
        "noteHead": "diamond", "stems": "Downward")");
    EXPECT_EQ(patch->name(), "Both");
    EXPECT_FALSE(patch->hasStdNotation());
    EXPECT_TRUE(patch->hasTablature());
    EXPECT_TRUE(patch->hasSlash());
    ASSERT_EQ(patch->staves().size(), 2u);
    EXPECT_EQ(patch->staves()[0].clef, ClefType::F4);
    EXPECT_EQ(patch->staves()[0].lineCount, 1u);
    EXPECT_EQ(patch->staves()[1].clef, ClefType::None);
    EXPECT_EQ(patch->noteHead(), NoteHead::Diamond);
    EXPECT_EQ(patch->stemOrientation(), ZarnStemOrientation::Downward);
    EXPECT_TRUE(patch->suits(InstrumentSet::ukulele));
    EXPECT_TRUE(patch->suits(InstrumentSet::harp));
    EXPECT_FALSE(patch->suits(InstrumentSet::acousticPiano));
    EXPECT_FALSE(patch->suits(InstrumentSet::violin));
    EXPECT_EQ(patchOf(R"("name": "a", "instrumentSets": [], "slash": true)")->staves().size(), 1u);
}

TEST(NotationPatch, refusesWordsThatNothingHas)
{
    const std::string head = R"("name": "a", "instrumentSets": ["harp"], "slash": true)";
    const std::pair<std::string, const char *> faults[] = {
        {R"("name": "", "instrumentSets": [], "slash": true)", "\"name\" is empty"},
        {R"("name": "a", "slash": true)", "\"instrumentSets\""},
        {R"("name": "a", "instrumentSets": ["harp", "lute"], "slash": true)", "instrumentSets[1]"},
        {R"("name": "a", "instrumentSets": [])", "standardNotation"},
        {head + R"(, "staves": [{"lineCount": 0}])", "staves[0]"},
        {head + R"(, "staves": [{}, {"clef": "G9"}])", "staves[1]"},
        {head + R"(, "noteHead": "Round")", "\"noteHead\" does not know \"Round\""},
        {head + R"(, "stems": 1)", "\"stems\""},
    };
    for (const auto &[members, reason] : faults) {
        try {
            patchOf(members);
            ADD_FAILURE() << members;
        } catch (const CoreException &problem) {
            EXPECT_NE(problem.message().find(reason), std::string::npos) << problem.what();
        }
    }
}

} // namespace
