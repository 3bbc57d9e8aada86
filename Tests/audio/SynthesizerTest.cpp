// SPDX-License-Identifier: MIT
// What is heard, by generated banks: impulses for time, sines for pitch, a ladder of velocities for
// loudness.
#include "HeapCalls.h"
#include "Sounds.h"

#include <ZarnAudio/ZarnEventRenderer.h>
#include <ZarnAudio/ZarnSampleCache.h>
#include <ZarnAudio/ZarnSoundFonts.h>
#include <ZarnAudio/ZarnSynthesizer.h>
#include <filesystem/DiskFileSystem.h>
#include <streams/BankArchive.h>
#include <streams/MemoryHeap.h>

#include <QDir>
#include <QTemporaryDir>

namespace {

using namespace sounds;
using Kind = TimedEvent::Kind;

TimedEvent noteOn(std::int64_t frame, int key, int velocity = 127, int channel = 0)
{
    return {frame, Kind::NoteOn, std::uint8_t(channel), std::uint8_t(key), std::uint8_t(velocity),
            0};
}

TimedEvent noteOff(std::int64_t frame, int key)
{
    return {frame, Kind::NoteOff, 0, std::uint8_t(key), 0, 0};
}

TimedEvent change(std::int64_t frame, Kind kind, double amount)
{
    return {frame, kind, 0, 0, 0, amount};
}

/// A synthesizer with banks of generated samples in memory.
class Synthesizers : public ::testing::Test {
protected:
    void addSample(const std::string &name, const std::vector<float> &frames, int channels = 1)
    {
        put(_files, name,
            encoded(frames,
                    format(AudioFormat::File::Wav, AudioFormat::Encoding::Pcm24, channels)));
    }

    void addSine(const std::string &name, double frequency, std::int64_t frames = 44100,
                 double amplitude = 0.5)
    {
        std::vector<float> values;
        for (std::int64_t i = 0; i < frames; ++i)
            values.push_back(
                static_cast<float>(amplitude * std::sin(2 * M_PI * frequency * double(i) / 44100)));
        addSample(name, values);
    }

    /// Renders events with a bank of regions on channel 0.
    std::vector<float> rendered(const std::string &regions, std::vector<TimedEvent> events,
                                std::int64_t frames, std::int64_t piece = 1000)
    {
        const std::string path = "bank" + std::to_string(++_count) + ".json";
        put(_files, path,
            R"({"id": "x", "name": "x", "instrument": "snare", "regions": [)" + regions + "]}");
        streams::MemoryHeap heap(64 << 20);
        SampleCache cache(heap);
        Synthesizer::Settings settings;
        settings.hasReverb = false;
        settings.hasChorus = false;
        Synthesizer synthesizer(settings);
        std::string error;
        std::shared_ptr<streams::BankArchive> bank =
            streams::BankArchive::open(_files, path, &error);
        EXPECT_TRUE(bank) << error;
        EXPECT_TRUE(synthesizer.loadBank(0, bank, cache, &error)) << error;
        EventRenderer renderer(synthesizer, std::move(events));
        std::vector<float> all(static_cast<std::size_t>(2 * frames));
        const auto before = heapCalls();
        for (std::int64_t done = 0; done < frames; done += piece)
            renderer.render(all.data() + 2 * done, std::min(piece, frames - done));
        EXPECT_EQ(heapCalls(), before) << "rendering takes nothing from the heap";
        return all;
    }

    static double levelOf(const std::vector<float> &frames, std::int64_t from, std::int64_t to,
                          int side = 0)
    {
        double sum = 0;
        for (auto i = from; i < to; ++i) {
            const double value = frames[static_cast<std::size_t>(2 * i + side)];
            sum += value * value;
        }
        return 10 * std::log10(sum / double(to - from));
    }

    /// From the crossings of zero upwards between two frames.
    static double frequencyOf(const std::vector<float> &frames, std::int64_t from, std::int64_t to)
    {
        double first = -1;
        double last = -1;
        int periods = -1;
        for (auto i = from; i + 1 < to; ++i) {
            const double a = frames[static_cast<std::size_t>(2 * i)];
            const double b = frames[static_cast<std::size_t>(2 * i + 2)];
            if (a >= 0 || b < 0)
                continue;
            last = double(i) + a / (a - b);
            first = first < 0 ? last : first;
            ++periods;
        }
        return periods < 1 ? 0 : periods * 44100 / (last - first);
    }

    static double cents(double frequency, double expected)
    {
        return 1200 * std::log2(frequency / expected);
    }

    filesystem::RAMFileSystem _files;
    int _count = 0;
};

TEST_F(Synthesizers, notesOfBanksBeginAtTheirFrame)
{
    std::vector<float> impulse(3000, 0.0F);
    impulse[0] = 0.5F;
    addSample("impulse.wav", impulse);
    std::mt19937 random(9);
    std::vector<TimedEvent> events;
    std::vector<std::int64_t> expected;
    std::vector<int> keys;
    for (std::int64_t frame = 0; expected.size() < 400; frame += 150 + random() % 400) {
        const int key = expected.size() % 2 == 0 ? 60 : 50 + int(random() % 25);
        events.push_back(noteOn(frame, key));
        expected.push_back(frame);
        keys.push_back(key);
    }
    std::shuffle(events.begin(), events.end(), random);
    const auto frames = rendered(R"({"sample": "impulse.wav"})", events, expected.back() + 300);
    for (std::size_t i = 0; i < expected.size(); ++i) {
        // The highest value around each; each has the same level, wherever it falls in a block.
        std::int64_t found = 0;
        float highest = 0;
        for (auto at = std::max<std::int64_t>(0, expected[i] - 70); at < expected[i] + 70; ++at)
            if (const float value = std::abs(frames[std::size_t(2 * at)]); value > highest) {
                highest = value;
                found = at;
            }
        EXPECT_LE(std::abs(found - expected[i]), 1) << "note " << i << ", key " << keys[i];
        if (keys[i] == 60) {
            EXPECT_NEAR(highest, 0.283, 0.01) << "above 20 kHz there is nothing left of an impulse";
        }
    }
}

TEST_F(Synthesizers, framesDoNotDependOnHowManyAreRenderedAtATime)
{
    addSine("a.wav", 440, 3000);
    std::vector<TimedEvent> events;
    for (int i = 0; i < 60; ++i) {
        events.push_back(noteOn(i * 331, 50 + i % 20, 30 + i));
        events.push_back(noteOff(i * 331 + 200, 50 + i % 20));
    }
    const std::string region = R"({"sample": "a.wav", "rootKey": 69})";
    const auto whole = rendered(region, events, 25'000, 25'000);
    for (const std::int64_t piece : {1, 63, 64, 1000})
        EXPECT_TRUE(rendered(region, events, 25'000, piece) == whole) << piece;
}

TEST_F(Synthesizers, pitchesAreThoseOfTheKeysTuningsAndBends)
{
    addSine("a.wav", 440, 5 * 44100);
    const std::string region = R"({"sample": "a.wav", "rootKey": 69, "tune": )";
    for (const int key : {57, 69, 70, 81}) {
        const auto frames = rendered(region + "0}", {noteOn(0, key)}, 44100);
        EXPECT_NEAR(cents(frequencyOf(frames, 1000, 44000), 440 * std::exp2((key - 69) / 12.0)), 0,
                    1);
    }
    const auto tuned = rendered(region + "-37.5}", {noteOn(0, 69)}, 44100);
    EXPECT_NEAR(cents(frequencyOf(tuned, 1000, 44000), 440), -37.5, 1);
    for (const double bend : {-12.0, 0.25, 1.5, 24.0}) {
        const auto bent =
            rendered(region + "0}", {noteOn(0, 60), change(22'050, Kind::Bend, bend)}, 44100);
        const double note = 440 * std::exp2(-9 / 12.0);
        EXPECT_NEAR(cents(frequencyOf(bent, 1000, 21'900), note), 0, 1);
        EXPECT_NEAR(cents(frequencyOf(bent, 22'200, 44'000), note), 100 * bend, 2);
    }
    // A loop goes on where it ends: the pitch stays for longer than the sample.
    addSine("short.wav", 441, 4410);
    const auto looped = rendered(R"({"sample": "short.wav", "rootKey": 69,
        "loop": {"start": 1000, "end": 4000}})",
                                 {noteOn(0, 69)}, 88'200);
    EXPECT_NEAR(cents(frequencyOf(looped, 40'000, 88'000), 441), 0, 1);
    EXPECT_GT(levelOf(looped, 80'000, 88'000), -20);
}

TEST_F(Synthesizers, loudnessFollowsVelocityGainVolumeAndPan)
{
    addSine("a.wav", 440, 44100);
    const auto region = [](const char *rest) {
        return R"({"sample": "a.wav", "rootKey": 69)" + std::string(rest) + "}";
    };
    const auto level = [&](const char *rest, std::vector<TimedEvent> events, int side = 0) {
        return levelOf(rendered(region(rest), std::move(events), 22'050), 2000, 22'000, side);
    };
    // A sine of 0.5 in the middle: 6 dB for half, 3 for a sine, 3 for the middle.
    const double full = level("", {noteOn(0, 69)});
    EXPECT_NEAR(full, -12.04, 0.1);
    for (const int velocity : {100, 80, 64, 32})
        EXPECT_NEAR(level("", {noteOn(0, 69, velocity)}) - full, 40 * std::log10(velocity / 127.0),
                    0.1)
            << velocity;
    for (const char *const gain : {"-6", "-20", "6", "12"})
        EXPECT_NEAR(level((", \"gain\": " + std::string(gain)).c_str(), {noteOn(0, 69)}) - full,
                    std::stod(gain), 0.1);
    for (const double volume : {-24.0, -3.0, 0.0, 6.0, 12.0})
        EXPECT_NEAR(level("", {change(0, Kind::Volume, volume), noteOn(0, 69)}) - full, volume,
                    0.1);
    EXPECT_LT(level("", {change(0, Kind::Volume, -HUGE_VAL), noteOn(0, 69)}), -100);
    for (const double pan : {-1.0, -0.5, 0.0, 0.3, 1.0}) {
        const double angle = (pan + 1) * M_PI / 4;
        const std::vector<TimedEvent> events = {change(0, Kind::Pan, pan), noteOn(0, 69)};
        const double left = level("", events) - full;
        const double right = level("", events, 1) - full;
        EXPECT_NEAR(std::pow(10, left / 20), std::sqrt(2) * std::cos(angle), 0.01) << pan;
        EXPECT_NEAR(std::pow(10, right / 20), std::sqrt(2) * std::sin(angle), 0.01) << pan;
    }
}

TEST_F(Synthesizers, notesEndAsTheirRegionsSay)
{
    addSine("a.wav", 440, 44100);
    const auto level = [&](const char *rest, std::int64_t from, std::int64_t to) {
        return levelOf(rendered(R"({"sample": "a.wav", "rootKey": 69)" + std::string(rest) + "}",
                                {noteOn(0, 69), noteOff(10'000, 69)}, 44'100),
                       from, to);
    };
    EXPECT_GT(level("", 9000, 9800), -13);
    EXPECT_LT(level("", 13'000, 14'000), -90) << "50 ms";
    EXPECT_GT(level(R"(, "release": 2)", 13'000, 14'000), -40);
    EXPECT_GT(level(R"(, "oneShot": true)", 40'000, 43'000), -13);
}

TEST_F(Synthesizers, samplesTakeTurnsAndChokeEachOther)
{
    addSine("low.wav", 441, 44100);
    addSine("high.wav", 882, 44100);
    std::vector<TimedEvent> events;
    for (int i = 0; i < 6; ++i) {
        events.push_back(noteOn(i * 8000, 60));
        events.push_back(noteOff(i * 8000 + 4000, 60));
    }
    const auto turns = rendered(R"({"sample": "low.wav", "roundRobin": 4},
                                   {"sample": "high.wav", "roundRobin": 4})",
                                events, 48'000);
    for (int i = 0; i < 6; ++i)
        EXPECT_NEAR(
            cents(frequencyOf(turns, i * 8000 + 500, i * 8000 + 3800), i % 2 == 0 ? 441 : 882), 0,
            2)
            << i;
    // An open hi-hat that a closed one ends.
    const auto choked = rendered(R"({"sample": "low.wav", "keys": 46, "chokeGroup": 1},
        {"sample": "high.wav", "keys": 42, "gain": -90, "chokeGroup": 1})",
                                 {noteOn(0, 46), noteOn(20'000, 42)}, 44'100);
    EXPECT_GT(levelOf(choked, 18'000, 19'800), -13);
    EXPECT_LT(levelOf(choked, 36'000, 40'000), -45) << "a hundred decibels in a second";
    // Velocities that no region has are silent, and the layers of one note sound together.
    const auto layered = rendered(R"({"sample": "low.wav", "velocities": [1, 63]},
        {"sample": "low.wav", "velocities": [1, 50], "keys": 60})",
                                  {noteOn(0, 60, 50), noteOn(22'050, 60, 100)}, 44'100);
    EXPECT_LT(levelOf(layered, 40'000, 44'000), levelOf(layered, 1000, 20'000) + 1);
}

TEST_F(Synthesizers, stereoSamplesKeepTheirSides)
{
    std::vector<float> frames;
    for (int i = 0; i < 44100; ++i) {
        frames.push_back(0.5F * std::sin(static_cast<float>(i) * 0.06F));
        frames.push_back(0.0F);
    }
    addSample("left.wav", frames, 2);
    const auto found = rendered(R"({"sample": "left.wav"})", {noteOn(0, 60)}, 22'050);
    EXPECT_NEAR(levelOf(found, 2000, 20'000, 0), -9.03, 1.5);
    EXPECT_LT(levelOf(found, 2000, 20'000, 1), -100);
}

TEST_F(Synthesizers, banksThatCannotBePlayedSayWhy)
{
    streams::MemoryHeap heap(1 << 16);
    SampleCache cache(heap);
    Synthesizer synthesizer({});
    const auto refusal = [&](const std::string &members, int channel = 0) {
        put(_files, "bad.json",
            R"({"id": "x", "name": "x", "instrument": "snare")" + members + "}");
        std::string error;
        std::shared_ptr<streams::BankArchive> bank =
            streams::BankArchive::open(_files, "bad.json", &error);
        EXPECT_FALSE(synthesizer.loadBank(channel, bank, cache, &error));
        return error;
    };
    EXPECT_EQ(refusal(""), "bad.json: has no regions");
    EXPECT_NE(refusal(R"(, "regions": 3)").find("regions"), std::string::npos);
    EXPECT_NE(refusal(R"(, "regions": [{"sample": "gone.wav"}])").find("gone.wav"),
              std::string::npos);
    addSine("long.wav", 440, 100'000);
    EXPECT_NE(refusal(R"(, "regions": [{"sample": "long.wav"}])").find("sample memory"),
              std::string::npos);
    EXPECT_NE(refusal("", 16).find("no channel 16"), std::string::npos);
    std::string error;
    EXPECT_FALSE(synthesizer.loadFont("/none.sf2", &error));
    EXPECT_NE(error.find("/none.sf2"), std::string::npos);
    QTemporaryDir folder;
    const auto path = folder.filePath(QStringLiteral("bad.sf2")).toStdString();
    filesystem::DiskFileSystem disk;
    put(disk, path, std::string("RIFF\x10\0\0\0sfbkLIST\4\0\0\0nope", 24));
    EXPECT_FALSE(synthesizer.loadFont(path, &error));
    EXPECT_NE(error.find("is damaged"), std::string::npos) << error;
}

TEST(SoundFontSynthesizer, playsGeneralMidi)
{
    std::string error;
    const auto font = findSoundFont({}, &error);
    if (font.empty())
        GTEST_SKIP() << error;
    Synthesizer synthesizer({});
    ASSERT_TRUE(synthesizer.loadFont(font, &error)) << error;
    std::vector<TimedEvent> events;
    constexpr std::int64_t step = 22'050;
    for (int i = 0; i < 4; ++i)
        events.push_back(noteOn(1000 + i * step, 42, 127, 9)); // a closed hi-hat
    EventRenderer renderer(synthesizer, events);
    std::vector<float> frames(2 * 4 * step);
    renderer.render(frames.data(), 4 * step);
    for (int i = 0; i < 4; ++i) {
        const auto start = 1000 + i * step;
        std::int64_t onset = start - 600;
        while (std::abs(frames[std::size_t(2 * onset)]) < 0.003F && onset < start + 2000)
            ++onset;
        EXPECT_NEAR(double(onset), double(start), 200) << i;
    }
    synthesizer.apply({0, Kind::NoteOn, 200, 60, 100, 0}); // no such channel
    synthesizer.apply({0, Kind::NoteOn, 0, 200, 100, 0});
    synthesizer.reset();
    EXPECT_EQ(synthesizer.voiceCount(), 0);
}

TEST(SoundFontSynthesizer, beginsNotesWithinHalfABlock)
{
    std::string error;
    const auto font = findSoundFont({}, &error);
    if (font.empty())
        GTEST_SKIP() << error;
    Synthesizer synthesizer({44100, 16, 256, false, false});
    ASSERT_TRUE(synthesizer.loadFont(font, &error)) << error;
    constexpr int claves = 75;
    std::mt19937 random(3);
    std::vector<std::int64_t> starts;
    std::vector<TimedEvent> events;
    for (int i = 0; i < 200; ++i) {
        starts.push_back(1000 + i * 11'000 + std::int64_t(random() % 300));
        events.push_back(noteOn(starts.back(), claves, 127, 9));
    }
    EventRenderer renderer(synthesizer, events);
    std::vector<float> frames(static_cast<std::size_t>(2 * (starts.back() + 4000)));
    renderer.render(frames.data(), std::int64_t(frames.size()) / 2);
    std::vector<std::int64_t> late;
    for (const auto start : starts) {
        auto at = start - 100;
        while (std::abs(frames[std::size_t(2 * at)]) < 0.02F && at < start + 2000)
            ++at;
        late.push_back(at - start);
    }
    // The sample itself begins some frames after its note; what counts is how that differs.
    const auto [first, last] = std::minmax_element(late.begin(), late.end());
    EXPECT_LE(*last - *first, 64 + 4);
    EXPECT_LT(*last, 200);
}

TEST(SoundFontSynthesizer, refusesOrPlaysDamagedFonts)
{
    std::string error;
    const auto font = findSoundFont({}, &error);
    if (font.empty())
        GTEST_SKIP() << error;
    filesystem::DiskFileSystem disk;
    const std::string whole = contentOf(disk, font);
    QTemporaryDir folder;
    const auto path = folder.filePath(QStringLiteral("damaged.sf2")).toStdString();
    std::mt19937 random(17);
    // The records that say what there is stand behind the samples.
    constexpr std::size_t records = 100'000;
    for (int i = 0; i < 12; ++i) {
        std::string bytes = whole;
        if (i % 2 == 0)
            bytes.resize(random() % bytes.size());
        else
            for (int k = 0; k < 20; ++k)
                bytes[bytes.size() - 1 - random() % std::min(records, bytes.size())] =
                    static_cast<char>(random());
        put(disk, path, bytes);
        Synthesizer synthesizer({});
        error.clear();
        if (!synthesizer.loadFont(path, &error)) {
            EXPECT_NE(error.find(path), std::string::npos) << error;
            continue;
        }
        std::vector<TimedEvent> events;
        for (int program = 0; program < 128; program += 8) {
            events.push_back({program * 500, Kind::Program, 0, 0, std::uint8_t(program), 0});
            events.push_back(noteOn(program * 500, 40 + program / 4));
        }
        EventRenderer renderer(synthesizer, events);
        std::vector<float> frames(2 * 66'000);
        renderer.render(frames.data(), 66'000);
    }
}

} // namespace
