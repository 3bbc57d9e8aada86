// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/model/ZarnScoreModel.h>

#include <ZarnCore/utils/rational.h>

#include <pugixml.hpp>

namespace zarn::io {

class ExportContext;
class MeasureCursor;

/// The position of an automation, in quarters from the start of its bar, as the fraction that it
/// was rounded from.
utils::rational exactPosition(float position);

/// Writes what stands between the notes and belongs to one place: what a beat says over its notes,
/// and what the master bars say to all parts.
class DirectionWriter {
public:
    DirectionWriter(const MasterTrack &master, ExportContext &context)
        : _master(master), _context(context)
    {
    }

    /// In front of a beat: dynamics, words, a chord, the pedal.
    void writeBeat(const Beat &beat, pugi::xml_node measure, int staffNumber);

    /// An ottava sign that begins or, with None, ends.
    void writeOttavia(Ottavia from, Ottavia to, pugi::xml_node measure, int staffNumber);

    /// Rehearsal marks, segnos, codas and the feel, at the start of a bar; tempos wait at their
    /// times.
    void writeBarStart(unsigned bar, MeasureCursor &cursor);

    /// The jumps that lead away from a bar.
    void writeBarEnd(unsigned bar, pugi::xml_node measure);

private:
    void writeTempos(unsigned bar, MeasureCursor &cursor);

    const MasterTrack &_master;
    ExportContext &_context;
};

} // namespace zarn::io
