// SPDX-License-Identifier: MIT
// Embeds the library as an editor does: opens a score, keeps a view of its own that follows events
// alone, edits, undoes and redoes, and saves.
//   score-view SCORE SAVED.zarn
#include "ScoreView.h"

#include <ZarnCore/ZarnCore.h>
#include <ZarnCore/io/ZarnExporter.h>
#include <ZarnCore/io/ZarnImportReport.h>
#include <ZarnCore/io/ZarnImporter.h>
#include <filesystem/DiskFileSystem.h>

#include <QCoreApplication>

#include <functional>
#include <iostream>
#include <stdexcept>
#include <utility>

namespace {

void open(zarn::Score &score, filesystem::FileSystem &files, const std::string &path)
{
    std::string error;
    const auto document = files.open(path, filesystem::OpenMode::Read, &error);
    if (document == nullptr)
        throw std::runtime_error(error);
    const auto *const importer = zarn::Core::instance().importerByHandle(*document);
    if (importer == nullptr)
        throw std::runtime_error(path + ": no format that can be read");
    zarn::io::ImportReport report;
    importer->importScore(*document, score, report);
    for (const auto &problem : report.problems())
        std::cout << problem.toString() << '\n';
}

void save(const zarn::Score &score, filesystem::FileSystem &files, const std::string &path)
{
    const auto *const exporter = zarn::Core::instance().exporterByExtension("zarn");
    std::string error;
    const auto document = files.open(path, filesystem::OpenMode::Write, &error);
    if (document == nullptr || exporter == nullptr)
        throw std::runtime_error(error);
    exporter->write(*score.scoreModel(), *document);
}

/// The view must show what one shows that is made now.
void requireRight(ScoreView &view, zarn::Score &score, const std::string &when)
{
    std::cout << when << ": " << view.takeReadCount() << " bars and columns read\n";
    if (view != ScoreView(score))
        throw std::runtime_error("the view is wrong: " + when);
}

/// On the lowest string of the first track, or where it has no strings as a pitch.
bool writeNote(zarn::Score &score, int bar, int beat, int pitch, int fret)
{
    const zarn::ScoreModelIndex place(score.scoreModel().get(), 0, bar, beat, 0, 0);
    const zarn::RhythmValue quarter(zarn::RhythmValue::NoteValue::Quarter, 0);
    if (!score.createBeat(place, quarter))
        return false;
    return score.track(0)->staff(0)->isFretted() ? score.setStringedNote(place, 0, fret)
                                                 : score.setMIDINote(place, pitch);
}

void editAndUndo(zarn::Score &score, ScoreView &view)
{
    using Edit = std::pair<std::string, std::function<bool()>>;
    const Edit edits[] = {
        {"two bars in front", [&] { return score.createBars(0, 2); }},
        {"a note", [&] { return writeNote(score, 0, 0, 64, 0); }},
        {"another note", [&] { return writeNote(score, 0, 1, 67, 3); }},
        {"an intro", [&] { return score.setMasterBarSection(0, {}, QStringLiteral("Intro")); }},
        {"a repeat",
         [&] { return score.setBarRepeatStart(0, true) && score.setBarRepeatEnd(1, 2); }},
        {"a new name", [&] { return score.setTrackName(0, QStringLiteral("Lead")); }},
        {"a bass", [&] { return score.createTrack(1, zarn::InstrumentSet::electricBass); }},
        {"a bar less", [&] { return score.removeBar(1); }},
    };
    for (const auto &[name, edit] : edits) {
        if (!edit())
            throw std::runtime_error("refused: " + name);
        requireRight(view, score, name);
    }
    view.print(std::cout, 2);

    auto &commands = score.commandStack();
    while (commands.undoAvailable()) {
        commands.undo();
        requireRight(view, score, "undone");
    }
    while (commands.redoAvailable()) {
        commands.redo();
        requireRight(view, score, "redone");
    }
}

} // namespace

int main(int argc, char **argv)
try {
    QCoreApplication application(argc, argv);
    if (argc != 3)
        throw std::runtime_error("usage: score-view SCORE SAVED.zarn");
    filesystem::DiskFileSystem files;
    zarn::Core::initialize(&files);

    zarn::Score score;
    ScoreView view(score);
    open(score, files, argv[1]);
    requireRight(view, score, "opened");
    view.print(std::cout, 2);
    editAndUndo(score, view);
    save(score, files, argv[2]);

    zarn::Score reopened;
    open(reopened, files, argv[2]);
    if (view != ScoreView(reopened))
        throw std::runtime_error("the saved score is another one");
    std::cout << "The view was right all along, and the score is saved.\n";
    return 0;
} catch (const std::exception &error) {
    std::cerr << error.what() << '\n';
    return 1;
}
