// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnAudio/ZarnAudioDecoder.h>
#include <ZarnAudio/ZarnAudioWriter.h>
#include <filesystem/RAMFileSystem.h>
#include <streams/FileStream.h>
#include <streams/MemoryStream.h>

#include <gtest/gtest.h>

#include <cmath>
#include <random>
#include <string>
#include <vector>

/// Generated sounds and the files that they become.
namespace sounds {

using namespace Halvec::audio;

/// Sines of a pitch for each channel with some noise, so that no block is like another.
inline std::vector<float> tones(std::int64_t frames, int channels, float amplitude = 0.5F)
{
    std::mt19937 random(static_cast<unsigned>(frames));
    std::uniform_real_distribution<float> noise(-0.05F, 0.05F);
    std::vector<float> values;
    for (std::int64_t i = 0; i < frames; ++i)
        for (int c = 0; c < channels; ++c)
            values.push_back(
                amplitude * std::sin(static_cast<float>(i) * 0.03F * static_cast<float>(c + 1))
                + noise(random));
    return values;
}

inline std::string contentOf(filesystem::FileSystem &files, const std::string &path)
{
    std::string bytes;
    streams::FileStream(files.open(path, filesystem::OpenMode::Read)).readRest(bytes, 1 << 28);
    return bytes;
}

inline void put(filesystem::FileSystem &files, const std::string &path, const std::string &bytes)
{
    const auto handle = files.open(path, filesystem::OpenMode::Write);
    ASSERT_NE(handle, nullptr) << path;
    handle->writeBlock(bytes.data(), static_cast<std::int64_t>(bytes.size()));
    ASSERT_TRUE(handle->close());
}

/// The file that frames become.
inline std::string encoded(const std::vector<float> &frames, const AudioFormat &format)
{
    filesystem::RAMFileSystem files;
    AudioWriter writer(files.open("x", filesystem::OpenMode::Write), format);
    const auto count = static_cast<std::int64_t>(frames.size()) / format.channels;
    EXPECT_TRUE(writer.write(frames.data(), count)) << writer.errorText();
    EXPECT_TRUE(writer.finish()) << writer.errorText();
    return contentOf(files, "x");
}

inline AudioFormat format(AudioFormat::File file, AudioFormat::Encoding encoding, int channels = 2)
{
    AudioFormat format;
    format.file = file;
    format.encoding = encoding;
    format.channels = channels;
    return format;
}

inline std::unique_ptr<AudioDecoder> decoder(const std::string &bytes, std::string *error = nullptr)
{
    return AudioDecoder::open(std::make_unique<streams::MemoryStream>("x.audio", bytes), error);
}

/// All frames that a decoder gives, in blocks of odd lengths.
inline std::vector<float> decoded(AudioDecoder &decoder)
{
    std::vector<float> frames;
    std::vector<float> block;
    for (std::int64_t wanted = 1;; wanted = wanted * 3 % 5003 + 1) {
        block.resize(static_cast<std::size_t>(wanted * decoder.channels()));
        const auto count = decoder.read(block.data(), wanted);
        frames.insert(frames.end(), block.begin(), block.begin() + count * decoder.channels());
        if (count < wanted)
            return frames;
    }
}

/// How much of a frequency there is between two seconds of stereo frames, on the left, by Goertzel.
inline double power(const std::vector<float> &frames, double from, double to, double frequency)
{
    const double step = 2 * M_PI * frequency / 44100;
    double before = 0;
    double last = 0;
    const auto first = static_cast<std::size_t>(from * 44100);
    const auto end = std::min(static_cast<std::size_t>(to * 44100), frames.size() / 2);
    for (auto i = first; i < end; ++i) {
        const double next = 2 * std::cos(step) * last - before + frames[2 * i];
        before = last;
        last = next;
    }
    return (last * last + before * before - 2 * std::cos(step) * last * before)
        / std::pow(double(end - first) / 2, 2);
}

} // namespace sounds
