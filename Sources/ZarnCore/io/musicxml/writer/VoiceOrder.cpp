// SPDX-License-Identifier: MIT
#include <ZarnCore/io/musicxml/writer/VoiceOrder.h>

#include <ZarnCore/io/musicxml/writer/PartPlan.h>

#include <algorithm>
#include <numeric>
#include <tuple>

namespace zarn::io {

using utils::rational;

namespace {

/// One end of a slur with a number, in one of several lines of music.
struct SlurPlace {
    unsigned number;
    rational onset;
    bool isBegin;
    std::size_t line;
};

void addSlurs(const Voice &voice, std::size_t line, std::vector<SlurPlace> &places)
{
    rational onset;
    for (const auto &beat : voice.beats()) {
        for (const auto &end : beat->slurEnds())
            places.push_back({end.number, onset, end.isBegin, line});
        onset += beat->length();
    }
}

/// Puts the line that a slur begins in in front of the one that it ends in.
template <class Order>
void settle(std::vector<SlurPlace> &places, Order &order)
{
    // At one time ends stand in front of begins.
    std::stable_sort(places.begin(), places.end(), [](const auto &left, const auto &right) {
        return std::tie(left.number, left.onset, left.isBegin)
            < std::tie(right.number, right.onset, right.isBegin);
    });
    for (std::size_t i = 1; i < places.size(); ++i) {
        const auto &begin = places[i - 1];
        const auto &end = places[i];
        if (begin.number != end.number || !begin.isBegin || end.isBegin || begin.line == end.line)
            continue;
        const auto first = std::find(order.begin(), order.end(), begin.line);
        const auto second = std::find(order.begin(), order.end(), end.line);
        if (second < first)
            std::rotate(second, first, first + 1);
    }
}

} // namespace

SlotOrder slotOrder(const Bar &bar)
{
    std::vector<SlurPlace> places;
    for (std::size_t slot = 0; slot < bar.voices().size(); ++slot)
        if (const auto &voice = bar.voices()[slot])
            addSlurs(*voice, slot, places);
    auto order = usualSlots;
    settle(places, order);
    return order;
}

std::vector<std::size_t> staffOrder(const std::vector<PartStaff> &staves, unsigned bar)
{
    std::vector<SlurPlace> places;
    for (std::size_t staff = 0; staff < staves.size(); ++staff)
        if (!staves[staff].isAlternate)
            for (const auto &voice : staves[staff].staff->bars()[bar]->voices())
                if (voice)
                    addSlurs(*voice, staff, places);
    std::vector<std::size_t> order(staves.size());
    std::iota(order.begin(), order.end(), std::size_t(0));
    settle(places, order);
    return order;
}

} // namespace zarn::io
