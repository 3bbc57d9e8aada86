// SPDX-License-Identifier: MIT
#include "ExportedMusicXml.h"
#include "Scores.h"

#include <ZarnCore/instruments/sets/ZarnInstrumentSetLibrary.h>
#include <ZarnCore/model/ZarnTrack.h>

#include <gtest/gtest.h>

#include <rapidjson/document.h>

#include <set>
#include <utility>
#include <vector>

namespace {

using zarn::InstrumentSet;
using zarn::InstrumentSetLibrary;
using zarn::Note;

using Notes = std::vector<std::pair<InstrumentSet::Type, std::shared_ptr<Note>>>;

/// The notes of the sample with a drum kit, with the types of their tracks.
Notes notesOfSample(std::shared_ptr<zarn::ScoreModel> &model)
{
    zarn::io::ImportReport report;
    model =
        scores::importFile(QStringLiteral(ZARN_SOURCE_DIR "/Samples/saints-band.musicxml"), report);
    Notes notes;
    for (const auto &track : model->tracks())
        for (const auto &staff : track->staves())
            for (const auto &bar : staff->bars())
                for (const auto &voice : bar->voices())
                    if (voice)
                        for (const auto &beat : voice->beats())
                            for (const auto &note : beat->notes())
                                notes.emplace_back(track->type(), note);
    return notes;
}

TEST(MusicXmlArticulations, areNamedWhereTheInstalledSetHasThemAndNothingElseChanges)
{
    ASSERT_EQ(InstrumentSetLibrary::installed(), nullptr);
    std::shared_ptr<zarn::ScoreModel> plainModel, namedModel;
    const auto plain = notesOfSample(plainModel);

    const QByteArray text =
        scores::bytesOf(QStringLiteral(":/instrumentSet/ZarnInstrumentSets.json"));
    rapidjson::Document document;
    document.Parse(text.constData(), static_cast<std::size_t>(text.size()));
    InstrumentSetLibrary library;
    library.parse(document["instrumentSets"]);
    InstrumentSetLibrary::install(&library);
    const auto named = notesOfSample(namedModel);
    InstrumentSetLibrary::install(nullptr);

    ASSERT_EQ(plain.size(), named.size());
    const auto kit = library.findInstrumentSetWithType(InstrumentSet::drumKit);
    std::set<std::string> articulations;
    for (std::size_t i = 0; i < plain.size(); ++i) {
        const auto &[type, note] = named[i];
        const int index = note->percussionArticulation();
        ASSERT_EQ(plain[i].second->percussionArticulation(), Note::Unset);
        if (index != Note::Unset) {
            ASSERT_EQ(type, InstrumentSet::drumKit);
            const auto &articulation = kit->articulations().at(static_cast<std::size_t>(index));
            EXPECT_EQ(articulation.staffLine(), note->staffLine());
            EXPECT_EQ(articulation.outputMidiNumber(), note->midi());
            EXPECT_EQ(articulation.notehead(0).noteHead(), note->noteHead());
            articulations.insert(articulation.name());
            note->setPercussionArticulation(Note::Unset);
        }
        EXPECT_EQ(*note, *plain[i].second);
    }
    EXPECT_EQ(articulations,
              (std::set<std::string>{"Crash 1 (hit)", "Kick Drum (hit)", "Ride (middle)",
                                     "Snare (hit)"}));

    // Of notes without an articulation the key tells what they strike.
    InstrumentSetLibrary::install(&library);
    const musicxml::Exported written(*namedModel);
    InstrumentSetLibrary::install(nullptr);
    for (const auto &name : articulations)
        EXPECT_TRUE(written.has("//instrument-name[. = '" + name + "']")) << name;
    EXPECT_FALSE(written.has("//instrument-name[starts-with(., 'Key ')]"));
}

} // namespace
