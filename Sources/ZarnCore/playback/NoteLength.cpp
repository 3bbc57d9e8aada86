// SPDX-License-Identifier: MIT
#include <ZarnCore/playback/NoteLength.h>

#include <algorithm>
#include <optional>

namespace zarn::playback {

namespace {

const utils::rational sixteenth(1, 4);
const utils::rational sixtyFourth(1, 16);

/// The share that signs leave of a note; nothing without signs.
std::optional<utils::rational> shareOfSigns(const Beat &beat, const Note &note)
{
    const AccentFlags signs = note.accents();
    const bool isHeld = signs.has(AccentFlag::Tenuto);
    if (signs.has(AccentFlag::Staccatissimo))
        return utils::rational(1, 4);
    if (signs.has(AccentFlag::Staccato))
        return isHeld ? utils::rational(3, 4) : utils::rational(1, 2);
    if (note.isPalmMuted())
        return utils::rational(3, 5);
    if (beat.bassAttack() == BassAttack::Slap)
        return utils::rational(4, 5);
    if (isHeld)
        return utils::rational(1);
    return std::nullopt;
}

bool leadsOn(const Beat &beat, const Note &note)
{
    return beat.isSlurredToNext() || note.isHopo() || note.slideOut() == SlideOut::Shift
        || note.slideOut() == SlideOut::Legato;
}

utils::rational gapBehind(const Beat &beat, const Note &note, const utils::rational &length)
{
    return leadsOn(beat, note) ? utils::rational() : std::min(length / 20, sixtyFourth);
}

} // namespace

utils::rational silenceOfBreath(const utils::rational &length)
{
    return std::min(length / 4, sixteenth);
}

utils::rational soundingLength(const Beat &lastBeat, const Note &last,
                               const utils::rational &length, const utils::rational &lastLength)
{
    if (last.isDead())
        return std::min(length, sixteenth);
    const utils::rational breath =
        lastBeat.breath() == BreathSign::None ? utils::rational() : silenceOfBreath(lastLength);
    if (const auto share = shareOfSigns(lastBeat, last))
        return length - std::max(breath, lastLength * (utils::rational(1) - *share));
    return length - std::max(breath, gapBehind(lastBeat, last, length));
}

utils::rational strokeLength(const Beat &beat, const Note &note, const utils::rational &length,
                             bool isLast)
{
    if (note.isDead())
        return std::min(length, sixteenth);
    if (const auto share = shareOfSigns(beat, note))
        return length * *share;
    return isLast ? length - gapBehind(beat, note, length) : length;
}

} // namespace zarn::playback
