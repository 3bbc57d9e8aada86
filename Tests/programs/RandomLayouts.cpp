// SPDX-License-Identifier: MIT
#include "support/LayoutLaw.h"
#include "support/RandomArguments.h"
#include "support/ScoreFiles.h"

#include <ZarnCore/model/ZarnScoreModel.h>

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QLoggingCategory>

#include <cstdio>
#include <exception>
#include <string>
#include <vector>

namespace {

struct Totals {
    unsigned good = 0;
    unsigned edits = 0;
    unsigned layouts = 0;
};

void runOn(const std::string &path, const zarn::layout::LayoutOptions &options, unsigned edits,
           std::uint64_t seed, Totals &totals)
{
    const std::string name = QFileInfo(QString::fromStdString(path)).fileName().toStdString();
    QElapsedTimer timer;
    timer.start();
    const auto model = readScore(path);
    const auto result = LayoutLaw{*model, options, edits, seed}.run();
    const double seconds = static_cast<double>(timer.elapsed()) / 1000;
    totals.edits += result.edits;
    totals.layouts += result.layouts;
    if (result.fault.empty()) {
        ++totals.good;
        std::printf("%s: %u edits, %u layouts equal, %zu of %zu systems kept; %.1f s\n",
                    name.c_str(), result.edits, result.layouts, result.keptSystems, result.systems,
                    seconds);
    } else {
        std::printf("%s: after %u edits (seed %llu), %s\n", name.c_str(), result.edits,
                    static_cast<unsigned long long>(seed), result.fault.c_str());
    }
    std::fflush(stdout);
}

} // namespace

int main(int argc, char *argv[])
{
    const QCoreApplication application(argc, argv);
    // Commands that are refused are what this is about: they need no warning each.
    QLoggingCategory::setFilterRules(QStringLiteral("zarn.*=false"));
    RandomArguments arguments(
        QStringLiteral("Edits scores at random, keeps their layouts up to date, and compares them "
                       "with layouts that are made from nothing."),
        1000);
    const QCommandLineOption scroll(QStringLiteral("scroll"),
                                    QStringLiteral("One sheet, rests joined, in place of pages."));
    const QCommandLineOption line(QStringLiteral("line"),
                                  QStringLiteral("One system without end, in place of pages."));
    arguments.add(scroll);
    arguments.add(line);
    if (!arguments.read(application))
        return 2;
    zarn::layout::LayoutOptions options;
    if (arguments.has(scroll)) {
        options.view = zarn::ViewLayout::Continuous;
        options.multiRest = true;
    } else if (arguments.has(line)) {
        options.view = zarn::ViewLayout::SingleLine;
    }
    Totals totals;
    for (const std::string &path : arguments.paths()) {
        try {
            runOn(path, options, arguments.edits(), arguments.seed(), totals);
        } catch (const std::exception &error) {
            std::printf("%s: %s\n", path.c_str(), error.what());
        }
    }
    std::printf("%u of %zu scores were shown as they are: %u edits, %u layouts compared.\n",
                totals.good, arguments.paths().size(), totals.edits, totals.layouts);
    return totals.good == arguments.paths().size() && !arguments.paths().empty() ? 0 : 1;
}
