// SPDX-License-Identifier: MIT
#include "common/SheetWords.h"

#include <ZarnCore/model/ZarnTrackNotations.h>
#include <ZarnCore/model/layout/ZarnPageSetup.h>

#include <QStringList>

#include <array>
#include <cmath>

namespace zarn::tool {
namespace {

/// Names of sheets with their sizes in millimetres, upright.
struct SheetSize {
    const char *name;
    double width;
    double height;
};
constexpr std::array<SheetSize, 7> sheetSizes{{
    {"A3", 297, 420},
    {"A4", 210, 297},
    {"A5", 148, 210},
    {"A6", 105, 148},
    {"B4", 250, 353},
    {"letter", 215.9, 279.4},
    {"legal", 215.9, 355.6},
}};

constexpr double smallestSheet = 10;
constexpr double largestSheet = 5000;

void setSize(PageSetup &setup, double width, double height)
{
    setup.orientation = PageSetup::Orientation::Portrait;
    setup.width = micrometres(width);
    setup.height = micrometres(height);
}

} // namespace

int micrometres(double millimetres)
{
    return static_cast<int>(std::lround(millimetres * 1000));
}

bool readSheet(const QString &word, PageSetup &setup)
{
    for (const SheetSize &size : sheetSizes) {
        if (word.compare(QLatin1String(size.name), Qt::CaseInsensitive) == 0) {
            setSize(setup, size.width, size.height);
            return true;
        }
    }
    const QStringList sides = word.split(QLatin1Char('x'));
    bool isWidth = false;
    bool isHeight = false;
    const double width = sides.first().toDouble(&isWidth);
    const double height = sides.last().toDouble(&isHeight);
    const auto fits = [](double side) { return side >= smallestSheet && side <= largestSheet; };
    if (sides.size() != 2 || !isWidth || !isHeight || !fits(width) || !fits(height))
        return false;
    setSize(setup, width, height);
    return true;
}

QString sheetWords()
{
    QStringList names;
    for (const SheetSize &size : sheetSizes)
        names.append(QLatin1String(size.name));
    return QStringLiteral("%1 or WIDTHxHEIGHT in millimetres from 10 to 5000, such as 210x297")
        .arg(names.join(QStringLiteral(", ")));
}

bool addNotation(const QString &word, TrackNotations &notations)
{
    if (word == QStringLiteral("staff"))
        notations.standard = true;
    else if (word == QStringLiteral("tab"))
        notations.tablature = true;
    else if (word == QStringLiteral("slash"))
        notations.slash = true;
    else
        return false;
    return true;
}

} // namespace zarn::tool
