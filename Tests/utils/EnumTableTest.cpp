// SPDX-License-Identifier: MIT
#include <ZarnCore/utils/EnumTable.h>

#include <gtest/gtest.h>

namespace {

using utils::enumTable;
using utils::KeyMatch;

enum class Shape : unsigned char { Round = 0, Square = 4, Open = 7, Secret = 9 };

constexpr auto shapes = enumTable<Shape>(
    KeyMatch::UpperCase,
    {{Shape::Round, "Round"}, {Shape::Square, "Square", "SQARE"}, {Shape::Secret, "", "HIDDEN"}});
static_assert(shapes.isConsistent());
static_assert(shapes.value("sqare") == Shape::Square);

constexpr auto exact =
    enumTable<Shape>(KeyMatch::Exact, {{Shape::Round, "Round", "round"}, {Shape::Open, "open"}});
static_assert(exact.isConsistent());

TEST(EnumTable, keysComeFirstAndPrintedTextsAreReadToo)
{
    EXPECT_EQ(shapes.value("SQUARE"), Shape::Square);
    EXPECT_EQ(shapes.value("Hidden"), Shape::Secret);
    EXPECT_EQ(shapes.value(""), std::nullopt);
    EXPECT_EQ(shapes.value("squar"), std::nullopt);
    EXPECT_EQ(exact.value("round"), Shape::Round);
    EXPECT_EQ(exact.value("Round"), Shape::Round);
    EXPECT_EQ(exact.value("ROUND"), std::nullopt);
    EXPECT_EQ(exact.valueOrFirst("?"), Shape::Round);
}

TEST(EnumTable, numbersOutsideTheTableHaveNoText)
{
    EXPECT_EQ(shapes.text(Shape::Square), "Square");
    EXPECT_EQ(shapes.text(Shape::Secret), std::nullopt);
    EXPECT_EQ(shapes.text(static_cast<Shape>(2)), std::nullopt);
    EXPECT_EQ(shapes.text(static_cast<Shape>(255)), std::nullopt);
    EXPECT_EQ(shapes.textOrFirst(Shape::Open), "Round");
}

TEST(EnumTable, contradictionsAreFound)
{
    EXPECT_FALSE((enumTable<Shape>(KeyMatch::Exact, {{Shape::Round, "a"}, {Shape::Round, "b"}})
                      .isConsistent()));
    EXPECT_FALSE((enumTable<Shape>(KeyMatch::UpperCase, {{Shape::Round, "a"}, {Shape::Open, "A"}})
                      .isConsistent()));
    EXPECT_FALSE((enumTable<Shape>(KeyMatch::Exact, {{Shape::Round, "a", "b"}, {Shape::Open, "b"}})
                      .isConsistent()));
    EXPECT_FALSE((enumTable<Shape>(KeyMatch::Exact, {{Shape::Round, "a"}, {Shape::Open, "", ""}})
                      .isConsistent()));
}

} // namespace
