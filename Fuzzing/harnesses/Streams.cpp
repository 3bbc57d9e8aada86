// SPDX-License-Identifier: MIT
#include "Fuzzing.h"

#include <ZarnCore/model/places/ZarnScoreModelRange.h>
#include <ZarnCore/music/ZarnRhythmValue.h>
#include <ZarnCore/music/ZarnTimeSignature.h>
#include <ZarnCore/music/ZarnTone.h>

#include <music/BytesInMemory.h>

#include <algorithm>
#include <type_traits>

namespace {

using namespace zarn;
using fuzz::expect;

constexpr int version = 1;

/// Reads values until the bytes end or are refused. Each is written and read back; one that is not
/// read stays as it was.
template <class Value>
void readAll(std::string_view bytes)
{
    BytesInMemory file;
    file.bytes.assign(bytes.begin(), bytes.end());
    for (;;) {
        Value value;
        const std::int64_t start = file.position();
        bool isRead = false;
        const bool isRefused =
            !fuzz::isAccepted([&] { isRead = value.readFromStream(file, version); });
        // A time signature is published to store the zero that it refuses.
        constexpr bool storesRefused = std::is_same_v<Value, TimeSignature>;
        if (isRefused || !isRead) {
            expect((isRefused && storesRefused) || value == Value(),
                   "a value that is not read stays as it was");
            return;
        }
        BytesInMemory written;
        expect(value.writeToStream(written, version), "what was read can be written");
        expect(std::equal(written.bytes.begin(), written.bytes.end(), file.bytes.begin() + start,
                          file.bytes.begin() + file.position()),
               "what was read is written as it stood");
        expect(written.seek(0), "a file can be read from its start");
        Value again;
        expect(again.readFromStream(written, version), "what was written is read");
        expect(again == value, "what was written is read as the same value");
    }
}

} // namespace

/// The first byte chooses the kind of value, the others are a file of such values.
void fuzz::check(std::string_view input)
{
    static constexpr void (*readers[])(std::string_view) = {
        readAll<ScoreModelIndex>, readAll<ScoreModelRange>, readAll<RhythmValue>,
        readAll<TimeSignature>, readAll<Tone>};
    if (!input.empty())
        readers[static_cast<unsigned char>(input[0]) % std::size(readers)](input.substr(1));
}
