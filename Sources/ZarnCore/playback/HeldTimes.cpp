// SPDX-License-Identifier: MIT
#include <ZarnCore/playback/HeldTimes.h>

#include <ZarnCore/playback/NoteLength.h>
#include <ZarnCore/playback/PlayingTime.h>

#include <algorithm>
#include <optional>

namespace zarn::playback {

namespace {

using utils::rational;

constexpr double caesuraFactor = 3;
const rational pauseLength(1, 4);

/// A stretch of a bar as written.
struct HeldPart {
    rational start;
    rational end;
    double factor;
};

template <class Use>
void forEachBeat(const ScoreModel &model, unsigned bar, const Use &use)
{
    for (const auto &track : model.tracks())
        for (const auto &staff : track->staves()) {
            if (bar >= staff->barCount())
                continue;
            for (const auto &voice : staff->bars()[bar]->voices()) {
                if (!voice)
                    continue;
                rational offset;
                for (const auto &beat : voice->beats()) {
                    rational end = offset;
                    advance(end, beat->length());
                    if (!beat->isGrace())
                        use(*beat, offset, end);
                    offset = end;
                }
            }
        }
}

/// Where the time under a fermata ends; nothing where no beat stands.
std::optional<rational> endUnder(const ScoreModel &model, unsigned bar, const rational &position)
{
    std::optional<rational> begun;
    std::optional<rational> sounding;
    const auto shorten = [](std::optional<rational> &shortest, const rational &end) {
        if (!shortest || end < *shortest)
            shortest = end;
    };
    forEachBeat(model, bar, [&](const Beat &, const rational &start, const rational &end) {
        if (start == position && end > start)
            shorten(begun, end);
        else if (start < position && end > position)
            shorten(sounding, end);
    });
    return begun ? begun : sounding;
}

std::vector<HeldPart> heldParts(const ScoreModel &model, unsigned bar, const rational &length,
                                bool hasCaesura)
{
    std::vector<HeldPart> parts;
    for (const FermataMark &mark : model.masterTrack()->masterBars()[bar]->fermatas()) {
        const double stretch = mark.stretch / 100.0;
        const rational position = std::min(bounded(mark.position), length);
        if (const auto end = endUnder(model, bar, position)) {
            parts.push_back({position, *end, 1 + stretch});
        } else if (position.sign() > 0) {
            const rational pause = std::min(pauseLength, position);
            parts.push_back({position - pause, position, 1 + stretch / pause.toDouble()});
        }
    }
    if (hasCaesura)
        forEachBeat(model, bar, [&](const Beat &beat, const rational &start, const rational &end) {
            if (beat.breath() == BreathSign::Caesura && end > start)
                parts.push_back({bounded(end - silenceOfBreath(end - start)), end, caesuraFactor});
        });
    std::stable_sort(parts.begin(), parts.end(), [](const HeldPart &left, const HeldPart &right) {
        return left.start < right.start;
    });
    return parts;
}

} // namespace

std::vector<HeldTime> heldTimes(const ScoreModel &model, const PlayedBars &bars,
                                const std::vector<bool> &hasCaesura)
{
    std::vector<HeldTime> held;
    for (const PlayedBar &played : bars.bars()) {
        const MasterBar &master = *model.masterTrack()->masterBars()[played.bar];
        if (master.fermatas().empty() && !hasCaesura[played.bar])
            continue;
        for (const HeldPart &part :
             heldParts(model, played.bar, played.length, hasCaesura[played.bar])) {
            HeldTime time{bounded(played.start + part.start), bounded(played.start + part.end),
                          part.factor};
            if (!held.empty())
                time.start = std::max(time.start, held.back().end);
            if (time.start < time.end)
                held.push_back(time);
        }
    }
    return held;
}

} // namespace zarn::playback
