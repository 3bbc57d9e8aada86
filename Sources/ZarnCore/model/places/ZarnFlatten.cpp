// SPDX-License-Identifier: MIT
#include <ZarnCore/model/places/ZarnFlatten.h>

#include <ZarnCore/instruments/tunings/ZarnGuitarTuningLibrary.h>
#include <ZarnCore/model/ZarnScoreModel.h>

#include <algorithm>
#include <tuple>

namespace zarn::flatten {
namespace {

template <class Visit>
void visitVoices(const Voice &voice, const Visit &visit)
{
    visit(voice);
}

template <class Visit>
void visitVoices(const Bar &bar, const Visit &visit)
{
    for (const auto &voice : bar.voices())
        if (voice)
            visit(*voice);
}

template <class Visit>
void visitVoices(const Staff &staff, const Visit &visit)
{
    for (const auto &bar : staff.bars())
        visitVoices(*bar, visit);
}

template <class Visit>
void visitVoices(const Track &track, const Visit &visit)
{
    for (const auto &staff : track.staves())
        visitVoices(*staff, visit);
}

template <class Visit>
void visitVoices(const ScoreModel &model, const Visit &visit)
{
    for (const auto &track : model.tracks())
        visitVoices(*track, visit);
}

template <class Visit>
void visitVoices(const Level &level, const Visit &visit)
{
    std::visit([&visit](const auto *node) { visitVoices(*node, visit); }, level.node());
}

template <class Visit>
void visitTracks(const ScoreModel &model, unsigned typeMask, const Visit &visit)
{
    for (const auto &track : model.tracks())
        if ((track->type() & typeMask) != 0)
            visit(track);
}

template <class Nodes>
void append(Nodes &nodes, const Nodes &more)
{
    nodes.insert(nodes.end(), more.begin(), more.end());
}

bool comesBefore(const std::shared_ptr<Note> &left, const std::shared_ptr<Note> &right)
{
    const auto key = [](const Note &note) {
        return std::make_tuple(note.string(), note.midi(), note.staffLine(),
                               note.percussionArticulation());
    };
    return key(*left) < key(*right);
}

void appendNotes(Notes &notes, const Beat &beat, bool sorted)
{
    append(notes, beat.notes());
    const auto block = notes.end() - static_cast<std::ptrdiff_t>(beat.noteCount());
    if (sorted && !std::is_sorted(block, notes.end(), comesBefore))
        std::stable_sort(block, notes.end(), comesBefore);
}

} // namespace

Tracks tracks(const ScoreModel &model, unsigned typeMask)
{
    Tracks found;
    visitTracks(model, typeMask, [&found](const auto &track) { found.push_back(track); });
    return found;
}

unsigned trackCount(const ScoreModel &model, unsigned typeMask)
{
    unsigned count = 0;
    visitTracks(model, typeMask, [&count](const auto &) { ++count; });
    return count;
}

Staves staves(const ScoreModel &model, unsigned typeMask)
{
    Staves found;
    visitTracks(model, typeMask, [&found](const auto &track) { append(found, track->staves()); });
    return found;
}

unsigned staffCount(const ScoreModel &model, unsigned typeMask)
{
    unsigned count = 0;
    visitTracks(model, typeMask, [&count](const auto &track) { count += track->staffCount(); });
    return count;
}

Staves staves(const Track &track)
{
    return track.staves();
}

unsigned staffCount(const Track &track)
{
    return track.staffCount();
}

Beats beats(const Level &level)
{
    Beats found;
    found.reserve(beatCount(level));
    visitVoices(level, [&found](const Voice &voice) { append(found, voice.beats()); });
    return found;
}

unsigned beatCount(const Level &level)
{
    unsigned count = 0;
    visitVoices(level, [&count](const Voice &voice) { count += voice.beatCount(); });
    return count;
}

Beats beats(const Bar &bar, const utils::rational &drawingOffset)
{
    return bar.findBeatAtDrawingOffset(drawingOffset);
}

Notes notes(const Level &level, bool sorted)
{
    Notes found;
    found.reserve(noteCount(level));
    visitVoices(level, [&found, sorted](const Voice &voice) {
        for (const auto &beat : voice.beats())
            appendNotes(found, *beat, sorted);
    });
    return found;
}

Notes notes(const Beat &beat)
{
    return beat.notes();
}

unsigned noteCount(const Level &level)
{
    unsigned count = 0;
    visitVoices(level, [&count](const Voice &voice) {
        for (const auto &beat : voice.beats())
            count += beat->noteCount();
    });
    return count;
}

unsigned noteCount(const Beat &beat)
{
    return beat.noteCount();
}

Notes notes(const Bar &bar, const utils::rational &drawingOffset, bool sorted)
{
    const Beats found = beats(bar, drawingOffset);
    Notes notes;
    unsigned count = 0;
    for (const auto &beat : found)
        count += beat->noteCount();
    notes.reserve(count);
    for (const auto &beat : found)
        appendNotes(notes, *beat, sorted);
    return notes;
}

Tunings tunings(const GuitarTuningLibrary &library)
{
    return library.getTunings(GuitarTuningLibrary::allRoles);
}

} // namespace zarn::flatten
