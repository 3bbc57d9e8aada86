// SPDX-License-Identifier: MIT
#include "CommandRows.h"

#include "support/CommandLaw.h"

#include <gtest/gtest.h>

std::vector<CommandRow> formRows();
void expectFormCommandsRefused(rich::RichScore &);
std::vector<CommandRow> structureRows();
void expectStructureCommandsRefused(rich::RichScore &);
std::vector<CommandRow> trackRows();
void expectTrackCommandsRefused(rich::RichScore &);
std::vector<CommandRow> documentRows();
void expectDocumentCommandsRefused(rich::RichScore &);
std::vector<CommandRow> beatRows();
void expectBeatCommandsRefused(rich::RichScore &);
std::vector<CommandRow> linkRows();
void expectLinkCommandsRefused(rich::RichScore &);
std::vector<CommandRow> markRows();
void expectMarkCommandsRefused(rich::RichScore &);
std::vector<CommandRow> pitchRows();
void expectPitchCommandsRefused(rich::RichScore &);
std::vector<CommandRow> wordRows();
void expectWordCommandsRefused(rich::RichScore &);
std::vector<CommandRow> layoutRows();
void expectLayoutCommandsRefused(rich::RichScore &);
std::vector<CommandRow> soundRows();
void expectSoundCommandsRefused(rich::RichScore &);
std::vector<CommandRow> playingRows();
void expectPlayingCommandsRefused(rich::RichScore &);

const std::vector<CommandRowsOfArea> &commandAreas()
{
    static const std::vector<CommandRowsOfArea> areas = {
        {formRows, expectFormCommandsRefused},   {structureRows, expectStructureCommandsRefused},
        {trackRows, expectTrackCommandsRefused}, {documentRows, expectDocumentCommandsRefused},
        {beatRows, expectBeatCommandsRefused},   {linkRows, expectLinkCommandsRefused},
        {markRows, expectMarkCommandsRefused},   {pitchRows, expectPitchCommandsRefused},
        {wordRows, expectWordCommandsRefused},   {layoutRows, expectLayoutCommandsRefused},
        {soundRows, expectSoundCommandsRefused}, {playingRows, expectPlayingCommandsRefused},
    };
    return areas;
}

void expectAllRefused(zarn::Score &score, const std::vector<std::function<bool()>> &refused)
{
    for (std::size_t i = 0; i < refused.size(); ++i) {
        SCOPED_TRACE("row " + std::to_string(i));
        expectRefused(score, refused[i]);
    }
}
