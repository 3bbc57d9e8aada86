// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>
#include <ZarnCore/music/ZarnKeySignature.h>
#include <ZarnCore/music/ZarnToneSet.h>
#include <ZarnCore/scales/ZarnScale.h>

#include <array>
#include <optional>
#include <vector>

namespace zarn::scale {

/// How long each pitch class is heard, in any unit, and what tells which of them is the tonic.
struct HeardTones {
    std::array<double, 12> weights = {};
    /// The bass at the end and at the beginning.
    std::optional<Tone> lastBass;
    std::optional<Tone> firstBass;

    void add(Tone tone, double weight)
    {
        weights[static_cast<std::size_t>(tone.value())] += weight;
    }

    /// Every MIDI number counts once; the lowest one is the bass.
    ZARNCORE_EXPORT static HeardTones ofPitches(const std::vector<int> &pitches);
};

/// A scale that heard tones may belong to.
struct ScaleName {
    Scale scale;
    /// Weight of what is heard inside of the scale and outside of it.
    double inside = 0;
    double outside = 0;
    /// Tones of the scale that are not heard.
    int unheardTones = 0;
};

/// Finds the scales that tones may belong to.
///
/// In this order count: the weight inside of the scale less that outside, how many tones of the
/// scale are not heard, and how usual the scale is. Tones that hardly last do not count. Scales of
/// the same tones stand together; among them the tonic decides: the last bass, the first bass, the
/// tonic of the key.
class ZARNCORE_EXPORT ScaleRecognizer {
public:
    /// The key says how tonics are spelled that have two names.
    explicit ScaleRecognizer(const KeySignature &key = KeySignature());

    /// The best scales, at most `limit`; none when nothing is heard.
    std::vector<ScaleName> names(const HeardTones &heard, std::size_t limit = 12) const;

    /// The scales of exactly these tones, that on the tonic first; a look-up in a table.
    std::vector<Scale> exact(ToneSet tones, Tone tonic) const;

private:
    Scale onTone(Tone tonic, const ScaleKind &kind) const;

    KeySignature _key;
    Tone _keyTonic;
};

} // namespace zarn::scale
