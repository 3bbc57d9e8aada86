// SPDX-License-Identifier: MIT
// Decoders find every frame, read the whole of what is whole, and say where it ends.
#include "Sounds.h"

#include <streams/PartStream.h>

#include <functional>

namespace {

using namespace sounds;
using Encoding = AudioFormat::Encoding;
using File = AudioFormat::File;
using zarn::RawSampleFormat;

constexpr std::int64_t frameCount = 60'001;

struct Kind {
    const char *name;
    std::string bytes;
    std::function<std::unique_ptr<AudioDecoder>(const std::string &)> open;
};

std::unique_ptr<AudioDecoder> openRaw(const std::string &bytes, RawSampleFormat::Encoding encoding)
{
    RawSampleFormat format;
    format.encoding = encoding;
    format.channels = 2;
    return AudioDecoder::openRaw(std::make_unique<streams::MemoryStream>("x.raw", bytes), format,
                                 nullptr);
}

/// Every kind of file, of two channels; WAV in several encodings.
const std::vector<Kind> &kinds()
{
    static const std::vector<Kind> all = [] {
        const auto frames = tones(frameCount, 2);
        std::vector<Kind> made;
        const auto open = [](const std::string &bytes) { return decoder(bytes); };
        made.push_back({"wav 16", encoded(frames, format(File::Wav, Encoding::Pcm16)), open});
        made.push_back({"wav 24", encoded(frames, format(File::Wav, Encoding::Pcm24)), open});
        made.push_back({"wav float", encoded(frames, format(File::Wav, Encoding::Float32)), open});
        made.push_back({"flac 16", encoded(frames, format(File::Flac, Encoding::Pcm16)), open});
        made.push_back({"flac 24", encoded(frames, format(File::Flac, Encoding::Pcm24)), open});
        made.push_back({"ogg", encoded(frames, format(File::OggVorbis, Encoding::Pcm16)), open});
        // The sound of a WAV file is such a file without a header.
        const std::string &wav = made[0].bytes;
        const std::string sound = wav.substr(wav.find("data") + 8);
        made.push_back({"raw s16le", sound, [](const std::string &bytes) {
                            return openRaw(bytes, RawSampleFormat::Encoding::S16Le);
                        }});
        made.push_back({"raw s24be", sound + sound, [](const std::string &bytes) {
                            return openRaw(bytes.substr(0, bytes.size() / 6 * 6),
                                           RawSampleFormat::Encoding::S24Be);
                        }});
        return made;
    }();
    return all;
}

TEST(AudioDecoder, everyOfAThousandSeeksIsExactInEveryFormat)
{
    constexpr std::int64_t window = 64;
    for (const Kind &kind : kinds()) {
        SCOPED_TRACE(kind.name);
        const auto whole = kind.open(kind.bytes);
        ASSERT_TRUE(whole);
        const auto all = decoded(*whole);
        ASSERT_FALSE(whole->hasError()) << whole->errorText();
        const auto count = whole->frames();
        ASSERT_EQ(static_cast<std::int64_t>(all.size()), 2 * count);
        const auto seeking = kind.open(kind.bytes);
        std::mt19937 random(3);
        std::vector<float> found(2 * window);
        for (int i = 0; i < 1000; ++i) {
            const auto at = static_cast<std::int64_t>(random() % unsigned(count + 1));
            ASSERT_TRUE(seeking->seek(at)) << seeking->errorText();
            const auto read = seeking->read(found.data(), window);
            ASSERT_EQ(read, std::min(window, count - at)) << seeking->errorText();
            ASSERT_TRUE(std::equal(found.begin(), found.begin() + 2 * read, all.begin() + 2 * at))
                << "frame " << at;
        }
        EXPECT_FALSE(seeking->hasError());
        EXPECT_FALSE(seeking->seek(count + 1));
        EXPECT_FALSE(seeking->seek(0)) << "the first error is kept";
    }
}

TEST(AudioDecoder, readsWhatWasWritten)
{
    const auto frames = tones(5000, 2);
    for (const auto encoding : {Encoding::Pcm16, Encoding::Pcm24, Encoding::Float32}) {
        const double step = encoding == Encoding::Pcm16 ? 1 / 32768.0
            : encoding == Encoding::Pcm24               ? 1 / 8388608.0
                                                        : 0;
        const auto wav = decoder(encoded(frames, format(File::Wav, encoding)));
        ASSERT_TRUE(wav);
        EXPECT_EQ(wav->rate(), 44100);
        const auto found = decoded(*wav);
        ASSERT_EQ(found.size(), frames.size());
        for (std::size_t i = 0; i < frames.size(); ++i)
            ASSERT_NEAR(found[i], frames[i], step * 0.51 + 1e-8);
        if (encoding == Encoding::Float32)
            continue;
        const auto flac = decoder(encoded(frames, format(File::Flac, encoding)));
        ASSERT_TRUE(flac);
        EXPECT_TRUE(decoded(*flac) == found);
    }
    for (const int channels : {1, 3, 6}) {
        const auto wide = tones(3000, channels);
        const auto flac = decoder(encoded(wide, format(File::Flac, Encoding::Pcm24, channels)));
        ASSERT_TRUE(flac);
        EXPECT_EQ(flac->channels(), channels);
        const auto found = decoded(*flac);
        ASSERT_EQ(found.size(), wide.size());
        for (std::size_t i = 0; i < wide.size(); ++i)
            ASSERT_NEAR(found[i], wide[i], 1e-6);
    }
    const auto ogg = decoder(encoded(tones(3000, 1), format(File::OggVorbis, Encoding::Pcm16, 1)));
    ASSERT_TRUE(ogg);
    EXPECT_EQ(ogg->channels(), 1);
    EXPECT_EQ(decoded(*ogg).size(), 3000u);
}

TEST(AudioDecoder, aFileThatIsCutOffIsReadUpToThere)
{
    for (const Kind &kind : kinds()) {
        if (std::string(kind.name) == "raw s24be")
            continue; // is cut to whole frames here
        SCOPED_TRACE(kind.name);
        const auto all = decoded(*kind.open(kind.bytes));
        for (const double share : {0.37, 0.5, 0.9}) {
            const auto cut =
                static_cast<std::size_t>(static_cast<double>(kind.bytes.size()) * share) | 1U;
            const auto part = kind.open(kind.bytes.substr(0, cut));
            ASSERT_TRUE(part);
            const auto found = decoded(*part);
            const auto frames = static_cast<std::int64_t>(found.size()) / 2;
            EXPECT_GT(static_cast<double>(frames), frameCount * (share - 0.15));
            EXPECT_LT(frames, frameCount);
            EXPECT_TRUE(std::equal(found.begin(), found.end(), all.begin()));
            EXPECT_EQ(part->position(), frames);
            EXPECT_NE(part->errorText().find(" at frame " + std::to_string(frames)),
                      std::string::npos)
                << part->errorText();
        }
    }
}

TEST(AudioDecoder, damageEndsTheSoundWhereItIs)
{
    for (const char *const name : {"flac 16", "flac 24", "ogg"}) {
        SCOPED_TRACE(name);
        for (const Kind &kind : kinds()) {
            if (std::string(kind.name) != name)
                continue;
            const auto all = decoded(*kind.open(kind.bytes));
            std::mt19937 random(5);
            for (int run = 0; run < 40; ++run) {
                std::string bytes = kind.bytes;
                // Behind the headers, which a file cannot be read without.
                const auto at = 9000 + random() % (bytes.size() - 9000);
                const auto count = 1 + random() % 3 * 700;
                if (run % 2 == 0)
                    bytes[at] = static_cast<char>(bytes[at] ^ (1 << random() % 8));
                else
                    bytes.erase(at, count);
                const auto damaged = kind.open(bytes);
                ASSERT_TRUE(damaged);
                const auto found = decoded(*damaged);
                EXPECT_TRUE(damaged->hasError()) << "at byte " << at;
                const auto frames = static_cast<std::int64_t>(found.size()) / 2;
                EXPECT_TRUE(std::equal(found.begin(), found.end(), all.begin()))
                    << "at byte " << at << ", " << frames << " frames";
                EXPECT_NE(damaged->errorText().find(" at frame " + std::to_string(frames)),
                          std::string::npos)
                    << damaged->errorText();
            }
        }
    }
}

TEST(AudioDecoder, claimsOfAHeaderAreNotBelieved)
{
    // 2^36 - 1 frames in FLAC, 4 GB of sound in WAV.
    std::string flac = kinds()[3].bytes;
    flac[21] = static_cast<char>(flac[21] | 0x0F);
    flac.replace(22, 4, "\xFF\xFF\xFF\xFF");
    const auto claiming = decoder(flac);
    ASSERT_TRUE(claiming);
    EXPECT_EQ(claiming->frames(), (std::int64_t(1) << 36) - 1);
    EXPECT_EQ(decoded(*claiming).size(), 2u * frameCount);
    EXPECT_NE(claiming->errorText().find("at frame 60001"), std::string::npos);
    std::string wav = kinds()[0].bytes;
    wav.replace(wav.find("data") + 4, 4, "\xF0\xFF\xFF\xFF");
    const auto large = decoder(wav);
    ASSERT_TRUE(large);
    EXPECT_EQ(decoded(*large).size(), 2u * frameCount);
    EXPECT_EQ(large->errorText(), "x.audio: is cut off at frame 60001");
    // What was written into a pipe does not know its length.
    flac[21] = static_cast<char>(flac[21] & 0xF0);
    flac.replace(22, 4, std::string(4, '\0'));
    const auto piped = decoder(flac);
    ASSERT_TRUE(piped);
    EXPECT_EQ(piped->frames(), frameCount);
    EXPECT_EQ(decoded(*piped).size(), 2u * frameCount);
    EXPECT_FALSE(piped->hasError()) << piped->errorText();
}

TEST(AudioDecoder, whatIsNoSoundIsRefusedWithTheReason)
{
    std::string adpcm = kinds()[0].bytes;
    adpcm[20] = 2;
    const std::string ogg = kinds()[5].bytes;
    const std::pair<std::string, const char *> refused[] = {
        {"", "is no WAV, FLAC or Ogg Vorbis file"},
        {"RIF", "is no WAV, FLAC or Ogg Vorbis file"},
        {"ID3\x03 and more", "is no WAV, FLAC or Ogg Vorbis file"},
        {"RIFF1234WAVE", "cannot be decoded: "},
        {"fLaC", "cannot be decoded: the header is damaged"},
        {"fLaC" + std::string(1000, '\0'), "the header is damaged"},
        {kinds()[3].bytes.substr(0, 30), "the header is damaged"},
        {"OggS" + std::string(1000, '\0'), "holds no Vorbis stream"},
        {ogg.substr(0, 100), "holds no Vorbis stream"},
        {adpcm, "cannot be decoded"},
    };
    for (const auto &[bytes, reason] : refused) {
        std::string error;
        EXPECT_EQ(decoder(bytes, &error), nullptr) << reason;
        EXPECT_EQ(error.find("x.audio: "), 0u) << error;
        EXPECT_NE(error.find(reason), std::string::npos) << error;
    }
    const auto empty = decoder(encoded({}, format(File::Wav, Encoding::Pcm16)));
    ASSERT_TRUE(empty);
    EXPECT_TRUE(decoded(*empty).empty());
    EXPECT_FALSE(empty->hasError());
}

TEST(AudioDecoder, noDamageDoesMoreThanAnError)
{
    std::mt19937 random(77);
    int opened = 0;
    for (const Kind &kind : kinds())
        for (int run = 0; run < 60; ++run) {
            std::string bytes = kind.bytes.substr(0, 1 + random() % 30'000);
            for (unsigned damage = random() % 30; damage > 0; --damage)
                bytes[random() % std::min<std::size_t>(bytes.size(), damage % 2 ? 200 : 30'000)] =
                    static_cast<char>(random());
            const auto damaged = kind.open(bytes);
            if (damaged == nullptr)
                continue;
            ++opened;
            std::vector<float> block(static_cast<std::size_t>(4096 * damaged->channels()));
            for (int i = 0; i < 20; ++i) {
                if (i % 4 == 3 && damaged->frames() > 0)
                    damaged->seek(static_cast<std::int64_t>(random()) % damaged->frames());
                damaged->read(block.data(), 4096);
            }
        }
    EXPECT_GT(opened, 60);
}

} // namespace
