// SPDX-License-Identifier: MIT
#pragma once

#include <ZarnCore/io/ZarnExportReport.h>
#include <ZarnCore/io/ZarnImportReport.h>
#include <ZarnCore/io/ZarnMidiImporter.h>

#include <memory>
#include <string>

namespace zarn {

namespace io {
class Exporter;
}

class ScoreModel;
struct Clip;

namespace io {
class Exporter;
}

namespace tool {

class Terminal;

/// A document as it was read.
struct OpenedDocument {
    std::string path;
    std::string format; ///< name of the format for a user
    std::shared_ptr<ScoreModel> model;
    io::ImportReport report;
};

/// "-" as a path stands for standard input or standard output.
bool isStandardStream(const std::string &path);

/// What to call a path in messages.
enum class Direction { In, Out };
std::string nameOfPath(const std::string &path, Direction direction);

/// An empty score with one bar, which belongs to no file.
OpenedDocument newDocument();

/// Reads a document of any known format; the content decides which it is. Raises `Failure` or the
/// importer's exception, the message beginning with the path. The options are for MIDI files.
OpenedDocument openDocument(const std::string &path, const Terminal &terminal,
                            const io::MidiImportOptions &midiOptions = {});

/// Writes a document in the format of the path's suffix, to standard output as a native one; the
/// old file stays whole until the new one is complete. Returns what the format could not hold.
/// Raises `Failure`.
io::ExportReport saveDocument(const ScoreModel &model, const std::string &path,
                              const Terminal &terminal);

/// The same in a format of one's choice, whatever the suffix.
io::ExportReport saveDocument(const ScoreModel &model, const std::string &path,
                              const Terminal &terminal, const io::Exporter &exporter);

/// Whether the suffix of the path is one of the exporter's.
bool isSuffixOf(const io::Exporter &exporter, const std::string &path);

/// The same for music that was copied: a native document. What is read may be any score; it is a
/// clip of all its bars then.
Clip openClip(const std::string &path, const Terminal &terminal);
void saveClip(const Clip &clip, const std::string &path, const Terminal &terminal);

/// Whether what is written there can be read again: a native document or MusicXML, no page of text.
bool isReadableFormat(const std::string &path);

/// Whether there is a format to write with the path's suffix.
bool isWritableFormat(const std::string &path);

/// Whether that is the native one, which loses nothing.
bool isNativeFormat(const std::string &path);

/// Raises `Failure` unless there is one.
void requireWritableFormat(const std::string &path);

/// ".zarn" and so on: what `saveDocument` can write, for messages.
std::string writableSuffixes();

/// The document as the native format writes it; equal scores give equal texts.
std::string nativeText(const ScoreModel &model);

} // namespace tool
} // namespace zarn
