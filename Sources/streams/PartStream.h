// SPDX-License-Identifier: MIT
#pragma once

#include <streams/Stream.h>

#include <memory>

namespace streams {

/// Reads a part of another stream as if it were all there is. Several parts may share one stream:
/// each has a position of its own.
class STREAMS_EXPORT PartStream final : public Stream {
public:
    /// `count` bytes from `start` on. Bounds that do not lie inside of the whole are an error of
    /// the part, which is empty then.
    PartStream(std::string name, std::shared_ptr<Stream> whole, std::int64_t start,
               std::int64_t count);
    ~PartStream() override;

    std::string name() const override { return _name; }
    std::int64_t size() const override { return _size; }
    std::int64_t position() const override { return _position; }

protected:
    bool doSeek(std::int64_t position) override;
    std::int64_t doRead(void *data, std::int64_t count) override;

private:
    std::string _name;
    std::shared_ptr<Stream> _whole;
    std::int64_t _start = 0;
    std::int64_t _size = 0;
    std::int64_t _position = 0;
};

} // namespace streams
