// SPDX-License-Identifier: MIT
// The built-in tunings: their names promise pitches, so each name is held against them.
#include <ZarnCore/instruments/tunings/ZarnGuitarTuningLibrary.h>

#include <QFile>
#include <QRegularExpression>

#include <gtest/gtest.h>
#include <rapidjson/document.h>

#include <map>
#include <set>
#include <tuple>

namespace {

using zarn::GuitarTuning;
using zarn::GuitarTuningLibrary;
using Pitches = std::vector<int>;

constexpr auto core = GuitarTuning::CoreRole;

class TuningCatalogue : public testing::Test {
protected:
    static void SetUpTestSuite()
    {
        QFile file(QStringLiteral(":/instrumentSet/ZarnTunings.json"));
        ASSERT_TRUE(file.open(QIODevice::ReadOnly));
        const auto text = file.readAll();
        rapidjson::Document document;
        document.Parse(text.constData(), static_cast<std::size_t>(text.size()));
        ASSERT_TRUE(document.IsObject());
        library = std::make_unique<GuitarTuningLibrary>();
        library->parse(document["tunings"]);
    }
    static void TearDownTestSuite() { library.reset(); }

    static GuitarTuningLibrary::Tunings tunings() { return library->getTunings(core); }

    static std::unique_ptr<GuitarTuningLibrary> library;
};

std::unique_ptr<GuitarTuningLibrary> TuningCatalogue::library;

int toneOf(const QString &name)
{
    static const std::map<QChar, int> letters = {
        {QLatin1Char('C'), 0}, {QLatin1Char('D'), 2}, {QLatin1Char('E'), 4}, {QLatin1Char('F'), 5},
        {QLatin1Char('G'), 7}, {QLatin1Char('A'), 9}, {QLatin1Char('B'), 11}};
    const int sharps = name.count(QLatin1Char('#')) - name.count(QLatin1Char('b'));
    return (letters.at(name.at(0)) + sharps + 12) % 12;
}

Pitches intervalsOf(const GuitarTuning &tuning)
{
    Pitches intervals;
    for (unsigned string = 1; string < tuning.stringCount(); ++string)
        intervals.push_back(tuning.tuning(string) - tuning.tuning(string - 1));
    return intervals;
}

/// The string that gives its name to "Drop C" or "D Standard": the lowest, but not a drone.
unsigned lowestString(const GuitarTuning &tuning)
{
    return tuning.hasShortDroneString() ? 1 : 0;
}

QString describe(const GuitarTuning &tuning)
{
    return QString::fromStdString(GuitarTuning::instrumentToString(tuning.instrument()))
        + QLatin1Char(' ') + tuning.nameWithNotes(true, false);
}

#define EXPECT_FOR(tuning, condition) EXPECT_TRUE(condition) << qPrintable(describe(tuning))

TEST_F(TuningCatalogue, isWideAndWithoutDoubles)
{
    EXPECT_GE(tunings().size(), 150u);
    std::set<std::pair<GuitarTuning::Instrument, Pitches>> pitches;
    std::set<std::tuple<GuitarTuning::Instrument, unsigned, std::string>> names;
    for (const auto &tuning : tunings()) {
        EXPECT_FOR(*tuning, tuning->instrument() != GuitarTuning::Undefined);
        EXPECT_FOR(*tuning, !tuning->name().empty());
        EXPECT_FOR(*tuning, tuning->stringCount() >= 3 && tuning->stringCount() <= 12);
        EXPECT_FOR(*tuning, pitches.insert({tuning->instrument(), tuning->midiNumbers()}).second);
        EXPECT_FOR(
            *tuning,
            names.insert({tuning->instrument(), tuning->stringCount(), tuning->name()}).second);
        EXPECT_EQ(library->tuningDisplayName(*tuning), QString::fromStdString(tuning->name()));
        EXPECT_EQ(tuning->isFlat(), tuning->storedMidiOffset() > 0);
        EXPECT_FOR(*tuning,
                   tuning->storedMidiOffset() == 0 || tuning->midiOffset() == 0
                       || tuning->storedMidiOffset() == tuning->midiOffset());
    }
    EXPECT_EQ(library->instruments().size(), 10u) << "every instrument";
}

TEST_F(TuningCatalogue, theUsualTuningIsTheDefault)
{
    const std::map<std::pair<GuitarTuning::Instrument, unsigned>, Pitches> usual = {
        {{GuitarTuning::Guitar, 4}, {48, 55, 62, 69}},
        {{GuitarTuning::Guitar, 5}, {45, 50, 55, 59, 64}},
        {{GuitarTuning::Guitar, 6}, {40, 45, 50, 55, 59, 64}},
        {{GuitarTuning::Guitar, 7}, {35, 40, 45, 50, 55, 59, 64}},
        {{GuitarTuning::Guitar, 8}, {30, 35, 40, 45, 50, 55, 59, 64}},
        {{GuitarTuning::Guitar, 9}, {25, 30, 35, 40, 45, 50, 55, 59, 64}},
        {{GuitarTuning::Guitar, 12}, {40, 52, 45, 57, 50, 62, 55, 67, 59, 59, 64, 64}},
        {{GuitarTuning::Bass, 4}, {28, 33, 38, 43}},
        {{GuitarTuning::Bass, 5}, {23, 28, 33, 38, 43}},
        {{GuitarTuning::Bass, 6}, {23, 28, 33, 38, 43, 48}},
        {{GuitarTuning::Bass, 7}, {18, 23, 28, 33, 38, 43, 48}},
        {{GuitarTuning::Shamisen, 3}, {48, 53, 60}},
        {{GuitarTuning::Banjo, 4}, {48, 55, 62, 69}},
        {{GuitarTuning::Banjo, 5}, {67, 50, 55, 59, 62}},
        {{GuitarTuning::Banjo, 6}, {40, 45, 50, 55, 59, 64}},
        {{GuitarTuning::Mandolin, 3}, {50, 57, 62}},
        {{GuitarTuning::Mandolin, 4}, {55, 62, 69, 76}},
        {{GuitarTuning::Mandolin, 5}, {48, 55, 62, 69, 76}},
        {{GuitarTuning::Mandolin, 8}, {55, 55, 62, 62, 69, 69, 76, 76}},
        {{GuitarTuning::Ukulele, 4}, {67, 60, 64, 69}},
        {{GuitarTuning::Ukulele, 5}, {55, 67, 60, 64, 69}},
        {{GuitarTuning::Ukulele, 6}, {67, 60, 72, 64, 69, 57}},
        {{GuitarTuning::Ukulele, 8}, {55, 67, 60, 72, 64, 64, 69, 69}},
        {{GuitarTuning::Violin, 4}, {55, 62, 69, 76}},
        {{GuitarTuning::Violin, 5}, {48, 55, 62, 69, 76}},
        {{GuitarTuning::Violin, 6}, {41, 48, 55, 62, 69, 76}},
        {{GuitarTuning::Viola, 4}, {48, 55, 62, 69}},
        {{GuitarTuning::Viola, 5}, {48, 55, 62, 69, 76}},
        {{GuitarTuning::Cello, 4}, {36, 43, 50, 57}},
        {{GuitarTuning::Cello, 5}, {36, 43, 50, 57, 64}},
        {{GuitarTuning::Contrabass, 3}, {33, 38, 43}},
        {{GuitarTuning::Contrabass, 4}, {28, 33, 38, 43}},
        {{GuitarTuning::Contrabass, 5}, {23, 28, 33, 38, 43}},
    };
    for (const auto &[key, pitches] : usual) {
        const auto tuning = library->defaultTuning(key.first, key.second, core);
        ASSERT_NE(tuning, nullptr) << key.first << ", " << key.second << " strings";
        EXPECT_EQ(tuning->midiNumbers(), pitches) << tuning->name();
        EXPECT_EQ(tuning->hasShortDroneString(),
                  key.first == GuitarTuning::Banjo && key.second == 5);
    }
    for (const auto &tuning : tunings())
        EXPECT_FOR(*tuning, usual.count({tuning->instrument(), tuning->stringCount()}) == 1);
    EXPECT_EQ(library->defaultTuning(6, core)->instrument(), GuitarTuning::Guitar);
    EXPECT_EQ(library->defaultTuning(4, core)->instrument(), GuitarTuning::Bass);
}

TEST_F(TuningCatalogue, openTuningsSoundTheirChord)
{
    const std::map<QString, std::set<int>> chords = {
        {QString(), {0, 4, 7}},
        {QStringLiteral("Minor"), {0, 3, 7}},
        {QStringLiteral("6"), {0, 4, 7, 9}},
        {QStringLiteral("7"), {0, 4, 7, 10}},
        {QStringLiteral("maj7"), {0, 4, 7, 11}},
        {QStringLiteral("m7"), {0, 3, 7, 10}},
    };
    const QRegularExpression open(
        QStringLiteral("\\bOpen ([A-G][#b]?) ?(Minor|6|7|maj7|m7)?( \\(|$)"));
    int count = 0;
    for (const auto &tuning : tunings()) {
        const auto match = open.match(QString::fromStdString(tuning->name()));
        if (!match.hasMatch())
            continue;
        std::set<int> tones;
        for (const int midi : tuning->midiNumbers())
            tones.insert((midi + 12 - toneOf(match.captured(1))) % 12);
        EXPECT_FOR(*tuning, tones == chords.at(match.captured(2)));
        ++count;
    }
    EXPECT_GE(count, 40);
}

TEST_F(TuningCatalogue, namesOfNotesAreTheOpenStrings)
{
    const QRegularExpression spelled(QStringLiteral("(?:^|[ (])((?:[A-G][#b]?){3,})(?:[ )]|$)"));
    const QRegularExpression note(QStringLiteral("[A-G][#b]?"));
    int count = 0;
    for (const auto &tuning : tunings()) {
        const auto match = spelled.match(QString::fromStdString(tuning->name()));
        if (!match.hasMatch())
            continue;
        Pitches named;
        for (auto notes = note.globalMatch(match.captured(1)); notes.hasNext();)
            named.push_back(toneOf(notes.next().captured()));
        Pitches tones;
        const unsigned step = tuning->stringCount() == 12 ? 2 : 1;
        for (unsigned string = 0; string < tuning->stringCount(); string += step)
            tones.push_back(tuning->tuning(string) % 12);
        EXPECT_FOR(*tuning, tones == named);
        ++count;
    }
    EXPECT_GE(count, 40);
}

TEST_F(TuningCatalogue, namesOfTheLowestStringAreRight)
{
    const QRegularExpression standard(QStringLiteral("^([A-G][#b]?) Standard"));
    const QRegularExpression drop(QStringLiteral("^Drop ([A-G][#b]?)$"));
    for (const auto &tuning : tunings()) {
        const auto name = QString::fromStdString(tuning->name());
        const auto lowest = lowestString(*tuning);
        const auto isStandard = standard.match(name);
        const auto isDrop = drop.match(name);
        if (isStandard.hasMatch()) {
            const auto usual =
                library->defaultTuning(tuning->instrument(), tuning->stringCount(), core);
            EXPECT_FOR(*tuning, intervalsOf(*tuning) == intervalsOf(*usual));
            EXPECT_FOR(*tuning, tuning->tuning(0) % 12 == toneOf(isStandard.captured(1)));
            EXPECT_EQ(usual->tuning(0) - tuning->tuning(0), tuning->storedMidiOffset());
        } else if (isDrop.hasMatch()) {
            const auto octaves = tuning->stringCount() == 12 ? 2 : 1;
            EXPECT_FOR(*tuning, tuning->tuning(lowest + octaves) - tuning->tuning(lowest) == 7);
            EXPECT_FOR(*tuning, tuning->tuning(lowest) % 12 == toneOf(isDrop.captured(1)));
        } else if (name == QLatin1String("All Fourths") || name == QLatin1String("All Fifths")) {
            const int step = name == QLatin1String("All Fourths") ? 5 : 7;
            EXPECT_FOR(*tuning, intervalsOf(*tuning) == Pitches(tuning->stringCount() - 1, step));
        }
    }
}

} // namespace
