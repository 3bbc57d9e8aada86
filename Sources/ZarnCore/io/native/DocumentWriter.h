// SPDX-License-Identifier: MIT
#pragma once

#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>

#include <string>
#include <string_view>

namespace zarn::io::native {

/// Writes the JSON of a native document: what RapidJSON's writer does, and line ends at the nodes
/// that a person looks for.
class DocumentWriter : private rapidjson::Writer<rapidjson::StringBuffer> {
public:
    explicit DocumentWriter(rapidjson::StringBuffer &buffer) : Writer(buffer) { }

    using Writer::Bool;
    using Writer::EndArray;
    using Writer::EndObject;
    using Writer::Int64;
    using Writer::Null;
    using Writer::StartArray;
    using Writer::StartObject;
    using Writer::Uint64;

    void key(std::string_view name) { Key(name.data(), static_cast<unsigned>(name.size())); }

    /// Text in UTF-8. Bytes that are no UTF-8 become replacement characters, so that no text can
    /// make a document unreadable.
    void text(std::string_view text);

    /// The shortest decimal that reads back as the same number. Raises `CoreException` for numbers
    /// that are not finite, which JSON cannot hold.
    void real(float number);
    void real(double number);

    /// Starts an object on a line of its own.
    void startLine();

private:
    template <typename Real>
    void writeReal(Real number);
};

} // namespace zarn::io::native
