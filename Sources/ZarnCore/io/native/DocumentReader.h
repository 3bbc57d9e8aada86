// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/io/ZarnImportReport.h>

#include <rapidjson/document.h>

#include <cstdint>
#include <map>
#include <string>
#include <string_view>

namespace zarn::io::native {

/// Where the reading of a document stands, for messages: its name and the path of the value at
/// hand.
class DocumentReader {
public:
    /// Steps into a member or an element, and out again at the end of the scope.
    class Step {
    public:
        Step(DocumentReader &reader, std::string_view key) noexcept
            : _reader(reader), _above(reader._step), _key(key)
        {
            reader._step = this;
        }
        Step(DocumentReader &reader, std::uint32_t index) noexcept
            : _reader(reader), _above(reader._step), _index(index)
        {
            reader._step = this;
        }
        Step(const Step &) = delete;
        Step &operator=(const Step &) = delete;
        ~Step() { _reader._step = _above; }

    private:
        friend class DocumentReader;
        DocumentReader &_reader;
        const Step *_above;
        std::string_view _key;
        std::uint32_t _index = 0;
    };

    DocumentReader(std::string document, ImportReport &report)
        : _document(std::move(document)), _report(report)
    {
    }
    DocumentReader(const DocumentReader &) = delete;
    DocumentReader &operator=(const DocumentReader &) = delete;

    /// JSON pointer to the value at hand, such as "/tracks/0/staves/1"; "/" is the whole document.
    std::string pointer() const;

    /// Raises `ImportException` with the place of the value at hand.
    [[noreturn]] void refuse(const std::string &reason) const;

    /// The same for a place that is named.
    [[noreturn]] void refuseAt(const std::string &pointer, const std::string &reason) const;

    /// Refuses a value of the wrong kind: "expected a whole number, found text".
    [[noreturn]] void refuseKind(const std::string &expected, const rapidjson::Value &found) const;

    void expectObject(const rapidjson::Value &json) const
    {
        if (!json.IsObject())
            refuseKind("an object", json);
    }
    void expectArray(const rapidjson::Value &json) const
    {
        if (!json.IsArray())
            refuseKind("an array", json);
    }

    /// In documents of a newer minor version a member with an unknown name is left out and
    /// reported, the first of each name with its place; in all others it is refused.
    void meetUnknownKey(std::string_view key);

    /// Says that the document's minor version is newer than the one written here.
    void setNewer() noexcept { _isNewer = true; }

    ImportReport &report() noexcept { return _report; }

private:
    friend class Step;
    std::string _document;
    ImportReport &_report;
    const Step *_step = nullptr;
    bool _isNewer = false;
};

/// "text", "an array", ...: the kind of a value, for messages.
std::string kindOf(const rapidjson::Value &json);

/// The text of a string value; it lives as long as the value.
inline std::string_view textOf(const rapidjson::Value &json)
{
    return {json.GetString(), json.GetStringLength()};
}

/// A text in quotes, shortened when it is long.
std::string quoted(std::string_view text);

} // namespace zarn::io::native
