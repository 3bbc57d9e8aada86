// SPDX-License-Identifier: MIT
#include <ZarnCore/io/midi/MidiMusicReader.h>

#include <ZarnCore/io/instruments/InstrumentName.h>
#include <ZarnCore/io/instruments/StandardSound.h>
#include <ZarnCore/io/midi/MidiKeys.h>
#include <ZarnCore/io/midi/MidiOddities.h>
#include <ZarnCore/io/midi/MidiText.h>
#include <ZarnCore/io/midi/NotatedBarReader.h>
#include <ZarnCore/io/midi/StringFolder.h>
#include <ZarnCore/io/midi/ZarnMidiFile.h>
#include <ZarnCore/model/ZarnTrackDefaults.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <map>
#include <tuple>

namespace zarn::io {

namespace {

constexpr int channelCount = 16;
constexpr int drumChannel = 9;

/// More quarters than any score has bars for.
constexpr double mostQuarters = 1e8;

/// Of very many parts, words from other tracks go to one of the first.
constexpr std::ptrdiff_t mostSingers = 64;

/// What a channel is set to, as far as it is said.
struct ChannelSetting {
    SoundChange sound;
    int volume = MidiPart::Unset;
    int pan = MidiPart::Unset;

    void takeMissing(const ChannelSetting &other)
    {
        for (const auto member :
             {&SoundChange::program, &SoundChange::bank, &SoundChange::fineBank})
            if (sound.*member == MidiPart::Unset)
                sound.*member = other.sound.*member;
        for (const auto member : {&ChannelSetting::volume, &ChannelSetting::pan})
            if (this->*member == MidiPart::Unset)
                this->*member = other.*member;
    }
};

/// What one track of the file holds.
struct TrackContent {
    std::string name;
    std::array<ChannelSetting, channelCount> settings;
    std::array<PlayedNotes, channelCount> notes;
    std::array<std::vector<SoundChange>, channelCount> sounds; ///< all, in the order of time
    std::vector<MidiText> lyrics;
    std::vector<MidiText> texts;
    std::vector<TimedBar> bars; ///< as they are written, where the file says it
    bool hasNotes = false;
    bool hasKaraoke = false;
};

/// A number of bytes, high byte first.
std::uint32_t numberOf(std::string_view bytes)
{
    std::uint32_t value = 0;
    for (const char byte : bytes)
        value = value << 8 | static_cast<std::uint8_t>(byte);
    return value;
}

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
        double offset = 0;
        for (const MidiTrack &track : _file.tracks) {
            readTrack(track, offset);
            if (_file.format == 2) {
                if (_number > 0)
                    _oddities.add("the tracks stand on their own: they come one after the other");
                offset = static_cast<double>(endOfBar(_music.end));
            }
            ++_number;
        }
        const auto byTime = [](const auto &left, const auto &right) {
            return left.time < right.time;
        };
        std::stable_sort(_music.tempos.begin(), _music.tempos.end(), byTime);
        std::stable_sort(_music.meters.begin(), _music.meters.end(), byTime);
        std::stable_sort(_music.sections.begin(), _music.sections.end(), byTime);
        makeParts();
        _music.keys = chooseKeys(std::move(_statedKeys), _music);
        return std::move(_music);
    }

private:
    MidiTime timeOf(std::uint64_t tick, double offset) const
    {
        const double time = offset + static_cast<double>(tick) * _music.tick;
        return std::llround(std::min(time, mostQuarters * midiQuarter));
    }

    /// Where the bar of the meter that came last ends.
    MidiTime endOfBar(MidiTime time) const
    {
        const MeterChange last = _music.meters.empty() ? MeterChange() : _music.meters.back();
        const MidiTime length = lengthOf(last.meter);
        const MidiTime past = std::max(time - last.time, MidiTime(0));
        return last.time + (past + length - 1) / length * length;
    }

    void readTrack(const MidiTrack &track, double offset);
    void addWrittenMeter(const WrittenMeter &meter, MidiTime time);
    void readNotatedBars(TrackContent &content);
    void readMeta(const MidiTrack &track, const MidiEvent &event, MidiTime time);
    void endOpenNotes(const MidiTrack &track, TrackContent &content, double offset);
    static void chooseSounds(TrackContent &content);
    static void readControl(const MidiEvent &event, ChannelSetting &setting, SoundChange &sound);
    static void setOnce(int &setting, int value)
    {
        if (setting == MidiPart::Unset)
            setting = value;
    }

    void makeParts();
    void makePartsOf(std::size_t number);
    void addPart(std::size_t number, PlayedNotes notes, int channel);
    bool joinAsSecondStaff(MidiPart &part);
    void giveLyricsToParts();

    const MidiFile &_file;
    MidiOddities &_oddities;
    MidiMusic _music;
    std::vector<TrackContent> _tracks;
    std::vector<KeyChange> _statedKeys;

    /// Notes that sound, by channel and key, the oldest first.
    struct Open {
        std::vector<std::size_t> notes;
        std::size_t next = 0;
    };
    std::vector<Open> _open = std::vector<Open>(channelCount * 128);
    std::size_t _number = 0;
};

void MusicReader::readTrack(const MidiTrack &track, double offset)
{
    auto &open = _open;
    _tracks.emplace_back();
    TrackContent &content = _tracks.back();
    std::size_t left = 0;
    std::array<SoundChange, channelCount> selected; // as the banks were chosen last
    for (const MidiEvent &event : track.events()) {
        const MidiTime time = timeOf(event.tick, offset);
        if (event.isMeta()) {
            readMeta(track, event, time);
            continue;
        }
        if (!event.isChannelMessage())
            continue;
        const auto channel = static_cast<std::size_t>(event.channel());
        auto &notes = content.notes[channel];
        if (event.startsNote()) {
            open[channel * 128 + event.data1].notes.push_back(notes.size());
            PlayedNote note;
            note.playedStart = note.playedEnd = time;
            note.key = event.data1;
            note.velocity = event.data2;
            note.channel = static_cast<std::uint8_t>(channel);
            notes.push_back(note);
            content.hasNotes = true;
            ++left;
        } else if (event.endsNote()) {
            Open &sounding = open[channel * 128 + event.data1];
            if (sounding.next == sounding.notes.size()) {
                _oddities.add("the end of a note that does not sound was left out",
                              static_cast<int>(_number));
                continue;
            }
            notes[sounding.notes[sounding.next++]].playedEnd = time;
            _music.end = std::max(_music.end, time);
            if (sounding.next == sounding.notes.size()) {
                sounding.notes.clear();
                sounding.next = 0;
            }
            --left;
        } else if (event.is(MidiMessage::Program)) {
            auto &sound = selected[channel];
            sound.time = time;
            sound.program = event.data1;
            content.sounds[channel].push_back(sound);
        } else if (event.is(MidiMessage::Control)) {
            readControl(event, content.settings[channel], selected[channel]);
        }
    }
    chooseSounds(content);
    if (left > 0)
        endOpenNotes(track, content, offset);
    if (!content.bars.empty())
        readNotatedBars(content);
}

void MusicReader::endOpenNotes(const MidiTrack &track, TrackContent &content, double offset)
{
    auto &open = _open;
    // What never ends is held to the end of the music, or a quarter if it came last.
    const MidiTime end = track.events().empty() ? 0 : timeOf(track.events().back().tick, offset);
    for (std::size_t place = 0; place < open.size(); ++place)
        for (std::size_t i = open[place].next; i < open[place].notes.size(); ++i) {
            PlayedNote &note = content.notes[place / 128][open[place].notes[i]];
            note.playedEnd = std::max(end, note.playedStart + midiQuarter);
            _music.end = std::max(_music.end, note.playedEnd);
            _oddities.add("a note that is never ended is held to the end of its track",
                          static_cast<int>(_number));
        }
    open.assign(open.size(), {});
}

/// The sound of the first note is that which the channel has then; of a track that says sounds for
/// notes elsewhere the first one counts.
void MusicReader::chooseSounds(TrackContent &content)
{
    for (std::size_t channel = 0; channel < channelCount; ++channel) {
        auto &sounds = content.sounds[channel];
        if (sounds.empty())
            continue;
        const auto &notes = content.notes[channel];
        const MidiTime first = notes.empty() ? sounds.front().time : notes.front().playedStart;
        auto next = sounds.begin();
        content.settings[channel].sound = *next;
        for (; next != sounds.end() && next->time <= first; ++next)
            content.settings[channel].sound = *next;
        sounds.erase(sounds.begin(), next);
        SoundChange now = content.settings[channel].sound;
        const auto isNoChange = [&now](const SoundChange &change) {
            const bool isSame = change.isSameSound(now);
            now = change;
            return isSame;
        };
        sounds.erase(std::remove_if(sounds.begin(), sounds.end(), isNoChange), sounds.end());
    }
}

void MusicReader::readControl(const MidiEvent &event, ChannelSetting &setting, SoundChange &sound)
{
    if (event.isControl(MidiControl::Bank))
        setting.sound.bank = sound.bank = event.data2;
    else if (event.isControl(MidiControl::BankFine))
        setting.sound.fineBank = sound.fineBank = event.data2;
    else if (event.isControl(MidiControl::Volume))
        setOnce(setting.volume, event.data2);
    else if (event.isControl(MidiControl::Pan))
        setOnce(setting.pan, event.data2);
}

void MusicReader::readMeta(const MidiTrack &track, const MidiEvent &event, MidiTime time)
{
    const auto payload = track.payload(event);
    TrackContent &content = _tracks.back();
    switch (static_cast<MidiMeta>(event.data1)) {
    case MidiMeta::TrackName:
        if (content.name.empty())
            content.name = textOfMidi(payload);
        break;
    case MidiMeta::Copyright:
        if (_music.copyright.empty())
            _music.copyright = textOfMidi(payload);
        break;
    case MidiMeta::Text:
        // Karaoke files have their words in plain texts, behind texts that begin with "@".
        content.hasKaraoke = content.hasKaraoke || (!payload.empty() && payload[0] == '@');
        content.texts.push_back({time, rawTextOfMidi(payload)});
        break;
    case MidiMeta::Lyric:
        content.lyrics.push_back({time, rawTextOfMidi(payload)});
        break;
    case MidiMeta::Marker:
    case MidiMeta::CuePoint:
        _music.sections.push_back({time, textOfMidi(payload)});
        break;
    case MidiMeta::Tempo:
        if (const auto tempo = numberOf(payload.substr(0, 3));
            payload.size() >= 3 && tempo > 0 && !_file.division.isSmpte())
            _music.tempos.push_back({time, tempo / 1e6});
        break;
    case MidiMeta::TimeSignature: {
        constexpr unsigned mostPower = 7;
        const unsigned beats = payload.empty() ? 0 : static_cast<std::uint8_t>(payload[0]);
        const unsigned power = payload.size() < 2 ? 255 : static_cast<std::uint8_t>(payload[1]);
        // Some programs reduce 4/4 and 2/4.
        constexpr unsigned quarter = 2;
        if (beats == 1 && power < quarter)
            _music.meters.push_back({time, TimeSignature(1u << (quarter - power), 1u << quarter)});
        else if (beats > 0 && power <= mostPower)
            _music.meters.push_back({time, TimeSignature(beats, 1u << power)});
        else
            _oddities.add("a time signature that cannot be was left out",
                          static_cast<int>(_number));
        break;
    }
    case MidiMeta::KeySignature: {
        const int fifths = payload.empty() ? 99 : static_cast<std::int8_t>(payload[0]);
        if (payload.size() >= 2 && fifths >= -7 && fifths <= 7)
            _statedKeys.push_back({time, fifths, payload[1] != 0});
        else
            _oddities.add("a key signature that cannot be was left out", static_cast<int>(_number));
        break;
    }
    case MidiMeta::SequencerSpecific:
        if (auto bar = readNotatedBar(payload))
            content.bars.push_back({time, std::move(*bar)});
        else if (const auto meter = readWrittenMeter(payload))
            addWrittenMeter(*meter, time);
        break;
    default:
        break;
    }
}

void MusicReader::addWrittenMeter(const WrittenMeter &meter, MidiTime time)
{
    if (meter.isEnd())
        _music.writtenEnd = time;
    else
        _music.writtenMeters.push_back({time, TimeSignature(meter.numerator, meter.denominator)});
}

void MusicReader::readNotatedBars(TrackContent &content)
{
    const std::size_t wrong =
        matchNotatedBars(std::move(content.bars), content.notes, _music.written);
    for (std::size_t i = 0; i < wrong; ++i)
        _oddities.add(
            "the notes of a bar are no longer as the file says that they were written: it "
            "was read anew",
            static_cast<int>(_number));
}

void MusicReader::makeParts()
{
    // Channels are set by any track; a track's own word counts first.
    std::array<ChannelSetting, channelCount> everywhere;
    for (const TrackContent &track : _tracks)
        for (std::size_t channel = 0; channel < channelCount; ++channel)
            everywhere[channel].takeMissing(track.settings[channel]);
    for (TrackContent &track : _tracks)
        for (std::size_t channel = 0; channel < channelCount; ++channel)
            track.settings[channel].takeMissing(everywhere[channel]);
    // The first track of format 1 names the piece when it has no notes.
    if (!_tracks.empty() && !_tracks.front().hasNotes && _tracks.size() > 1)
        _music.title = _tracks.front().name;
    for (std::size_t number = 0; number < _tracks.size(); ++number)
        if (_tracks[number].hasNotes)
            makePartsOf(number);
    if (_tracks.size() == 1 && _music.parts.size() == 1)
        _music.title = _tracks.front().name;
    giveLyricsToParts();
}

void MusicReader::makePartsOf(std::size_t number)
{
    TrackContent &track = _tracks[number];
    // Channels with one sound are one part.
    std::vector<std::vector<std::size_t>> groups;
    for (std::size_t channel = 0; channel < channelCount; ++channel) {
        if (track.notes[channel].empty())
            continue;
        const auto same = std::find_if(groups.begin(), groups.end(), [&](const auto &group) {
            return channel != drumChannel && group.front() != drumChannel
                && track.settings[group.front()].sound.isSameSound(track.settings[channel].sound)
                && hasSameSounds(track.sounds[group.front()], track.sounds[channel]);
        });
        if (same != groups.end())
            same->push_back(channel);
        else
            groups.push_back({channel});
    }
    for (const auto &group : groups) {
        PlayedNotes notes;
        for (const std::size_t channel : group) {
            const auto &added = track.notes[channel];
            notes.insert(notes.end(), added.begin(), added.end());
        }
        if (group.size() > 1)
            std::stable_sort(notes.begin(), notes.end(),
                             [](const PlayedNote &left, const PlayedNote &right) {
                                 return left.playedStart < right.playedStart;
                             });
        addPart(number, std::move(notes), static_cast<int>(group.front()));
        track.notes[group.front()] = {};
    }
}

void MusicReader::addPart(std::size_t number, PlayedNotes notes, int channel)
{
    using Set = InstrumentSet;
    const ChannelSetting &setting = _tracks[number].settings[static_cast<std::size_t>(channel)];
    MidiPart part;
    part.midiTrack = static_cast<int>(number);
    part.channel = channel;
    part.name = _tracks[number].name;
    part.sound = setting.sound;
    part.soundChanges = _tracks[number].sounds[static_cast<std::size_t>(channel)];
    part.volume = setting.volume;
    part.pan = setting.pan;
    part.isDrums = channel == drumChannel;
    const auto named = readInstrumentName(part.name);
    const auto ofProgram = part.sound.program == MidiPart::Unset
        ? Set::unknown
        : instrumentOfProgram(part.sound.program);
    const auto isUseful = [](Set::Type type) {
        return type != Set::unknown && !Set::isUnpitched(type);
    };
    if (part.isDrums)
        part.type = Set::drumKit;
    else if (named.isExact() && isUseful(named.type))
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
        TrackContent &track = _tracks[number];
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
