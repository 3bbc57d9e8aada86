// SPDX-License-Identifier: MIT
#include <ZarnCore/io/ZarnMidiImporter.h>

#include <ZarnCore/io/FileContent.h>
#include <ZarnCore/io/ZarnImportException.h>
#include <ZarnCore/io/midi/MidiScoreReader.h>
#include <ZarnCore/io/midi/ZarnMidiFileReader.h>
#include <ZarnCore/model/ZarnScoreModel.h>
#include <filesystem/FileHandle.h>

#include <new>

namespace zarn::io {

MidiImporter::MidiImporter(const MidiImportOptions &options) : _options(options) { }
MidiImporter::~MidiImporter() = default;

QString MidiImporter::description() const
{
    return QStringLiteral("MIDI");
}

QStringList MidiImporter::extensions() const
{
    return {QStringLiteral("mid"), QStringLiteral("midi"), QStringLiteral("kar"),
            QStringLiteral("smf"), QStringLiteral("rmi")};
}

QStringList MidiImporter::visibleExtensions() const
{
    return {QStringLiteral("mid"), QStringLiteral("midi"), QStringLiteral("kar")};
}

bool MidiImporter::acceptsHandle(filesystem::FileHandle &handle) const
{
    constexpr std::size_t enough = 16;
    return MidiFileReader::isMidiFile(peek(handle, enough));
}

std::shared_ptr<ScoreModel> MidiImporter::read(filesystem::FileHandle &handle,
                                               ImportReport &report) const
{
    const auto name = handle.path();
    try {
        const MidiFile file = MidiFileReader().read(handle, report);
        return readMidiScore(file, _options, report);
    } catch (const ImportException &) {
        throw;
    } catch (const CoreException &error) {
        // A number that the tree refuses; the readers answer for those that they know of.
        ZARN_REFUSE_IN("zarn::io::MidiImporter::read", name, "", error.message());
    } catch (const std::bad_alloc &) {
        ZARN_REFUSE_IN("zarn::io::MidiImporter::read", name, "",
                       "there is not enough memory for the file");
    }
}

} // namespace zarn::io
