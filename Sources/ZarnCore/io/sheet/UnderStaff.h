// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/io/sheet/BeatPlace.h>
#include <ZarnCore/io/sheet/StretchRun.h>
#include <ZarnCore/model/ZarnBar.h>

#include <array>
#include <map>
#include <optional>

namespace zarn {

enum class PedalChange : std::uint8_t;

namespace sheet {

struct Glyphs;
class Legend;

/// Writes what stands under one staff: fingerings, lyrics, dynamics with their hairpins, the pedal.
class UnderStaff {
public:
    static constexpr unsigned lyricLines = 5;

    struct Lanes {
        int rightHand;
        int leftHand;
        std::array<int, lyricLines> lyrics;
        int dynamics;
        int pedal;
    };

    UnderStaff(Sheet &sheet, const Lanes &lanes, const Glyphs &glyphs, Legend &legend);

    void write(const BeatPlace &place, SheetBar &into);
    void endBar(SheetBar &into);

    /// Takes the dynamics of this voice for those of the staff.
    void showOnlyVoice(unsigned voice) noexcept { _mainVoice = voice; }

    /// Leaves the other lines of lyrics out; bit 0 is the first.
    void showOnlyLyrics(unsigned lines) noexcept { _shownLyrics = lines; }

private:
    void writeFingers(const BeatPlace &place, SheetBar &into);
    void writeLyrics(const BeatPlace &place, SheetBar &into);
    void writeDynamics(const BeatPlace &place, SheetBar &into);
    void writePedal(const ColumnKey &column, PedalChange change, SheetBar &into);
    void beginPedal(const ColumnKey &column, const QString &words, SheetBar &into);
    QString newDynamic(const Beat &beat, unsigned voice);

    struct VoiceState {
        explicit VoiceState(Sheet &sheet) : hairpin(sheet) { }

        StretchRun hairpin;
        QString dynamic; ///< in force

        /// What stands under notes that sing on, by line.
        std::array<QString, lyricLines> sungOn;
    };

    Sheet &_sheet;
    Lanes _lanes;
    const Glyphs &_glyphs;
    Legend &_legend;
    unsigned _mainVoice = 0;
    unsigned _shownLyrics = (1U << lyricLines) - 1;
    std::vector<VoiceState> _voices;
    StretchRun _pedal;
    std::map<ColumnKey, PedalChange> _pedalChanges; ///< of the bar that is written
};

} // namespace sheet
} // namespace zarn
