// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>

#include <QString>

#include <cstdint>
#include <string>

/// Enumerations of what belongs to tracks, pages and whole documents.
/// The texts are the vocabulary of documents and command arguments; `ZarnTypes.h` says how they
/// are read and printed.
namespace zarn {

/// The icon of a track.
enum class ZarnIconID : std::uint8_t {
    SteelGuitar = 1,
    AcousticGuitar,
    TwelveStringsGuitar,
    ElectricGuitar,
    ElectricBass,
    UprightBass,
    Ukulele,
    Banjo,
    Mandolin,
    Piano,
    Bowed,
    Synthesizer,
    Brass,
    Reed,
    Woodwind,
    Vocal,
    PitchedIdiophone,
    PercussionKit,
    Idiophone,
    Membraphone,
    Fx,
    AcousticGuitarFolk,
    AcousticGuitarClassical,
    ElectricGuitarHumbucker,
    ElectricGuitarSingleCoil,
    ElectricGuitarTele,
};

/// What a check of the score can find wrong with a bar or a beat.
enum class ZarnScoreError : std::uint8_t {
    OutOfRangeError,
    SimileError,
    TupletError,
    HoPoError,
    BarLengthError,
    UnreachableBarError,
};

/// The texts of the title page; printed only.
enum class ScoreProperty : std::uint8_t {
    Title,
    Subtitle,
    Artist,
    Album,
    Words,
    Music,
    WordsAndMusic,
    Copyright,
    Tabber,
    Instructions,
    Notice,
};

ZARNCORE_EXPORT std::string iconIDToString(ZarnIconID value);
ZARNCORE_EXPORT ZarnIconID iconIDFromString(const std::string &text);

ZARNCORE_EXPORT std::string scoreErrorToString(ZarnScoreError value);
ZARNCORE_EXPORT ZarnScoreError scoreErrorFromString(const std::string &text);

/// "Unknown (%0)" with the number in place of %0 for a value that is not listed.
ZARNCORE_EXPORT QString scorePropertyToQString(ScoreProperty property);

/// The views of a score: how far they are zoomed.
struct ScoreViewCollection {
    enum class ZoomPolicy : std::uint8_t {
        Value,
        FitWidth,
        FitHeight,
        FitPage,
    };
};

ZARNCORE_EXPORT std::string zoomPolicyToString(ScoreViewCollection::ZoomPolicy value);
ZARNCORE_EXPORT ScoreViewCollection::ZoomPolicy zoomPolicyFromString(const std::string &text);

} // namespace zarn
