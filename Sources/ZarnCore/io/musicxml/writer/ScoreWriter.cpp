// SPDX-License-Identifier: MIT
#include <ZarnCore/io/musicxml/writer/ScoreWriter.h>

#include <ZarnCore/ZarnAssert.h>
#include <ZarnCore/io/musicxml/writer/ExportContext.h>
#include <ZarnCore/io/musicxml/writer/HeaderWriter.h>
#include <ZarnCore/io/musicxml/writer/PartListWriter.h>
#include <ZarnCore/io/musicxml/writer/PartWriter.h>
#include <ZarnCore/io/musicxml/writer/UnheldCounter.h>
#include <ZarnCore/io/musicxml/writer/XmlSink.h>
#include <ZarnCore/model/ZarnScoreModel.h>

#include <algorithm>
#include <deque>

namespace zarn::io {

using utils::rational;

namespace {

/// The numbers of the bars: a pickup is 0, and each movement begins with 1 again.
std::vector<int> barNumbers(const MasterTrack &master)
{
    std::vector<int> numbers;
    int number = master.hasAnacrusis() ? 0 : 1;
    for (const auto &bar : master.masterBars()) {
        if (bar->isMovementStart() && !numbers.empty())
            number = 1;
        numbers.push_back(number++);
    }
    return numbers;
}

std::vector<bool> systemStarts(const ScoreModel &model)
{
    std::vector<bool> starts(model.masterTrack()->masterBarCount());
    std::size_t bar = 0;
    for (const int count : model.fullScoreSystemsLayout()) {
        bar += static_cast<std::size_t>(std::max(count, 0));
        if (bar < starts.size() && count > 0)
            starts[bar] = true;
        else if (bar == starts.size() && bar == static_cast<std::size_t>(count))
            starts[0] = true; // the only system, which would not be told otherwise
    }
    return starts;
}

void setLengths(std::deque<PartPlan> &parts, ScorePlan &score)
{
    const auto &bars = score.model->masterTrack()->masterBars();
    for (std::size_t bar = 0; bar < bars.size(); ++bar)
        score.lengths.push_back(std::max(bars[bar]->length(), score.reach[bar]));
    for (auto &part : parts)
        part.setBarLengths(score.lengths);
}

/// The parts that say how long bars are whose notes end before: one without notes in the bar, if
/// there is one. A bar without any notes that is as long as its meter needs none.
void setPadding(const std::deque<PartPlan> &parts, ScorePlan &score, ExportContext &context)
{
    const auto &bars = score.model->masterTrack()->masterBars();
    score.padding.assign(bars.size(), -1);
    for (std::size_t bar = 0; bar < bars.size(); ++bar) {
        const auto length = bars[bar]->length();
        const auto &reach = score.reach[bar];
        if (length < reach) {
            context.setPlace(-1, static_cast<int>(bar));
            context.addProblem("the notes of the bar are longer than the bar, which is written as "
                               "long as they are");
        }
        if (!(reach < length) || (reach.isZero() && !bars[bar]->ownLength()))
            continue;
        const auto empty = std::find_if(parts.begin(), parts.end(), [bar](const PartPlan &part) {
            return part.reach()[bar].isZero();
        });
        score.padding[bar] = empty == parts.end() ? static_cast<int>(parts.size()) - 1
                                                  : static_cast<int>(empty - parts.begin());
    }
}

/// Refuses what no document can be: MusicXML has a part and a measure at least, and as many
/// measures in each part.
void requireParts(const ScoreModel &model)
{
    const auto bars = model.masterTrack()->masterBarCount();
    if (!model.hasTracks() || bars == 0)
        ZARN_RAISE_IN("zarn::io::writeScore",
                      "A score without tracks or bars cannot be written as MusicXML.");
    for (const auto &track : model.tracks())
        for (const auto &staff : track->staves())
            if (staff->barCount() != bars)
                ZARN_RAISE_IN("zarn::io::writeScore",
                              "The track \"" + track->name() + "\" has "
                                  + std::to_string(staff->barCount()) + " bars and the score "
                                  + std::to_string(bars) + ".");
}

} // namespace

void writeScore(const ScoreModel &model, XmlSink &sink, ExportReport &report)
{
    requireParts(model);
    ExportContext context(report);
    ScorePlan score;
    score.model = &model;
    score.reach.resize(model.masterTrack()->masterBarCount());
    score.numbers = barNumbers(*model.masterTrack());
    score.endings = endingMarks(*model.masterTrack());
    score.systemStarts = systemStarts(model);
    std::deque<PartPlan> parts;
    for (const auto &track : model.tracks())
        parts.emplace_back(*track, static_cast<unsigned>(parts.size()), score.reach);
    for (unsigned bar = 0; bar < model.masterTrack()->masterBarCount(); ++bar)
        score.fermatas.push_back(fermatasOf(model, bar));
    setLengths(parts, score);
    setPadding(parts, score, context);
    context.setPlace(-1, -1);
    countUnheld(model, parts, context);

    sink.write("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
               "<!DOCTYPE score-partwise PUBLIC \"-//Recordare//DTD MusicXML 4.0 Partwise//EN\" "
               "\"http://www.musicxml.org/dtds/partwise.dtd\">\n"
               "<score-partwise version=\"4.0\">\n");
    pugi::xml_document document;
    writeHeader(model, document, context);
    writePartList(model, parts, document, context);
    for (const auto node : document.children())
        node.print(sink, " ", pugi::format_indent, pugi::encoding_utf8, 1);
    document.reset();
    for (std::size_t part = 0; part < parts.size(); ++part)
        PartWriter(parts[part], static_cast<int>(part), score, context, sink).write();
    sink.write("</score-partwise>\n");
}

} // namespace zarn::io
