// SPDX-License-Identifier: MIT
#include "Fuzzing.h"

#include <ZarnAudio/ZarnAudioDecoder.h>
#include <ZarnAudio/ZarnRecording.h>
#include <streams/MemoryStream.h>

#include <cmath>
#include <cstring>
#include <vector>

namespace {

using Halvec::audio::AudioDecoder;

/// A few bytes of FLAC may stand for minutes of silence.
constexpr std::int64_t mostFrames = 300'000;

std::unique_ptr<AudioDecoder> open(std::string_view input)
{
    std::string error;
    const bool isRaw = !input.empty() && static_cast<unsigned char>(input[0]) < 14;
    std::unique_ptr<AudioDecoder> decoder;
    if (isRaw) {
        zarn::RawSampleFormat format;
        format.encoding = static_cast<zarn::RawSampleFormat::Encoding>(input[0]);
        format.channels = input.size() > 1 ? 1 + static_cast<unsigned char>(input[1]) % 64 : 1;
        decoder = AudioDecoder::openRaw(streams::MemoryStream::over("x.raw", input.substr(1)),
                                        format, &error);
    } else {
        decoder = AudioDecoder::open(streams::MemoryStream::over("x.audio", input), &error);
    }
    fuzz::expect((decoder == nullptr) == !error.empty(), "a refusal says why");
    return decoder;
}

std::vector<float> readAll(AudioDecoder &decoder, std::int64_t piece)
{
    const auto width = static_cast<std::size_t>(decoder.channels());
    std::vector<float> all;
    std::vector<float> block(static_cast<std::size_t>(piece) * width);
    while (decoder.position() < mostFrames) {
        const auto before = decoder.position();
        const auto count = decoder.read(block.data(), piece);
        fuzz::expect(count >= 0 && count <= piece && decoder.position() == before + count
                         && decoder.position() <= decoder.frames(),
                     "a decoder keeps to its bounds");
        all.insert(all.end(), block.begin(),
                   block.begin() + static_cast<std::ptrdiff_t>(count * decoder.channels()));
        if (count < piece)
            break;
    }
    fuzz::expect(decoder.hasError() || decoder.position() >= mostFrames
                     || decoder.position() == decoder.frames(),
                 "whatever is missing is an error");
    all.resize(std::min(all.size(), static_cast<std::size_t>(mostFrames) * width));
    return all;
}

} // namespace

/// The input is an audio file, or samples without a header behind a byte for their encoding.
void fuzz::check(std::string_view input)
{
    const auto first = open(input);
    if (first == nullptr)
        return;
    expect(first->channels() >= 1 && first->channels() <= 64 && first->rate() >= 1
               && first->frames() >= 0,
           "a decoder has frames of some channels");
    const auto second = open(input);
    expect(second != nullptr, "what was opened opens again");
    const auto frames = readAll(*first, 4096);
    const auto again = readAll(*second, 777);
    expect(frames.size() == again.size()
               && (frames.empty()
                   || std::memcmp(frames.data(), again.data(), frames.size() * sizeof(float)) == 0),
           "the frames do not depend on how many are read at a time");
    expectEqual(first->errorText(), second->errorText(), "nor does the error");
    const auto third = open(input);
    std::vector<float> block(static_cast<std::size_t>(64 * third->channels()));
    for (const std::int64_t part : {3, 1, 4, 2, 0})
        if (third->seek(third->frames() / 4 * part))
            third->read(block.data(), 64);
    if (third->frames() > mostFrames)
        return;
    const auto fourth = open(input);
    std::string error;
    constexpr int rate = 44100;
    const auto recording = Halvec::audio::Recording::load(*fourth, rate, &error);
    expect(recording != nullptr || !error.empty(), "a recording that is refused says why");
    if (recording != nullptr)
        expect(std::abs(static_cast<double>(recording->frames())
                        - static_cast<double>(fourth->position()) * rate / fourth->rate())
                   <= 2.0 + static_cast<double>(rate) / fourth->rate(),
               "a recording lasts as long as the sound");
}
