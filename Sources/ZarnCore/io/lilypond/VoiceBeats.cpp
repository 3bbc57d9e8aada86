// SPDX-License-Identifier: MIT
#include <ZarnCore/io/lilypond/VoiceBeats.h>

#include <ZarnCore/io/ZarnExportReport.h>
#include <ZarnCore/io/lilypond/StaffContext.h>
#include <ZarnCore/model/ZarnTrack.h>
#include <ZarnCore/model/form/TremoloPair.h>

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
    return index + 1 < beats.size() && beats[index + 1].bar == beats[index].bar
        && zarn::isTremoloPair(*beats[index].beat, *beats[index + 1].beat);
}

void lose(const StaffContext &context, const std::string &kind, const VoiceBeat &place)
{
    context.report.addUnheld(
        kind, {static_cast<int>(context.track.index()), static_cast<int>(place.bar->index())});
}

} // namespace zarn::lilypond
