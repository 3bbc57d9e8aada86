// SPDX-License-Identifier: MIT
#include "ScoreDump.h"

#include <ZarnCore/io/ZarnNativeExporter.h>
#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/score/ZarnScore.h>

using namespace zarn;

std::string dump(const ScoreModel &model)
{
    std::string text = io::NativeExporter().toText(model);
    for (const auto &track : model.tracks()) {
        for (const auto &staff : track->staves()) {
            text += "voices ";
            for (const auto &bar : staff->bars()) {
                for (const auto &voice : bar->voices())
                    text += voice == nullptr ? '-' : voice->isEmpty() ? 'o' : 'v';
                text += ' ';
            }
            text += '\n';
        }
    }
    text += "play list";
    for (const int bar : model.masterTrack()->playlist())
        text += ' ' + std::to_string(bar);
    return text + '\n';
}

std::string dump(const Score &score)
{
    return dump(*score.scoreModel()) + "cursor "
        + score.scoreCursor().index().toQString().toStdString() + '\n';
}
