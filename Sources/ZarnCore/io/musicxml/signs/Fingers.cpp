// SPDX-License-Identifier: MIT
#include <ZarnCore/io/musicxml/signs/Fingers.h>

#include <ZarnCore/io/musicxml/ImportContext.h>

#include <algorithm>
#include <iterator>
#include <string>

namespace zarn::io {

namespace {

constexpr int fingers = 5;

/// By the number that is written, on strings and on keys.
constexpr Fingering onStrings[] = {Fingering::Open, Fingering::Index, Fingering::Middle,
                                   Fingering::Annular, Fingering::Little};
constexpr Fingering onKeys[] = {Fingering::None,   Fingering::Thumb,   Fingering::Index,
                                Fingering::Middle, Fingering::Annular, Fingering::Little};

constexpr const char *thumb = "T";

/// Fingers may stand over the notes while the frets stand in the tablature below.
bool hasFrets(const StaffBars &staves)
{
    for (const auto &bars : staves)
        for (const auto &bar : bars)
            for (const auto &voice : bar->voices()) {
                if (!voice)
                    continue;
                for (const auto &beat : voice->beats())
                    for (const auto &note : beat->notes())
                        if (note->fret() != Note::Unset)
                            return true;
            }
    return false;
}

} // namespace

const char *fingeringText(Fingering finger, bool areKeys)
{
    static constexpr const char *numbers[] = {"0", "1", "2", "3", "4", "5"};
    const auto find = [finger](const auto &hand) -> const char * {
        const auto *const found = std::find(std::begin(hand), std::end(hand), finger);
        return found == std::end(hand) ? nullptr : numbers[found - std::begin(hand)];
    };
    if (finger == Fingering::None || (areKeys && finger == Fingering::Open))
        return nullptr;
    if (const auto *const number = areKeys ? find(onKeys) : find(onStrings))
        return number;
    return finger == Fingering::Thumb ? thumb : find(onKeys);
}

void Fingers::add(pugi::xml_node fingering, const NotePlace &place)
{
    const std::string text = fingering.child_value();
    const auto finger = parseInteger(text.c_str());
    if (!place.note || (text != thumb && !(finger && *finger >= 0 && *finger <= fingers))) {
        _context.addUnheld(fingering, Tag::Fingering);
        return;
    }
    if (!_numbered.empty() && _numbered.back().note == place.note) {
        _context.addUnheld(fingering, Tag::Fingering);
        _context.addProblemInBar(place.bar, fingering, "a second fingering of a note was left out");
        return;
    }
    if (text == thumb)
        place.note->setLeftFingering(Fingering::Thumb);
    else
        _numbered.push_back({place.note, *finger});
}

void Fingers::finishPart(const StaffBars &staves)
{
    if (_numbered.empty())
        return;
    const bool hasFifth =
        std::any_of(_numbered.begin(), _numbered.end(),
                    [](const Numbered &numbered) { return numbered.finger == fingers; });
    const bool areKeys = areFingersOfKeys(hasFrets(staves), hasFifth, staves.size());
    for (const auto &[note, finger] : _numbered) {
        const auto at = static_cast<std::size_t>(finger);
        note->setLeftFingering(areKeys || at >= std::size(onStrings) ? onKeys[at] : onStrings[at]);
    }
    _numbered.clear();
}

} // namespace zarn::io
