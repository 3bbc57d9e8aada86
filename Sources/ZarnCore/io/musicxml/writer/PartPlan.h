// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/model/ZarnTrack.h>
#include <ZarnCore/utils/rational.h>

#include <map>
#include <string>
#include <vector>

namespace zarn::io {

/// A staff of a part: a staff of the track in one notation.
struct PartStaff {
    const Staff *staff = nullptr;
    int index = 0;            ///< of the staff in its track
    bool isTablature = false; ///< the notes are written as strings and frets
    bool isAlternate = false; ///< repeats the staff in front of it
};

/// What is known of a track before it is written: what depends on all of its bars.
///
/// Of a fretted track notes and tablature are two staves, the second of which repeats the first
/// (MusicXML 4.0, staff-type "alternate").
class PartPlan {
public:
    /// The longest time that is written, in divisions: all programs hold it in 32 bits. A part in
    /// which a bar would be longer has other divisions in each bar.
    static constexpr std::int64_t MostDivisions = 999'999'999;

    /// `index` is that of the track. `reach` gets, for each bar, how far its beats reach, where
    /// that is farther.
    PartPlan(const Track &track, unsigned index, std::vector<utils::rational> &reach);

    /// Tells how long the bars are written, which is known when all parts are; nothing can be
    /// written before. See `ScorePlan::lengths`.
    void setBarLengths(const std::vector<utils::rational> &lengths);

    const Track &track() const noexcept { return _track; }
    std::string id() const;
    const std::vector<PartStaff> &staves() const noexcept { return _staves; }

    /// Whether all bars are written in the same divisions.
    bool hasOneDivision() const noexcept { return _divisions != 0; }

    /// How many divisions of the quarter a bar is written in.
    struct Divisions {
        std::int64_t count;
        bool areExact; ///< or lengths have to be rounded
    };
    Divisions divisionsOfBar(unsigned bar) const;

    /// How far the notes of each bar reach.
    const std::vector<utils::rational> &reach() const noexcept { return _reach; }

    /// Whether readers that give the slots of a staff to voices in the order in which these turn up
    /// need to be told: voices turn up in another order.
    bool hasLateVoices(unsigned staff) const { return _lateVoices[staff]; }

    /// What some beats of a bar have, of all staves, so that others need not be looked through.
    struct BarContent {
        bool hasDetails = false;
        bool hasOttavas = false;
        bool hasWholeBarRest = false;  ///< as all that a voice is
        bool hasNumberedSlurs = false; ///< ends of slurs such as those between voices
    };
    const BarContent &contentOf(unsigned bar) const { return _contents[bar]; }

    bool isUnpitched(const Note &note) const;

    /// The keys of percussion that the part strikes, and what each is called.
    const std::map<int, std::string> &percussion() const noexcept { return _percussion; }
    std::string percussionId(int key) const;

    /// Whether fingers count from the thumb.
    bool areKeys() const noexcept { return _areKeys; }

private:
    void readStaff(const Staff &staff, bool hasNotes, std::vector<utils::rational> &reach);
    void readBeat(const Beat &beat, const Staff &staff);
    void addPosition(unsigned bar, const utils::rational &position);
    bool areTooMany(std::int64_t divisions, unsigned bar) const;
    void addPercussion(const Note &note);

    const Track &_track;
    unsigned _index;
    bool _isPercussion;
    bool _areKeys = false;
    bool _hasFrets = false;
    bool _hasFifthFinger = false;
    std::int64_t _divisions = 1;                                 ///< 0 where each bar has its own
    std::map<unsigned, std::vector<utils::rational>> _positions; ///< between the beats, by bar
    std::vector<PartStaff> _staves;
    std::vector<bool> _lateVoices;
    std::vector<BarContent> _contents;
    std::vector<utils::rational> _reach;
    std::vector<utils::rational> _lengths; ///< of the bars, as they are written
    std::map<int, std::string> _percussion;
};

/// Whether a note has a place on the strings of its staff.
bool isOnString(const Note &note, const Staff &staff);

/// The smallest number of divisions that a length needs beside those that there are; 0 when they
/// are more than `PartPlan::MostDivisions`.
std::int64_t commonDivisions(std::int64_t divisions, const utils::rational &length);

} // namespace zarn::io
