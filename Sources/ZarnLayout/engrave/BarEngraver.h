// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnLayout/engrave/BeamChain.h>
#include <ZarnLayout/engrave/EngravedBar.h>
#include <ZarnLayout/engrave/Pen.h>
#include <ZarnLayout/engrave/Problems.h>
#include <ZarnLayout/source/Rows.h>

namespace zarn::engraving {

/// Times of a bar at which something begins, in order: its columns.
using Onsets = std::vector<utils::rational>;

/// Engraves one bar of one row: heads, stems, rests, accidentals, dots, each around its column.
class BarEngraver {
public:
    BarEngraver(const Row &row, const Pen &pen, Problems &problems)
        : _row(row), _pen(pen), _problems(problems)
    {
    }

    EngravedBar engrave(const BarSource &source, const ColumnSource &column, const Onsets &onsets,
                        unsigned barIndex);

private:
    void addChords(const VoiceSource &voice);
    void addSilent(const BeatSource &beat, unsigned voice);
    unsigned columnOf(const BeatSource &beat) const;
    void addHeads(Chord &chord);
    void chooseStems();
    void chooseStem(const BeamedNumbers &chain);
    void placeHeads(Chord &chord);
    void placeStem(Chord &chord);
    void addCentred(const BeatSource *rest);
    void addSimile();
    void addInks();

    const Row &_row;
    const Pen &_pen;
    Problems &_problems;
    const BarSource *_source = nullptr;
    const ColumnSource *_shared = nullptr;
    const Onsets *_onsets = nullptr;
    unsigned _bar = 0;
    bool _hasVoices = false;
    EngravedBar _result;
};

/// Whether anything of a voice is drawn.
bool isDrawn(const VoiceSource &voice);

/// Size of small notes.
constexpr double graceScale = 0.66;
constexpr double cueScale = 0.75;

} // namespace zarn::engraving
