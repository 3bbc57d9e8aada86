// SPDX-License-Identifier: MIT
// How far the fingering solver agrees with editors of guitar music, beside two simple rules.
//
//     zarn_fingering_report [MARKS CASES]          with the weights that are built in
//     zarn_fingering_report --fit [MARKS CASES]    and with weights fitted on all pieces but the
//                                                  one that is judged; then those fitted on all
#include "support/FingeredPieces.h"

#include <ZarnCore/fingering/ZarnFingeringSolver.h>

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <functional>
#include <iterator>
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

Agreement judge(const FingeredPiece &piece, const FingeringWeights &weights, bool isWhole)
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
    if (!isWhole)
        return agreement;
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

using Weight = double FingeringWeights::*;
constexpr std::pair<const char *, Weight> fitted[] = {
    {"shape", &FingeringWeights::shape},
    {"index", &FingeringWeights::index},
    {"middle", &FingeringWeights::middle},
    {"ring", &FingeringWeights::ring},
    {"little", &FingeringWeights::little},
    {"ringAtNut", &FingeringWeights::ringAtNut},
    {"fingerAcross", &FingeringWeights::fingerAcross},
    {"creep", &FingeringWeights::creep},
    {"shiftStart", &FingeringWeights::shiftStart},
    {"shift", &FingeringWeights::shift},
    {"hurriedCreep", &FingeringWeights::hurriedCreep},
    {"hurriedStart", &FingeringWeights::hurriedStart},
    {"hurriedShift", &FingeringWeights::hurriedShift},
    {"blindShift", &FingeringWeights::blindShift},
    {"exchange", &FingeringWeights::exchange},
    {"fingerJump", &FingeringWeights::fingerJump},
    {"fingerRoll", &FingeringWeights::fingerRoll},
    {"hurriedJump", &FingeringWeights::hurriedJump},
    {"hurriedRoll", &FingeringWeights::hurriedRoll},
    {"fingerReplaced", &FingeringWeights::fingerReplaced},
    {"height", &FingeringWeights::height},
    {"highHand", &FingeringWeights::highHand},
    {"leftHome", &FingeringWeights::leftHome},
    {"chordHeight", &FingeringWeights::chordHeight},
    {"overBody", &FingeringWeights::overBody},
    {"openTreble", &FingeringWeights::openTreble},
    {"openAbove", &FingeringWeights::openAbove},
    {"openInChord", &FingeringWeights::openInChord},
    {"skippedString", &FingeringWeights::skippedString},
    {"cutNote", &FingeringWeights::cutNote},
    {"cutRinging", &FingeringWeights::cutRinging},
    {"cutBroken", &FingeringWeights::cutBroken},
    {"longestRing", &FingeringWeights::longestRing},
    {"crossedStep", &FingeringWeights::crossedStep},
    {"movedPitch", &FingeringWeights::movedPitch},
};

/// A part that stands an octave higher than its editor fingered it: no weights agree with that.
constexpr const char *misprinted = "lagrima-duo-II";

/// How good weights are, in percent; a change has to be worth it, which keeps them where they were.
double merit(const std::vector<FingeredPiece> &pieces, const FingeringWeights &weights,
             std::size_t without)
{
    Agreement all;
    for (std::size_t i = 0; i < pieces.size(); ++i)
        if (i != without && pieces[i].name != misprinted)
            all.add(judge(pieces[i], weights, false));
    double distance = 0;
    const FingeringWeights start;
    for (const auto &[name, weight] : fitted)
        distance += std::abs(std::log(weights.*weight / start.*weight));
    return all.strings.percent() + all.fingers.percent() - 0.5 * distance;
}

FingeringWeights fit(const std::vector<FingeredPiece> &pieces, std::size_t without)
{
    FingeringWeights weights;
    double best = merit(pieces, weights, without);
    for (const double step : {1.6, 1.25}) {
        for (const auto &[name, weight] : fitted) {
            for (const double factor : {step, 1 / step}) {
                FingeringWeights tried = weights;
                tried.*weight *= factor;
                const double found = merit(pieces, tried, without);
                if (found > best) {
                    best = found;
                    weights = tried;
                    break;
                }
            }
        }
    }
    return weights;
}

void crossValidate(const std::vector<FingeredPiece> &pieces)
{
    printHeading("each piece with weights fitted on the others");
    Agreement all;
    for (std::size_t i = 0; i < pieces.size(); ++i) {
        const Agreement one = judge(pieces[i], fit(pieces, i), true);
        print(pieces[i].name.c_str(), one);
        std::fflush(stdout);
        all.add(one);
    }
    print("all", all);
    const FingeringWeights weights = fit(pieces, pieces.size());
    std::printf("\nfitted on all pieces\n");
    for (const auto &[name, weight] : fitted)
        std::printf("  %-14s %.3f (built in %.3f)\n", name, weights.*weight,
                    FingeringWeights().*weight);
}

} // namespace

int main(int argc, char **argv)
{
    const bool fits = argc > 1 && std::strcmp(argv[1], "--fit") == 0;
    const int first = fits ? 2 : 1;
    const std::string folder = ZARN_SOURCE_DIR "/Tests/fingering/data/";
    const auto pieces = readFingeredPieces(argc > first ? argv[first] : folder + "marks.tsv");
    const auto cases =
        readFingeringCases(argc > first + 1 ? argv[first + 1] : folder + "cases.tsv");

    printHeading("agreement with the editor, percent, with the weights that are built in");
    Agreement all;
    for (const FingeredPiece &piece : pieces) {
        const Agreement one = judge(piece, {}, true);
        print(piece.name.c_str(), one);
        all.add(one);
    }
    print("all", all);
    if (fits)
        crossValidate(pieces);

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
