// SPDX-License-Identifier: MIT
#pragma once

#include <pugixml.hpp>

#include <string>
#include <string_view>
#include <utility>

namespace filesystem {
class FileHandle;
}

namespace zarn::io {

/// Where the pieces of a document go, one after the other. Errors are kept by what stands behind.
class XmlSink : public pugi::xml_writer {
public:
    void write(std::string_view text) { write(text.data(), text.size()); }
    using pugi::xml_writer::write;
};

/// A file; it is handed blocks, since pugixml writes in small pieces.
class FileSink final : public XmlSink {
public:
    explicit FileSink(filesystem::FileHandle &handle) : _handle(handle) { }

    void write(const void *data, std::size_t size) override;
    using XmlSink::write;

    /// Hands over what is left.
    void flush();

private:
    filesystem::FileHandle &_handle;
    std::string _block;
};

/// A text in memory.
class TextSink final : public XmlSink {
public:
    void write(const void *data, std::size_t size) override
    {
        _text.append(static_cast<const char *>(data), size);
    }
    using XmlSink::write;

    std::string take() { return std::move(_text); }

private:
    std::string _text;
};

} // namespace zarn::io
