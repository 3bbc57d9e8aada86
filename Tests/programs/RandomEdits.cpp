// SPDX-License-Identifier: MIT
#include "support/RandomArguments.h"
#include "support/RandomRun.h"
#include "support/ScoreFiles.h"

#include <ZarnCore/model/ZarnScoreModel.h>

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QLoggingCategory>

#include <cstdio>
#include <exception>

namespace {

/// Prints what came of one score; true when it came back.
bool runOn(const std::string &path, unsigned edits, std::uint64_t seed,
           std::map<std::string, unsigned> &accepted, std::uint64_t &comparedSteps)
{
    const std::string name = QFileInfo(QString::fromStdString(path)).fileName().toStdString();
    QElapsedTimer timer;
    timer.start();
    const auto model = readScore(path);
    const RandomRun run{*model, edits, seed, 40};
    const auto result = run.run();
    const double seconds = static_cast<double>(timer.elapsed()) / 1000;
    if (!result.fault.empty()) {
        std::printf("%s: after %u edits (seed %llu), %s\n", name.c_str(), result.tally.edits,
                    static_cast<unsigned long long>(seed), result.fault.c_str());
        std::fflush(stdout);
        std::printf("  %s\n", run.findCulprit().c_str());
        return false;
    }
    for (const auto &[operation, count] : result.tally.accepted)
        accepted[operation] += count;
    std::printf("%s (%u tracks, %u bars): %u edits in %zu steps, undone and redone byte for byte; "
                "%u macros, %u transactions, %u abandoned, %u taken back, %u refused; the events "
                "told all of "
                "%u steps; %.1f s\n",
                name.c_str(), model->trackCount(), model->masterTrack()->masterBarCount(),
                result.tally.edits, result.steps, result.tally.macros, result.tally.transactions,
                result.tally.abandoned, result.tally.takenBack, result.tally.refused,
                result.comparedSteps, seconds);
    comparedSteps += result.comparedSteps;
    std::fflush(stdout);
    return true;
}

} // namespace

int main(int argc, char *argv[])
{
    const QCoreApplication application(argc, argv);
    // Commands that are refused are what this is about: they need no warning each.
    QLoggingCategory::setFilterRules(QStringLiteral("zarn.*=false"));
    RandomArguments arguments(
        QStringLiteral(
            "Edits scores at random, undoes it all and redoes it all, and compares the documents."),
        10000);
    if (!arguments.read(application))
        return 2;
    std::map<std::string, unsigned> accepted;
    std::uint64_t comparedSteps = 0;
    unsigned good = 0;
    for (const std::string &path : arguments.paths()) {
        try {
            good +=
                runOn(path, arguments.edits(), arguments.seed(), accepted, comparedSteps) ? 1 : 0;
        } catch (const std::exception &error) {
            std::printf("%s: %s\n", path.c_str(), error.what());
        }
    }
    std::printf("Edits of each kind:");
    for (const RandomOperation &operation : randomOperations())
        std::printf(" %s %u", operation.name, accepted[operation.name]);
    std::printf("\n%u of %zu scores came back as they were; the events told all of %llu steps.\n",
                good, arguments.paths().size(), static_cast<unsigned long long>(comparedSteps));
    return good == arguments.paths().size() && !arguments.paths().empty() ? 0 : 1;
}
