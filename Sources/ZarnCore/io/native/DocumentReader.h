// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/io/ZarnImportReport.h>
#include <ZarnCore/io/native/Json.h>

#include <algorithm>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace zarn {
class Bar;
}

namespace zarn::io::native {

/// The bars of a staff that were made while the document was parsed.
struct BarBlock {
    std::vector<std::shared_ptr<Bar>> bars;
    int highestString = -1;
};

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
    [[noreturn]] void refuseKind(const std::string &expected, const Json &found) const;

    void expectObject(const Json &json) const
    {
        if (!json.isObject())
            refuseKind("an object", json);
    }
    void expectArray(const Json &json) const
    {
        if (!json.isArray())
            refuseKind("an array", json);
    }

    /// In documents of a newer minor version a member with an unknown name is left out and
    /// reported, the first of each name with its place; in all others it is refused.
    void meetUnknownKey(std::string_view key);

    /// Places are counted from a base, which stays for the life of this object.
    class Base {
    public:
        Base(DocumentReader &reader, const JsonStream::Pointer &pointer) noexcept : _reader(reader)
        {
            reader._base = &pointer;
        }
        Base(const Base &) = delete;
        Base &operator=(const Base &) = delete;
        ~Base() { _reader._base = nullptr; }

    private:
        DocumentReader &_reader;
    };

    /// By the numbers of their streamed arrays.
    std::vector<BarBlock> &barBlocks() noexcept { return _barBlocks; }

    /// Says that the document's minor version is newer than the one written here.
    void setNewer() noexcept { _isNewer = true; }

    ImportReport &report() noexcept { return _report; }

    /// Reports something odd about the value at hand, which is read nevertheless.
    void reportOddity(const std::string &text)
    {
        _report.addProblem({pointer() + ": " + text, -1, -1, 0});
    }

    /// The highest string of the notes that were met since it was last taken; -1 without any.
    void meetString(int string) noexcept { _highestString = std::max(_highestString, string); }
    int takeHighestString() noexcept { return std::exchange(_highestString, -1); }

private:
    friend class Step;
    std::string _document;
    ImportReport &_report;
    const Step *_step = nullptr;
    const JsonStream::Pointer *_base = nullptr;
    std::vector<BarBlock> _barBlocks;
    bool _isNewer = false;
    int _highestString = -1;
};

} // namespace zarn::io::native
