// SPDX-License-Identifier: MIT
// How long the editor takes from the start to the first page, and from a key to the repaint.
// Usage: zarn_editor_speed [--keys N] FILE
#include "editor/EditorDriver.h"
#include "editor/EditorHome.h"

#include <ZarnCore/model/ZarnScoreModel.h>

#include <QCommandLineParser>
#include <QElapsedTimer>

#include <algorithm>
#include <iostream>
#include <vector>

namespace {

double milliseconds(const QElapsedTimer &since)
{
    return static_cast<double>(since.nsecsElapsed()) / 1e6;
}

/// Until what a key did is on the screen.
double timeOfKey(test::EditorDriver &driver, Qt::Key key)
{
    QElapsedTimer since;
    since.start();
    QTest::keyClick(&driver.view(), key);
    driver.view().layouts().bringUpToDate();
    driver.view().viewport()->repaint();
    return milliseconds(since);
}

double part(const std::vector<double> &sorted, double share)
{
    return sorted[static_cast<std::size_t>(share * static_cast<double>(sorted.size() - 1))];
}

} // namespace

int main(int argc, char **argv)
{
    QElapsedTimer start;
    start.start();
    test::EditorHome home(argc, argv);
    QCommandLineParser arguments;
    arguments.addOption({QStringLiteral("keys"), QStringLiteral("How many are pressed."),
                         QStringLiteral("N"), QStringLiteral("300")});
    arguments.addPositionalArgument(QStringLiteral("file"), QStringLiteral("A score."));
    arguments.process(home.application());
    test::EditorDriver driver(arguments.positionalArguments().value(0));
    driver.view().viewport()->repaint();
    std::cout << "start to first page: " << milliseconds(start) << " ms\n";

    const int count = std::max(arguments.value(QStringLiteral("keys")).toInt(), 1);
    std::vector<double> digits;
    std::vector<double> arrows;
    for (int i = 0; i < count; ++i) {
        digits.push_back(timeOfKey(driver, static_cast<Qt::Key>(Qt::Key_2 + i % 8)));
        arrows.push_back(timeOfKey(driver, Qt::Key_Right));
    }
    for (auto *const times : {&digits, &arrows}) {
        std::sort(times->begin(), times->end());
        std::cout << (times == &digits ? "fret" : "arrow") << " to repaint: median "
                  << part(*times, 0.5) << " ms, 99 % " << part(*times, 0.99) << " ms, longest "
                  << times->back() << " ms\n";
    }
    return 0;
}
