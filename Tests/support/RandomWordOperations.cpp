// SPDX-License-Identifier: MIT
#include "RandomOperations.h"

#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/model/attributes/ZarnChordMark.h>
#include <ZarnCore/score/ZarnScore.h>

#include <iterator>

using namespace zarn;

namespace {

QString lyrics(Random &random)
{
    static const char *const pieces[] = {"la",  "glo-",  "ri",  "-",   "_",        " ",
                                         " _ ", "o~my ", "\\-", "\n ", "\xC3\xA9", "a b c d e "};
    QString text;
    for (unsigned i = random.below(12); i > 0; --i)
        text += QString::fromUtf8(pieces[random.below(std::size(pieces))]);
    return text;
}

unsigned line(Random &random)
{
    return random.percent(2) ? 5 : random.below(random.percent(80) ? 2 : 5);
}

ChordMark chord(EditedScore &e, const ScoreModelIndex &place)
{
    static const char *const symbols[] = {"", "C", "F\u266fm7", "N.C.", "anything"};
    ChordMark mark{symbols[e.random.below(std::size(symbols))], nullptr};
    if (e.random.coin()) {
        const auto staff = place.staff();
        ChordDiagram diagram;
        diagram.name = mark.symbol;
        const unsigned strings = staff ? staff->tuning().stringCount() : 6;
        for (unsigned i = 0; i < (e.random.percent(5) ? 7 : strings); ++i)
            diagram.frets.push_back(static_cast<std::int8_t>(e.random.between(-1, 2)));
        mark.diagram = std::make_shared<const ChordDiagram>(diagram);
    }
    return mark;
}

const std::vector<RandomOperation> operations = {
    {"setChord", 6,
     [](EditedScore &e) {
         const auto place = e.places.beat();
         return e.score.setChord(place, chord(e, place));
     }},
    {"unsetChord", 5, [](EditedScore &e) { return e.score.unsetChord(e.places.range()); }},
    {"setLyrics", 2,
     [](EditedScore &e) {
         return e.score.setLyrics(e.places.track(), line(e.random), lyrics(e.random),
                                  e.places.bar());
     }},
    {"setLyricsOffset", 1,
     [](EditedScore &e) {
         return e.score.setLyricsOffset(e.places.track(), line(e.random), e.places.bar());
     }},
    {"setLyricsVisible", 1,
     [](EditedScore &e) { return e.score.setLyricsVisible(e.places.track(), e.random.below(33)); }},
};

} // namespace

const std::vector<RandomOperation> &randomWordOperations()
{
    return operations;
}
