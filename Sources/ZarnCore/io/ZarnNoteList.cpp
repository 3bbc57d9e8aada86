// SPDX-License-Identifier: MIT
#include <ZarnCore/io/ZarnNoteList.h>

#include <ZarnCore/io/ZarnScoreStatistics.h>
#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/music/ZarnPitchClass.h>

#include <string_view>

namespace zarn::io {

namespace {

/// The spelling with its octave; black keys without a spelling follow the key signature.
std::string spelled(const Note &note, const KeySignature &key)
{
    const auto pitchClass =
        note.spelling().value_or(PitchClass::fromPitch(note.midi(), key.accidentalCount() < 0));
    const int octave = (note.midi() - pitchClass.alterationSemitones()) / 12 - 1;
    return pitchClass.toString().toStdString() + std::to_string(octave);
}

void describe(const Note &note, const Track &track, const KeySignature &key, ListedNote &listed)
{
    listed.string = note.string();
    listed.fret = note.fret();
    listed.isTied = note.isTied();
    listed.isHidden = note.isHidden();
    listed.leftFinger = note.leftFingering();
    listed.rightFinger = note.rightFingering();
    if (note.midi() == Note::Unset)
        return;
    if (isUnpitchedNote(note, track)) {
        listed.sounding = note.midi();
        return;
    }
    listed.midi = note.midi();
    listed.sounding = note.midi() + track.transpositionOffset();
    listed.spelling = spelled(note, key);
}

void listVoice(const Voice &voice, const Track &track, const KeySignature &key, ListedNote place,
               std::vector<ListedNote> &notes)
{
    place.onset = 0;
    for (const auto &beat : voice.beats()) {
        place.length = beat->length();
        place.isGrace = beat->isGrace();
        for (std::size_t i = 0; i < beat->notes().size(); ++i) {
            auto listed = place;
            listed.isFurtherOfChord = i > 0;
            describe(*beat->notes()[i], track, key, listed);
            notes.push_back(std::move(listed));
        }
        place.onset += place.length;
    }
}

/// `letters` are those of the enumerators.
std::string fingerText(Fingering finger, std::string_view letters)
{
    return std::string(1, letters[static_cast<std::size_t>(finger)]);
}

std::string numberText(const std::optional<int> &number)
{
    return number ? std::to_string(*number) : std::string("-");
}

} // namespace

std::vector<ListedNote> listNotes(const ScoreModel &model)
{
    std::vector<ListedNote> notes;
    const auto &masterBars = model.masterTrack()->masterBars();
    ListedNote place;
    for (place.track = 0; place.track < model.trackCount(); ++place.track) {
        const auto &track = *model.tracks()[place.track];
        for (place.bar = 0; place.bar < masterBars.size(); ++place.bar)
            for (place.staff = 0; place.staff < track.staffCount(); ++place.staff) {
                const auto &bars = track.staves()[place.staff]->bars();
                if (place.bar >= bars.size())
                    continue;
                const auto &voices = bars[place.bar]->voices();
                for (place.voice = 0; place.voice < voices.size(); ++place.voice)
                    if (voices[place.voice])
                        listVoice(*voices[place.voice], track,
                                  masterBars[place.bar]->concertKeySignature(), place, notes);
            }
    }
    return notes;
}

std::string noteListHeading()
{
    return "track\tbar\tstaff\tvoice\tonset\tlength\tmidi\tsounding\tspelling\tstring\tfret\tflags"
           "\tfinger\tpluck";
}

std::string ListedNote::toString() const
{
    std::string line;
    const auto add = [&line](const std::string &value) {
        line += (line.empty() ? "" : "\t") + value;
    };
    for (const unsigned number : {track, bar, staff, voice})
        add(std::to_string(number));
    add(onset.toString());
    add(length.toString());
    add(numberText(midi));
    add(numberText(sounding));
    add(spelling.empty() ? "-" : spelling);
    add(string < 0 ? "-" : std::to_string(string));
    add(fret < 0 ? "-" : std::to_string(fret));
    line += '\t';
    line += isGrace ? "g" : "";
    line += isFurtherOfChord ? "c" : "";
    line += isTied ? "t" : "";
    line += isHidden ? "h" : "";
    add(fingerText(leftFinger, "-T12340"));
    add(fingerText(rightFinger, "-pimac0"));
    return line;
}

} // namespace zarn::io
