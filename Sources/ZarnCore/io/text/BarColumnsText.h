// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/io/text/TextScanner.h>
#include <ZarnCore/music/ZarnKeySignature.h>
#include <ZarnCore/music/ZarnTimeSignature.h>

#include <algorithm>
#include <map>
#include <set>

namespace zarn {
class ScoreModel;
}

namespace zarn::io::text {

/// What all tracks of a text say of the bars that they share. Tracks may repeat each other but not
/// contradict.
class BarColumnsText {
public:
    /// Reads a time such as "3/4" or a key such as "key=Bb"; false when none is at hand.
    bool readSetting(TextScanner &scanner, unsigned bar);

    /// Reads a bar line in front of the music: "|" or "|:".
    void readFrontLine(TextScanner &scanner);

    /// Reads the line behind a bar: "|", "|:", ":|", ":|x3" or ":|:"; false when none is at hand.
    bool readLineBehind(TextScanner &scanner, unsigned bar);

    void reachBarCount(unsigned count) { _count = std::max(_count, count); }

    /// Makes the master bars, and gives every staff as many bars.
    void fill(ScoreModel &model) const;

private:
    void readTime(TextScanner &scanner, unsigned bar);

    std::map<unsigned, TimeSignature> _times;
    std::map<unsigned, KeySignature> _keys;
    std::map<unsigned, unsigned> _repeatCounts;
    std::set<unsigned> _repeatStarts;
    unsigned _count = 0;
};

} // namespace zarn::io::text
