// SPDX-License-Identifier: MIT
#include <ZarnCore/model/notes/NotePlacing.h>

#include <ZarnCore/model/SplitAttributes.h>
#include <ZarnCore/model/notes/Links.h>

#include <algorithm>

namespace zarn {
namespace {

using utils::rational;
using Rhythms = std::vector<RhythmValue>;

/// A beat that has to be written anew, as the rhythms that stand in its place.
struct Cut {
    unsigned beat;
    Rhythms rhythms;
};

void split(const rational &length, Rhythms &out)
{
    RhythmValue::rhythms(length, out);
}

/// What must be cut so that beats start and end at both offsets. Computed before anything changes.
std::vector<Cut> planCuts(const Voice &voice, const rational &start, const rational &end)
{
    std::vector<Cut> cuts;
    rational from;
    for (unsigned i = 0; i < voice.beatCount() && from < end; ++i) {
        const Beat &beat = *voice.beats()[i];
        const rational to = from + beat.length();
        const bool cutAtStart = from < start && start < to;
        const bool cutAtEnd = from < end && end < to;
        const bool isTaken = beat.isWholeBarRest() && start < to;
        if (cutAtStart || cutAtEnd || isTaken) {
            Cut cut{i, {}};
            rational at = from;
            if (cutAtStart) {
                split(start - at, cut.rhythms);
                at = start;
            }
            if (cutAtEnd) {
                split(end - at, cut.rhythms);
                at = end;
            }
            split(to - at, cut.rhythms);
            cuts.push_back(std::move(cut));
        }
        from = to;
    }
    return cuts;
}

/// Writes a beat as several, what it held being tied on.
void applyCut(Voice &voice, const Cut &cut)
{
    const auto beat = voice.beats()[cut.beat];
    Voice::Beats pieces = {beat};
    for (std::size_t i = 1; i < cut.rhythms.size(); ++i) {
        pieces.push_back(beat->clone());
        pieces.back()->setRhythmValue(cut.rhythms[i]);
    }
    beat->setRhythmValue(cut.rhythms.front());
    beat->setWholeBarRest(false);
    splitAttributes(pieces);
    pieces.erase(pieces.begin());
    voice.insertBeats(cut.beat + 1, std::move(pieces));
}

void removeNotesAtPlaceOf(Beat &beat, const Note &note)
{
    for (unsigned i = beat.noteCount(); i > 0; --i) {
        const Note &other = *beat.notes()[i - 1];
        const bool hasStrings = note.string() != Note::Unset && other.string() != Note::Unset;
        if (hasStrings ? note.string() == other.string()
                       : note.midi() == other.midi()
                    && note.percussionArticulation() == other.percussionArticulation()
                    && note.staffLine() == other.staffLine())
            beat.removeNote(i - 1);
    }
}

void appendPlaceHolders(Voice::Beats &beats, const Rhythms &rhythms)
{
    for (const RhythmValue &rhythm : rhythms) {
        beats.push_back(std::make_shared<Beat>(rhythm));
        beats.back()->setPlaceHolder(true);
    }
}

/// The beats (no grace beats) from one offset to the other.
Voice::Beats beatsBetween(const Voice &voice, const rational &start, const rational &end)
{
    Voice::Beats found;
    rational from;
    for (const auto &beat : voice.beats()) {
        if (!(from < start) && from < end && !beat->isGrace())
            found.push_back(beat);
        from += beat->length();
    }
    return found;
}

} // namespace

Voice::Beats placeNotes(Voice &voice, const Voice::Notes &notes, const rational &start,
                        const rational &end)
{
    if (notes.empty() || start < rational() || !(start < end))
        return {};
    for (const auto &note : notes)
        ChildLinkAccess::requireDetached(note);

    // Everything that may fail comes before the first change.
    const std::vector<Cut> cuts = planCuts(voice, start, end);
    const rational length = voice.length();
    Rhythms gap;
    Rhythms tail;
    if (length < start)
        split(start - length, gap);
    if (length < end)
        split(end - std::max(length, start), tail);

    for (auto cut = cuts.rbegin(); cut != cuts.rend(); ++cut)
        applyCut(voice, *cut);
    Voice::Beats added;
    appendPlaceHolders(added, gap);
    appendPlaceHolders(added, tail);
    voice.insertBeats(voice.beatCount(), std::move(added));

    const Voice::Beats beats = beatsBetween(voice, start, end);
    for (std::size_t i = 0; i < beats.size(); ++i) {
        beats[i]->setPlaceHolder(false);
        beats[i]->setDeadSlapped(false);
        for (const auto &note : notes) {
            const auto placed = i == 0 ? note : note->clone();
            removeNotesAtPlaceOf(*beats[i], *placed);
            beats[i]->addNote(placed);
        }
    }
    // In a second round, because the copies must not inherit the ties of the first beat.
    for (std::size_t i = 0; i < beats.size(); ++i)
        for (std::size_t n = 0; n < notes.size(); ++n) {
            const auto &all = beats[i]->notes();
            const auto &note = all[all.size() - notes.size() + n];
            if (i > 0)
                note->setTied(true);
            if (i + 1 < beats.size())
                note->setTieOrigin(true);
        }
    mendLinks(voice, beats.front()->index(), beats.back()->index() + 1);
    mendThroughout(voice, 0, voice.beatCount());
    return beats;
}

} // namespace zarn
