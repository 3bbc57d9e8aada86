// SPDX-License-Identifier: MIT
#pragma once

#include <streams/Stream.h>

#include <memory>
#include <string>
#include <string_view>

namespace streams {

/// Reads bytes in memory.
class STREAMS_EXPORT MemoryStream final : public Stream {
public:
    /// Keeps the bytes.
    MemoryStream(std::string name, std::string bytes);
    /// Shares the bytes, which nobody changes.
    MemoryStream(std::string name, std::shared_ptr<const std::string> bytes);
    /// Leaves the bytes to the caller, who keeps them longer than the stream.
    static std::unique_ptr<MemoryStream> over(std::string name, std::string_view bytes);
    ~MemoryStream() override;

    std::string name() const override { return _name; }
    std::int64_t size() const override { return static_cast<std::int64_t>(_bytes.size()); }
    std::int64_t position() const override { return static_cast<std::int64_t>(_position); }

protected:
    bool doSeek(std::int64_t position) override;
    std::int64_t doRead(void *data, std::int64_t count) override;

private:
    std::string _name;
    std::shared_ptr<const std::string> _kept;
    std::string_view _bytes;
    std::size_t _position = 0;
};

} // namespace streams
