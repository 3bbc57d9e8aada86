// SPDX-License-Identifier: MIT
#include <ZarnCore/io/sheet/NoteNameWriter.h>

#include <ZarnCore/io/sheet/Glyphs.h>
#include <ZarnCore/io/sheet/Legend.h>
#include <ZarnCore/io/sheet/Texts.h>
#include <ZarnCore/model/ZarnStaff.h>

#include <algorithm>

namespace zarn::sheet {

namespace {

/// The most notes that a beat of each voice has.
std::array<std::size_t, Bar::MaxVoices> chordSizes(const Staff &staff)
{
    std::array<std::size_t, Bar::MaxVoices> sizes = {};
    for (const auto &bar : staff.bars())
        for (unsigned i = 0; i < Bar::MaxVoices; ++i)
            if (const auto &voice = bar->voices()[i])
                for (const auto &beat : voice->beats())
                    sizes[i] = std::max(sizes[i], beat->notes().size());
    return sizes;
}

} // namespace

NoteNameWriter::NoteNameWriter(Sheet &sheet, const Staff &staff, const QString &name,
                               const Glyphs &glyphs, Legend &legend)
    : StaffWriter(sheet, name, glyphs, legend)
{
    const auto sizes = chordSizes(staff);
    for (unsigned voice = 0; voice < Bar::MaxVoices; ++voice) {
        addRhythmLanes(voice, RhythmSide::Above);
        for (std::size_t i = 0; i < std::max<std::size_t>(sizes[voice], 1); ++i) {
            const int added = addLane(Lane::Kind::Row);
            if (i == 0)
                _topLanes[voice] = added;
            lane(added).isOptional = voice != 0 || i != 0;
            lane(added).hasRepeatDots = voice == 0 && i == 0;
        }
    }
    addLanesBelow();
}

void NoteNameWriter::beginBar(const Bar &bar)
{
    _pitch = SoundingPitch(bar);
}

void NoteNameWriter::writeNotes(const BeatPlace &place, SheetBar &into)
{
    std::vector<const Note *> notes;
    for (const auto &note : place.beat.notes())
        notes.push_back(note.get());
    std::stable_sort(notes.begin(), notes.end(),
                     [](const Note *a, const Note *b) { return a->midi() > b->midi(); });
    const Signs signs = glyphs().isUtf8 ? Signs::Symbols : Signs::Letters;
    int row = _topLanes.at(place.voice);
    for (const Note *const note : notes) {
        QString text = QStringLiteral("?");
        if (note->isDead()) {
            legend().use(Legend::Sign::Dead);
            text = QStringLiteral("x");
        } else if (note->midi() >= 0) {
            text = _pitch.text(*note, signs);
        } else {
            legend().use(Legend::Sign::NoPitch);
        }
        text = signedText(text, *note, place);
        into.put(place.column, row++, text, place.voice == 0 ? Ink::Note : Ink::SecondNote);
    }
}

void NoteNameWriter::writeDeadSlap(const BeatPlace &place, SheetBar &into)
{
    legend().use(Legend::Sign::Dead);
    into.put(place.column, _topLanes.at(place.voice), QStringLiteral("x"), Ink::Note);
}

} // namespace zarn::sheet
