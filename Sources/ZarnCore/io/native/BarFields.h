// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/io/native/Fields.h>

namespace zarn {
class Bar;
class Staff;
} // namespace zarn

namespace zarn::io::native {

/// The bars of a staff, from the array that the other function writes.
void writeBars(DocumentWriter &writer, std::string_view key, const Staff &staff);
void readBars(DocumentReader &reader, const Json &json, Staff &staff);

/// Makes the bars of all staves while the document is parsed: nearly all of it is bars, and so
/// what is held of it stays small.
class BarStream final : public JsonStream {
public:
    explicit BarStream(DocumentReader &reader) : _reader(reader) { }

    /// Documents that do not begin with their version are not streamed.
    bool takesArray(std::string_view key, std::size_t depth, const Pointer &pointer,
                    const Json &root) override;
    void takeElement(const Json &element, const Pointer &pointer) override;
    std::size_t endArray() override;

private:
    DocumentReader &_reader;
    BarBlock _block;
};

} // namespace zarn::io::native
