// SPDX-License-Identifier: MIT
#include <ZarnCore/io/midi/MidiMusicReader.h>

#include <ZarnCore/io/instruments/InstrumentName.h>
#include <ZarnCore/io/instruments/StandardSound.h>
#include <ZarnCore/io/midi/MidiKeys.h>
#include <ZarnCore/io/midi/MidiOddities.h>
#include <ZarnCore/io/midi/MidiText.h>
#include <ZarnCore/io/midi/MidiTrackContent.h>
#include <ZarnCore/io/midi/StringFolder.h>
#include <ZarnCore/io/midi/ZarnMidiFile.h>
#include <ZarnCore/model/ZarnTrackDefaults.h>

#include <algorithm>
#include <array>
#include <iterator>

namespace zarn::io {

namespace {

/// Banks that hold drum kits: of General MIDI 2 and of XG.
constexpr int drumBanks[] = {120, 127};

/// Of very many parts, words from other tracks go to one of the first.
constexpr std::ptrdiff_t mostSingers = 64;

/// Whether two channels go over to the same sounds at the same times.
bool hasSameSounds(const std::vector<SoundChange> &left, const std::vector<SoundChange> &right)
{
    return std::equal(left.begin(), left.end(), right.begin(), right.end(),
                      [](const SoundChange &one, const SoundChange &other) {
                          return one.time == other.time && one.isSameSound(other);
                      });
}

class MusicReader {
public:
    MusicReader(const MidiFile &file, MidiOddities &oddities) : _file(file), _oddities(oddities)
    {
        _music.tick = file.division.quartersPerTick().toDouble() * midiQuarter;
    }

    MidiMusic read()
    {
        if (_file.division.isSmpte())
            _oddities.add("times are parts of seconds: a quarter lasts half a second");
        MidiContentReader reader(_file, _music, _oddities);
        MidiTime start = 0;
        for (const MidiTrack &track : _file.tracks) {
            _tracks.push_back(reader.read(track, start));
            if (_file.format == 2) {
                if (_tracks.size() > 1)
                    _oddities.add("the tracks stand on their own: they come one after the other");
                start = endOfBar(_music.end);
            }
        }
        const auto byTime = [](const auto &left, const auto &right) {
            return left.time < right.time;
        };
        std::stable_sort(_music.tempos.begin(), _music.tempos.end(), byTime);
        std::stable_sort(_music.meters.begin(), _music.meters.end(), byTime);
        std::stable_sort(_music.sections.begin(), _music.sections.end(), byTime);
        for (std::size_t channel = 0; channel < midiChannels; ++channel)
            _isRhythm[channel] = reader.isRhythm(channel);
        makeParts();
        _music.keys = chooseKeys(std::move(reader.keys()), _music);
        return std::move(_music);
    }

private:
    /// Where the bar of the meter that came last ends.
    MidiTime endOfBar(MidiTime time) const
    {
        const MeterChange last = _music.meters.empty() ? MeterChange() : _music.meters.back();
        const MidiTime length = lengthOf(last.meter);
        const MidiTime past = std::max(time - last.time, MidiTime(0));
        return last.time + (past + length - 1) / length * length;
    }

    void makeParts();
    void readKaraokeTitle();
    void makePartsOf(std::size_t number);
    void addPart(std::size_t number, PlayedNotes notes, int channel);
    bool joinAsSecondStaff(MidiPart &part);
    void giveLyricsToParts();

    const MidiFile &_file;
    MidiOddities &_oddities;
    MidiMusic _music;
    std::vector<MidiTrackContent> _tracks;
    std::array<bool, midiChannels> _isRhythm = {};
};

void MusicReader::makeParts()
{
    // Channels are set by any track; a track's own word counts first.
    std::array<MidiChannelSetting, midiChannels> everywhere;
    for (const MidiTrackContent &track : _tracks)
        for (std::size_t channel = 0; channel < midiChannels; ++channel)
            everywhere[channel].takeMissing(track.settings[channel]);
    for (MidiTrackContent &track : _tracks)
        for (std::size_t channel = 0; channel < midiChannels; ++channel)
            track.settings[channel].takeMissing(everywhere[channel]);
    // The first track of format 1 names the piece when it has no notes.
    if (!_tracks.empty() && !_tracks.front().hasNotes && _tracks.size() > 1)
        _music.title = _tracks.front().name;
    for (std::size_t number = 0; number < _tracks.size(); ++number)
        if (_tracks[number].hasNotes)
            makePartsOf(number);
    if (_tracks.size() == 1 && _music.parts.size() == 1)
        _music.title = _tracks.front().name;
    readKaraokeTitle();
    giveLyricsToParts();
}

/// Karaoke files have the names of the song and of who sings it behind "@T".
void MusicReader::readKaraokeTitle()
{
    std::vector<std::string> names;
    for (const MidiTrackContent &track : _tracks)
        for (const MidiText &text : track.texts)
            if (text.text.compare(0, 2, "@T") == 0)
                names.push_back(textOfMidi(text.text.substr(2)));
    if (!names.empty() && !names.front().empty())
        _music.title = names.front();
    if (names.size() > 1)
        _music.artist = names[1];
}

void MusicReader::makePartsOf(std::size_t number)
{
    MidiTrackContent &track = _tracks[number];
    // Channels with one sound are one part.
    std::vector<std::vector<std::size_t>> groups;
    for (std::size_t channel = 0; channel < midiChannels; ++channel) {
        if (track.notes[channel].empty())
            continue;
        const auto same = std::find_if(groups.begin(), groups.end(), [&](const auto &group) {
            return !_isRhythm[channel] && !_isRhythm[group.front()]
                && track.settings[group.front()].sound.isSameSound(track.settings[channel].sound)
                && hasSameSounds(track.sounds[group.front()], track.sounds[channel]);
        });
        if (same != groups.end())
            same->push_back(channel);
        else
            groups.push_back({channel});
    }
    for (const auto &group : groups) {
        PlayedNotes notes = std::move(track.notes[group.front()]);
        for (std::size_t i = 1; i < group.size(); ++i) {
            const auto &added = track.notes[group[i]];
            notes.insert(notes.end(), added.begin(), added.end());
        }
        if (group.size() > 1)
            std::stable_sort(notes.begin(), notes.end(),
                             [](const PlayedNote &left, const PlayedNote &right) {
                                 return left.playedStart < right.playedStart;
                             });
        addPart(number, std::move(notes), static_cast<int>(group.front()));
    }
}

void MusicReader::addPart(std::size_t number, PlayedNotes notes, int channel)
{
    using Set = InstrumentSet;
    const MidiChannelSetting &setting = _tracks[number].settings[static_cast<std::size_t>(channel)];
    MidiPart part;
    part.midiTrack = static_cast<int>(number);
    part.channel = channel;
    part.name = _tracks[number].name;
    part.sound = setting.sound;
    part.soundChanges = _tracks[number].sounds[static_cast<std::size_t>(channel)];
    part.volume = setting.volume;
    part.pan = setting.pan;
    const auto named = readInstrumentName(part.name);
    const auto ofProgram = part.sound.program == MidiPart::Unset
        ? Set::unknown
        : instrumentOfProgram(part.sound.program);
    const auto isUseful = [](Set::Type type) {
        return type != Set::unknown && !Set::isUnpitched(type);
    };
    const bool isOfDrumBank = std::find(std::begin(drumBanks), std::end(drumBanks), part.sound.bank)
        != std::end(drumBanks);
    const bool isNamed = named.isExact() && isUseful(named.type);
    part.isDrums = _isRhythm[static_cast<std::size_t>(channel)] || (isOfDrumBank && !isNamed);
    if (part.isDrums)
        part.type = Set::drumKit;
    else if (isNamed)
        part.type = named.type;
    else if (isUseful(ofProgram))
        part.type = ofProgram;
    else
        part.type = isUseful(named.type) ? named.type : Set::acousticPiano;
    if (!part.isDrums)
        part.strings = foldStrings(notes, part.type);
    part.staves.push_back(std::move(notes));
    if (!joinAsSecondStaff(part))
        _music.parts.push_back(std::move(part));
}

/// Two tracks in a row that play a keyboard on one channel are its two hands.
bool MusicReader::joinAsSecondStaff(MidiPart &part)
{
    if (_music.parts.empty() || trackDefaults(part.type).staffCount < 2 || _file.format == 2)
        return false;
    MidiPart &before = _music.parts.back();
    const bool isOneName = before.name.empty() || part.name.empty() || before.name == part.name;
    if (before.midiTrack + 1 != part.midiTrack || before.channel != part.channel
        || before.type != part.type || before.staves.size() != 1 || !isOneName)
        return false;
    before.staves.push_back(std::move(part.staves.front()));
    return true;
}

/// Words go to the part of their track, or from a track without notes to the part that sings most
/// of them.
void MusicReader::giveLyricsToParts()
{
    for (std::size_t number = 0; number < _tracks.size(); ++number) {
        MidiTrackContent &track = _tracks[number];
        std::vector<MidiText> words = std::move(track.lyrics);
        if (words.empty() && track.hasKaraoke)
            for (const MidiText &text : track.texts)
                if (!text.text.empty() && text.text[0] != '@')
                    words.push_back(text);
        if (words.empty())
            continue;
        MidiPart *best = nullptr;
        std::size_t mostSung = 0;
        for (MidiPart &part : _music.parts) {
            const bool isOwn = part.midiTrack == static_cast<int>(number);
            if (part.isDrums || (&part - _music.parts.data() >= mostSingers && !isOwn))
                continue;
            std::size_t sung = isOwn ? words.size() + 1 : 0;
            const auto &notes = part.staves.front();
            for (const MidiText &word : words) {
                const auto note = std::lower_bound(
                    notes.begin(), notes.end(), word.time - midiQuarter / 16,
                    [](const PlayedNote &left, MidiTime time) { return left.playedStart < time; });
                sung += note != notes.end() && note->playedStart < word.time + midiQuarter / 16;
            }
            if (sung > mostSung) {
                mostSung = sung;
                best = &part;
            }
        }
        if (best == nullptr)
            _oddities.add("words without notes were left out", static_cast<int>(number));
        else
            best->lyrics.insert(best->lyrics.end(), words.begin(), words.end());
    }
}

} // namespace

MidiMusic readMidiMusic(const MidiFile &file, MidiOddities &oddities)
{
    return MusicReader(file, oddities).read();
}

} // namespace zarn::io
