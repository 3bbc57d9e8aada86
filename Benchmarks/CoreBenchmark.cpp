// SPDX-License-Identifier: MIT
// What the start of the library costs: the catalogues that it waits for, against reading the same
// bytes into plain structs, and how long the tables that are built in the background take.
#include "RatioReport.h"

#include <ZarnCore/ZarnCore.h>
#include <ZarnCore/core/CatalogueFile.h>
#include <ZarnCore/instruments/sets/ZarnInstrumentSetLibrary.h>
#include <ZarnCore/instruments/tunings/ZarnGuitarTuningLibrary.h>
#include <filesystem/DiskFileSystem.h>

#include <QFile>
#include <QTemporaryDir>
#include <QTextStream>

#include <rapidjson/document.h>

#include <malloc.h>

#include <chrono>
#include <cstdio>
#include <memory>
#include <string>
#include <vector>

namespace {

const QString tuningsPath = QStringLiteral(":/instrumentSet/ZarnTunings.json");
const QString setsPath = QStringLiteral(":/instrumentSet/ZarnInstrumentSets.json");

// The reference: plain structs, whose words stay words.

struct PlainTuning {
    std::string name;
    std::string instrument;
    std::vector<int> midiNumbers;
    int offset = 0;
    bool hasDrone = false;
};

struct PlainArticulation {
    std::string name;
    int staffLine = 0;
    std::vector<std::string> noteHeads;
    std::string techniqueSymbol;
    std::string techniquePlacement;
    std::vector<int> inputs;
    int output = 0;
    std::string sound;
};

struct PlainElement {
    std::string name;
    std::string bank;
    std::string type;
    std::vector<PlainArticulation> articulations;
};

struct PlainSet {
    std::string name;
    int lineCount = 0;
    std::string type;
    std::vector<PlainElement> elements;
};

rapidjson::Document documentOf(const QString &path)
{
    QFile file(path);
    file.open(QIODevice::ReadOnly);
    QTextStream stream(&file);
    stream.setCodec("UTF-8");
    const QByteArray text = stream.readAll().toUtf8();
    rapidjson::Document document;
    document.Parse(text.constData(), static_cast<std::size_t>(text.size()));
    return document;
}

std::string textOf(const rapidjson::Value &value)
{
    return {value.GetString(), value.GetStringLength()};
}

std::vector<int> numbersOf(const rapidjson::Value &array)
{
    std::vector<int> numbers;
    for (const auto &number : array.GetArray())
        numbers.push_back(number.GetInt());
    return numbers;
}

std::vector<PlainTuning> plainTunings()
{
    const auto document = documentOf(tuningsPath);
    std::vector<PlainTuning> tunings;
    for (const auto &value : document["tunings"].GetArray()) {
        PlainTuning tuning;
        tuning.name = textOf(value["name"]);
        tuning.instrument = textOf(value["instrument"]);
        tuning.midiNumbers = numbersOf(value["midiNumbers"]);
        const auto offset = value.FindMember("offset");
        if (offset != value.MemberEnd())
            tuning.offset = offset->value.GetInt();
        const auto drone = value.FindMember("shortDrone");
        tuning.hasDrone = drone != value.MemberEnd() && drone->value.IsTrue();
        tunings.push_back(std::move(tuning));
    }
    return tunings;
}

PlainArticulation plainArticulation(const rapidjson::Value &value)
{
    const auto &notation = value["musicalNotation"];
    PlainArticulation articulation;
    articulation.name = textOf(value["name"]);
    articulation.staffLine = notation["staffLine"].GetInt();
    for (const auto &head : notation["noteheads"].GetArray())
        articulation.noteHeads.push_back(textOf(head));
    articulation.techniqueSymbol = textOf(notation["techniqueSymbol"]);
    articulation.techniquePlacement = textOf(notation["techniquePlacement"]);
    articulation.inputs = numbersOf(value["inputs"]["midiNumbers"]);
    articulation.output = value["outputs"]["midiNumber"].GetInt();
    articulation.sound = textOf(value["outputs"]["orkaSound"]);
    return articulation;
}

PlainElement plainElement(const rapidjson::Value &value)
{
    PlainElement element;
    element.name = textOf(value["name"]);
    element.type = textOf(value["type"]);
    const auto bank = value.FindMember("orkaSoundBank");
    if (bank != value.MemberEnd())
        element.bank = textOf(bank->value);
    for (const auto &articulation : value["articulations"].GetArray())
        element.articulations.push_back(plainArticulation(articulation));
    return element;
}

std::vector<PlainSet> plainSets()
{
    const auto document = documentOf(setsPath);
    std::vector<PlainSet> sets;
    for (const auto &value : document["instrumentSets"].GetArray()) {
        PlainSet set;
        set.name = textOf(value["name"]);
        set.lineCount = value["lineCount"].GetInt();
        set.type = textOf(value["type"]);
        for (const auto &element : value["elements"].GetArray())
            set.elements.push_back(plainElement(element));
        sets.push_back(std::move(set));
    }
    return sets;
}

// Ours, as the core does it.

void loadTunings(zarn::GuitarTuningLibrary &library)
{
    zarn::readCatalogue(tuningsPath, "tunings",
                        [&library](const rapidjson::Value &value) { library.parse(value); });
}

void loadSets(zarn::InstrumentSetLibrary &library)
{
    zarn::readCatalogue(setsPath, "instrumentSets",
                        [&library](const rapidjson::Value &value) { library.parse(value); });
}

struct PlainCatalogues {
    std::vector<PlainTuning> tunings;
    std::vector<PlainSet> sets;
};

struct Catalogues {
    zarn::GuitarTuningLibrary tunings;
    zarn::InstrumentSetLibrary sets;
};

/// Times the loading into a new `Target`, not its end: the catalogues live as long as the process.
template <class Target, class Load>
bench::RatioReport::Body loading(Load load)
{
    return [load](benchmark::State &state) {
        for (auto _ : state) {
            auto target = std::make_unique<Target>();
            {
                const bench::IterationTimer timer(state);
                load(*target);
            }
            benchmark::DoNotOptimize(target.get());
        }
    };
}

/// What the whole start takes once, in milliseconds and KiB; in a user's folder of its own.
void printStart()
{
    using Clock = std::chrono::steady_clock;
    const QTemporaryDir userFolder;
    qputenv("XDG_DATA_HOME", userFolder.path().toLocal8Bit());
    mallopt(M_ARENA_MAX, 1); // so that the memory of all threads is counted
    filesystem::DiskFileSystem files;
    const auto before = mallinfo2().uordblks;
    const auto start = Clock::now();
    const auto since = [&start] {
        return std::chrono::duration<double, std::milli>(Clock::now() - start).count();
    };
    zarn::Core::initialize(&files);
    const double initialized = since();
    const auto path = zarn::Core::instance().findGMInstrumentPath(0);
    const double listed = since();
    const auto track = zarn::Core::instance().findGMInstrument(0);
    const double read = since();
    zarn::Core::instance().waitLazyConf();
    const auto after = mallinfo2().uordblks;
    std::printf("Core::initialize returns after %.1f ms; the General MIDI table, sound banks and "
                "patches answer after %.1f ms, the first track is there after %.1f ms\n",
                initialized, listed, read);
    std::printf("memory of the loaded catalogues: %.0f KiB\n",
                static_cast<double>(after - before) / 1024);
    if (path.isEmpty() || track == nullptr)
        std::printf("THE GENERAL MIDI TABLE IS EMPTY\n");
}

} // namespace

int main(int argc, char **argv)
{
    printStart();
    bench::RatioReport report;
    report.compare("catalogue stage of the start", 1.3,
                   loading<PlainCatalogues>([](PlainCatalogues &plain) {
                       plain.tunings = plainTunings();
                       plain.sets = plainSets();
                   }),
                   loading<Catalogues>([](Catalogues &ours) {
                       loadTunings(ours.tunings);
                       loadSets(ours.sets);
                   }),
                   bench::Timing::Manual);
    return report.run(argc, argv);
}
