// SPDX-License-Identifier: MIT
#include "show/ScoreDiagrams.h"

#include "chord/DiagramPicture.h"
#include "common/BuiltIns.h"
#include "common/Terminal.h"
#include "common/Texts.h"
#include "common/TrackText.h"
#include "common/TuningWord.h"

#include <ZarnCore/chords/ZarnFingeringLibrary.h>
#include <ZarnCore/io/sheet/TabWriter.h>
#include <ZarnCore/model/ZarnScoreModel.h>

#include <algorithm>
#include <optional>
#include <vector>

namespace zarn::tool {

namespace {

/// The chords over the bars of a part, each once.
std::vector<ChordMark> chordMarks(const Staff &staff, const ShownPart &part)
{
    std::vector<ChordMark> marks;
    const unsigned end = std::min(staff.barCount(), part.lastBar + 1);
    for (unsigned index = part.firstBar; index < end; ++index) {
        for (const auto &voice : staff.bars()[index]->voices()) {
            if (!voice)
                continue;
            for (const auto &beat : voice->beats()) {
                const ChordMark &mark = beat->chord();
                if (!mark.isEmpty() && std::find(marks.begin(), marks.end(), mark) == marks.end())
                    marks.push_back(mark);
            }
        }
    }
    return marks;
}

/// As it stands over the beat or in the collection of the staff, else as it is played first.
std::optional<ChordDiagram> diagramFor(const ChordMark &mark, const Staff &staff,
                                       const GuitarTuning &tuning)
{
    if (mark.diagram)
        return *mark.diagram;
    for (const ChordDiagram &diagram : staff.diagramCollection())
        if (diagram.name == mark.symbol)
            return diagram;
    const auto chord = chord::Chord::fromText(mark.symbol);
    if (!chord)
        return std::nullopt;
    const chord::Capos capos{staff.capoFret(), staff.partialCapoFret(),
                             staff.partialCapoStringFlags()};
    auto found = loadedCore().fingeringLibrary().voicings(*chord, tuning, capos, staff.fretCount());
    if (found.empty())
        return std::nullopt;
    return found.front();
}

} // namespace

std::string scoreDiagrams(const ScoreModel &model, const ShownPart &part, const Terminal &terminal)
{
    const Signs signs = terminal.showsUtf8() ? Signs::Symbols : Signs::Letters;
    std::string text;
    for (const auto &track : model.tracks()) {
        if (part.track && *part.track != track->index())
            continue;
        for (const auto &staff : track->staves()) {
            if (!sheet::isShownAsTab(*staff))
                continue;
            const GuitarTuning tuning = presentTuning(*staff);
            std::vector<ChordDiagram> diagrams;
            for (const ChordMark &mark : chordMarks(*staff, part)) {
                auto diagram = diagramFor(mark, *staff, tuning);
                if (!diagram)
                    continue;
                if (!mark.symbol.empty())
                    diagram->name = mark.symbol;
                diagrams.push_back(std::move(*diagram));
            }
            if (diagrams.empty())
                continue;
            text += "\nChords of " + printable(trackText(*track, signs).toStdString()) + "\n\n"
                + diagramPicture(diagrams, chord::courseSizes(tuning), terminal);
        }
    }
    return text;
}

} // namespace zarn::tool
