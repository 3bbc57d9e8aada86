// SPDX-License-Identifier: MIT
#include <ZarnCore/io/midi/MidiScoreReader.h>

#include <ZarnCore/io/ZarnImportReport.h>
#include <ZarnCore/io/midi/HandSplitter.h>
#include <ZarnCore/io/midi/MasterBarWriter.h>
#include <ZarnCore/io/midi/MidiMusicReader.h>
#include <ZarnCore/io/midi/MidiOddities.h>
#include <ZarnCore/io/midi/OrnamentFinder.h>
#include <ZarnCore/io/midi/PartFitter.h>
#include <ZarnCore/io/midi/PickupFinder.h>
#include <ZarnCore/io/midi/ShareWork.h>
#include <ZarnCore/io/midi/TrackWriter.h>
#include <ZarnCore/io/midi/WrittenPlacer.h>
#include <ZarnCore/io/midi/ZarnMidiFile.h>
#include <ZarnCore/model/NodeBlocks.h>
#include <ZarnCore/model/ZarnScoreModel.h>

#include <algorithm>
#include <cstdlib>
#include <iterator>
#include <thread>

namespace zarn::io {

namespace {

/// Bars that a file may have in all its staves besides those that its notes deserve: silence costs
/// a few bytes.
constexpr std::size_t barsForNothing = 60'000;
constexpr std::size_t barsPerNote = 2;

class ScoreReader {
public:
    ScoreReader(const MidiFile &file, const MidiImportOptions &options, ImportReport &report)
        : _options(options), _report(report), _music(readMidiMusic(file, _oddities)),
          _model(std::make_shared<ScoreModel>())
    {
    }

    std::shared_ptr<ScoreModel> read()
    {
        findOrnaments();
        for (MidiPart &part : _music.parts)
            makeStaves(part);
        const MeterLine bars = makeBars();
        dropNotesBehind(bars);
        writeMasterBars(_music, bars, *_model);
        writeParts(bars);
        _oddities.tell(_report);
        return std::move(_model);
    }

private:
    void findOrnaments();
    void makeStaves(MidiPart &part) const;
    MeterLine makeBars();
    MidiTime pickup() const;
    std::size_t noteCount() const;
    void dropNotesBehind(const MeterLine &bars);
    void writeParts(const MeterLine &bars);

    const MidiImportOptions &_options;
    ImportReport &_report;
    MidiOddities _oddities;
    MidiMusic _music;
    PlayingAccuracy _accuracy;
    std::shared_ptr<ScoreModel> _model;
};

/// In front of all else: a chord may be rolled from one hand to the other.
void ScoreReader::findOrnaments()
{
    std::vector<PlayedNotes *> staves;
    for (MidiPart &part : _music.parts)
        for (PlayedNotes &notes : part.staves)
            staves.push_back(&notes);
    _accuracy = measureAccuracy(staves, _music.tempos, _music.tick);
    for (MidiPart &part : _music.parts)
        for (PlayedNotes &notes : part.staves)
            if (!_accuracy.isPlayed && !part.isDrums)
                io::findOrnaments(notes, _music.tempos, _music.tick);
}

void ScoreReader::makeStaves(MidiPart &part) const
{
    if (part.isDrums || part.staves.size() != 1)
        return;
    PlayedNotes &notes = part.staves.front();
    if (!_music.written.empty() && isToldAtAll(notes))
        part.staves = splitAsWritten(notes, _music.written);
    else if (part.strings.empty() && isForTwoHands(part) && needsTwoStaves(notes))
        part.staves = splitHands(notes);
}

/// The music in front of the first whole bar, which no file says unless by a meter.
MidiTime ScoreReader::pickup() const
{
    constexpr MidiTime atOnce = midiQuarter / 8;
    const auto first = std::find_if(_music.meters.begin(), _music.meters.end(),
                                    [](const MeterChange &change) { return change.time > atOnce; });
    const TimeSignature meter =
        first == _music.meters.begin() ? TimeSignature() : std::prev(first)->meter;
    const bool isSaid = first != _music.meters.end() && first->time <= lengthOf(meter);
    if (isSaid)
        return 0;
    // The beginning of the piece says it.
    constexpr MidiTime heardBars = 200;
    const MidiTime end = std::min(heardBars * lengthOf(meter),
                                  first == _music.meters.end() ? _music.end + 1 : first->time);
    PlayedNotes notes;
    for (const MidiPart &part : _music.parts)
        if (!part.isDrums)
            for (const PlayedNotes &played : part.staves)
                std::copy_if(played.begin(), played.end(), std::back_inserter(notes),
                             [end](const PlayedNote &note) { return note.playedStart < end; });
    std::stable_sort(notes.begin(), notes.end(),
                     [](const PlayedNote &left, const PlayedNote &right) {
                         return left.playedStart < right.playedStart;
                     });
    return findPickup(notes, meter, end);
}

std::size_t ScoreReader::noteCount() const
{
    std::size_t notes = 0;
    for (const MidiPart &part : _music.parts)
        for (const PlayedNotes &played : part.staves)
            notes += played.size();
    return notes;
}

MeterLine ScoreReader::makeBars()
{
    std::size_t staves = 0;
    for (const MidiPart &part : _music.parts)
        staves += part.staves.size();
    const std::size_t most = std::clamp<std::size_t>((barsForNothing + barsPerNote * noteCount())
                                                         / std::max<std::size_t>(staves, 1),
                                                     1, MasterTrack::MaxBars);
    // An end that was cut a little late begins no bar.
    constexpr MidiTime late = midiQuarter / 8;
    MidiTime last = 0;
    for (const MidiPart &part : _music.parts)
        for (const PlayedNotes &played : part.staves)
            if (!played.empty())
                last = std::max(last, played.back().playedStart + 1);
    // Long bars cost more: no more time than bars of four quarters have.
    const auto mostTime = static_cast<MidiTime>(most) * 4 * midiQuarter;
    if (_music.writtenEnd)
        return MeterLine::ofWritten(_music.meters, _music.writtenMeters,
                                    std::min(std::max(last, *_music.writtenEnd), mostTime), most);
    return {_music.meters, pickup(), std::min(std::max(last, _music.end - late), mostTime), most};
}

void ScoreReader::dropNotesBehind(const MeterLine &bars)
{
    const MidiTime end = bars.bars().back().end();
    if (_music.end <= end)
        return;
    for (MidiPart &part : _music.parts)
        for (PlayedNotes &notes : part.staves) {
            const auto behind =
                std::remove_if(notes.begin(), notes.end(),
                               [end](const PlayedNote &note) { return note.playedStart >= end; });
            for (auto note = behind; note != notes.end(); ++note)
                _oddities.add(
                    "a note behind bar " + std::to_string(bars.bars().size())
                        + " was left out: there is more silence than a score has bars for",
                    part.midiTrack);
            notes.erase(behind, notes.end());
        }
}

/// What a part becomes, with what was odd on the way.
struct WrittenPart {
    std::shared_ptr<Track> track;
    MidiOddities ofFitting;
    MidiOddities ofWriting;
};

/// Fits a part to the bars and makes its track at once, while its notes are near.
class PartWorker {
public:
    PartWorker(MidiMusic &music, const MeterLine &bars, const PlayingAccuracy &accuracy,
               const GridChoice &choice, std::vector<WrittenPart> &written)
        : _music(music), _bars(bars), _written(written), _fitter(music, bars, accuracy, choice)
    {
    }

    void operator()(std::size_t number)
    {
        MidiPart &part = _music.parts[number];
        WrittenPart &result = _written[number];
        _fitter.fit(part, result.ofFitting);
        result.track = makeTrack(part, _bars, _nodes, result.ofWriting);
    }

private:
    MidiMusic &_music;
    const MeterLine &_bars;
    std::vector<WrittenPart> &_written;
    PartFitter _fitter;
    NodeBlocks _nodes;
};

/// Threads that have enough to do with so many notes.
std::size_t threadsFor(std::size_t notes)
{
    constexpr std::size_t notesOfThread = 16'384;
    constexpr std::size_t mostThreads = 8;
    const std::size_t processors = std::max(std::thread::hardware_concurrency(), 1u);
    return std::min({1 + notes / notesOfThread, mostThreads, processors});
}

/// Parts have nothing to do with each other until their tracks come into the model.
void ScoreReader::writeParts(const MeterLine &bars)
{
    GridChoice choice;
    choice.hasTuplets = _options.hasTuplets;
    if (_options.shortestNote)
        choice.shortest = (*_options.shortestNote * utils::rational(midiQuarter)).round();
    std::vector<WrittenPart> written(_music.parts.size());
    shareWork(written.size(), threadsFor(noteCount()),
              [&] { return PartWorker(_music, bars, _accuracy, choice, written); });
    for (const WrittenPart &each : written)
        _oddities.add(each.ofFitting);
    for (std::size_t i = 0; i < written.size(); ++i) {
        _model->addTrack(written[i].track);
        finishTrack(_music.parts[i], *written[i].track, written[i].ofWriting);
        _oddities.add(written[i].ofWriting);
    }
}

} // namespace

std::shared_ptr<ScoreModel> readMidiScore(const MidiFile &file, const MidiImportOptions &options,
                                          ImportReport &report)
{
    return ScoreReader(file, options, report).read();
}

} // namespace zarn::io
