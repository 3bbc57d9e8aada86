// SPDX-License-Identifier: MIT
#include <ZarnCore/ZarnException.h>
#include <ZarnCore/instruments/sets/ZarnInstrumentSet.h>
#include <ZarnCore/instruments/soundbanks/ZarnGuitarPickupSet.h>
#include <ZarnCore/instruments/soundbanks/ZarnHVSoundFont.h>
#include <ZarnCore/instruments/soundbanks/ZarnHVSoundFontManager.h>
#include <ZarnCore/instruments/soundbanks/ZarnSoundCatalogue.h>
#include <ZarnCore/instruments/soundbanks/ZarnSoundbank.h>
#include <ZarnCore/instruments/soundbanks/ZarnSoundbankPatch.h>
#include <ZarnCore/instruments/soundbanks/ZarnSoundbankPatchReplacement.h>
#include <ZarnCore/instruments/sounds/ZarnSound.h>
#include <ZarnCore/utils/JsonDocument.h>

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {

using namespace zarn;

/// Messages of the library's categories while it lives.
class WarningLog {
public:
    WarningLog()
    {
        texts().clear();
        _before = qInstallMessageHandler(
            [](QtMsgType, const QMessageLogContext &context, const QString &text) {
                texts() += QStringLiteral("%1: %2\n").arg(QLatin1String(context.category), text);
            });
    }
    ~WarningLog() { qInstallMessageHandler(_before); }
    static std::string text() { return texts().toStdString(); }

private:
    static QString &texts()
    {
        static QString collected;
        return collected;
    }
    QtMessageHandler _before = nullptr;
};

/// Bank files in a folder of their own.
class Soundbanks : public ::testing::Test {
protected:
    std::string write(const char *name, const QByteArray &content)
    {
        const QString path = _folder.filePath(QString::fromUtf8(name));
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(content);
        return path.toStdString();
    }

    std::shared_ptr<Soundbank> bank(const QByteArray &members)
    {
        return _manager.soundbank(write("x.zarn7bank", "{" + members + "}"));
    }

    QTemporaryDir _folder;
    HVSoundFontManager _manager;
};

std::shared_ptr<SoundbankPatch> patchOf(const std::string &text)
{
    return SoundbankPatch::parse(utils::jsonDocument(text, "patch"));
}

/// A catalogue that is installed while it lives.
class Catalogue final : public SoundCatalogue {
public:
    Catalogue() { install(this); }
    ~Catalogue() override { install(nullptr); }

    std::shared_ptr<Soundbank> soundbank(const std::string &id) const override
    {
        const auto found = banks.find(id);
        return found != banks.end() ? found->second : nullptr;
    }
    std::shared_ptr<SoundbankPatch> soundbankPatch(const std::string &id) const override
    {
        return resolveSoundbankPatch(patches, id);
    }

    std::unordered_map<std::string, std::shared_ptr<Soundbank>> banks;
    SoundbankPatches patches;
};

TEST_F(Soundbanks, readTheirDescription)
{
    write("a.flac", "sample");
    const auto read = bank(R"("id": "Night-Guitar", "name": "Night \u266a", "description": "Dark.",
        "instrument": "electricGuitar", "velocity": -1.5, "samples": ["a.flac"],
        "pickupSet": {"pickups": [{"id": "neck", "name": "Neck"}, {"id": "bridge", "name": "Bridge"}],
                      "switch": [{"name": "Both", "pickups": ["bridge", "neck"]}]})");
    ASSERT_TRUE(read);
    EXPECT_EQ(read->id(), "Night-Guitar");
    EXPECT_EQ(read->name(), "Night \u266a");
    EXPECT_EQ(read->instrument(), "electricGuitar");
    EXPECT_EQ(read->velocityString(), QStringLiteral("-1.5 dB"));
    EXPECT_TRUE(read->isUsable());
    EXPECT_TRUE(read->isPitched());
    EXPECT_FALSE(read->isUnpitched());
    const auto pickups = read->guitarPickupSet();
    ASSERT_TRUE(pickups);
    EXPECT_EQ(pickups->pickups()[1].name, "Bridge");
    EXPECT_EQ(pickups->switchPositions().at(0).pickups, (std::vector<unsigned>{0, 1}));
}

TEST_F(Soundbanks, needTheirSamples)
{
    const QByteArray rest = R"("id": "a", "name": "a", "instrument": "snare")";
    EXPECT_FALSE(bank(rest)->isUsable());
    EXPECT_FALSE(bank(rest + R"(, "samples": [])")->isUsable());
    write("one.wav", "");
    EXPECT_TRUE(bank(rest + R"(, "samples": ["one.wav"])")->isUsable());
    EXPECT_FALSE(bank(rest + R"(, "samples": ["one.wav", "two.wav"])")->isUsable());
    EXPECT_TRUE(bank(rest)->isUnpitched());
}

TEST_F(Soundbanks, haveAFewFixedNames)
{
    const auto nameOf = [&](const QByteArray &id) {
        return bank("\"id\": \"" + id + R"(", "name": "own", "instrument": "padSynthesizer")")
            ->name();
    };
    EXPECT_EQ(nameOf("MetaChoir-Pad"), "Meta Choir");
    EXPECT_EQ(nameOf("DXPiano1-Key"), "DX Piano 1");
    EXPECT_EQ(nameOf("DXPiano2-Key"), "own");
}

TEST_F(Soundbanks, thatAreDamagedGiveNothingButAWarningThatSaysWhy)
{
    const std::string rest = R"("name": "a", "instrument": "snare")";
    const std::pair<std::string, const char *> damages[] = {
        {"", "JSON:1:1: The document is empty"},
        {"{\n\"id\": }", "JSON:2:7: Invalid value"},
        {std::string(1000000, '['), "JSON:1:1000001: "},
        {"{\"id\": \"\xFF\"}", "encoding"},
        {"[]", "is no object"},
        {"{" + rest + "}", "\"id\""},
        {"{\"id\": \"\", " + rest + "}", "\"id\" is empty"},
        {"{\"id\": \"a\", \"velocity\": \"loud\", " + rest + "}", "\"velocity\""},
        {"{\"id\": \"a\", \"samples\": [\"/etc/passwd\"], " + rest + "}", "samples[0]"},
        {"{\"id\": \"a\", \"samples\": [\"b/../../c\"], " + rest + "}", "samples[0]"},
        {"{\"id\": \"a\", \"samples\": [\"b\", 1], " + rest + "}", "samples[1]"},
        {"{\"id\": \"a\", \"pickupSet\": 3, " + rest + "}", "pickupSet"},
        {R"({"id": "a", "pickupSet": {"pickups": [], "switch": [{"name": "", "pickups": ["x"]}]}, )"
             + rest + "}",
         "pickupSet.switch[0].pickups[0]"},
    };
    for (const auto &[content, reason] : damages) {
        const WarningLog log;
        const auto path = write("damaged.zarn7bank", QByteArray::fromStdString(content));
        EXPECT_FALSE(_manager.soundbank(path)) << reason;
        EXPECT_EQ(log.text().find("zarn.core.sounfonts: "), 0u) << log.text();
        EXPECT_NE(log.text().find(path), std::string::npos) << log.text();
        EXPECT_NE(log.text().find(reason), std::string::npos) << log.text();
    }
    const WarningLog log;
    EXPECT_FALSE(_manager.soundbank(_folder.path().toStdString() + "/none.zarn7bank"));
    EXPECT_FALSE(_manager.soundbank(_folder.path().toStdString()));
    EXPECT_FALSE(_manager.soundbank({}));
    EXPECT_NE(log.text().find("none.zarn7bank"), std::string::npos);
}

TEST(SoundbankPatch, hiHatAndCharleyAreOneElement)
{
    const auto patch = patchOf(R"({"id": "Kit", "name": "My kit", "description": "d",
        "instrumentSet": "drumKit", "soundbanks": [{"element": "Snare", "soundbank": "s"},
                                                   {"element": "Hi-Hat", "soundbank": "h"}]})");
    EXPECT_EQ(patch->soundbanks()[1].first, "Charley");
    EXPECT_EQ(patch->soundbankId("Charley"), "h");
    EXPECT_EQ(patch->soundbankId("Hi-Hat"), "h");
    EXPECT_EQ(patch->soundbankId("Tom"), "");
    EXPECT_EQ(patch->instrumentSetType(), InstrumentSet::drumKit);
    EXPECT_TRUE(patch->isUnpitched());
    EXPECT_FALSE(patch->isPitched());
}

TEST(SoundbankPatch, refusesWhatIsNoPatch)
{
    const std::string head = R"({"id": "a", "name": "", "description": "", "instrumentSet": "x",)";
    EXPECT_EQ(patchOf(head + R"("soundbanks": []})")->instrumentSetType(), InstrumentSet::unknown);
    const std::pair<std::string, const char *> faults[] = {
        {"[]", "object"},
        {"{}", "\"id\""},
        {R"({"id": ""})", "\"id\" is empty"},
        {R"({"id": 3})", "\"id\""},
        {head + R"("soundbanks": {}})", "soundbanks"},
        {head + R"("soundbanks": [{"element": "a", "soundbank": "b"}, []]})", "soundbanks[1]"},
        {head + R"("soundbanks": [{"element": "a"}]})", "soundbanks[0]: member \"soundbank\""},
    };
    for (const auto &[text, reason] : faults) {
        try {
            patchOf(text);
            ADD_FAILURE() << text;
        } catch (const CoreException &problem) {
            EXPECT_NE(problem.message().find(reason), std::string::npos) << problem.what();
        }
    }
}

TEST_F(Soundbanks, decideWhetherAPatchIsInstalled)
{
    const auto patch = patchOf(R"({"id": "P", "name": "", "description": "",
        "instrumentSet": "electricGuitar", "soundbanks": [
            {"element": "a", "soundbank": "one"}, {"element": "b", "soundbank": "two"}]})");
    EXPECT_FALSE(patch->installed()) << "there is no catalogue";
    EXPECT_FALSE(patch->firstGuitarPickupSet());
    Catalogue catalogue;
    EXPECT_FALSE(patch->installed());
    write("a.wav", "");
    const QByteArray rest = R"(, "name": "", "instrument": "electricGuitar", "samples": ["a.wav"])";
    catalogue.banks["one"] = bank(R"("id": "one")" + rest);
    EXPECT_FALSE(patch->installed());
    catalogue.banks["two"] =
        bank(R"("id": "two", "pickupSet": {"pickups": [], "switch": []})" + rest);
    EXPECT_TRUE(patch->installed());
    EXPECT_EQ(patch->firstGuitarPickupSet(), catalogue.banks["two"]->guitarPickupSet());
    EXPECT_FALSE(SoundbankPatch().installed()) << "without banks";
}

TEST(OrkaSound, keepsTheNameOfItsPatchWhateverItStandsFor)
{
    OrkaSound sound("Tele-Guitar");
    EXPECT_FALSE(sound.soundbankPatch());
    const auto patch = patchOf(R"({"id": "Strat-Guitar", "name": "", "description": "",
        "instrumentSet": "steelGuitar", "soundbanks": []})");
    {
        Catalogue catalogue;
        EXPECT_FALSE(sound.soundbankPatch());
        catalogue.patches["Strat-Guitar"] = patch;
        EXPECT_EQ(sound.soundbankPatch(), patch);
        EXPECT_EQ(sound.soundbankPatchId(), "Tele-Guitar");
    }
    EXPECT_FALSE(sound.soundbankPatch());
    sound.setSoundbankPatch(patch);
    EXPECT_EQ(sound.soundbankPatch(), patch) << "needs no catalogue";
    EXPECT_EQ(sound, OrkaSound("Strat-Guitar"));

    Sound whole("Clean");
    whole.setOrkaSound(sound);
    EXPECT_EQ(whole.path(), InstrumentSet::soundCategoryFallback(InstrumentSet::steelGuitar));
    EXPECT_EQ(whole.fullName(), whole.path() + "/Clean");
    EXPECT_FALSE(whole.isEquivalent(whole)) << "no path is stored";
    whole.setPath("Mine");
    EXPECT_EQ(whole.path(), "Mine");
    sound.setSoundbankPatch(nullptr);
    EXPECT_EQ(sound, OrkaSound());
}

} // namespace
