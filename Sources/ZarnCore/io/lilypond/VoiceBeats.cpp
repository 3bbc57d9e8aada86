// SPDX-License-Identifier: MIT
#include <ZarnCore/io/lilypond/VoiceBeats.h>

#include <ZarnCore/io/ZarnExportReport.h>
#include <ZarnCore/io/lilypond/StaffContext.h>
#include <ZarnCore/model/ZarnTrack.h>

namespace zarn::lilypond {

VoiceBeats::VoiceBeats(const Staff &staff, unsigned voice)
{
    for (const auto &bar : staff.bars()) {
        _starts.push_back(_beats.size());
        const auto &held = bar->voices().at(voice);
        if (!held)
            continue;
        utils::rational onset;
        for (const auto &beat : held->beats()) {
            _beats.push_back({beat.get(), bar.get(), onset});
            onset += beat->length();
        }
    }
    _starts.push_back(_beats.size());
}

const VoiceBeat *VoiceBeats::behind(std::size_t index) const
{
    if (index + 1 >= _beats.size())
        return nullptr;
    const VoiceBeat &next = _beats[index + 1];
    return next.bar->index() > _beats[index].bar->index() + 1 ? nullptr : &next;
}

const VoiceBeat *VoiceBeats::mainBehind(std::size_t index) const
{
    const VoiceBeat *next = behind(index);
    while (next != nullptr && next->beat->isGrace())
        next = behind(static_cast<std::size_t>(next - _beats.data()));
    return next;
}

bool isTremoloPair(const VoiceBeats &beats, std::size_t index)
{
    const Beat &beat = *beats[index].beat;
    if (beat.tremoloToNext() == 0 || index + 1 >= beats.size())
        return false;
    const VoiceBeat &next = beats[index + 1];
    const auto ratio = beat.rhythmValue().getPrimaryTupletRatio();
    const bool isPlain = !beat.rhythmValue().hasPrimaryTuplet()
        || (ratio.first == 2 * ratio.second && !beat.rhythmValue().hasSecondaryTuplet());
    return isPlain && next.bar == beats[index].bar && !beat.isGrace() && !next.beat->isGrace()
        && beat.hasNotes() && next.beat->hasNotes()
        && beat.rhythmValue() == next.beat->rhythmValue();
}

void lose(const StaffContext &context, const std::string &kind, const VoiceBeat &place)
{
    context.report.addUnheld(
        kind, {static_cast<int>(context.track.index()), static_cast<int>(place.bar->index())});
}

} // namespace zarn::lilypond
