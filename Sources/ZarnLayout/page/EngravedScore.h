// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnLayout/engrave/EngravedBar.h>
#include <ZarnLayout/engrave/Problems.h>
#include <ZarnLayout/source/Rows.h>
#include <ZarnLayout/source/SungBeats.h>
#include <ZarnLayout/space/BarSpacer.h>

#include <ZarnCore/model/layout/ZarnTrackGroup.h>

#include <memory>
#include <string>
#include <vector>

namespace zarn::engraving {

/// A bar as it is shown, or bars of rest under one sign.
struct ShownBar {
    unsigned bar = 0; ///< index in the score
    unsigned count = 1;

    friend bool operator==(const ShownBar &a, const ShownBar &b) noexcept
    {
        return a.bar == b.bar && a.count == b.count;
    }
};

struct TrackHead {
    std::string name;
    std::string shortName;
    std::uint8_t lyricsVisible = 31;
    unsigned stringCount = 0;
    std::string strings; ///< tuning and capo, where they are not the usual ones

    friend bool operator==(const TrackHead &a, const TrackHead &b)
    {
        return a.name == b.name && a.shortName == b.shortName && a.lyricsVisible == b.lyricsVisible
            && a.stringCount == b.stringCount && a.strings == b.strings;
    }
};

/// A bar in all rows, or bars of rest under one sign, engraved and spaced. Never changes, and says
/// nothing of where in the score it stands: the bar of all places in it is 0.
struct EngravedRows {
    std::vector<EngravedBar> rows;
    bool isSpaced = true; ///< else nothing is known of its spaces but the onsets
    SpacedBar spaced;
    Problems problems;
};

/// Where dashes behind words go on behind a bar; behind one in which such end, `Auto`.
struct OpenWords {
    unsigned staff = 0; ///< among the staves of the column
    MarkSide side = MarkSide::Auto;

    friend bool operator==(const OpenWords &left, const OpenWords &right) noexcept
    {
        return left.staff == right.staff && left.side == right.side;
    }
};

/// What leads over a bar line.
struct OpenLines {
    std::vector<OpenWords> words; ///< dashes behind words, by staff
    OpenSyllables syllables;

    friend bool operator==(const OpenLines &a, const OpenLines &b)
    {
        return a.words == b.words && a.syllables == b.syllables;
    }
};

/// What is known of such a bar as long as the score has it. What is engraved is much larger, and
/// kept only where systems are built.
struct ShownColumn {
    std::shared_ptr<const BarColumn> first;
    std::shared_ptr<const BarColumn> last; ///< of the bars under the sign; else the same
    unsigned count = 1;                    ///< of bars
    BarWidth width;
    std::vector<OpenWords> wordsLines; ///< of staves where any begin or end
    OpenSyllables openSyllables;       ///< at its end, of those that it sings itself
    std::vector<WordEnds> words;
    double textsAfter = 0; ///< see `SpacedBar`
    Problems problems;
};

/// All of a score that systems are made of.
struct EngravedScore {
    std::vector<Row> rows;
    std::vector<unsigned> staffOfRow; ///< among the staves of the columns
    std::vector<TrackHead> tracks;    ///< by index of the track
    TrackGroups groups;
    unsigned firstNumber = 1; ///< of the score's first bar, as people count: 0 for a pickup bar
    std::vector<ShownBar> shown;
    std::vector<std::shared_ptr<const ShownColumn>> columns; ///< by shown bar

    /// By shown bar; there for the bars of a system that is being built.
    std::vector<std::shared_ptr<const EngravedRows>> engraved;

    const EngravedBar &bar(unsigned row, unsigned shownBar) const
    {
        return engraved[shownBar]->rows[row];
    }
    const SpacedBar &spaced(unsigned shownBar) const { return engraved[shownBar]->spaced; }
    const BarSource &source(unsigned row, unsigned shownBar) const
    {
        return *columns[shownBar]->first->staves[staffOfRow[row]];
    }
    const ColumnSource &column(unsigned shownBar) const
    {
        return *columns[shownBar]->first->shared;
    }
    /// Of the last bar under the sign.
    const ColumnSource &lastColumn(unsigned shownBar) const
    {
        return *columns[shownBar]->last->shared;
    }
    unsigned number(unsigned shownBar) const { return firstNumber + shown[shownBar].bar; }
};

} // namespace zarn::engraving
