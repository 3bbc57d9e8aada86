// SPDX-License-Identifier: MIT
#include "actions/AttributeText.h"
#include "translations/AttributeWords.h"

#include <ZarnCore/model/ZarnBarAttribute.h>
#include <ZarnCore/model/ZarnBeatAttribute.h>
#include <ZarnCore/model/ZarnMasterBarAttribute.h>
#include <ZarnCore/model/ZarnNoteAttribute.h>
#include <ZarnCore/model/ZarnScoreModel.h>

#include <QFile>
#include <QSet>
#include <QTranslator>

#include <gtest/gtest.h>

namespace {

using namespace zarn;
using namespace zarn::editor;

template <class Node>
void expectWords(const QSet<QString> &known)
{
    const auto expectKnown = [&](std::string_view word) {
        EXPECT_TRUE(known.contains(attributeText(word)))
            << word << " is missing in Editor/translations/AttributeWords.h";
    };
    for (const auto &row : attributesOf<Node>()) {
        expectKnown(row.name);
        if (row.range.texts != nullptr)
            for (const std::string &text : row.range.texts())
                if (!text.empty())
                    expectKnown(text);
    }
}

TEST(LanguageTest, germanIsComplete)
{
    QSet<QString> known;
    for (const char *const word : attributeWords)
        known.insert(QLatin1String(word));
    expectWords<Beat>(known);
    expectWords<Note>(known);
    expectWords<MasterBar>(known);
    expectWords<Bar>(known);

    QTranslator german;
    ASSERT_TRUE(german.load(QStringLiteral(":/translations/zarn-editor_de.qm")));
    for (const char *const word : attributeWords)
        EXPECT_FALSE(german.translate("Attributes", word).isEmpty()) << word;
    EXPECT_EQ(german.translate("EditActions", "&Undo"), QStringLiteral("&Rückgängig"));
    QFile source(QStringLiteral(ZARN_SOURCE_DIR "/Editor/translations/zarn-editor_de.ts"));
    ASSERT_TRUE(source.open(QIODevice::ReadOnly));
    EXPECT_FALSE(source.readAll().contains("unfinished"));
}

} // namespace
