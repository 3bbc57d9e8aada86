// SPDX-License-Identifier: MIT
#include <ZarnCore/io/musicxml/signs/Pedals.h>

#include <ZarnCore/io/musicxml/ImportContext.h>
#include <ZarnCore/io/musicxml/signs/StaffTimes.h>
#include <ZarnCore/utils/EnumTable.h>

#include <algorithm>
#include <string_view>

namespace zarn::io {

namespace {

constexpr auto pedalTexts = utils::enumTable<PedalChange>(utils::KeyMatch::Exact,
                                                          {
                                                              {PedalChange::Start, "start"},
                                                              {PedalChange::Change, "change"},
                                                              {PedalChange::Stop, "stop"},
                                                          });
static_assert(pedalTexts.isConsistent());

} // namespace

const char *pedalTypeOf(PedalChange change)
{
    return pedalTexts.textOrFirst(change).data();
}

void Pedals::add(pugi::xml_node pedal, const NotePlace &place)
{
    const std::string_view type = pedal.attribute("type").value();
    if (const auto change = pedalTexts.value(type))
        _pedals.push_back({place, *change, pedal});
    else if (type != "continue")
        _context.addUnheld(pedal, Tag::Pedal);
}

/// A pedal that is lifted where it is pressed again changes. One that is lifted behind the last
/// beat is held to the end, and so needs no sign there.
void Pedals::finishPart(const StaffBars &staves)
{
    std::stable_sort(_pedals.begin(), _pedals.end(), [](const Written &left, const Written &right) {
        return left.place.inTime() < right.place.inTime();
    });
    for (const auto &[place, change, node] : _pedals) {
        const StaffTimes times(staves[static_cast<std::size_t>(place.staff)]);
        auto *const beat = place.ahead ? place.ahead : times.atOrAfter(place.bar, place.onset).beat;
        const auto there = beat ? beat->pedal() : PedalChange::None;
        if (there == PedalChange::None) {
            if (beat)
                beat->setPedal(change);
            else if (change != PedalChange::Stop)
                _context.addUnheld(node, Tag::Pedal);
        } else if (there == PedalChange::Stop && change == PedalChange::Start) {
            beat->setPedal(PedalChange::Change);
        } else {
            _context.addUnheld(node, Tag::Pedal);
            _context.addProblemInBar(place.bar, node,
                                     "a second change of the pedal at one beat was left out");
        }
    }
    _pedals.clear();
}

} // namespace zarn::io
