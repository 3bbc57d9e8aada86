// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnTypes.h>
#include <ZarnCore/io/native/EnumCodec.h>
#include <ZarnCore/music/ZarnNoteDynamic.h>
#include <ZarnCore/music/ZarnPitchClass.h>
#include <ZarnCore/music/ZarnRhythmValue.h>
#include <ZarnCore/music/ZarnTimeSignature.h>
#include <ZarnCore/utils/rational.h>

#include <optional>

namespace zarn::io::native {

/// A rhythm as a short text: the note value as the part of a whole note that it is ("4" a quarter,
/// "128"; "2x" and "4x" two and four whole notes), its dots ("4."), then "/notes:time" of the
/// primary and of the secondary tuplet: "8/3:2", "16./3:2/5:4". More than three dots are counted:
/// "4.*12". A secondary tuplet without a primary one stands behind "/0:0".
template <>
struct Codec<RhythmValue> {
    static void write(DocumentWriter &writer, const RhythmValue &rhythm);
    static RhythmValue read(DocumentReader &reader, const Json &json);
};

/// An exact fraction as "3/4", or "2" when it is whole.
template <>
struct Codec<utils::rational> {
    static void write(DocumentWriter &writer, const utils::rational &value);
    static utils::rational read(DocumentReader &reader, const Json &json);
};

/// A fraction of 0 or more.
struct PlaceInBar {
    static void write(DocumentWriter &writer, const utils::rational &value);
    static utils::rational read(DocumentReader &reader, const Json &json);
};

/// A spelling as letter and accidental: "C", "F#", "Ebb".
template <>
struct Codec<PitchClass> {
    static void write(DocumentWriter &writer, const PitchClass &pitch);
    static PitchClass read(DocumentReader &reader, const Json &json);
};

/// "PPPPPPP" to "FFFFFFF", or "NONE".
template <>
struct Codec<NoteDynamic> {
    static void write(DocumentWriter &writer, const NoteDynamic &dynamic);
    static NoteDynamic read(DocumentReader &reader, const Json &json);
};

/// "3/4".
template <>
struct Codec<TimeSignature> {
    static void write(DocumentWriter &writer, const TimeSignature &signature);
    static TimeSignature read(DocumentReader &reader, const Json &json);
};

/// A value that may be missing; when it is, its member is left out.
template <typename T>
struct Codec<std::optional<T>> {
    static void write(DocumentWriter &writer, const std::optional<T> &value)
    {
        Codec<T>::write(writer, *value);
    }
    static T read(DocumentReader &reader, const Json &json) { return Codec<T>::read(reader, json); }
};

} // namespace zarn::io::native
