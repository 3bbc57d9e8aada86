// SPDX-License-Identifier: MIT
#include <ZarnCore/io/midi/MidiTrackContent.h>

#include <ZarnCore/io/midi/MidiOddities.h>
#include <ZarnCore/io/midi/MidiText.h>
#include <ZarnCore/io/midi/ZarnMidiFile.h>

#include <algorithm>
#include <cmath>

namespace zarn::io {

namespace {

/// More time than any score has bars for.
constexpr MidiTime mostMidiTime = 100'000'000 * midiQuarter;

constexpr std::size_t midiKeyCount = 128;

/// A number of bytes, high byte first.
std::uint32_t numberOfBytes(std::string_view bytes)
{
    std::uint32_t value = 0;
    for (const char byte : bytes)
        value = value << 8 | static_cast<std::uint8_t>(byte);
    return value;
}

void setOnce(int &setting, int value)
{
    if (setting == MidiPart::Unset)
        setting = value;
}

void readControl(const MidiEvent &event, MidiChannelSetting &setting, SoundChange &sound)
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

/// The length of a tick if it is a whole number, else 0.
MidiTime wholeTick(double tick)
{
    return tick >= 1 && tick <= midiQuarter && tick == std::floor(tick)
        ? static_cast<MidiTime>(tick)
        : 0;
}

} // namespace

void MidiChannelSetting::takeMissing(const MidiChannelSetting &other)
{
    for (const auto member : {&SoundChange::program, &SoundChange::bank, &SoundChange::fineBank})
        if (sound.*member == MidiPart::Unset)
            sound.*member = other.sound.*member;
    for (const auto member : {&MidiChannelSetting::volume, &MidiChannelSetting::pan})
        if (this->*member == MidiPart::Unset)
            this->*member = other.*member;
}

MidiContentReader::MidiContentReader(const MidiFile &file, MidiMusic &music, MidiOddities &oddities)
    : _file(file), _music(music), _oddities(oddities), _wholeTick(wholeTick(music.tick)),
      _open(midiChannels * midiKeyCount)
{
    constexpr std::size_t tenth = 9;
    _isRhythm[tenth] = true;
}

MidiTime MidiContentReader::timeOf(std::uint64_t tick) const noexcept
{
    if (_wholeTick != 0 && tick <= static_cast<std::uint64_t>(mostMidiTime / midiQuarter))
        return std::min(_start + static_cast<MidiTime>(tick) * _wholeTick, mostMidiTime);
    const double time = static_cast<double>(_start) + static_cast<double>(tick) * _music.tick;
    return std::llround(std::min(time, static_cast<double>(mostMidiTime)));
}

MidiTrackContent MidiContentReader::read(const MidiTrack &track, MidiTime start)
{
    ++_number;
    _start = start;
    _left = 0;
    _content = {};
    _selected = {};
    _bars.clear();
    std::array<std::size_t, midiChannels> counts = {};
    for (const MidiEvent &event : track.events())
        if (event.startsNote())
            ++counts[static_cast<std::size_t>(event.channel())];
    for (std::size_t channel = 0; channel < midiChannels; ++channel)
        _content.notes[channel].reserve(counts[channel]);
    for (const MidiEvent &event : track.events()) {
        const MidiTime time = timeOf(event.tick);
        if (event.isMeta())
            readMeta(event, track.payload(event), time);
        else if (event.isChannelMessage())
            readMessage(event, time);
        else
            readSystemEvent(track.payload(event));
    }
    chooseSounds();
    if (_left > 0)
        endOpenNotes(timeOf(track.events().back().tick));
    if (_bars.empty())
        return std::move(_content);
    const std::size_t wrong = matchNotatedBars(std::move(_bars), _content.notes, _music.written);
    for (std::size_t i = 0; i < wrong; ++i)
        _oddities.add(
            "the notes of a bar are no longer as the file says that they were written: it was read "
            "anew",
            _number);
    return std::move(_content);
}

void MidiContentReader::readMessage(const MidiEvent &event, MidiTime time)
{
    const auto channel = static_cast<std::size_t>(event.channel());
    auto &notes = _content.notes[channel];
    Open &sounding = _open[channel * midiKeyCount + event.data1];
    if (event.startsNote()) {
        sounding.notes.push_back(notes.size());
        PlayedNote note;
        note.playedStart = note.playedEnd = time;
        note.key = event.data1;
        note.velocity = event.data2;
        note.channel = static_cast<std::uint8_t>(channel);
        notes.push_back(note);
        _content.hasNotes = true;
        ++_left;
    } else if (event.endsNote()) {
        if (sounding.next == sounding.notes.size()) {
            _oddities.add("the end of a note that does not sound was left out", _number);
            return;
        }
        notes[sounding.notes[sounding.next++]].playedEnd = time;
        _music.end = std::max(_music.end, time);
        if (sounding.next == sounding.notes.size()) {
            sounding.notes.clear();
            sounding.next = 0;
        }
        --_left;
    } else if (event.is(MidiMessage::Program)) {
        SoundChange &sound = _selected[channel];
        sound.time = time;
        sound.program = event.data1;
        _content.sounds[channel].push_back(sound);
    } else if (event.is(MidiMessage::Control)) {
        readControl(event, _content.settings[channel], _selected[channel]);
    }
}

/// "Use for rhythm part" of GS synthesizers: their parts are the channels, the tenth of them first.
void MidiContentReader::readSystemEvent(std::string_view payload)
{
    constexpr std::string_view toModel = "\x42\x12\x40";
    constexpr std::size_t size = 8;
    constexpr std::size_t modelAt = 2;
    constexpr unsigned firstPart = 0x10;
    constexpr unsigned tenth = 9;
    if (payload.size() < size || payload[0] != '\x41' || payload[6] != '\x15'
        || payload.substr(modelAt, toModel.size()) != toModel)
        return;
    const unsigned part = static_cast<std::uint8_t>(payload[5]) - firstPart;
    if (part < midiChannels)
        _isRhythm[part == 0 ? tenth : part <= tenth ? part - 1 : part] = payload[7] != 0;
}

/// What never ends is held to the end of its track, or a quarter if it came last.
void MidiContentReader::endOpenNotes(MidiTime end)
{
    for (std::size_t place = 0; place < _open.size(); ++place)
        for (std::size_t i = _open[place].next; i < _open[place].notes.size(); ++i) {
            PlayedNote &note = _content.notes[place / midiKeyCount][_open[place].notes[i]];
            note.playedEnd = std::max(end, note.playedStart + midiQuarter);
            _music.end = std::max(_music.end, note.playedEnd);
            _oddities.add("a note that is never ended is held to the end of its track", _number);
        }
    _open.assign(_open.size(), {});
}

/// The sound of the first note is that which the channel has then; of a track that says sounds for
/// notes elsewhere the first one counts.
void MidiContentReader::chooseSounds()
{
    for (std::size_t channel = 0; channel < midiChannels; ++channel) {
        auto &sounds = _content.sounds[channel];
        if (sounds.empty())
            continue;
        const auto &notes = _content.notes[channel];
        const MidiTime first = notes.empty() ? sounds.front().time : notes.front().playedStart;
        auto next = sounds.begin();
        _content.settings[channel].sound = *next;
        for (; next != sounds.end() && next->time <= first; ++next)
            _content.settings[channel].sound = *next;
        sounds.erase(sounds.begin(), next);
        SoundChange now = _content.settings[channel].sound;
        const auto isNoChange = [&now](const SoundChange &change) {
            const bool isSame = change.isSameSound(now);
            now = change;
            return isSame;
        };
        sounds.erase(std::remove_if(sounds.begin(), sounds.end(), isNoChange), sounds.end());
    }
}

void MidiContentReader::readMeta(const MidiEvent &event, std::string_view payload, MidiTime time)
{
    switch (static_cast<MidiMeta>(event.data1)) {
    case MidiMeta::TrackName:
        if (_content.name.empty())
            _content.name = textOfMidi(payload);
        break;
    case MidiMeta::Copyright:
        if (_music.copyright.empty())
            _music.copyright = textOfMidi(payload);
        break;
    case MidiMeta::Text:
        // Karaoke files have their words in plain texts, behind texts that begin with "@".
        _content.hasKaraoke = _content.hasKaraoke || (!payload.empty() && payload[0] == '@');
        _content.texts.push_back({time, rawTextOfMidi(payload)});
        break;
    case MidiMeta::Lyric:
        _content.lyrics.push_back({time, rawTextOfMidi(payload)});
        break;
    case MidiMeta::Marker:
    case MidiMeta::CuePoint:
        _music.sections.push_back({time, textOfMidi(payload)});
        break;
    case MidiMeta::Tempo:
        if (const auto tempo = numberOfBytes(payload.substr(0, 3));
            payload.size() >= 3 && tempo > 0 && !_file.division.isSmpte())
            _music.tempos.push_back({time, tempo / 1e6});
        break;
    case MidiMeta::TimeSignature:
        readMeter(payload, time);
        break;
    case MidiMeta::KeySignature:
        readKey(payload, time);
        break;
    case MidiMeta::SequencerSpecific:
        readSequencerEvent(payload, time);
        break;
    default:
        break;
    }
}

void MidiContentReader::readMeter(std::string_view payload, MidiTime time)
{
    constexpr unsigned mostPower = 7;
    constexpr unsigned noPower = 255;
    const unsigned beats = payload.empty() ? 0 : static_cast<std::uint8_t>(payload[0]);
    const unsigned power = payload.size() < 2 ? noPower : static_cast<std::uint8_t>(payload[1]);
    // Some programs reduce 4/4 and 2/4.
    constexpr unsigned quarter = 2;
    if (beats == 1 && power < quarter)
        _music.meters.push_back({time, TimeSignature(1u << (quarter - power), 1u << quarter)});
    else if (beats > 0 && power <= mostPower)
        _music.meters.push_back({time, TimeSignature(beats, 1u << power)});
    else
        _oddities.add("a time signature that cannot be was left out", _number);
}

void MidiContentReader::readKey(std::string_view payload, MidiTime time)
{
    constexpr int mostFifths = 7;
    const int fifths = payload.empty() ? 0 : static_cast<std::int8_t>(payload[0]);
    if (payload.size() >= 2 && fifths >= -mostFifths && fifths <= mostFifths)
        _keys.push_back({time, fifths, payload[1] != 0});
    else
        _oddities.add("a key signature that cannot be was left out", _number);
}

void MidiContentReader::readSequencerEvent(std::string_view payload, MidiTime time)
{
    if (auto bar = readNotatedBar(payload)) {
        _bars.push_back({time, std::move(*bar)});
    } else if (const auto meter = readWrittenMeter(payload)) {
        if (meter->isEnd())
            _music.writtenEnd = time;
        else
            _music.writtenMeters.push_back(
                {time, TimeSignature(meter->numerator, meter->denominator)});
    }
}

} // namespace zarn::io
