// SPDX-License-Identifier: MIT
// A score is heard as its plan says: read back from the sound, by a bank of impulses.
#include "Sounds.h"

#include <ZarnAudio/ZarnEventRenderer.h>
#include <ZarnAudio/ZarnPlanSound.h>
#include <ZarnAudio/ZarnSampleCache.h>
#include <ZarnAudio/ZarnScoreRenderer.h>
#include <ZarnAudio/ZarnSoundFonts.h>
#include <ZarnCore/io/ZarnImportReport.h>
#include <ZarnCore/io/ZarnMusicXmlImporter.h>
#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/playback/ZarnPlaybackPlan.h>
#include <filesystem/DiskFileSystem.h>
#include <streams/BankArchive.h>
#include <streams/MemoryHeap.h>

#include <support/ScoreFiles.h>

#include <map>
#include <set>

namespace {

using namespace sounds;
using zarn::playback::PlaybackPlan;

constexpr int rate = 44100;

PlaybackPlan planOf(const char *sample)
{
    filesystem::DiskFileSystem files;
    const auto handle =
        files.open(std::string(ZARN_SOURCE_DIR "/Samples/") + sample, filesystem::OpenMode::Read);
    zarn::io::ImportReport report;
    return PlaybackPlan(*zarn::io::MusicXmlImporter().read(*handle, report));
}

/// A bank in which every key is one impulse, as it was recorded.
std::shared_ptr<streams::BankArchive> impulses(filesystem::FileSystem &files)
{
    std::vector<float> impulse(400, 0.0F);
    impulse[0] = 0.25F;
    put(files, "impulse.wav",
        encoded(impulse, format(AudioFormat::File::Wav, AudioFormat::Encoding::Pcm24, 1)));
    std::string regions;
    for (int key = 0; key < 128; ++key)
        regions += (key > 0 ? ", " : "")
            + (R"({"sample": "impulse.wav", "keys": )" + std::to_string(key)) + "}";
    put(files, "bank.json",
        R"({"id": "x", "name": "x", "instrument": "snare", "regions": [)" + regions + "]}");
    return streams::BankArchive::open(files, "bank.json", nullptr);
}

TEST(ScoreRenderer, everyNoteOfAPlanIsHeardAtItsFrame)
{
    constexpr double longest = 40; // seconds that are looked at
    std::size_t count = 0;
    for (const std::string &path : scoreFiles()) {
        SCOPED_TRACE(path);
        const PlaybackPlan plan(*readScore(path));
        if (plan.notes().empty())
            continue;
        filesystem::RAMFileSystem files;
        streams::MemoryHeap heap(16 << 20);
        SampleCache cache(heap);
        Synthesizer::Settings settings;
        settings.channels = static_cast<int>(plan.lanes().size());
        settings.hasReverb = false;
        settings.hasChorus = false;
        Synthesizer synthesizer(settings);
        std::string error;
        for (int channel = 0; channel < settings.channels; ++channel)
            ASSERT_TRUE(synthesizer.loadBank(channel, impulses(files), cache, &error)) << error;

        std::set<std::int64_t> expected;
        const double origin = plan.tempo().secondsAt(plan.start());
        for (const auto &note : plan.notes())
            if (note.startSecond < longest)
                expected.insert(std::llround((note.startSecond - origin) * rate));
        EventRenderer renderer(synthesizer, PlanSound(plan).events(rate));
        std::vector<float> frames(static_cast<std::size_t>(2 * (*expected.rbegin() + 500)));
        renderer.render(frames.data(), std::int64_t(frames.size()) / 2);

        std::set<std::int64_t> heard;
        const auto level = [&frames](std::int64_t at) {
            return std::abs(frames[std::size_t(2 * at)])
                + std::abs(frames[std::size_t(2 * at + 1)]);
        };
        for (std::int64_t at = 2; 2 * (at + 2) < std::int64_t(frames.size()); ++at)
            if (level(at) > 0.00001F && level(at) >= level(at - 1) && level(at) > level(at + 1)
                && level(at) >= level(at - 2) && level(at) > level(at + 2))
                heard.insert(at);
        std::size_t found = 0;
        for (const auto frame : expected) {
            const auto near = heard.lower_bound(frame - 1);
            const bool isHeard = frame < 2 || (near != heard.end() && *near <= frame + 1);
            EXPECT_TRUE(isHeard) << "at frame " << frame;
            found += isHeard ? 1 : 0;
        }
        EXPECT_EQ(found, expected.size());
        count += found;
        constexpr std::int64_t ringing = 64; // of the synthesizer's filter, frames
        for (const auto frame : heard) {
            const auto near = expected.lower_bound(frame - ringing);
            EXPECT_TRUE(near != expected.end() && *near <= frame + 1) << "too much at " << frame;
        }
    }
    EXPECT_GT(count, 200u);
}

TEST(ScoreRenderer, barsSoundAsTheyDoInTheWhole)
{
    std::string error;
    const auto font = findSoundFont({}, &error);
    if (font.empty())
        GTEST_SKIP() << error;
    const auto plan = planOf("saints-band.musicxml");
    const auto lastBar = static_cast<unsigned>(plan.bars().bars().back().bar);
    struct Rendered {
        std::vector<float> frames;
        std::int64_t begin = 0;
        std::int64_t end = 0;
    };
    const auto rendered = [&](std::optional<std::pair<unsigned, unsigned>> bars) {
        ScoreRenderer::Settings settings;
        settings.hasReverb = false;
        settings.bars = bars;
        ScoreRenderer renderer(plan, settings);
        EXPECT_TRUE(renderer.loadFont(font, &error)) << error;
        filesystem::RAMFileSystem files;
        AudioWriter writer(files.open("x", filesystem::OpenMode::Write),
                           format(AudioFormat::File::Wav, AudioFormat::Encoding::Float32));
        EXPECT_TRUE(renderer.write(writer) && writer.finish()) << writer.errorText();
        return Rendered{decoded(*decoder(contentOf(files, "x"))), renderer.begin(), renderer.end()};
    };
    const auto whole = rendered(std::nullopt);
    EXPECT_EQ(whole.begin, 0);
    for (const auto &bars : {std::pair{3U, 5U}, std::pair{0U, 1U}, std::pair{6U, lastBar}}) {
        SCOPED_TRACE(std::to_string(bars.first));
        const auto part = rendered(bars);
        const double start = *plan.secondOf(bars.first, {});
        EXPECT_NEAR(double(part.begin), start * rate, 1);
        // The next note may begin half a block early.
        const auto length = static_cast<std::size_t>(2 * (part.end - 32 - part.begin));
        ASSERT_GE(part.frames.size(), length);
        EXPECT_TRUE(std::equal(part.frames.begin(), part.frames.begin() + long(length),
                               whole.frames.begin() + 2 * part.begin));
        // Behind them nothing begins.
        ASSERT_GE(part.frames.size(), length + 2 * rate / 2);
        EXPECT_LT(*std::max_element(part.frames.end() - 200, part.frames.end()), 0.01F);
    }
}

TEST(ScoreRenderer, writesTheSameSoundEveryTimeAndNoneThatIsCut)
{
    std::string error;
    const auto font = findSoundFont({}, &error);
    if (font.empty())
        GTEST_SKIP() << error;
    const auto plan = planOf("romance-guitar-study.musicxml");
    const auto rendered = [&](double gain) {
        ScoreRenderer::Settings settings;
        settings.gain = gain;
        settings.hasReverb = false;
        ScoreRenderer renderer(plan, settings);
        EXPECT_TRUE(renderer.loadFont(font, &error)) << error;
        filesystem::RAMFileSystem files;
        AudioWriter writer(files.open("x", filesystem::OpenMode::Write), AudioFormat{});
        EXPECT_TRUE(renderer.write(writer) && writer.finish()) << writer.errorText();
        return contentOf(files, "x");
    };
    const auto first = rendered(6);
    EXPECT_EQ(first, rendered(6));
    const auto frames = decoded(*decoder(first));
    const double seconds = plan.tempo().secondsAt(plan.end());
    EXPECT_GT(double(frames.size()) / 2 / rate, seconds - 0.1);
    EXPECT_LT(double(frames.size()) / 2 / rate, seconds + 11);
    const auto highest = [](const std::vector<float> &values) {
        float value = 0;
        for (const float sample : values)
            value = std::max(value, std::abs(sample));
        return value;
    };
    EXPECT_GT(highest(frames), 0.02F);
    const auto loud = decoded(*decoder(rendered(50)));
    EXPECT_LE(highest(loud), 0.9901F);
    EXPECT_GT(highest(loud), 0.9F);
}

} // namespace
