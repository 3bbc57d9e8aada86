// SPDX-License-Identifier: MIT
#include <ZarnCore/core/CatalogueFile.h>

#include "support/CapturedLog.h"

#include <ZarnCore/ZarnException.h>

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>
#include <rapidjson/document.h>

#include <clocale>
#include <string>

namespace {

using zarn::CoreException;
using zarn::readCatalogue;

class CatalogueFileTest : public testing::Test {
protected:
    /// What reading the text raises; empty when it is read.
    std::string errorOf(const std::string &text)
    {
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(text.data(), static_cast<qint64>(text.size()));
        file.close();
        try {
            readCatalogue(path, "sets", [this](const rapidjson::Value &value) {
                if (!value.IsString())
                    throw CoreException("is no string", "F", "N", 7);
                read = value.GetString();
            });
        } catch (const CoreException &error) {
            return error.message();
        }
        return {};
    }

    QTemporaryDir folder;
    QString path = folder.filePath(QStringLiteral("x.json"));
    std::string read;
};

TEST_F(CatalogueFileTest, missingFileHasThePublishedErrorAndAReasonInTheLog)
{
    zarn::test::CapturedLog log;
    try {
        readCatalogue(path, "sets", [](const rapidjson::Value &) { FAIL(); });
        FAIL() << "nothing was raised";
    } catch (const CoreException &error) {
        EXPECT_STREQ(error.what(),
                     "Assertion failed: success (file: ZarnCore line: 173 func: "
                     "zarn::Core::Impl::loadConfiguration)");
    }
    EXPECT_TRUE(log.hasWarning("zarn.core", {path.toStdString(), "cannot be opened"}));
}

TEST_F(CatalogueFileTest, everyErrorNamesFileAndPlace)
{
    const std::string name = path.toStdString();
    EXPECT_EQ(errorOf("{\"sets\":\n  1 2}").rfind(name + ":2:5: ", 0), 0U)
        << errorOf("{\"sets\":\n  1 2}");
    EXPECT_NE(errorOf(""), "");
    EXPECT_NE(errorOf("{\"sets\": \"\xE9\"}"), "") << "Latin-1 is no UTF-8";
    EXPECT_EQ(errorOf("[]"), name + ": is no object");
    EXPECT_EQ(errorOf("{\"Sets\": \"\"}"), name + ": member \"sets\" is missing");
    EXPECT_EQ(errorOf("{\"sets\": {}}"), name + ": is no string");
    EXPECT_NE(errorOf(std::string(200000, '[')), "") << "deep nesting";
}

TEST_F(CatalogueFileTest, textIsReadAsUtf8InAnyLocale)
{
    const std::string before = std::setlocale(LC_ALL, nullptr);
    std::setlocale(LC_ALL, "C");
    EXPECT_EQ(errorOf("\xEF\xBB\xBF{\"sets\": \"B\xE2\x99\xAD caj\xC3\xB3n\"}"), "");
    EXPECT_EQ(read, "B\xE2\x99\xAD caj\xC3\xB3n");
    std::setlocale(LC_ALL, before.c_str());
}

} // namespace
