// SPDX-License-Identifier: MIT
//
// Reading and writing the native document against RapidJSON alone on the same bytes: parsing them
// into a document, and writing that document to a buffer.
#include "RatioReport.h"

#include <ZarnCore/io/ZarnImportReport.h>
#include <ZarnCore/io/ZarnNativeExporter.h>
#include <ZarnCore/io/ZarnNativeImporter.h>
#include <ZarnCore/model/ZarnScoreModel.h>

#include <filesystem/RAMFileSystem.h>

#include <rapidjson/document.h>
#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>

#include <cstdio>
#include <memory>
#include <string>

using namespace zarn;

namespace {

constexpr unsigned partCount = 8;

std::shared_ptr<Beat> makeBeat(unsigned number, bool isFretted)
{
    auto beat = std::make_shared<Beat>(RhythmValue(number % 3 == 0 ? RhythmValue::NoteValue::Quarter
                                                                   : RhythmValue::NoteValue::Eighth,
                                                   number % 7 == 0 ? 1 : 0));
    if (number % 16 == 0)
        beat->setDynamic(NoteDynamic::Value::MF);
    if (number % 11 == 0)
        return beat; // a rest
    const unsigned noteCount = number % 5 == 0 ? 3 : 1;
    for (unsigned i = 0; i < noteCount; ++i) {
        auto note = std::make_shared<Note>(static_cast<int>(48 + (number * 5 + i * 4) % 36));
        if (isFretted) {
            note->setString(static_cast<int>((number + i) % 6));
            note->setFret(static_cast<int>(number % 13));
        } else {
            note->setSpelling(PitchClass(NoteName(static_cast<NoteName::Value>(number % 7))));
        }
        note->setTied(number % 9 == 0);
        beat->addNote(note);
    }
    return beat;
}

/// A score as bands write it: half of the parts fretted, one or two voices.
std::shared_ptr<ScoreModel> makeScore(unsigned barCount)
{
    auto model = std::make_shared<ScoreModel>();
    model->masterTrack()->addEmptyMasterBars(barCount);
    unsigned number = 0;
    for (unsigned part = 0; part < partCount; ++part) {
        const bool isFretted = part % 2 == 0;
        const auto track = model->createAndInsertTrack(
            part, isFretted ? InstrumentSet::steelGuitar : InstrumentSet::violin);
        for (const auto &bar : track->bars(0)) {
            for (unsigned i = 0; i < 6; ++i)
                bar->ensureVoice(0)->addBeat(makeBeat(number++, isFretted));
            if (number % 4 == 0)
                bar->ensureVoice(1)->addBeat(makeBeat(number++, isFretted));
        }
    }
    return model;
}

/// The document of a score, in memory.
class DocumentFile {
public:
    explicit DocumentFile(const ScoreModel &model) : _text(io::NativeExporter().toText(model))
    {
        io::NativeExporter().write(model, *_files.open(path, filesystem::OpenMode::Write));
    }

    const std::string &text() const noexcept { return _text; }

    std::shared_ptr<ScoreModel> read()
    {
        io::ImportReport report;
        const auto handle = _files.open(path, filesystem::OpenMode::Read);
        return io::NativeImporter().read(*handle, report);
    }

    void write(const ScoreModel &model)
    {
        io::NativeExporter().write(model, *_files.open("copy", filesystem::OpenMode::Write));
    }

private:
    static constexpr const char *path = "score.zarn";
    filesystem::RAMFileSystem _files;
    std::string _text;
};

void addRead(bench::RatioReport &report, const std::string &name, DocumentFile &file)
{
    report.compare(
        name, 3.0,
        [&file](benchmark::State &state) {
            for (auto _ : state) {
                rapidjson::Document document;
                const bench::IterationTimer timer(state);
                document.Parse(file.text().data(), file.text().size());
                benchmark::DoNotOptimize(document.IsObject());
            }
        },
        [&file](benchmark::State &state) {
            for (auto _ : state) {
                std::shared_ptr<ScoreModel> model;
                const bench::IterationTimer timer(state);
                model = file.read();
                benchmark::DoNotOptimize(model.get());
            }
        },
        bench::Timing::Manual);
}

void addWrite(bench::RatioReport &report, const std::string &name, DocumentFile &file,
              const ScoreModel &model, const rapidjson::Document &document)
{
    report.compare(
        name, 3.0,
        [&document](benchmark::State &state) {
            for (auto _ : state) {
                rapidjson::StringBuffer buffer;
                rapidjson::Writer<rapidjson::StringBuffer> writer(buffer);
                document.Accept(writer);
                benchmark::DoNotOptimize(buffer.GetSize());
            }
        },
        [&file, &model](benchmark::State &state) {
            for (auto _ : state)
                file.write(model);
        });
}

} // namespace

int main(int argc, char **argv)
{
    const auto small = makeScore(200);
    const auto large = makeScore(2000);
    DocumentFile smallFile(*small);
    DocumentFile largeFile(*large);
    if (!(*largeFile.read() == *large)) {
        std::fprintf(stderr, "the document does not hold the score\n");
        return 1;
    }
    rapidjson::Document document;
    document.Parse(largeFile.text().data(), largeFile.text().size());
    std::printf("8 parts x 2,000 bars: %.1f MB\n",
                static_cast<double>(largeFile.text().size()) / 1e6);

    bench::RatioReport report;
    addRead(report, "read the native document, 2,000 bars x 8 parts", largeFile);
    addRead(report, "read the native document, 200 bars x 8 parts", smallFile);
    addWrite(report, "write the native document, 2,000 bars x 8 parts", largeFile, *large,
             document);
    return report.run(argc, argv);
}
