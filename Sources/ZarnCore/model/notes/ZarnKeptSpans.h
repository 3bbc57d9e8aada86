// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/ZarnExport.h>
#include <ZarnCore/model/ZarnBeatAttribute.h>
#include <ZarnCore/model/notes/ZarnKeptBeats.h>
#include <ZarnCore/model/notes/ZarnSpanLine.h>

#include <map>
#include <set>
#include <vector>

namespace zarn {

class ScoreModel;
class Track;
struct SpanMark;

/// Mends what is marked at its ends alone, and may lead over many bars, when beats between or at
/// these ends come, go, get other lengths or other marks: pedals, lines behind words, numbered
/// slurs, words of lyrics. What it changes, anywhere in the track, it can put back.
class ZARNCORE_EXPORT KeptSpans {
public:
    /// Before the change: the bars `first` to `last` of a track are about to be changed. Those
    /// between the bars of several calls count as well.
    void keep(const Track &track, unsigned first, unsigned last);

    /// What begins of a kind is given to all beats of a range. The first one counts, and the last
    /// beat becomes the end; a pedal given to one beat is held to the next change, anything else to
    /// the next beat.
    void setGiven(SpanKind kind) { _given.insert(kind); }

    /// After the change, which took `removed` columns away, the last ones of what was kept.
    void mend(const ScoreModel &model, unsigned removed = 0);

    /// To be called before the change is taken back.
    void putBack(const ScoreModel &model);

    /// The beats that were mended, where they are after the change.
    std::vector<KeptBeats::Place> changed() const;

    void clear() { *this = {}; }

private:
    /// What the marks of a line need in front of them, and leave behind.
    struct Ends {
        bool needOpen = false;
        bool leaveOpen = false;
    };
    struct Region {
        unsigned first = 0;
        unsigned end = 0;
        std::map<SpanLine, Ends> lines; ///< those with marks
    };
    struct Change {
        KeptBeats::Place place;
        BeatAttribute id;
        AttributeValue before;
    };

    static std::map<SpanLine, Ends> endsOf(const Track &track, unsigned first, unsigned end);
    void mendRegion(const Track &track, const Region &region);
    void mendLine(const Track &track, const Region &region, const SpanLine &line,
                  const std::vector<SpanMark> &present, bool isGiven);
    void keepValue(const Track &track, const SpanLine &line, KeptBeats::Place place,
                   const Beat &beat);
    bool endAtNextBeat(const Track &track, const SpanLine &line, const Beat &begin);

    std::map<unsigned, Region> _regions; ///< by track, until the change is mended
    std::set<SpanKind> _given;
    std::vector<Change> _changes;
};

} // namespace zarn
