// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/music/ZarnRhythmValue.h>

#include <array>
#include <cstdint>
#include <iterator>
#include <memory>
#include <string>
#include <utility>
#include <vector>

/// What the score tree is measured against: the same nodes held by shared pointers, which they know
/// as those of the score tree do, with weak parents, stored indexes and the same payload, and
/// nothing else. Each vector is shifted and renumbered once per block.
namespace plain {

struct Beat;
struct Voice;
struct Bar;
struct Staff;
struct Track;

struct Note : std::enable_shared_from_this<Note> {
    std::weak_ptr<Beat> parent;
    std::array<std::int8_t, 4> place{};
    std::uint32_t attributes = 0;
    std::uint64_t marks = 0;
    std::unique_ptr<std::string> details;
};

struct Beat : std::enable_shared_from_this<Beat> {
    std::weak_ptr<Voice> parent;
    unsigned index = 0;
    std::uint64_t marks = 0;
    zarn::RhythmValue rhythm;
    std::vector<std::shared_ptr<Note>> notes;
    std::unique_ptr<std::string> details;
};

struct Voice : std::enable_shared_from_this<Voice> {
    std::weak_ptr<Bar> parent;
    unsigned index = 0;
    std::vector<std::shared_ptr<Beat>> beats;
};

struct Bar : std::enable_shared_from_this<Bar> {
    std::weak_ptr<Staff> parent;
    unsigned index = 0;
    std::array<std::uint8_t, 3> attributes{};
    float width = 1;
    std::array<std::shared_ptr<Voice>, 4> voices;
    std::unique_ptr<std::string> changes;
};

struct Staff : std::enable_shared_from_this<Staff> {
    unsigned index = 0;
    std::vector<std::shared_ptr<Bar>> bars;
};

using Bars = std::vector<std::shared_ptr<Bar>>;

struct Score {
    std::vector<std::shared_ptr<Staff>> staves;
};

inline void add(const std::shared_ptr<Beat> &beat, const std::shared_ptr<Note> &note)
{
    note->parent = beat;
    beat->notes.push_back(note);
}

inline void add(const std::shared_ptr<Voice> &voice, const std::shared_ptr<Beat> &beat)
{
    beat->parent = voice;
    beat->index = static_cast<unsigned>(voice->beats.size());
    voice->beats.push_back(beat);
}

inline void set(const std::shared_ptr<Bar> &bar, unsigned slot, const std::shared_ptr<Voice> &voice)
{
    voice->parent = bar;
    voice->index = slot;
    bar->voices[slot] = voice;
}

inline void insert(const std::shared_ptr<Staff> &staff, unsigned at, Bars block)
{
    for (const auto &bar : block)
        bar->parent = staff;
    staff->bars.insert(staff->bars.begin() + at, std::make_move_iterator(block.begin()),
                       std::make_move_iterator(block.end()));
    for (unsigned i = at; i < staff->bars.size(); ++i)
        staff->bars[i]->index = i;
}

inline Bars take(const std::shared_ptr<Staff> &staff, unsigned first, unsigned count)
{
    const auto begin = staff->bars.begin() + first;
    Bars block(std::make_move_iterator(begin), std::make_move_iterator(begin + count));
    for (const auto &bar : block)
        bar->parent.reset();
    staff->bars.erase(begin, begin + count);
    for (unsigned i = first; i < staff->bars.size(); ++i)
        staff->bars[i]->index = i;
    return block;
}

inline Bars makeBars(unsigned count)
{
    Bars bars(count);
    for (auto &bar : bars)
        bar = std::make_shared<Bar>();
    return bars;
}

inline std::unique_ptr<std::string> clone(const std::unique_ptr<std::string> &details)
{
    return details ? std::make_unique<std::string>(*details) : nullptr;
}

inline std::shared_ptr<Note> clone(const Note &note)
{
    auto copy = std::make_shared<Note>();
    copy->place = note.place;
    copy->attributes = note.attributes;
    copy->marks = note.marks;
    copy->details = clone(note.details);
    return copy;
}

inline std::shared_ptr<Beat> clone(const Beat &beat)
{
    auto copy = std::make_shared<Beat>();
    copy->index = beat.index;
    copy->marks = beat.marks;
    copy->details = clone(beat.details);
    copy->rhythm = beat.rhythm;
    copy->notes.reserve(beat.notes.size());
    for (const auto &note : beat.notes) {
        copy->notes.push_back(clone(*note));
        copy->notes.back()->parent = copy;
    }
    return copy;
}

inline std::shared_ptr<Bar> clone(const Bar &bar)
{
    auto copy = std::make_shared<Bar>();
    copy->index = bar.index;
    copy->attributes = bar.attributes;
    copy->width = bar.width;
    for (unsigned i = 0; i < bar.voices.size(); ++i) {
        if (!bar.voices[i])
            continue;
        const auto voice = copy->voices[i] = std::make_shared<Voice>();
        voice->parent = copy;
        voice->index = i;
        voice->beats.reserve(bar.voices[i]->beats.size());
        for (const auto &beat : bar.voices[i]->beats) {
            voice->beats.push_back(clone(*beat));
            voice->beats.back()->parent = voice;
        }
    }
    return copy;
}

inline Score clone(const Score &score)
{
    Score copy;
    copy.staves.reserve(score.staves.size());
    for (const auto &staff : score.staves) {
        copy.staves.push_back(std::make_shared<Staff>());
        const auto &target = copy.staves.back();
        target->index = staff->index;
        target->bars.reserve(staff->bars.size());
        for (const auto &bar : staff->bars) {
            target->bars.push_back(clone(*bar));
            target->bars.back()->parent = target;
        }
    }
    return copy;
}

} // namespace plain
