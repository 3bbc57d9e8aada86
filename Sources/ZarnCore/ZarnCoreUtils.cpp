// SPDX-License-Identifier: MIT
#include <ZarnCore/ZarnCoreUtils.h>

#include <ZarnCore/VoiceSearch.h>
#include <ZarnCore/instruments/effects/ZarnHVVolumePan.h>
#include <ZarnCore/instruments/effects/ZarnVolumePan.h>
#include <ZarnCore/io/ZarnScoreText.h>
#include <ZarnCore/model/ZarnBar.h>
#include <ZarnCore/model/ZarnMasterBar.h>
#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/model/clip/PartCopy.h>
#include <ZarnCore/score/ZarnScore.h>

#include <algorithm>
#include <cmath>
#include <set>
#include <utility>

namespace zarn {

namespace {

/// The answer of the track's score; false when there is none.
bool askScore(const Track *track, bool (Score::*question)(unsigned) const)
{
    const auto model = track != nullptr ? track->parentScoreModel() : nullptr;
    const Score *const score = model != nullptr ? model->parentScore() : nullptr;
    return score != nullptr && (score->*question)(track->index());
}

/// Tracks in the order in which they come, with their bars.
using Parts = std::vector<std::pair<unsigned, std::set<unsigned>>>;

std::unique_ptr<Score> copyParts(const Score &score, const Parts &parts,
                                 std::vector<unsigned> columns)
{
    auto preview = std::make_unique<Score>(score.rendererStyleSheet());
    const PartCopy copy(*score.scoreModel(), *preview->scoreModel(), std::move(columns));
    copy.copySettings();
    copy.copyMasterTrack();
    std::vector<unsigned> tracks;
    for (const auto &[track, bars] : parts) {
        copy.copyTrack(track, bars);
        tracks.push_back(track);
    }
    copy.copyTrackGroups(tracks);
    return preview;
}

std::set<unsigned> &barsOf(Parts &parts, unsigned track)
{
    const auto found = std::find_if(parts.begin(), parts.end(),
                                    [track](const auto &part) { return part.first == track; });
    return found != parts.end() ? found->second
                                : parts.emplace_back(track, std::set<unsigned>()).second;
}

} // namespace

void ZarnCoreUtils::set_clef(BarIterator first, BarIterator last, ClefType clef)
{
    for (; first != last; ++first)
        (*first)->setClef(clef);
}

void ZarnCoreUtils::set_key_signature(MasterBarIterator first, MasterBarIterator last,
                                      const KeySignature &key)
{
    for (; first != last; ++first)
        (*first)->setConcertKeySignature(key);
}

void ZarnCoreUtils::set_time_signature(MasterBarIterator first, MasterBarIterator last,
                                       const TimeSignature &signature)
{
    for (; first != last; ++first)
        (*first)->setTimeSignature(signature);
}

Halvec::audio::HVVolumePan
ZarnCoreUtils::convertZarnVolumePanToHVVolumePan(const ZarnVolumePan &volumePan) noexcept
{
    return {20 * std::log10(double(volumePan.volume())), double(volumePan.pan())};
}

ZarnVolumePan
ZarnCoreUtils::convertHVVolumePanToZarnVolumePan(const Halvec::audio::HVVolumePan &volumePan)
{
    const double gain =
        std::isnan(volumePan.decibels) ? 0 : std::pow(10.0, std::min(volumePan.decibels, 0.0) / 20);
    const double pan = std::isnan(volumePan.pan) ? 0 : std::clamp(volumePan.pan, -1.0, 1.0);
    return {static_cast<float>(gain), static_cast<float>(pan)};
}

bool ZarnCoreUtils::trackHasSlash(const Track *track)
{
    return askScore(track, &Score::hasSlash);
}

bool ZarnCoreUtils::trackHasStdNotation(const Track *track)
{
    return askScore(track, &Score::hasStdNotation);
}

bool ZarnCoreUtils::trackHasTablature(const Track *track)
{
    return askScore(track, &Score::hasTablature);
}

std::shared_ptr<const Beat> ZarnCoreUtils::findNextBeat(const std::shared_ptr<const Beat> &beat,
                                                        const BeatPredicate &accepts,
                                                        const std::shared_ptr<const Beat> &limit,
                                                        SearchDeep deep)
{
    return zarn::findBeat(beat, accepts, limit, deep, Walk::Forwards);
}

std::shared_ptr<const Beat>
ZarnCoreUtils::findPreviousBeat(const std::shared_ptr<const Beat> &beat,
                                const BeatPredicate &accepts,
                                const std::shared_ptr<const Beat> &limit, SearchDeep deep)
{
    return zarn::findBeat(beat, accepts, limit, deep, Walk::Backwards);
}

std::shared_ptr<const Note> ZarnCoreUtils::findNextNote(const std::shared_ptr<const Note> &note,
                                                        const NotePredicate &accepts,
                                                        const std::shared_ptr<const Note> &limit,
                                                        SearchDeep deep)
{
    return zarn::findNote(note, accepts, limit, deep, Walk::Forwards);
}

std::shared_ptr<const Note>
ZarnCoreUtils::findPreviousNote(const std::shared_ptr<const Note> &note,
                                const NotePredicate &accepts,
                                const std::shared_ptr<const Note> &limit, SearchDeep deep)
{
    return zarn::findNote(note, accepts, limit, deep, Walk::Backwards);
}

std::shared_ptr<const Note>
ZarnCoreUtils::findFirstNextNote(const std::shared_ptr<const Note> &note, NoteSlot slot)
{
    return zarn::findFirstNote(note, slot, Walk::Forwards);
}

std::shared_ptr<const Note>
ZarnCoreUtils::findFirstPreviousNote(const std::shared_ptr<const Note> &note, NoteSlot slot)
{
    return zarn::findFirstNote(note, slot, Walk::Backwards);
}

std::shared_ptr<const Note>
ZarnCoreUtils::findTieOriginNote(const std::shared_ptr<const Note> &note, NoteSlot slot)
{
    return zarn::findTieOriginNote(note, slot);
}

std::shared_ptr<const Note>
ZarnCoreUtils::findBendOriginNote(const std::shared_ptr<const Note> &note, NoteSlot slot)
{
    return zarn::findBendOriginNote(note, slot);
}

std::unique_ptr<Score> ZarnCoreUtils::make_from_string(const std::string &text)
{
    auto score = std::make_unique<Score>();
    io::readScoreText(text, *score->scoreModel());
    return score;
}

std::unique_ptr<Score> ZarnCoreUtils::make_score_preview(const Score &score,
                                                         const std::vector<unsigned> &tracks)
{
    const unsigned barCount = score.masterTrack()->masterBarCount();
    std::set<unsigned> bars;
    for (unsigned bar = 0; bar < barCount; ++bar)
        bars.insert(bars.end(), bar);
    Parts parts;
    for (const unsigned track : tracks) {
        if (track < score.trackCount())
            barsOf(parts, track) = bars;
    }
    return copyParts(score, parts, {bars.begin(), bars.end()});
}

std::unique_ptr<Score> ZarnCoreUtils::make_score_preview(const Score &score, const BarPlaces &bars)
{
    Parts parts;
    std::set<unsigned> columns;
    for (const auto &[track, bar] : bars) {
        if (track >= score.trackCount() || bar >= score.masterTrack()->masterBarCount())
            continue;
        barsOf(parts, track).insert(bar);
        columns.insert(bar);
    }
    return copyParts(score, parts, {columns.begin(), columns.end()});
}

std::unique_ptr<Score> ZarnCoreUtils::make_score_preview(const Score &score, const BarPlaces &bars,
                                                         const GuitarTuning &tuning)
{
    auto preview = make_score_preview(score, bars);
    if (tuning.stringCount() == 0)
        return preview;
    for (const auto &track : preview->tracks()) {
        for (const auto &staff : track->staves()) {
            if (staff->isFretted())
                preview->setGuitarFullTuning(track->index(), staff->index(), tuning,
                                             staff->capoFret(), Retuning::KeepPitches);
        }
    }
    preview->commandStack().clear();
    return preview;
}

} // namespace zarn
