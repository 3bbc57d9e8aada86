// SPDX-License-Identifier: MIT
#include <ZarnCore/ZarnAssert.h>
#include <ZarnCore/ZarnLog.h>
#include <ZarnCore/ZarnLogCrashException.h>

#include <gtest/gtest.h>

#include <locale>
#include <memory>
#include <string>

namespace {

using zarn::CoreException;

TEST(CoreException, textNamesFileLineAndFunction)
{
    const CoreException error("M", "F", "N", 7);
    EXPECT_EQ(error.getMessage(), "M (file: F line: 7 func: N)");
    EXPECT_STREQ(error.what(), "M (file: F line: 7 func: N)");
}

struct GroupedDigits final : std::numpunct<char> {
    GroupedDigits() : std::numpunct<char>(1) { } // owned here, not by the locales
    char do_thousands_sep() const override { return '.'; }
    std::string do_grouping() const override { return "\3"; }
};

TEST(CoreException, lineIsWrittenAlikeInEveryLocale)
{
    GroupedDigits digits;
    const auto before = std::locale::global(std::locale(std::locale::classic(), &digits));
    const CoreException error("M", "F", "N", 12345);
    std::locale::global(before);
    EXPECT_EQ(error.getMessage(), "M (file: F line: 12345 func: N)");
}

TEST(CoreException, textOfACopyOutlivesTheOriginal)
{
    auto original = std::make_unique<CoreException>("gone", "F", "N", 1);
    const CoreException copy = *original;
    CoreException assigned("other", "", "", 0);
    assigned = *original;
    original.reset();
    EXPECT_STREQ(copy.what(), "gone (file: F line: 1 func: N)");
    EXPECT_STREQ(assigned.what(), copy.what());
}

TEST(LogCrashException, isCaughtAsACoreExceptionAndNamesTheLog)
{
    try {
        throw zarn::LogCrashException("M", "F", "N", 7, QStringLiteral("/logs/lastLog.lgz"));
    } catch (const CoreException &error) {
        EXPECT_STREQ(error.what(), "M (file: F line: 7 func: N)");
        const auto copy = dynamic_cast<const zarn::LogCrashException &>(error);
        EXPECT_EQ(copy.getLogFilename(), QStringLiteral("/logs/lastLog.lgz"));
    }
}

TEST(Assertion, textIsTheExpressionAsWritten)
{
    const void *score = nullptr;
    try {
        ZARN_ASSERT_IN("zarn::f", score != NULL);
        FAIL() << "the assertion did not raise";
    } catch (const CoreException &error) {
        EXPECT_EQ(error.message(), "Assertion failed: score != NULL");
        EXPECT_EQ(error.function(), "zarn::f");
        EXPECT_NE(error.file().find("Tests/base/ExceptionTest.cpp"), std::string::npos);
    }
}

TEST(LogCategories, soundFontsKeepTheirPublishedSpelling)
{
    EXPECT_STREQ(zarn::log::soundfonts().categoryName(), "zarn.core.sounfonts");
    EXPECT_EQ(&zarn::log::core(), &zarn::log::core());
}

} // namespace
