// SPDX-License-Identifier: MIT
#include <ZarnCore/io/sheet/DrumWriter.h>

#include <ZarnCore/io/sheet/DrumNames.h>
#include <ZarnCore/io/sheet/Glyphs.h>
#include <ZarnCore/io/sheet/Legend.h>
#include <ZarnCore/model/ZarnTrack.h>

#include <algorithm>
#include <set>
#include <vector>

namespace zarn::sheet {

namespace {

std::vector<DrumSound> soundsOf(const Staff &staff)
{
    std::map<QString, DrumSound> found;
    for (const auto &bar : staff.bars())
        for (const auto &voice : bar->voices()) {
            if (!voice)
                continue;
            for (const auto &beat : voice->beats())
                for (const auto &note : beat->notes()) {
                    const DrumSound sound = drumSoundOf(*note);
                    found.emplace(sound.row, sound);
                }
        }
    std::vector<DrumSound> sounds;
    for (const auto &[row, sound] : found)
        sounds.push_back(sound);
    std::stable_sort(sounds.begin(), sounds.end(),
                     [](const DrumSound &a, const DrumSound &b) { return a.height > b.height; });
    return sounds;
}

} // namespace

DrumWriter::DrumWriter(Sheet &sheet, const Staff &staff, const QString &name, const Glyphs &glyphs,
                       Legend &legend)
    : StaffWriter(sheet, name, glyphs, legend)
{
    addRhythmLanes(0, RhythmSide::Above);
    const std::vector<DrumSound> sounds = soundsOf(staff);
    for (std::size_t i = 0; i < sounds.size(); ++i) {
        const int added = addLane(Lane::Kind::String, sounds[i].row);
        lane(added).isOptional = i + 1 != sounds.size();
        lane(added).hasRepeatDots = true;
        _lanes[sounds[i].row] = added;
    }
    if (sounds.empty())
        lane(addLane(Lane::Kind::String, QStringLiteral("-"))).isOptional = false;
    for (unsigned voice = 1; voice < Bar::MaxVoices; ++voice)
        addRhythmLanes(voice, RhythmSide::Below);
    addLanesBelow();
}

void DrumWriter::writeNotes(const BeatPlace &place, SheetBar &into)
{
    for (const auto &note : place.beat.notes()) {
        const DrumSound sound = drumSoundOf(*note);
        QString text = sound.letter;
        legend().use(text == QStringLiteral("o")       ? Legend::Sign::Drum
                         : text == QStringLiteral("x") ? Legend::Sign::CrossHead
                                                       : Legend::Sign::Bell);
        text = signedText(text, *note, place);
        const int row = _lanes.at(sound.row);
        const auto &cells = into.columns[place.column];
        if (cells.count(row) == 0 || cells.at(row).text != text)
            into.put(place.column, row, text, place.voice == 0 ? Ink::Note : Ink::SecondNote);
    }
}

bool isShownAsDrums(const Track &track, const Staff &staff)
{
    if (InstrumentSet::isUnpitched(track.type()))
        return true;
    return !staff.bars().empty() && staff.bars().front()->clef() == ClefType::Neutral;
}

} // namespace zarn::sheet
