// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnAudio/ZarnAudioDecoder.h>

#include <FLAC/stream_decoder.h>

#include <memory>
#include <vector>

namespace Halvec::audio {

/// FLAC by libFLAC, which tells the frame of every block: blocks that are missing or broken are
/// found where they are.
class FlacDecoder final : public AudioDecoder {
public:
    static std::unique_ptr<AudioDecoder> open(std::unique_ptr<streams::Stream> stream,
                                              std::string *error);

    explicit FlacDecoder(std::unique_ptr<streams::Stream> stream);
    ~FlacDecoder() override;

    /// Takes the samples of a block.
    bool takeBlock(const FLAC__Frame &frame, const FLAC__int32 *const channels[]);
    void takeInfo(const FLAC__StreamMetadata_StreamInfo &info);
    void setDamaged() noexcept { _isDamaged = true; }
    streams::Stream &stream() noexcept { return *_stream; }

protected:
    bool doSeek(std::int64_t frame) override;
    std::int64_t doRead(float *frames, std::int64_t count) override;

private:
    struct Delete {
        void operator()(FLAC__StreamDecoder *decoder) const
        {
            FLAC__stream_decoder_delete(decoder);
        }
    };

    bool openFile();
    std::int64_t countFrames();
    std::int64_t takeKept(float *frames, std::int64_t count);

    std::unique_ptr<streams::Stream> _stream;
    std::unique_ptr<FLAC__StreamDecoder, Delete> _decoder;
    bool _hasInfo = false;
    bool _isDamaged = false;
    std::uint64_t _next = 0;    ///< the frame with which the next block is to begin
    float *_target = nullptr;   ///< where the block goes that is decoded now
    std::int64_t _room = 0;     ///< frames that fit there
    std::int64_t _taken = 0;    ///< frames that went there
    std::vector<float> _kept;   ///< what did not fit, interleaved
    std::size_t _keptStart = 0; ///< index of the first sample that is left
};

} // namespace Halvec::audio
