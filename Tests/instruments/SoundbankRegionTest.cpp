// SPDX-License-Identifier: MIT
// What banks say of their samples, and how they become one file and several again.
#include <ZarnCore/ZarnException.h>
#include <ZarnCore/instruments/soundbanks/ZarnHVSoundFont.h>
#include <ZarnCore/instruments/soundbanks/ZarnHVSoundFontManager.h>
#include <ZarnCore/instruments/soundbanks/ZarnSoundbank.h>
#include <ZarnCore/instruments/soundbanks/ZarnSoundbankPacking.h>
#include <ZarnCore/utils/JsonDocument.h>
#include <filesystem/RAMFileSystem.h>
#include <streams/BankArchive.h>
#include <streams/FileStream.h>

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {

using namespace zarn;

const std::string head = R"({"id": "a", "name": "a", "instrument": "snare", )";

HVSoundFont bankOf(const std::string &members)
{
    const auto document = utils::jsonDocument(head + members + "}", "bank");
    return HVSoundFont::parse(document, "/x/bank.json", [](const std::string &) { return true; });
}

SoundbankRegion regionOf(const std::string &members)
{
    return bankOf(R"("regions": [{"sample": "s.wav")" + members + "}]").regions().at(0);
}

std::string refusalOf(const std::string &members)
{
    try {
        bankOf(members);
    } catch (const CoreException &problem) {
        return problem.message();
    }
    return {};
}

TEST(SoundbankRegion, saysWhichNotesASamplePlays)
{
    const auto plain = regionOf("");
    EXPECT_TRUE(plain.fits(0, 1) && plain.fits(127, 127));
    EXPECT_FALSE(plain.fits(60, 0));
    EXPECT_EQ(plain.rootKey, 60);
    EXPECT_FALSE(plain.loop);
    const auto full = regionOf(R"(, "keys": [40, 47], "velocities": [64, 127], "rootKey": 45,
        "loop": {"start": 100, "end": 5000000000}, "tune": -3.5, "gain": -6, "pan": 0.25,
        "release": 1.5, "oneShot": true, "roundRobin": 2, "chokeGroup": 3)");
    EXPECT_TRUE(full.fits(40, 64) && full.fits(47, 127));
    EXPECT_FALSE(full.fits(39, 64) || full.fits(48, 64) || full.fits(40, 63));
    EXPECT_EQ(full.rootKey, 45);
    EXPECT_EQ(full.loop->end, 5'000'000'000);
    EXPECT_EQ(full.tune, -3.5);
    EXPECT_EQ(full.gain, -6);
    EXPECT_EQ(full.pan, 0.25);
    EXPECT_EQ(full.release, 1.5);
    EXPECT_TRUE(full.isOneShot);
    EXPECT_EQ(full.roundRobin, 2);
    EXPECT_EQ(full.chokeGroup, 3);
    const auto one = regionOf(R"(, "keys": 38)");
    EXPECT_TRUE(one.fits(38, 1));
    EXPECT_FALSE(one.fits(39, 1));
    EXPECT_EQ(one.rootKey, 38) << "a sample of one key was recorded there";
}

TEST(SoundbankRegion, isRefusedWithItsPlace)
{
    for (const char *const members : {R"("keys": 128)",
                                      R"("keys": -1)",
                                      R"("keys": [50, 40])",
                                      R"("keys": [1])",
                                      R"("keys": [1, 2, 3])",
                                      R"("keys": "C4")",
                                      R"("velocities": 0)",
                                      R"("velocities": [0, 127])",
                                      R"("rootKey": 200)",
                                      R"("rootKey": "C4")",
                                      R"("tune": 2401)",
                                      R"("gain": 25)",
                                      R"("gain": "loud")",
                                      R"("pan": -1.01)",
                                      R"("release": -0.1)",
                                      R"("oneShot": 1)",
                                      R"("roundRobin": -1)",
                                      R"("chokeGroup": 70000)",
                                      R"("loop": 7)",
                                      R"("loop": {"start": 5, "end": 5})",
                                      R"("loop": {"start": -1, "end": 5})",
                                      R"("loop": {"start": 0})"}) {
        const auto text = refusalOf(R"("regions": [{"sample": "x"}, {"sample": "s", )"
                                    + std::string(members) + "}]");
        EXPECT_EQ(text.find("regions[1]"), 0u) << members << " gave " << text;
        const std::string name(members + 1, std::string_view(members).find('"', 1) - 1);
        EXPECT_NE(text.find(name), std::string::npos) << text;
    }
    EXPECT_EQ(refusalOf(R"("regions": [{"sample": "../s"}])").find("regions[0]"), 0u);
    EXPECT_EQ(refusalOf(R"("regions": [{"keys": 3}])").find("regions[0]: member \"sample\""), 0u);
    EXPECT_EQ(refusalOf(R"("samples": ["a"], "regions": [{"sample": "b"}])"),
              "regions[0].sample: is none of the bank's samples");
}

TEST(HVSoundFont, knowsItsSamplesOnceEach)
{
    const auto font = bankOf(R"("regions": [{"sample": "b"}, {"sample": "a"}, {"sample": "b"}])");
    EXPECT_EQ(font.samples(), (std::vector<std::string>{"b", "a"}));
    EXPECT_EQ(font.rawFormat("a"), nullptr);
    const auto raw = bankOf(R"("samples": ["a", {"file": "r.raw", "encoding": "s24be",
        "rate": 48000, "channels": 2}])");
    ASSERT_NE(raw.rawFormat("r.raw"), nullptr);
    EXPECT_EQ(raw.rawFormat("r.raw")->encoding, RawSampleFormat::Encoding::S24Be);
    EXPECT_EQ(raw.rawFormat("r.raw")->rate, 48000);
    EXPECT_EQ(raw.rawFormat("r.raw")->channels, 2);
    for (int i = 0; i <= int(RawSampleFormat::Encoding::ALaw); ++i) {
        const auto encoding = static_cast<RawSampleFormat::Encoding>(i);
        EXPECT_EQ(rawEncodingFromString(rawEncodingToString(encoding)), encoding);
    }
    const std::pair<const char *, const char *> refused[] = {
        {R"("samples": ["a", "a"])", "samples[1]: is there already"},
        {R"("samples": [{"file": "a"}])", "samples[0]: member \"encoding\""},
        {R"("samples": [{"file": "a", "encoding": "mp3", "rate": 1}])", "\"encoding\""},
        {R"("samples": [{"file": "a", "encoding": "u8", "rate": 0}])", "\"rate\""},
        {R"("samples": [{"file": "a", "encoding": "u8", "rate": 8000, "channels": 65}])",
         "\"channels\""},
        {R"("samples": [{"file": "/a", "encoding": "u8", "rate": 8000}])", "samples[0]"},
    };
    for (const auto &[members, reason] : refused)
        EXPECT_NE(refusalOf(members).find(reason), std::string::npos) << refusalOf(members);
}

/// A bank in a folder.
class PackedSoundbanks : public ::testing::Test {
protected:
    void SetUp() override
    {
        _files.makeFolder("bank/in");
        put("bank/bank.json",
            head + R"("regions": [{"sample": "in/a.wav"}, {"sample": "b.raw"}]})");
        put("bank/in/a.wav", std::string(100'000, 'a'));
        put("bank/b.raw", "bytes");
        put("bank/notes.txt", "not part of the bank");
    }

    void put(const std::string &path, const std::string &bytes)
    {
        const auto handle = _files.open(path, filesystem::OpenMode::Write);
        handle->writeBlock(bytes.data(), static_cast<std::int64_t>(bytes.size()));
        ASSERT_TRUE(handle->close());
    }

    std::string get(const std::string &path)
    {
        auto handle = _files.open(path, filesystem::OpenMode::Read);
        std::string bytes;
        if (handle != nullptr)
            streams::FileStream(std::move(handle)).readRest(bytes, 1 << 24);
        return bytes;
    }

    template <class Act>
    static void expectRefusal(const char *reason, Act act)
    {
        try {
            act();
            ADD_FAILURE() << "not refused: " << reason;
        } catch (const CoreException &problem) {
            EXPECT_NE(problem.message().find(reason), std::string::npos) << problem.message();
        }
    }

    filesystem::RAMFileSystem _files;
};

TEST_F(PackedSoundbanks, comeApartAsTheyWerePutTogether)
{
    packSoundbank(_files, "bank", "x.zarn7bank");
    const auto archive = streams::BankArchive::open(_files, "x.zarn7bank", nullptr);
    ASSERT_TRUE(archive);
    EXPECT_EQ(archive->packedFiles(), (std::vector<std::string>{"in/a.wav", "b.raw"}));
    EXPECT_TRUE(HVSoundFontManager::readSoundFont(*archive)->isUsable());
    unpackSoundbank(_files, "x.zarn7bank", "new/folder");
    for (const char *const file : {"bank.json", "in/a.wav", "b.raw"})
        EXPECT_EQ(get(std::string("new/folder/") + file), get(std::string("bank/") + file));
    packSoundbank(_files, "new/folder", "y.zarn7bank");
    EXPECT_EQ(get("x.zarn7bank"), get("y.zarn7bank"));
    // A folder whose description has a name of its own.
    _files.rename("bank/bank.json", "bank/Mine.zarn7bank");
    packSoundbank(_files, "bank/", "z.zarn7bank");
    EXPECT_EQ(get("x.zarn7bank"), get("z.zarn7bank"));
}

TEST_F(PackedSoundbanks, areRefusedBeforeAnythingIsWritten)
{
    put("x.zarn7bank", "old");
    const auto pack = [this] { packSoundbank(_files, "bank", "x.zarn7bank"); };
    _files.remove("bank/in/a.wav");
    expectRefusal("bank/in/a.wav: ", pack);
    put("bank/bank.json", "{");
    expectRefusal("bank/bank.json: JSON:1:2", pack);
    _files.remove("bank/bank.json");
    expectRefusal("bank: holds no bank.json and no .zarn7bank", pack);
    expectRefusal("none: is no folder", [this] { packSoundbank(_files, "none", "x.zarn7bank"); });
    EXPECT_EQ(get("x.zarn7bank"), "old");
    SetUp();
    expectRefusal("is no archive", [this] { unpackSoundbank(_files, "bank/bank.json", "new"); });
    pack();
    expectRefusal("is there already", [this] { unpackSoundbank(_files, "x.zarn7bank", "bank"); });
    std::string damaged = get("x.zarn7bank");
    damaged[damaged.find("aaaa") + 500] = 'b';
    put("x.zarn7bank", damaged);
    expectRefusal("in/a.wav: ", [this] { unpackSoundbank(_files, "x.zarn7bank", "new"); });
    EXPECT_FALSE(_files.exists("new"));
}

TEST_F(PackedSoundbanks, areInstalledLikeFolders)
{
    packSoundbank(_files, "bank", "x.zarn7bank");
    const QTemporaryDir folder;
    QFile file(folder.filePath(QStringLiteral("x.zarn7bank")));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(QByteArray::fromStdString(get("x.zarn7bank")));
    file.close();
    const auto bank = HVSoundFontManager().soundbank(file.fileName().toStdString());
    ASSERT_TRUE(bank);
    EXPECT_TRUE(bank->isUsable());
    EXPECT_EQ(bank->soundfont()->regions().size(), 2u);
}

} // namespace
