// SPDX-License-Identifier: MIT
#include <ZarnCore/io/lilypond/Frame.h>

#include <ZarnCore/io/lilypond/Words.h>
#include <ZarnCore/model/ZarnScoreModel.h>

#include <algorithm>

namespace zarn::lilypond {

utils::rational leadingGrace(const Voice &voice)
{
    utils::rational length;
    for (const auto &beat : voice.beats()) {
        if (!beat->isGrace())
            return length;
        length += beat->rhythmValue().getLength();
    }
    return length;
}

std::string graceGap(const utils::rational &quarters)
{
    return quarters.isZero() ? std::string() : "\\grace { " + gapText(Gap::Skip, quarters) + " } ";
}

Frame frameOf(const ScoreModel &model)
{
    Frame frame;
    const MasterTrack &master = *model.masterTrack();
    frame.repeats = repeatStructureOf(master);
    for (const auto &bar : master.masterBars())
        frame.bars.push_back({bar->length(), 0});
    for (const auto &track : model.tracks())
        for (const auto &staff : track->staves())
            for (std::size_t i = 0; i < std::min(frame.bars.size(), staff->bars().size()); ++i)
                for (const auto &voice : staff->bars()[i]->voices()) {
                    if (!voice)
                        continue;
                    FrameBar &bar = frame.bars[i];
                    bar.length = std::max(bar.length, voice->length());
                    bar.grace = std::max(bar.grace, leadingGrace(*voice));
                }
    return frame;
}

} // namespace zarn::lilypond
