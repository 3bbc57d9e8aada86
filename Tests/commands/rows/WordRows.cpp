// SPDX-License-Identifier: MIT
#include "../CommandRows.h"

#include "support/CommandLaw.h"

#include <ZarnCore/model/ZarnBeatAttribute.h>

using namespace rich;

namespace {

/// A diagram with a fret on each of so many strings.
ChordMark withDiagram(std::size_t strings, std::int8_t fret = 2, std::uint8_t finger = 1)
{
    ChordDiagram diagram;
    diagram.name = "A";
    diagram.frets.assign(strings, fret);
    diagram.fingers.assign(strings, finger);
    return {"A", std::make_shared<const ChordDiagram>(diagram)};
}

} // namespace

std::vector<CommandRow> wordRows()
{
    return {
        {"SetChord", [](SmallScore &s) { return s.score.setChord(s.at(2, 1), withDiagram(6)); },
         "ModifyBarRange(0,0,2,2) ChordsChanged(0,0) ", nullptr},
        {"UnsetChord", [](SmallScore &s) { return s.score.unsetChord(s.everything(0, 5)); },
         "ModifyBarRangeAllTracks(0,5) ChordsChanged(0,0) ChordsChanged(1,0) ChordsChanged(1,1) ",
         nullptr},
        {"SetBeatAttributeChord",
         [](SmallScore &s) {
             return s.score.setBeatAttribute(s.from(0, 0, 1, 3), BeatAttribute::Chord,
                                             withDiagram(6));
         },
         "ModifyBarRange(0,0,0,1) ChordsChanged(0,0) ", nullptr},
        {"SetLyrics",
         [](SmallScore &s) {
             return s.score.setLyrics(0, 1, QStringLiteral("when the night_ has come"), 1);
         },
         "LyricsChanged(0) ModifyBarRange(0,0,1,4) ", nullptr},
        {"SetLyricsOffset", [](SmallScore &s) { return s.score.setLyricsOffset(0, 0, 3); },
         "LyricsChanged(0) ModifyBarRange(0,0,1,3) ", nullptr},
        {"SetLyricsVisible", [](SmallScore &s) { return s.score.setLyricsVisible(1, 5); },
         "LyricsChanged(1) ", nullptr},
    };
}

void expectWordCommandsRefused(RichScore &rich)
{
    Score &score = rich.score;
    expectAllRefused(score,
                     {
                         [&] { return score.setChord(rich.at(0, 0), ChordMark()); },
                         [&] { return score.setChord(rich.at(0, 0), withDiagram(5)); },
                         [&] { return score.setChord(rich.at(0, 0), withDiagram(6, -2)); },
                         [&] { return score.setChord(rich.at(0, 0), withDiagram(6, 2, 6)); },
                         [&] { return score.setChord(rich.at(0, -1), withDiagram(6)); },
                         [&] { return score.setChord(rich.at(0, 4), withDiagram(6)); },
                         [&] { return score.unsetChord(rich.from(0, 0, 0, 2)); },
                         [&] { return score.setLyrics(2, 0, QStringLiteral("la"), 0); },
                         [&] { return score.setLyrics(0, 5, QStringLiteral("la"), 0); },
                         [&] { return score.setLyrics(0, 0, QStringLiteral("la"), 6); },
                         [&] { return score.setLyricsOffset(0, 1, 0); },
                         [&] { return score.setLyricsOffset(0, 0, 6); },
                         [&] { return score.setLyricsVisible(0, 32); },
                         [&] { return score.setLyricsVisible(2, 1); },
                     });
}
