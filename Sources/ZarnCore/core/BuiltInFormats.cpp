// SPDX-License-Identifier: MIT
#include <ZarnCore/core/BuiltInFormats.h>

#include <ZarnCore/core/FormatRegistry.h>
#include <ZarnCore/io/ZarnLilyPondExporter.h>
#include <ZarnCore/io/ZarnMidiExporter.h>
#include <ZarnCore/io/ZarnMidiImporter.h>
#include <ZarnCore/io/ZarnMusicXmlExporter.h>
#include <ZarnCore/io/ZarnMusicXmlImporter.h>
#include <ZarnCore/io/ZarnMxlExporter.h>
#include <ZarnCore/io/ZarnNativeExporter.h>
#include <ZarnCore/io/ZarnNativeImporter.h>
#include <ZarnCore/io/ZarnTextExporter.h>

namespace zarn {

void addBuiltInFormats(FormatRegistry &formats)
{
    static io::NativeImporter nativeImporter;
    static io::MusicXmlImporter musicXmlImporter;
    static io::MidiImporter midiImporter;
    static io::NativeExporter nativeExporter;
    static io::MusicXmlExporter musicXmlExporter;
    static io::MxlExporter mxlExporter;
    static io::TextExporter textExporter;
    static io::LilyPondExporter lilyPondExporter;
    static io::MidiExporter midiExporter;
    formats.add(&nativeImporter);
    formats.add(&musicXmlImporter);
    formats.add(&midiImporter);
    formats.add(&nativeExporter);
    formats.add(&musicXmlExporter);
    formats.add(&mxlExporter);
    formats.add(&textExporter);
    formats.add(&lilyPondExporter);
    formats.add(&midiExporter);
}

} // namespace zarn
