// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnAudio/SndfileIo.h>
#include <ZarnAudio/ZarnAudioDecoder.h>

#include <memory>
#include <vector>

namespace Halvec::audio {

/// WAV files and samples without a header, by libsndfile.
class SndfileDecoder final : public AudioDecoder {
public:
    static std::unique_ptr<AudioDecoder> openWav(std::unique_ptr<streams::Stream> stream,
                                                 std::string *error);
    static std::unique_ptr<AudioDecoder> openRaw(std::unique_ptr<streams::Stream> stream,
                                                 const zarn::RawSampleFormat &format,
                                                 std::string *error);

    explicit SndfileDecoder(std::unique_ptr<streams::Stream> stream);
    ~SndfileDecoder() override;

protected:
    bool doSeek(std::int64_t frame) override;
    std::int64_t doRead(float *frames, std::int64_t count) override;

private:
    bool openFile(SF_INFO info);
    std::int64_t readShorts(float *frames, std::int64_t count);

    std::unique_ptr<streams::Stream> _stream;
    Sndfile _file;
    bool _isShort = false;
    std::vector<short> _shorts;
};

} // namespace Halvec::audio
