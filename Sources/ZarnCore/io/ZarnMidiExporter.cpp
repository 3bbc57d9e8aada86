// SPDX-License-Identifier: MIT
#include <ZarnCore/io/ZarnMidiExporter.h>

#include <ZarnCore/ZarnAssert.h>
#include <ZarnCore/io/ZarnExportReport.h>
#include <ZarnCore/io/midi/ConductorTrack.h>
#include <ZarnCore/io/midi/NotatedBarWriter.h>
#include <ZarnCore/io/midi/PitchWheel.h>
#include <ZarnCore/io/midi/SungWords.h>
#include <ZarnCore/io/midi/ZarnMidiFile.h>
#include <ZarnCore/io/midi/ZarnMidiFileWriter.h>
#include <ZarnCore/model/ZarnScoreModel.h>

#include <algorithm>
#include <map>
#include <utility>

namespace zarn::io {

namespace {

using playback::Lane;
using playback::PlannedControl;
using playback::PlannedNote;

/// Names may be broken where a page is narrow.
std::string inOneLine(std::string text)
{
    std::replace(text.begin(), text.end(), '\n', ' ');
    return text;
}

/// Fills the tracks of a file: one for each track of the score and port that it uses, or one.
class FileBuilder {
public:
    FileBuilder(const ScoreModel &model, const playback::PlaybackPlan &plan,
                const MidiExportOptions &options, ExportReport &report)
        : _model(model), _plan(plan), _ticks(plan, options.ticksPerQuarter),
          _isOneTrack(options.format == 0), _saysNotation(options.saysNotation && !_isOneTrack)
    {
        addConductor(model, plan, _ticks, builderOf(0).meta(), report);
        if (_saysNotation)
            addWrittenMeters(model, plan, _ticks, builderOf(0).meta());
        findLanes();
    }

    std::vector<MidiTrack> build()
    {
        addControls();
        for (std::size_t lane = 0; lane < _plan.lanes().size(); ++lane)
            if (_isUsed[lane])
                addPitchWheel(_plan, lane, _ticks, builderOfLane(lane));
        for (const PlannedNote &note : _plan.notes())
            builderOfLane(note.lane).addNote(_ticks.tickOf(note.start), _ticks.tickOf(note.end),
                                             _plan.lanes()[note.lane].channel, note.key,
                                             note.velocity);
        for (const auto &track : _model.tracks()) // their main lanes come first
            addLyrics(*track, _plan, _ticks, builderOfLane(track->index()).meta());
        if (_saysNotation)
            addNotation();
        std::vector<MidiTrack> tracks;
        for (MidiTrackBuilder &builder : _builders)
            tracks.push_back(builder.finish(_ticks.tickOf(_plan.end())));
        return tracks;
    }

private:
    MidiTrackBuilder &builderOf(std::size_t index)
    {
        if (index >= _builders.size())
            _builders.resize(index + 1);
        return _builders[index];
    }
    MidiTrackBuilder &builderOfLane(std::size_t lane) { return _builders[_builderOfLane[lane]]; }

    /// The lanes in use, and the main one of a track without notes, which keeps its place.
    void findLanes()
    {
        const auto &lanes = _plan.lanes();
        _isUsed.assign(lanes.size(), false);
        std::vector<bool> hasNotes(_model.trackCount());
        for (const PlannedNote &note : _plan.notes())
            _isUsed[note.lane] = hasNotes[note.track] = true;
        for (unsigned track = 0; track < _model.trackCount(); ++track)
            if (!hasNotes[track])
                _isUsed[track] = true; // the main lanes come first
        _builderOfLane.assign(lanes.size(), 0);
        if (_isOneTrack)
            return;
        for (unsigned track = 0; track < _model.trackCount(); ++track) {
            std::map<unsigned, std::size_t> builders;
            for (std::size_t lane = 0; lane < lanes.size(); ++lane) {
                if (lanes[lane].track != track || !_isUsed[lane])
                    continue;
                const auto [place, isNew] = builders.insert({lanes[lane].port, _builders.size()});
                if (isNew)
                    startTrack(builderOf(place->second), track, lanes[lane].port);
                _builderOfLane[lane] = place->second;
            }
        }
    }

    void startTrack(MidiTrackBuilder &builder, unsigned track, unsigned port) const
    {
        builder.meta().addMeta(0, MidiMeta::TrackName, inOneLine(_model.tracks()[track]->name()));
        const char byte = static_cast<char>(port);
        if (port != 0)
            builder.meta().addMeta(0, MidiMeta::Port, {&byte, 1});
    }

    /// How the tracks are written that are whole in one track of the file.
    void addNotation()
    {
        std::vector<MidiTrack *> tracks;
        for (unsigned track = 0; track < _model.trackCount(); ++track)
            tracks.push_back(&_builders[mainBuilder(track)].meta());
        for (std::size_t lane = 0; lane < _plan.lanes().size(); ++lane) {
            const unsigned track = _plan.lanes()[lane].track;
            if (_isUsed[lane] && _builderOfLane[lane] != mainBuilder(track))
                tracks[track] = nullptr;
        }
        addNotatedBars(_model, _plan, _ticks, tracks);
    }

    /// That of the first lane of a track that is in use.
    std::size_t mainBuilder(unsigned track) const
    {
        for (std::size_t lane = 0; lane < _plan.lanes().size(); ++lane)
            if (_plan.lanes()[lane].track == track && _isUsed[lane])
                return _builderOfLane[lane];
        return 0;
    }

    void addControls()
    {
        std::vector<bool> hasBanks(_model.trackCount());
        for (const PlannedControl &control : _plan.controls())
            if (control.kind == PlannedControl::Kind::Program && control.value != 0)
                hasBanks[control.track] = true;
        std::vector<std::vector<std::size_t>> lanes(_model.trackCount());
        for (std::size_t lane = 0; lane < _plan.lanes().size(); ++lane)
            if (_isUsed[lane])
                lanes[_plan.lanes()[lane].track].push_back(lane);
        for (const PlannedControl &control : _plan.controls())
            for (const std::size_t lane : lanes[control.track])
                addControl(control, lane, hasBanks[control.track]);
    }

    void addControl(const PlannedControl &control, std::size_t laneIndex, bool hasBanks)
    {
        constexpr int values = 128;
        const Lane &lane = _plan.lanes()[laneIndex];
        MidiTrackBuilder &builder = builderOfLane(laneIndex);
        const std::uint64_t tick = _ticks.tickOf(control.time);
        if (control.kind == PlannedControl::Kind::Controller) {
            builder.addControl(tick, lane.channel, control.number, control.value);
            return;
        }
        // The sound of an instrument says nothing about knocks on its body.
        const bool isKit = lane.channel == MidiConnection::PercussionChannel;
        if (isKit && !InstrumentSet::isUnpitched(_model.tracks()[lane.track]->type()))
            return;
        if (hasBanks) {
            builder.addControl(tick, lane.channel, static_cast<int>(MidiControl::Bank),
                               control.value / values);
            builder.addControl(tick, lane.channel, static_cast<int>(MidiControl::BankFine),
                               control.value % values);
        }
        builder.add(tick, MidiTrackBuilder::Rank::Change, MidiMessage::Program, lane.channel,
                    control.number);
    }

    const ScoreModel &_model;
    const playback::PlaybackPlan &_plan;
    const TickMap _ticks;
    bool _isOneTrack;
    bool _saysNotation;
    std::vector<MidiTrackBuilder> _builders;
    std::vector<std::size_t> _builderOfLane;
    std::vector<bool> _isUsed;
};

} // namespace

MidiExporter::MidiExporter(const MidiExportOptions &options) : _options(options)
{
    ZARN_ASSERT_IN("zarn::io::MidiExporter::MidiExporter",
                   options.ticksPerQuarter >= MidiExportOptions::LeastTicks
                       && options.ticksPerQuarter <= MidiExportOptions::MostTicks);
    ZARN_ASSERT_IN("zarn::io::MidiExporter::MidiExporter",
                   options.format == 0 || options.format == 1);
}

MidiExporter::~MidiExporter() = default;

std::string MidiExporter::description() const
{
    return "MIDI file";
}

std::list<std::string> MidiExporter::extensions() const
{
    return {"mid", "midi"};
}

MidiFile MidiExporter::toFile(const ScoreModel &model, ExportReport &report) const
{
    playback::PlanOptions options;
    options.audibility = playback::Audibility::Everything;
    options.channels = _options.channels;
    const playback::PlaybackPlan plan(model, options);
    for (const auto &unknown : plan.unknownSounds())
        report.addProblem({"percussion without a sound of its own is played as a side stick",
                           static_cast<int>(unknown.track), static_cast<int>(unknown.bar)});
    MidiFile file;
    file.format = _options.format;
    file.division = MidiDivision::ofQuarter(_options.ticksPerQuarter);
    file.tracks = FileBuilder(model, plan, _options, report).build();
    return file;
}

void MidiExporter::write(const ScoreModel &model, filesystem::FileHandle &handle,
                         ExportReport &report) const
{
    MidiFileWriter().write(toFile(model, report), handle);
}

} // namespace zarn::io
