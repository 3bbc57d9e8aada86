// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnAudio/ZarnAudioDecoder.h>

#include <memory>

struct OggVorbis_File;

namespace Halvec::audio {

/// Ogg Vorbis by libvorbisfile, whose seeks are exact.
class VorbisDecoder final : public AudioDecoder {
public:
    static std::unique_ptr<AudioDecoder> open(std::unique_ptr<streams::Stream> stream,
                                              std::string *error);

    explicit VorbisDecoder(std::unique_ptr<streams::Stream> stream);
    ~VorbisDecoder() override;

protected:
    bool doSeek(std::int64_t frame) override;
    std::int64_t doRead(float *frames, std::int64_t count) override;

private:
    struct Clear {
        void operator()(OggVorbis_File *file) const;
    };

    bool openFile();

    std::unique_ptr<streams::Stream> _stream;
    std::unique_ptr<OggVorbis_File> _memory;
    std::unique_ptr<OggVorbis_File, Clear> _file; ///< what was opened of the memory
};

} // namespace Halvec::audio
