// SPDX-License-Identifier: MIT
// How well lines break that are looked for in a window of bars, against the best breaks of the
// whole score: by the cost that line breaking itself counts with. For the band, or for the scores
// (MusicXML) that are named; ends with 1 when one of them costs more than 1.10 of the best.
#include "BandScore.h"

#include <ZarnCore/io/ZarnImportReport.h>
#include <ZarnCore/io/ZarnMusicXmlImporter.h>
#include <ZarnLayout/font/ZarnMusicFont.h>
#include <ZarnLayout/font/ZarnTextMeasure.h>
#include <ZarnLayout/session/LayoutEngine.h>
#include <ZarnLayout/session/ScoreMarks.h>
#include <ZarnLayout/session/ScoreReader.h>

#include <filesystem/DiskFileSystem.h>

#include <QFileInfo>
#include <QLoggingCategory>

#include <algorithm>
#include <cstdio>
#include <exception>
#include <memory>
#include <string>
#include <vector>

namespace {

using namespace zarn;
using engraving::BarWidth;

/// As scores are read and laid out, with lines that break by themselves.
class Breaks {
public:
    explicit Breaks(const ScoreModel &model)
        : _engine(layout::MusicFont::builtIn(), layout::builtInTextMeasure())
    {
        layout::LayoutOptions options;
        options.breaks = layout::SystemBreaks::ByThemselves;
        engraving::ScoreMarks everything;
        engraving::ScoreReader reader;
        reader.read(model, options, everything);
        _engine.layOut(reader.source());
    }

    std::size_t lineCount() const { return found().lines().size(); }

    double cost() const
    {
        double cost = 0;
        unsigned bar = 0;
        for (const unsigned count : found().lines()) {
            cost += costOf(bar, bar + count);
            bar += count;
        }
        return cost;
    }

    /// The least that any breaks cost: from each bar to the end.
    double leastCost() const
    {
        const auto count = static_cast<unsigned>(bars().size());
        std::vector<double> least(count + 1, 1e18);
        least[count] = 0;
        for (unsigned first = count; first-- > 0;)
            for (unsigned end = first + 1; end <= count; ++end) {
                if (end > first + 1 && bars()[end - 1].breaksBefore)
                    break;
                const double cost = costOf(first, end);
                least[first] = std::min(least[first], cost + least[end]);
                if (cost >= engraving::impossible)
                    break;
            }
        return least[0];
    }

private:
    const engraving::SystemBreaks &found() const { return _engine.breaks(); }
    const std::vector<BarWidth> &bars() const { return found().bars(); }
    double costOf(unsigned first, unsigned end) const
    {
        const auto &widths = found().widths();
        return engraving::costOfLine(bars(), first, end, first == 0 ? widths.first : widths.others);
    }

    engraving::LayoutEngine _engine;
};

bool print(const std::string &name, const ScoreModel &model)
{
    const Breaks breaks(model);
    const double least = breaks.leastCost();
    const double cost = breaks.cost();
    constexpr double most = 1.10;
    // What the best breaks cost nothing can only be compared by the difference.
    const bool isMet = cost <= most * least + 1e-6;
    std::printf("%-52s %5zu systems %10.3f best %10.3f found %8.3f %s\n", name.c_str(),
                breaks.lineCount(), least, cost, least > 0 ? cost / least : 1.0,
                isMet ? "met" : "MISSED");
    return isMet;
}

} // namespace

int main(int argc, char **argv)
{
    QLoggingCategory::setFilterRules(QStringLiteral("zarn.*=false"));
    bool areMet = true;
    try {
        if (argc < 2) {
            areMet = print("a band of 300 bars", *bench::band::make(300));
            areMet = print("a band of 2,000 bars", *bench::band::make(2000)) && areMet;
        }
        filesystem::DiskFileSystem disk;
        for (int i = 1; i < argc; ++i) {
            const auto file = disk.open(argv[i], filesystem::OpenMode::Read);
            if (!file) {
                std::fprintf(stderr, "%s cannot be opened\n", argv[i]);
                return 2;
            }
            io::ImportReport repairs;
            const auto model = io::MusicXmlImporter().read(*file, repairs);
            areMet =
                print(QFileInfo(QString::fromLocal8Bit(argv[i])).fileName().toStdString(), *model)
                && areMet;
        }
    } catch (const std::exception &error) {
        std::fprintf(stderr, "%s\n", error.what());
        return 2;
    }
    return areMet ? 0 : 1;
}
