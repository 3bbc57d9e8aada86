// SPDX-License-Identifier: MIT
#include <ZarnCore/io/midi/MidiScoreReader.h>

#include <ZarnCore/io/ZarnImportReport.h>
#include <ZarnCore/io/midi/HandSplitter.h>
#include <ZarnCore/io/midi/MasterBarWriter.h>
#include <ZarnCore/io/midi/MidiMusicReader.h>
#include <ZarnCore/io/midi/MidiOddities.h>
#include <ZarnCore/io/midi/OrnamentFinder.h>
#include <ZarnCore/io/midi/PickupFinder.h>
#include <ZarnCore/io/midi/RhythmQuantizer.h>
#include <ZarnCore/io/midi/TrackWriter.h>
#include <ZarnCore/io/midi/VoiceSeparator.h>
#include <ZarnCore/io/midi/ZarnMidiFile.h>
#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/model/notes/SpanFaults.h>

#include <algorithm>
#include <cstdlib>
#include <iterator>

namespace zarn::io {

namespace {

/// Bars that a file may have in all its staves besides those that its notes deserve: silence costs
/// a few bytes.
constexpr std::size_t barsForNothing = 60'000;
constexpr std::size_t barsPerNote = 2;

/// Further than this no note is moved without a word.
constexpr MidiTime farMoved = midiQuarter / 8;

class ScoreReader {
public:
    ScoreReader(const MidiFile &file, const MidiImportOptions &options, ImportReport &report)
        : _options(options), _report(report), _music(readMidiMusic(file, _oddities)),
          _model(std::make_shared<ScoreModel>())
    {
    }

    std::shared_ptr<ScoreModel> read()
    {
        for (MidiPart &part : _music.parts)
            if (!part.isDrums && part.strings.empty() && part.staves.size() == 1
                && isForTwoHands(part) && needsTwoStaves(part.staves.front()))
                part.staves = splitHands(part.staves.front());
        const MeterLine bars = makeBars();
        dropNotesBehind(bars);
        quantize(bars);
        for (MidiPart &part : _music.parts)
            if (!part.isDrums)
                for (PlayedNotes &notes : part.staves)
                    spell(notes, _music.keys);
        writeMasterBars(_music, bars, *_model);
        for (const MidiPart &part : _music.parts)
            writeTrack(part, bars, *_model, _oddities);
        // Words whose syllables were left out end with those that they have.
        for (const auto &track : _model->tracks())
            mendBrokenSpans(*track);
        _oddities.tell(_report);
        return std::move(_model);
    }

private:
    MeterLine makeBars();
    MidiTime pickup() const;
    void dropNotesBehind(const MeterLine &bars);
    void quantize(const MeterLine &bars);
    static void addGraces(const PlayedNotes &graces, PlayedNotes &notes);
    void tellMoved(const MidiPart &part, const PlayedNotes &notes);
    void dropDoubles(MidiPart &part, PlayedNotes &notes);

    const MidiImportOptions &_options;
    ImportReport &_report;
    MidiOddities _oddities;
    MidiMusic _music;
    std::shared_ptr<ScoreModel> _model;
};

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

MeterLine ScoreReader::makeBars()
{
    std::size_t staves = 0;
    std::size_t notes = 0;
    for (const MidiPart &part : _music.parts) {
        staves += part.staves.size();
        for (const PlayedNotes &played : part.staves)
            notes += played.size();
    }
    const std::size_t most = std::clamp<std::size_t>((barsForNothing + barsPerNote * notes)
                                                         / std::max<std::size_t>(staves, 1),
                                                     1, MasterTrack::MaxBars);
    // An end that was cut a little late begins no bar.
    constexpr MidiTime late = midiQuarter / 8;
    MidiTime last = 0;
    for (const MidiPart &part : _music.parts)
        for (const PlayedNotes &played : part.staves)
            for (const PlayedNote &note : played)
                last = std::max(last, note.playedStart + 1);
    // Long bars cost more: no more time than bars of four quarters have.
    const auto mostTime = static_cast<MidiTime>(most) * 4 * midiQuarter;
    return MeterLine(_music.meters, pickup(), std::min(std::max(last, _music.end - late), mostTime),
                     most);
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

void ScoreReader::quantize(const MeterLine &bars)
{
    std::vector<PlayedNotes *> staves;
    for (MidiPart &part : _music.parts)
        for (PlayedNotes &notes : part.staves)
            staves.push_back(&notes);
    const auto accuracy = measureAccuracy(staves, _music.tempos, _music.tick);
    GridChoice choice;
    choice.hasTuplets = _options.hasTuplets;
    if (_options.shortestNote)
        choice.shortest = (*_options.shortestNote * utils::rational(midiQuarter)).round();
    if (!accuracy.isPlayed)
        for (MidiPart &part : _music.parts)
            for (PlayedNotes &notes : part.staves)
                if (!part.isDrums)
                    findOrnaments(notes, _music.tempos, _music.tick);
    RhythmQuantizer quantizer(bars, _music.tempos, accuracy, choice);
    const MidiTime end = bars.bars().back().end();
    for (MidiPart &part : _music.parts)
        for (PlayedNotes &notes : part.staves) {
            if (part.isDrums)
                quantizer.quantizeDrums(notes);
            else
                quantizer.quantize(notes);
            for (PlayedNote &note : notes) {
                note.start = std::min(note.start, end - 1);
                note.end = std::min(note.end, end);
            }
            tellMoved(part, notes);
            // Grace notes take no time and go with the notes that they lead to.
            PlayedNotes graces;
            const auto firstGrace = std::stable_partition(
                notes.begin(), notes.end(), [](const PlayedNote &note) { return !note.isGrace; });
            graces.assign(firstGrace, notes.end());
            notes.erase(firstGrace, notes.end());
            dropDoubles(part, notes);
            const auto losses = separateVoices(notes, bars);
            for (std::size_t i = 0; i < losses.shortened; ++i)
                _oddities.add("a note was made shorter: a staff has four voices", part.midiTrack);
            addGraces(graces, notes);
        }
}

/// Puts grace notes in front of the nearest notes that begin with them, in their voice.
void ScoreReader::addGraces(const PlayedNotes &graces, PlayedNotes &notes)
{
    PlayedNotes all;
    all.reserve(graces.size() + notes.size());
    auto grace = graces.begin();
    for (std::size_t i = 0; i < notes.size(); ++i) {
        for (; grace != graces.end() && grace->start <= notes[i].start; ++grace) {
            const PlayedNote *main = &notes[i];
            for (std::size_t k = i; k < notes.size() && notes[k].start == notes[i].start; ++k)
                if (std::abs(notes[k].key - grace->key) < std::abs(main->key - grace->key))
                    main = &notes[k];
            all.push_back(*grace);
            all.back().start = all.back().end = main->start;
            all.back().voice = main->voice;
        }
        all.push_back(notes[i]);
    }
    notes = std::move(all);
}

void ScoreReader::tellMoved(const MidiPart &part, const PlayedNotes &notes)
{
    for (const PlayedNote &note : notes)
        if (std::abs(note.start - note.playedStart) > farMoved)
            _oddities.add("a note was moved by more than a 32nd", part.midiTrack);
}

/// One key struck twice at one time is one note, the longer one.
void ScoreReader::dropDoubles(MidiPart &part, PlayedNotes &notes)
{
    std::stable_sort(notes.begin(), notes.end(),
                     [](const PlayedNote &left, const PlayedNote &right) {
                         if (left.start != right.start)
                             return left.start < right.start;
                         return left.key != right.key ? left.key < right.key : left.end > right.end;
                     });
    const auto last = std::unique(notes.begin(), notes.end(),
                                  [](const PlayedNote &left, const PlayedNote &right) {
                                      return left.start == right.start && left.key == right.key
                                          && left.string == right.string;
                                  });
    for (auto note = last; note != notes.end(); ++note)
        _oddities.add("of two notes of one key at one time one was left out", part.midiTrack);
    notes.erase(last, notes.end());
}

} // namespace

std::shared_ptr<ScoreModel> readMidiScore(const MidiFile &file, const MidiImportOptions &options,
                                          ImportReport &report)
{
    return ScoreReader(file, options, report).read();
}

} // namespace zarn::io
