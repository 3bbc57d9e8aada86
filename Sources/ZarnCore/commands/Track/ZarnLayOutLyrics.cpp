// SPDX-License-Identifier: MIT
#include <ZarnCore/commands/Track/ZarnLayOutLyrics.h>

#include <ZarnCore/commands/ZarnTouchedBars.h>
#include <ZarnCore/events/ZarnTrackEvents.h>
#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/score/ZarnScoreBase.h>

#include <algorithm>
#include <utility>

namespace zarn {

namespace {

Syllables withSyllable(const Syllables &syllables, unsigned line,
                       const std::optional<LyricSyllable> &syllable)
{
    Syllables changed;
    for (const Syllable &other : syllables)
        if (other.line != line)
            changed.push_back(other);
    if (!syllable)
        return changed;
    const auto behind = std::find_if(changed.begin(), changed.end(),
                                     [line](const Syllable &other) { return other.line > line; });
    changed.insert(behind,
                   Syllable{static_cast<std::uint8_t>(line), syllable->syllabic,
                            syllable->hasMelisma, syllable->text});
    return changed;
}

Beat &beatAt(const Track &track, unsigned voice, unsigned bar, unsigned beat)
{
    return *track.bars(0)[bar]->voices()[voice]->beats()[beat];
}

void setLeftOver(Track &track, unsigned line, const std::string &text)
{
    auto texts = track.lyricsLeftOver();
    texts[line] = text;
    track.setLyricsLeftOver(texts);
}

} // namespace

bool LayOutLyrics::prepare(Score *score, unsigned track, unsigned line, unsigned firstBar)
{
    setScore(score);
    _track = track;
    _line = line;
    _firstBar = firstBar;
    return line < Syllable::LineCount && expectPlace([this] {
               const Track *const place = this->track();
               return place != nullptr && layout(LyricLine(*place, _line)).has_value();
           });
}

Track *LayOutLyrics::track() const
{
    const auto track = model().track(_track);
    return track && _firstBar < track->barCount() ? track.get() : nullptr;
}

void LayOutLyrics::apply()
{
    Track *const track = this->track();
    requirePlace(track != nullptr);
    const LyricLine line(*track, _line);
    const auto layout = this->layout(line);
    requirePlace(layout.has_value());
    _voice = line.voice();
    _leftOver = track->lyricsLeftOver()[_line];
    if (!layout->changes.empty())
        keepSpans(_track, 0, layout->changes.front().bar, layout->changes.back().bar);
    std::vector<Place> changed;
    changed.reserve(layout->changes.size());
    try {
        for (const LyricLine::Change &change : layout->changes) {
            Beat &beat = beatAt(*track, _voice, change.bar, change.beat);
            changed.push_back({change.bar, change.beat, beat.lyrics()});
            beat.setLyrics(withSyllable(beat.lyrics(), _line, change.syllable));
        }
        setLeftOver(*track, _line, layout->leftOver);
    } catch (...) {
        for (const Place &place : changed)
            beatAt(*track, _voice, place.bar, place.beat).setLyrics(place.before);
        throw;
    }
    _changed = std::move(changed);
}

void LayOutLyrics::revert()
{
    Track *const track = this->track();
    ZARN_ASSERT_IN("zarn::LayOutLyrics::revert", track != nullptr);
    for (const Place &place : _changed)
        beatAt(*track, _voice, place.bar, place.beat).setLyrics(place.before);
    setLeftOver(*track, _line, _leftOver);
}

void LayOutLyrics::announce()
{
    score().notify(this, evt::LyricsChanged(static_cast<int>(_track)));
    TouchedBars touched;
    if (!_changed.empty())
        touched.add(_track, 0, _changed.front().bar, _changed.back().bar);
    touched.announce(score(), this);
}

} // namespace zarn
