// SPDX-License-Identifier: MIT
// The banks and patches that the library brings along.
#include <ZarnCore/instruments/sets/ZarnInstrumentSet.h>
#include <ZarnCore/instruments/sets/ZarnInstrumentSetLibrary.h>
#include <ZarnCore/instruments/sets/ZarnNotationPatch.h>
#include <ZarnCore/instruments/soundbanks/ZarnGuitarPickupSet.h>
#include <ZarnCore/instruments/soundbanks/ZarnHVSoundFont.h>
#include <ZarnCore/instruments/soundbanks/ZarnHVSoundFontManager.h>
#include <ZarnCore/instruments/soundbanks/ZarnSoundbank.h>
#include <ZarnCore/instruments/soundbanks/ZarnSoundbankPatch.h>
#include <ZarnCore/instruments/soundbanks/ZarnSoundbankPatchReplacement.h>
#include <ZarnCore/utils/JsonDocument.h>

#include <QDir>
#include <QFile>

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <vector>

namespace {

using namespace zarn;

std::string contentOf(const QString &path)
{
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
    return file.readAll().toStdString();
}

/// Calls `take(path, name without suffix)` for the files of a resource folder, which are those of
/// the source tree.
template <typename Take>
void eachFile(const char *folder, const Take &take)
{
    const QDir resources(QString::fromUtf8(folder));
    const QDir sources(QStringLiteral(ZARN_SOURCE_DIR "/Resources/")
                       + QString::fromUtf8(folder).mid(2));
    EXPECT_EQ(resources.entryList(QDir::Files), sources.entryList(QDir::Files)) << folder;
    EXPECT_FALSE(resources.entryList().isEmpty()) << folder;
    for (const QFileInfo &file : resources.entryInfoList(QDir::Files))
        take(file.filePath(), file.completeBaseName().toStdString());
}

class SoundCatalogues : public ::testing::Test {
protected:
    static void SetUpTestSuite()
    {
        const auto document = utils::jsonDocument(
            contentOf(QStringLiteral(":/instrumentSet/ZarnInstrumentSets.json")), "sets");
        sets.parse(document["instrumentSets"]);
        const HVSoundFontManager manager;
        eachFile(HVSoundFontManager::builtInFolder, [&](const QString &path, const auto &name) {
            const auto bank = manager.soundbank(path.toStdString());
            ASSERT_TRUE(bank) << name;
            EXPECT_EQ(bank->id(), name);
            banks[name] = bank;
        });
        eachFile(SoundbankPatch::builtInFolder, [](const QString &path, const auto &name) {
            const auto patch = SoundbankPatch::parse(utils::jsonDocument(contentOf(path), name));
            EXPECT_EQ(patch->id(), name);
            patches[name] = patch;
        });
    }

    static InstrumentSetLibrary sets;
    static std::map<std::string, std::shared_ptr<Soundbank>> banks;
    static SoundbankPatches patches;
};

InstrumentSetLibrary SoundCatalogues::sets;
std::map<std::string, std::shared_ptr<Soundbank>> SoundCatalogues::banks;
SoundbankPatches SoundCatalogues::patches;

TEST_F(SoundCatalogues, patchesBindEveryElementOfTheirSetToABankThatExists)
{
    for (const auto &[id, patch] : patches) {
        const auto set = sets.findInstrumentSetWithType(patch->instrumentSetType());
        ASSERT_TRUE(set) << id << ": " << patch->instrumentSetName();
        EXPECT_EQ(patch->soundbanks().size(), set->elements().size()) << id;
        for (const InstrumentSetElement &element : set->elements()) {
            const auto bank = banks.find(patch->soundbankId(element.name()));
            ASSERT_NE(bank, banks.end()) << id << ": " << element.name();
            EXPECT_EQ(bank->second->isPitched(), patch->isPitched()) << id;
        }
    }
}

TEST_F(SoundCatalogues, everyInstrumentHasAPatchAndItsElementsTheirBanks)
{
    std::set<InstrumentSet::Type> types;
    for (const auto &[id, patch] : patches)
        types.insert(patch->instrumentSetType());
    for (const auto &set : sets.instrumentSets()) {
        EXPECT_EQ(types.count(set->type()), 1u) << set->name();
        for (const InstrumentSetElement &element : set->elements())
            EXPECT_EQ(banks.count(element.soundbankName()), 1u)
                << set->name() << ": " << element.soundbankName();
    }
}

TEST_F(SoundCatalogues, banksAreOfKnownInstrumentsAndEachPlaysSomewhere)
{
    std::set<std::string> playing;
    for (const auto &[id, patch] : patches)
        for (const auto &[element, bank] : patch->soundbanks())
            playing.insert(bank);
    std::set<std::string> names;
    for (const auto &[id, bank] : banks) {
        EXPECT_NE(bank->soundfont()->instrumentType(), Instrument::unknown) << id;
        EXPECT_EQ(playing.count(id), 1u) << id;
        EXPECT_FALSE(bank->isUsable()) << id << " has no samples here";
        EXPECT_TRUE(names.insert(bank->name()).second) << bank->name() << " stands twice";
        EXPECT_FALSE(bank->description().empty()) << id;
    }
    EXPECT_EQ(banks.at("Strat-Guitar")->guitarPickupSet()->switchPositions().size(), 5u);
}

TEST_F(SoundCatalogues, everyReplacementLeadsToItsPatch)
{
    for (const auto &[id, replacement] : soundbankPatchReplacements()) {
        ASSERT_EQ(patches.count(replacement), 1u) << replacement;
        EXPECT_EQ(resolveSoundbankPatch(patches, id), patches[replacement]) << id;
        EXPECT_TRUE(resolveSoundbankPatch(patches, replacement)) << replacement;
    }
    EXPECT_EQ(resolveSoundbankPatch(patches, "Harpsicord-Key")->id(), "Harpsichord-Key");
    EXPECT_EQ(resolveSoundbankPatch(patches, "Oak-Tom04")->id(), "Master-Tom04");
    EXPECT_EQ(resolveSoundbankPatch(patches, "Fretless JB")->id(), "Fretless-Bass");
}

TEST_F(SoundCatalogues, everyInstrumentHasANotationOfItsOwn)
{
    std::vector<std::shared_ptr<NotationPatch>> notations;
    eachFile(NotationPatch::builtInFolder, [&](const QString &path, const auto &name) {
        notations.push_back(NotationPatch::parse(utils::jsonDocument(contentOf(path), name)));
        EXPECT_EQ(notations.back()->name(), name);
        EXPECT_FALSE(notations.back()->instrumentSetTypes().empty()) << name;
    });
    const auto countFor = [&](InstrumentSet::Type type) {
        return std::count_if(notations.begin(), notations.end(),
                             [type](const auto &patch) { return patch->suits(type); });
    };
    for (const auto &set : sets.instrumentSets())
        EXPECT_GE(countFor(set->type()), 1) << set->name();
    EXPECT_EQ(countFor(InstrumentSet::unknown), 0);
}

} // namespace
