// SPDX-License-Identifier: MIT
#include "FingeredPieces.h"

#include <ZarnCore/fingering/ZarnFingeringSolver.h>
#include <ZarnCore/model/ZarnStaff.h>

#include <algorithm>
#include <fstream>
#include <numeric>
#include <sstream>
#include <stdexcept>

using namespace zarn;
using namespace zarn::fingering;

namespace {

constexpr double sameTime = 1e-3;

std::vector<std::string> split(const std::string &text, char separator)
{
    std::vector<std::string> parts;
    std::istringstream stream(text);
    for (std::string part; std::getline(stream, part, separator);)
        parts.push_back(part);
    return parts;
}

std::vector<unsigned> tuningOf(const std::string &text)
{
    std::vector<unsigned> pitches;
    for (const std::string &pitch : split(text, ','))
        pitches.push_back(static_cast<unsigned>(std::stoul(pitch)));
    return pitches;
}

std::ifstream opened(const std::string &path)
{
    std::ifstream file(path);
    if (!file)
        throw std::runtime_error("cannot read " + path);
    return file;
}

/// Adds the pitches that begin together, the highest first, each once; answers their numbers.
void addEvent(Passage &passage, double onset, const std::vector<const EditedNote *> &notes,
              std::vector<std::size_t> &numbers)
{
    passage.addEvent(onset);
    std::vector<std::size_t> order(notes.size());
    std::iota(order.begin(), order.end(), 0U);
    std::stable_sort(order.begin(), order.end(), [&](std::size_t left, std::size_t right) {
        return notes[left]->pitch > notes[right]->pitch;
    });
    numbers.assign(notes.size(), 0);
    const EditedNote *last = nullptr;
    for (const std::size_t at : order) {
        const EditedNote &note = *notes[at];
        const double end = note.onset + note.duration;
        if (last != nullptr && last->pitch == note.pitch)
            passage.notes.back().end = std::max(passage.notes.back().end, end);
        else
            passage.addNote({note.pitch, end});
        numbers[at] = passage.notes.size() - 1;
        last = &note;
    }
}

} // namespace

std::vector<FingeredPiece> readFingeredPieces(const std::string &path)
{
    std::vector<FingeredPiece> pieces;
    auto file = opened(path);
    for (std::string line; std::getline(file, line);) {
        const auto words = split(line, '\t');
        if (words.size() > 2 && words[0] == "# piece")
            pieces.push_back({words[1], tuningOf(words.back()), {}});
        else if (words.size() == 6 && line[0] != '#')
            pieces.back().notes.push_back({std::stod(words[0]), std::stod(words[1]),
                                           std::stoi(words[2]), std::stoi(words[3]),
                                           std::stoi(words[4]), std::stoi(words[5])});
    }
    return pieces;
}

Passage passageOf(const FingeredPiece &piece, std::vector<std::size_t> &noteOf)
{
    Staff staff;
    staff.setTuning(GuitarTuning(piece.tuning));
    Passage passage(staff);
    std::vector<std::size_t> order(piece.notes.size());
    std::iota(order.begin(), order.end(), 0U);
    std::stable_sort(order.begin(), order.end(), [&](std::size_t left, std::size_t right) {
        return piece.notes[left].onset < piece.notes[right].onset - sameTime;
    });
    noteOf.assign(piece.notes.size(), 0);
    for (std::size_t first = 0; first < order.size();) {
        std::vector<const EditedNote *> notes;
        std::size_t at = first;
        const double onset = piece.notes[order[first]].onset;
        for (; at < order.size() && piece.notes[order[at]].onset < onset + sameTime; ++at)
            notes.push_back(&piece.notes[order[at]]);
        std::vector<std::size_t> numbers;
        addEvent(passage, onset, notes, numbers);
        for (std::size_t i = 0; i < numbers.size(); ++i)
            noteOf[order[first + i]] = numbers[i];
        first = at;
    }
    return passage;
}

std::vector<FingeringCase> readFingeringCases(const std::string &path)
{
    std::vector<FingeringCase> cases;
    auto file = opened(path);
    std::string line;
    std::getline(file, line);
    while (std::getline(file, line)) {
        const auto words = split(line, '\t');
        FingeringCase task{words.at(0), tuningOf(words.at(1)), 0,           words.at(3) == "1",
                           {},          words.at(5),           words.at(6), words.at(7)};
        task.fretCount = static_cast<unsigned>(std::stoul(words.at(2)));
        for (const std::string &event : split(words.at(4), ' ')) {
            task.events.emplace_back();
            for (const std::string &pitch : split(event, '+'))
                task.events.back().push_back(std::stoi(pitch));
        }
        cases.push_back(task);
    }
    return cases;
}

Passage passageOf(const FingeringCase &task, std::vector<std::vector<std::size_t>> &noteOf)
{
    Staff staff;
    GuitarTuning tuning(task.tuning);
    tuning.setShortDroneString(task.hasDrone);
    staff.setTuning(tuning);
    staff.setFretCount(task.fretCount);
    Passage passage(staff);
    for (std::size_t event = 0; event < task.events.size(); ++event) {
        std::vector<EditedNote> notes;
        for (const int pitch : task.events[event])
            notes.push_back({static_cast<double>(event), 1, pitch});
        std::vector<const EditedNote *> pointers;
        for (const EditedNote &note : notes)
            pointers.push_back(&note);
        noteOf.emplace_back();
        addEvent(passage, static_cast<double>(event), pointers, noteOf.back());
    }
    for (const std::string &lock : split(task.locks, ' ')) {
        const auto dot = lock.find('.');
        const auto equals = lock.find('=');
        const auto event = std::stoul(lock.substr(0, dot));
        const auto note = std::stoul(lock.substr(dot + 1, equals - dot - 1));
        passage.notes[noteOf.at(event).at(note)].string = std::stoi(lock.substr(equals + 1));
    }
    return passage;
}

namespace {

/// "1/3+2/2 0/5": a place a note, strings before frets.
std::string placesOf(const FingeringCase &task, const FingeringSolution &fingering,
                     const std::vector<std::vector<std::size_t>> &noteOf)
{
    std::string text;
    for (const auto &event : noteOf) {
        text += text.empty() ? "" : " ";
        std::string places;
        for (const std::size_t note : event) {
            const Placement &place = fingering.notes[note];
            // The file numbers an open drone like its first fret.
            const int fret = task.hasDrone && place.string == 0 && place.fret == 0
                ? GuitarTuning::droneFret
                : place.fret;
            places += (places.empty() ? "" : "+") + std::to_string(place.string) + "/"
                + std::to_string(fret);
        }
        text += places;
    }
    return text;
}

bool isAsExpected(const FingeringCase &task, const FingeringSolution &fingering,
                  const std::string &places, const std::vector<std::vector<std::size_t>> &noteOf)
{
    if (task.kind == "exact") {
        const auto allowed = split(task.expected, '|');
        return std::find(allowed.begin(), allowed.end(), places) != allowed.end();
    }
    if (task.kind == "frets") {
        const int lowest = std::stoi(task.expected);
        const int highest = std::stoi(task.expected.substr(task.expected.find('-') + 1));
        return std::all_of(fingering.notes.begin(), fingering.notes.end(), [&](const auto &note) {
            return note.fret == 0 || (note.fret >= lowest && note.fret <= highest);
        });
    }
    if (task.kind == "same") {
        const auto events = split(task.expected, ',');
        return std::all_of(events.begin(), events.end(), [&](const std::string &event) {
            return fingering.notes[noteOf.at(std::stoul(event)).front()].string
                == fingering.notes[noteOf.at(std::stoul(events.front())).front()].string;
        });
    }
    return task.kind == "refused" && !fingering.problems.empty();
}

} // namespace

std::string faultOf(const FingeringCase &task, const FingeringWeights &weights)
{
    std::vector<std::vector<std::size_t>> noteOf;
    const Passage passage = passageOf(task, noteOf);
    const FingeringSolution fingering = FingeringSolver(passage, weights).solve();
    const std::string places = placesOf(task, fingering, noteOf);
    std::string fault;
    if (!isAsExpected(task, fingering, places, noteOf))
        fault += "is played " + places + ", expected " + task.kind + " " + task.expected;
    for (std::size_t i = 0; i < passage.notes.size(); ++i)
        if (passage.notes[i].string != PassageNote::Free
            && passage.notes[i].string != fingering.notes[i].string)
            fault += "; note " + std::to_string(i) + " has left its string";
    if (task.kind != "refused" && !fingering.problems.empty())
        fault += "; something was left out";
    return fault;
}
