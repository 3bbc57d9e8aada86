// SPDX-License-Identifier: MIT
// Presses keys, clicks and chooses from the editor's menus at random, and looks whether picture and
// undo agree with the score. Usage: zarn_random_user [--steps N] [--seed N] FILE...
#include "editor/RandomUser.h"
#include "editor/EditorHome.h"

#include <QCommandLineParser>

#include <iostream>

namespace {

/// Steps after which all is undone, compared, and begun anew: no more than undo keeps.
constexpr int stretch = 200;

bool drive(const QString &path, unsigned seed, int steps)
{
    test::EditorDriver driver(path);
    test::RandomUser user(driver, seed);
    for (int step = 0; step < steps; ++step) {
        const std::string done = user.act();
        const std::string fault = user.checkPicture();
        if (fault.empty())
            continue;
        std::cout << path.toStdString() << ": seed " << seed << ", step " << step << ", " << done
                  << ": " << fault << '\n';
        return false;
    }
    const std::string fault = user.checkUndo();
    if (!fault.empty())
        std::cout << path.toStdString() << ": seed " << seed << ": " << fault << '\n';
    return fault.empty();
}

} // namespace

int main(int argc, char **argv)
{
    test::EditorHome home(argc, argv);
    QCommandLineParser arguments;
    arguments.addOption({QStringLiteral("steps"), QStringLiteral("How many for each file."),
                         QStringLiteral("N"), QStringLiteral("1000")});
    arguments.addOption({QStringLiteral("seed"), QStringLiteral("The first seed."),
                         QStringLiteral("N"), QStringLiteral("1")});
    arguments.addPositionalArgument(QStringLiteral("files"), QStringLiteral("Scores."));
    arguments.process(home.application());
    bool isWell = true;
    for (const QString &path : arguments.positionalArguments()) {
        unsigned seed = arguments.value(QStringLiteral("seed")).toUInt();
        for (int left = arguments.value(QStringLiteral("steps")).toInt(); left > 0; left -= stretch)
            isWell = drive(path, seed++, std::min(left, stretch)) && isWell;
    }
    std::cout << (isWell ? "All well.\n" : "NOT all well.\n");
    return isWell ? 0 : 1;
}
