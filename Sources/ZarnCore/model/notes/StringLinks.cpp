// SPDX-License-Identifier: MIT
#include <ZarnCore/model/notes/StringLinks.h>

#include <ZarnCore/model/ZarnStaff.h>

#include <algorithm>
#include <optional>

namespace zarn {

namespace {

constexpr unsigned mostStrings = 64;

bool isOtherPitch(const Note &left, const Note &right) noexcept
{
    const bool haveFrets =
        left.string() != Note::Unset && left.fret() != Note::Unset && right.fret() != Note::Unset;
    return haveFrets ? left.fret() != right.fret() : left.midi() != right.midi();
}

/// What a beat says about a link that comes from a note in front of it; nothing when it may lead
/// on to the next beat.
std::optional<bool> answerOf(const Beat &beat, const Note &from, StringLink link)
{
    if (!beat.hasNotes())
        return false;
    const auto isAim = [&](const Note &note) {
        return link == StringLink::Slide || isOtherPitch(from, note);
    };
    const auto &notes = beat.notes();
    if (from.string() == Note::Unset)
        return std::any_of(notes.begin(), notes.end(),
                           [&](const auto &note) { return isAim(*note); });
    for (const auto &note : notes)
        if (note->string() == from.string())
            return isAim(*note);
    return std::nullopt;
}

/// Collects the notes of beats, from the last one back, that none of their string follows.
class LeadingNotes {
public:
    using Choice = bool (*)(const Note &) noexcept;

    explicit LeadingNotes(Choice isWanted) : _isWanted(isWanted) { }

    std::vector<LeadingNote> collect(const Voice &voice, unsigned end)
    {
        const Voice *const before = walk(voice, end) ? voiceBeside(voice, -1) : nullptr;
        if (before)
            walk(*before, before->beatCount());
        return std::move(_found);
    }

private:
    /// False where a rest cuts the beats behind it off.
    bool walk(const Voice &voice, unsigned end)
    {
        while (end-- > 0) {
            const Beat &beat = *voice.beats()[end];
            if (!beat.hasNotes())
                return false;
            for (const auto &note : beat.notes())
                add({&voice, end, note.get()});
            _isNearest = false;
        }
        return true;
    }

    void add(const LeadingNote &leading)
    {
        const int string = leading.note->string();
        if (string == Note::Unset || string >= static_cast<int>(mostStrings)) {
            if (_isNearest && _isWanted(*leading.note))
                _found.push_back(leading);
            return;
        }
        const auto bit = std::uint64_t(1) << string;
        if ((_strings & bit) == 0 && _isWanted(*leading.note))
            _found.push_back(leading);
        _strings |= bit;
    }

    Choice _isWanted;
    std::vector<LeadingNote> _found;
    std::uint64_t _strings = 0;
    bool _isNearest = true;
};

} // namespace

const Voice *voiceBeside(const Voice &voice, int step)
{
    const auto bar = voice.parentBar();
    const auto staff = bar ? bar->parentStaff() : nullptr;
    if (!staff || (step < 0 && bar->index() == 0))
        return nullptr;
    const unsigned index = step < 0 ? bar->index() - 1 : bar->index() + 1;
    if (index >= staff->barCount())
        return nullptr;
    const Voice *const beside = staff->bars()[index]->voices()[voice.index()].get();
    return beside && !beside->isEmpty() ? beside : nullptr;
}

bool hasLink(const Note &note, StringLink link) noexcept
{
    if (link == StringLink::Hopo)
        return note.isHopo();
    return note.slideOut() == SlideOut::Shift || note.slideOut() == SlideOut::Legato;
}

bool isLinkedToNext(const Note &note) noexcept
{
    return hasLink(note, StringLink::Hopo) || hasLink(note, StringLink::Slide);
}

void takeOff(Note &note, StringLink link)
{
    if (link == StringLink::Hopo)
        note.setHopo(false);
    else
        note.setSlideOut(SlideOut::None);
}

bool canLeadToNext(const Voice &voice, unsigned beat, const Note &note, StringLink link)
{
    const auto answer = [&](const Voice &in, unsigned from) -> std::optional<bool> {
        for (unsigned i = from; i < in.beatCount(); ++i)
            if (const auto said = answerOf(*in.beats()[i], note, link))
                return said;
        return std::nullopt;
    };
    if (const auto said = answer(voice, beat + 1))
        return *said;
    const Voice *const next = voiceBeside(voice, 1);
    return next && answer(*next, 0).value_or(false);
}

void mendStringLinks(const Voice &voice, unsigned beat, Note &note)
{
    for (const StringLink link : {StringLink::Hopo, StringLink::Slide})
        if (hasLink(note, link) && !canLeadToNext(voice, beat, note, link))
            takeOff(note, link);
}

std::vector<LeadingNote> leadingNotes(const Voice &voice, unsigned index)
{
    return LeadingNotes([](const Note &) noexcept { return true; })
        .collect(voice, std::min(index, voice.beatCount()));
}

std::vector<LeadingNote> leadingLinks(const Voice &voice, unsigned index)
{
    return LeadingNotes(isLinkedToNext).collect(voice, std::min(index, voice.beatCount()));
}

void mendStringLinks(const Voice &voice, unsigned first, unsigned end)
{
    for (const LeadingNote &leading : leadingLinks(voice, first))
        mendStringLinks(*leading.voice, leading.beat, *leading.note);
    for (unsigned i = first; i < std::min(end, voice.beatCount()); ++i)
        for (const auto &note : voice.beats()[i]->notes())
            mendStringLinks(voice, i, *note);
}

} // namespace zarn
