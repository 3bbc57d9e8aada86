// SPDX-License-Identifier: MIT
// The tunings library against bare containers, the repeated save of the user's file against the
// whole document built and written for every tuning, and opening it against reading its XML.
#include "RatioReport.h"

#include <ZarnCore/instruments/tunings/ZarnGuitarTuningLibrary.h>

#include <QDir>
#include <QDomDocument>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QTextStream>
#include <QXmlStreamReader>

#include <rapidjson/document.h>

#include <stdexcept>

namespace {

using bench::IterationTimer;
using bench::RatioReport;
using zarn::GuitarTuning;
using zarn::GuitarTuningLibrary;

constexpr auto core = GuitarTuning::CoreRole;
constexpr int userTuningCount = 200;

/// A user's file as another program may have written it.
QByteArray userFile(int count = userTuningCount)
{
    QByteArray text = "<UserTunings>";
    for (int i = 0; i < count; ++i) {
        text += "<Tuning Instrument='1' Name='Tuning " + QByteArray::number(i) + "'>";
        for (int string = 0; string < 4 + i % 5; ++string)
            text += "<MidiNumber Number='" + QByteArray::number(30 + 5 * string + i % 7)
                + "' Index='" + QByteArray::number(string) + "'/>";
        text += "</Tuning>";
    }
    return text + "</UserTunings>";
}

void writeFile(const QString &path, const QByteArray &text)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(text) != text.size())
        throw std::runtime_error("cannot write");
}

struct PlainTuning {
    int instrument = 0;
    QString name;
    std::vector<int> midiNumbers;
};

QDomDocument documentOf(const std::vector<PlainTuning> &tunings)
{
    QDomDocument document;
    auto root = document.createElement(QStringLiteral("UserTunings"));
    document.appendChild(root);
    for (const auto &tuning : tunings) {
        auto element = document.createElement(QStringLiteral("Tuning"));
        element.setAttribute(QStringLiteral("Instrument"), tuning.instrument);
        element.setAttribute(QStringLiteral("Name"), tuning.name);
        element.setAttribute(QStringLiteral("IsFlat"), 0);
        element.setAttribute(QStringLiteral("HasShortDroneString"), 0);
        element.setAttribute(QStringLiteral("MidiOffset"), 0);
        int index = 0;
        for (const int midi : tuning.midiNumbers) {
            auto number = document.createElement(QStringLiteral("MidiNumber"));
            number.setAttribute(QStringLiteral("Number"), midi);
            number.setAttribute(QStringLiteral("Index"), index++);
            element.appendChild(number);
        }
        root.appendChild(element);
    }
    return document;
}

void loadAndRebuildEachTime(const QString &path)
{
    QFile file(path);
    QDomDocument document;
    if (!file.open(QIODevice::ReadOnly) || !document.setContent(&file))
        throw std::runtime_error("cannot read");
    file.close();
    std::vector<PlainTuning> tunings;
    for (auto element = document.documentElement().firstChildElement(); !element.isNull();
         element = element.nextSiblingElement()) {
        PlainTuning tuning{element.attribute(QStringLiteral("Instrument")).toInt(),
                           element.attribute(QStringLiteral("Name")),
                           {}};
        for (auto number = element.firstChildElement(); !number.isNull();
             number = number.nextSiblingElement())
            tuning.midiNumbers.push_back(number.attribute(QStringLiteral("Number")).toInt());
        tunings.push_back(std::move(tuning));
        if (!file.open(QIODevice::WriteOnly))
            throw std::runtime_error("cannot write");
        QTextStream stream(&file);
        documentOf(tunings).save(stream, 2);
        stream.flush();
        file.close();
    }
}

void addLoading(RatioReport &report, const QString &path)
{
    const auto measure = [path](auto load) {
        return [path, load](benchmark::State &state) {
            const auto text = userFile();
            for (auto _ : state) {
                writeFile(path, text);
                const IterationTimer timer(state);
                load();
            }
        };
    };
    report.compare("tunings: 200 of the user, saved after each", 0.3,
                   measure([path] { loadAndRebuildEachTime(path); }), measure([] {
                       GuitarTuningLibrary library;
                       library.loadUserTunings();
                       if (library.getTunings(GuitarTuning::UserRole).size() != userTuningCount)
                           throw std::runtime_error("not loaded");
                   }),
                   bench::Timing::Manual);
}

/// What any reader does: all elements, with their attributes.
void readXml(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        throw std::runtime_error("cannot read");
    QXmlStreamReader reader(file.readAll());
    while (!reader.atEnd())
        if (reader.readNext() == QXmlStreamReader::StartElement)
            benchmark::DoNotOptimize(reader.attributes().size());
}

/// The start of a program whose tunings are as it left them.
void addOpening(RatioReport &report, const QString &path)
{
    constexpr int count = 1000;
    const auto prepare = [path] {
        writeFile(path, userFile(count));
        GuitarTuningLibrary().loadUserTunings();
    };
    report.compare(
        "tunings: 1,000 of the user, opened", 2,
        [path, prepare](benchmark::State &state) {
            prepare();
            for (auto _ : state)
                readXml(path);
        },
        [prepare](benchmark::State &state) {
            prepare();
            for (auto _ : state) {
                GuitarTuningLibrary library;
                library.loadUserTunings();
                if (library.getTunings(GuitarTuning::UserRole).size() != count)
                    throw std::runtime_error("not loaded");
            }
        });
}

void parseCatalogue(GuitarTuningLibrary &library)
{
    QFile file(QStringLiteral(":/instrumentSet/ZarnTunings.json"));
    if (!file.open(QIODevice::ReadOnly))
        throw std::runtime_error("no catalogue");
    const auto text = file.readAll();
    rapidjson::Document document;
    document.Parse(text.constData(), static_cast<std::size_t>(text.size()));
    library.parse(document["tunings"]);
}

/// Looks every built-in tuning up, one after the other.
template <typename LookUp>
RatioReport::Body everyTuning(const GuitarTuningLibrary::Tunings &tunings, LookUp lookUp)
{
    return [&tunings, lookUp](benchmark::State &state) {
        for (auto _ : state) {
            for (const auto &tuning : tunings)
                benchmark::DoNotOptimize(lookUp(*tuning));
        }
    };
}

template <typename Accepts>
std::shared_ptr<GuitarTuning> bareFind(const GuitarTuningLibrary::Store &store,
                                       unsigned stringCount, Accepts accepts)
{
    for (const auto &entry : store.at(stringCount)) {
        if (accepts(*entry.second))
            return entry.second;
    }
    return nullptr;
}

void addLookUps(RatioReport &report, const GuitarTuningLibrary &library,
                const GuitarTuningLibrary::Store &bare, const GuitarTuningLibrary::Tunings &tunings)
{
    report.compare(
        "tunings: look-up by id", 2,
        everyTuning(tunings,
                    [&bare](const GuitarTuning &wanted) {
                        return bare.find(wanted.stringCount())->second.find(wanted.id())->second;
                    }),
        everyTuning(tunings, [&library](const GuitarTuning &wanted) {
            return library.findGuitarTuning(wanted.id(), wanted.stringCount(), core);
        }));
    report.compare("tunings: look-up by name and pitches", 2,
                   everyTuning(tunings,
                               [&bare](const GuitarTuning &wanted) {
                                   return bareFind(bare, wanted.stringCount(),
                                                   [&](const GuitarTuning &candidate) {
                                                       return candidate.name() == wanted.name()
                                                           && candidate.midiNumbers()
                                                           == wanted.midiNumbers();
                                                   });
                               }),
                   everyTuning(tunings, [&library](const GuitarTuning &wanted) {
                       return library.findGuitarTuning(wanted.name(), wanted.midiNumbers());
                   }));
    report.compare(
        "tunings: look-up by instrument", 2,
        everyTuning(tunings,
                    [&bare](const GuitarTuning &wanted) {
                        return bareFind(bare, wanted.stringCount(),
                                        [&](const GuitarTuning &candidate) {
                                            return candidate.instrument() == wanted.instrument();
                                        });
                    }),
        everyTuning(tunings, [&library](const GuitarTuning &wanted) {
            return library.defaultTuning(wanted.instrument(), wanted.stringCount(), core);
        }));
}

} // namespace

int main(int argc, char **argv)
{
    const QTemporaryDir folder;
    qputenv("XDG_DATA_HOME", folder.path().toUtf8());
    const auto path = GuitarTuningLibrary::userTuningsPath();
    QDir().mkpath(QFileInfo(path).path());

    GuitarTuningLibrary library;
    parseCatalogue(library);
    const auto tunings = library.getTunings(core);
    GuitarTuningLibrary::Store bare;
    for (const auto &tuning : tunings)
        bare[tuning->stringCount()][tuning->id()] = tuning;

    RatioReport report;
    addLoading(report, path);
    addOpening(report, path);
    addLookUps(report, library, bare, tunings);
    return report.run(argc, argv);
}
