// SPDX-License-Identifier: MIT
// How far the fingering solver agrees with editors of guitar music, beside two simple rules.
//
//     zarn_fingering_report [MARKS CASES]              with the weights that are built in
//     zarn_fingering_report --folds K [MARKS CASES]    and cross-validated: the works are dealt
//     into
//                                                      K folds, and each is judged by weights
//                                                      fitted on the others; then those fitted on
//                                                      all
#include "WeightFit.h"

#include <ZarnCore/fingering/ZarnFingeringSolver.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <functional>
#include <string>
#include <vector>

using namespace zarn::fingering;

namespace {

struct Share {
    int right = 0;
    int known = 0;

    void count(bool isRight)
    {
        right += isRight ? 1 : 0;
        ++known;
    }
    void add(const Share &other)
    {
        right += other.right;
        known += other.known;
    }
    double percent() const { return known != 0 ? 100. * right / known : 0; }
};

struct Agreement {
    Share strings;
    Share fingers;
    Share locked;  ///< strings, with every second one given
    Share lowest;  ///< strings by the lowest fret
    Share nearest; ///< strings by the fret nearest to the one before
    int problems = 0;

    void add(const Agreement &other)
    {
        strings.add(other.strings);
        fingers.add(other.fingers);
        locked.add(other.locked);
        lowest.add(other.lowest);
        nearest.add(other.nearest);
        problems += other.problems;
    }
};

/// The free string of a note whose fret costs least by a rule; -1 when there is none.
int stringByFret(const Passage &passage, int pitch, unsigned taken,
                 const std::function<double(int fret)> &cost)
{
    int best = -1;
    double least = 0;
    for (int string = passage.fretboard.stringCount() - 1; string >= 0; --string) {
        const int fret = passage.fretboard.fret(string, pitch);
        if (fret < 0 || (taken >> string & 1) != 0 || (best >= 0 && cost(fret) >= least))
            continue;
        best = string;
        least = cost(fret);
    }
    return best;
}

/// Strings by a rule that takes note by note: a chord from the top down, each string once.
std::vector<int> stringsByRule(const Passage &passage, bool isNearest)
{
    std::vector<int> strings;
    int position = 1;
    for (const PassageEvent &event : passage.events) {
        unsigned taken = 0;
        for (std::size_t i = event.firstNote; i < event.firstNote + event.noteCount; ++i) {
            const int pitch = passage.notes[i].pitch;
            const int string = stringByFret(passage, pitch, taken, [&](int fret) {
                return !isNearest ? fret : fret == 0 ? 0 : std::abs(fret - position);
            });
            strings.push_back(string);
            if (string < 0)
                continue;
            taken |= 1U << string;
            if (const int fret = passage.fretboard.fret(string, pitch); fret > 0)
                position = fret;
        }
    }
    return strings;
}

void judgeRules(const FingeredPiece &piece, const Passage &passage,
                const std::vector<std::size_t> &noteOf, Agreement &agreement)
{
    const std::vector<int> lowest = stringsByRule(passage, false);
    const std::vector<int> nearest = stringsByRule(passage, true);
    for (std::size_t i = 0; i < piece.notes.size(); ++i) {
        if (piece.notes[i].string < 0)
            continue;
        agreement.lowest.count(lowest[noteOf[i]] == piece.notes[i].string);
        agreement.nearest.count(nearest[noteOf[i]] == piece.notes[i].string);
    }
}

Agreement judge(const FingeredPiece &piece, const FingeringWeights &weights)
{
    std::vector<std::size_t> noteOf;
    Passage passage = passageOf(piece, noteOf);
    Agreement agreement;
    const FingeringSolution free = FingeringSolver(passage, weights).solve();
    agreement.problems = static_cast<int>(free.problems.size());
    for (std::size_t i = 0; i < piece.notes.size(); ++i) {
        const Placement &placed = free.notes[noteOf[i]];
        if (piece.notes[i].string >= 0)
            agreement.strings.count(placed.string == piece.notes[i].string);
        if (piece.notes[i].finger >= 0)
            agreement.fingers.count(placed.finger == piece.notes[i].finger);
    }
    judgeRules(piece, passage, noteOf, agreement);
    bool isLocked = false;
    for (std::size_t i = 0; i < piece.notes.size(); ++i)
        if (piece.notes[i].string >= 0 && (isLocked = !isLocked))
            passage.notes[noteOf[i]].string = piece.notes[i].string;
    const FingeringSolution half = FingeringSolver(passage, weights).solve();
    for (std::size_t i = 0; i < piece.notes.size(); ++i)
        if (piece.notes[i].string >= 0 && passage.notes[noteOf[i]].string == PassageNote::Free)
            agreement.locked.count(half.notes[noteOf[i]].string == piece.notes[i].string);
    return agreement;
}

void print(const char *name, const Agreement &a)
{
    std::printf("%-28s %5d %7.1f %7.1f %7.1f %7.1f %6d %7.1f %5d\n", name, a.strings.known,
                a.lowest.percent(), a.nearest.percent(), a.strings.percent(), a.locked.percent(),
                a.fingers.known, a.fingers.percent(), a.problems);
}

void printHeading(const char *title)
{
    std::printf("\n%s\n%-28s %5s %7s %7s %7s %7s %6s %7s %5s\n", title, "piece", "marks", "lowest",
                "nearest", "ours", "locked", "marks", "fingers", "wide");
}

/// A part that stands an octave higher than its editor fingered it: no weights agree with that.
constexpr const char *misprinted = "lagrima-duo-II";

/// The work that a piece is a part or an arrangement of: its name to the first hyphen.
std::string workOf(const FingeredPiece &piece)
{
    return piece.name.substr(0, piece.name.find('-'));
}

/// The fold of each piece: whole works, dealt out in the order of their first pieces.
std::vector<std::size_t> foldsOf(const std::vector<FingeredPiece> &pieces, std::size_t count)
{
    std::vector<std::string> works;
    std::vector<std::size_t> folds;
    for (const FingeredPiece &piece : pieces) {
        const auto known = std::find(works.begin(), works.end(), workOf(piece));
        folds.push_back(static_cast<std::size_t>(known - works.begin()) % count);
        if (known == works.end())
            works.push_back(workOf(piece));
    }
    return folds;
}

/// Judges each piece by weights that are fitted on the other folds alone.
void crossValidate(std::vector<FingeredPiece> pieces, std::size_t foldCount)
{
    pieces.erase(std::remove_if(pieces.begin(), pieces.end(),
                                [](const auto &piece) { return piece.name == misprinted; }),
                 pieces.end());
    const std::vector<std::size_t> folds = foldsOf(pieces, foldCount);
    printHeading("each fold with weights fitted on the others, from a player's guess");
    Agreement all;
    for (std::size_t fold = 0; fold < foldCount; ++fold) {
        std::vector<FingeredPiece> others;
        for (std::size_t i = 0; i < pieces.size(); ++i)
            if (folds[i] != fold)
                others.push_back(pieces[i]);
        if (others.size() == pieces.size())
            continue;
        const FingeringWeights weights = fitWeights(others);
        for (std::size_t i = 0; i < pieces.size(); ++i) {
            if (folds[i] != fold)
                continue;
            const Agreement one = judge(pieces[i], weights);
            print(pieces[i].name.c_str(), one);
            all.add(one);
        }
        std::fflush(stdout);
    }
    print("all", all);
    std::printf("without %s, which stands an octave higher than its editor fingered it\n",
                misprinted);
    const FingeringWeights weights = fitWeights(pieces);
    std::printf("\nfitted on all of them\n");
    for (const FittedWeight &one : fittedWeights())
        std::printf("  %-14s %.3f (guessed %.3f, built in %.3f)\n", one.name, weights.*one.weight,
                    one.guess, FingeringWeights().*one.weight);
}

} // namespace

int main(int argc, char **argv)
{
    const bool folds = argc > 2 && std::strcmp(argv[1], "--folds") == 0;
    const int foldCount = folds ? std::atoi(argv[2]) : 0;
    if (folds && foldCount < 2) {
        std::fprintf(stderr, "--folds wants a number from 2 on\n");
        return 2;
    }
    const int first = folds ? 3 : 1;
    const std::string folder = ZARN_SOURCE_DIR "/Tests/fingering/data/";
    const auto pieces = readFingeredPieces(argc > first ? argv[first] : folder + "marks.tsv");
    const auto cases =
        readFingeringCases(argc > first + 1 ? argv[first + 1] : folder + "cases.tsv");

    printHeading("agreement with the editor, percent, with the weights that are built in");
    Agreement all;
    for (const FingeredPiece &piece : pieces) {
        const Agreement one = judge(piece, {});
        print(piece.name.c_str(), one);
        all.add(one);
    }
    print("all", all);
    if (folds)
        crossValidate(pieces, static_cast<std::size_t>(foldCount));

    int faults = 0;
    std::printf("\n");
    for (const FingeringCase &task : cases) {
        const std::string fault = faultOf(task);
        faults += fault.empty() ? 0 : 1;
        if (!fault.empty())
            std::printf("%s %s\n", task.name.c_str(), fault.c_str());
    }
    std::printf("cases: %zu, of which %d are not played as they should\n", cases.size(), faults);
    return faults == 0 ? 0 : 1;
}
