// SPDX-License-Identifier: MIT
// What plays a score beside a font: banks for its sounds, recordings, the mastering.
#include "Sounds.h"

#include <ZarnAudio/ZarnEventRenderer.h>
#include <ZarnAudio/ZarnMasterSound.h>
#include <ZarnAudio/ZarnPlanSound.h>
#include <ZarnAudio/ZarnRecording.h>
#include <ZarnAudio/ZarnSampleCache.h>
#include <ZarnAudio/ZarnScoreRenderer.h>
#include <ZarnAudio/ZarnSoundbanks.h>
#include <ZarnCore/instruments/automations/ZarnSoundAutomation.h>
#include <ZarnCore/instruments/effects/ZarnMastering.h>
#include <ZarnCore/instruments/sets/ZarnInstrumentSetLibrary.h>
#include <ZarnCore/instruments/soundbanks/ZarnHVSoundFont.h>
#include <ZarnCore/instruments/soundbanks/ZarnSoundCatalogue.h>
#include <ZarnCore/instruments/soundbanks/ZarnSoundbank.h>
#include <ZarnCore/instruments/soundbanks/ZarnSoundbankPatch.h>
#include <ZarnCore/instruments/sounds/ZarnSound.h>
#include <ZarnCore/io/ZarnImportReport.h>
#include <ZarnCore/io/ZarnMusicXmlImporter.h>
#include <ZarnCore/model/ZarnAudioTrack.h>
#include <ZarnCore/model/ZarnScoreModel.h>
#include <ZarnCore/playback/ZarnPlaybackPlan.h>
#include <filesystem/DiskFileSystem.h>
#include <streams/BankArchive.h>
#include <streams/MemoryHeap.h>

#include <QDir>
#include <QTemporaryDir>

#include <rapidjson/document.h>

#include <map>

namespace {

using namespace sounds;
using zarn::Sound;
using zarn::playback::PlaybackPlan;

constexpr int rate = 44100;

std::shared_ptr<zarn::ScoreModel> romance()
{
    filesystem::DiskFileSystem files;
    const auto handle = files.open(ZARN_SOURCE_DIR "/Samples/romance-guitar-study.musicxml",
                                   filesystem::OpenMode::Read);
    zarn::io::ImportReport report;
    return zarn::io::MusicXmlImporter().read(*handle, report);
}

std::shared_ptr<const Sound> soundOfPatch(const char *patch)
{
    auto sound = std::make_shared<Sound>(patch);
    sound->setOrkaSound(zarn::OrkaSound(patch));
    return sound;
}

class ScoreSounds : public ::testing::Test {
protected:
    std::string path(const char *name) const
    {
        return _folder.filePath(QLatin1String(name)).toStdString();
    }

    /// A bank whose every key is a sine of one pitch and level; its description's path.
    std::string bank(const char *name, double frequency, float amplitude, int count = rate)
    {
        QDir(_folder.path()).mkpath(QLatin1String(name));
        std::vector<float> values;
        for (int i = 0; i < count; ++i)
            values.push_back(amplitude
                             * static_cast<float>(std::sin(2 * M_PI * frequency * i / rate)));
        const std::string folder = path(name);
        put(_files, folder + "/sine.wav",
            encoded(values, format(AudioFormat::File::Wav, AudioFormat::Encoding::Pcm24, 1)));
        std::string regions;
        for (int key = 0; key < 128; ++key)
            regions += std::string(key > 0 ? ", " : "") + R"({"sample": "sine.wav", "keys": )"
                + std::to_string(key) + R"(, "rootKey": )" + std::to_string(key) + "}";
        put(_files, folder + "/bank.json",
            std::string(R"({"id": ")") + name
                + R"(", "name": "x", "instrument": "nylonGuitar", "regions": [)" + regions + "]}");
        return folder + "/bank.json";
    }

    std::vector<float> rendered(const zarn::ScoreModel &model, ScoreRenderer::Settings settings,
                                std::vector<PlacedRecording> recordings = {})
    {
        settings.hasReverb = false;
        settings.gain = 0;
        ScoreRenderer renderer(PlaybackPlan(model), settings);
        renderer.setRecordings(std::move(recordings));
        _refused = renderer.refusedBanks();
        AudioWriter writer(_memory.open("x", filesystem::OpenMode::Write),
                           format(AudioFormat::File::Wav, AudioFormat::Encoding::Float32));
        EXPECT_TRUE(renderer.write(writer) && writer.finish()) << writer.errorText();
        return decoded(*decoder(contentOf(_memory, "x")));
    }

    QTemporaryDir _folder;
    filesystem::DiskFileSystem _files;
    filesystem::RAMFileSystem _memory;
    std::map<std::string, std::string> _refused;
};

TEST_F(ScoreSounds, banksPlayTheSoundsThatAutomationsSwitchTo)
{
    const std::string low = bank("low", 441, 0.2F);
    const std::string high = bank("high", 2000, 0.2F);
    const auto model = romance();
    zarn::Track &track = *model->tracks()[0];
    track.insertSound(0, soundOfPatch("Low"));
    const auto second = soundOfPatch("High");
    track.addSound(second);
    auto change = std::make_unique<zarn::SoundAutomation>(second);
    change->setIndex(4);
    track.mutableAutomations().insertAutomation(std::move(change));
    ScoreRenderer::Settings settings;
    settings.bankOf = [&](const Sound &sound, bool, int) {
        return sound.orkaSound().soundbankPatchId() == "Low" ? low : high;
    };
    const auto frames = rendered(*model, settings);
    const PlaybackPlan plan(*model);
    const double turn = *plan.secondOf(4, {});
    EXPECT_GT(power(frames, 0.1, turn - 0.3, 441), 100 * power(frames, 0.1, turn - 0.3, 2000));
    EXPECT_GT(power(frames, turn + 0.3, 2 * turn, 2000),
              100 * power(frames, turn + 0.3, 2 * turn, 441));
    EXPECT_TRUE(_refused.empty());

    // A bank that is broken gives way to General MIDI, which is silent here without a font.
    settings.bankOf = [&](const Sound &sound, bool, int) {
        return sound.orkaSound().soundbankPatchId() == "Low" ? low : path("none/bank.json");
    };
    const auto half = rendered(*model, settings);
    EXPECT_GT(power(half, 0.1, turn - 0.3, 441), 1e-6);
    EXPECT_LT(power(half, turn + 1, 2 * turn, 2000), 1e-9);
    ASSERT_EQ(_refused.size(), 1u);
    EXPECT_NE(_refused.begin()->second.find("none/bank.json"), std::string::npos);
}

/// Knows one patch for pitches and one drum kit with a bank for its snare.
class Catalogue final : public zarn::SoundCatalogue {
public:
    explicit Catalogue(const std::string &path)
    {
        const auto parsed = [](const char *json) {
            rapidjson::Document document;
            document.Parse(json);
            return zarn::SoundbankPatch::parse(document);
        };
        _guitar = parsed(R"({"id": "Guitar", "name": "", "description": "",
            "instrumentSet": "nylonGuitar",
            "soundbanks": [{"element": "Pitched", "soundbank": "Bank"}]})");
        _kit = parsed(R"({"id": "Kit", "name": "", "description": "", "instrumentSet": "drumKit",
            "soundbanks": [{"element": "Snare", "soundbank": "Bank"},
                           {"element": "Kick Drum", "soundbank": "Missing"}]})");
        rapidjson::Document document;
        document.Parse(R"({"id": "Bank", "name": "x", "instrument": "snare",
            "regions": [{"sample": "sine.wav"}]})");
        _bank = std::make_shared<zarn::Soundbank>(std::make_shared<zarn::HVSoundFont>(
            zarn::HVSoundFont::parse(document, path, [](const std::string &) { return true; })));
        rapidjson::Document sets;
        sets.Parse(R"([{"name": "Drum Kit", "lineCount": 5, "type": "drumKit", "elements": [
            {"name": "Snare", "orkaSoundBank": "x", "type": "snare", "articulations": [
                {"name": "hit", "musicalNotation": {"staffLine": 5, "noteheads":
                    ["noteheadBlack", "noteheadHalf", "noteheadWhole"], "techniqueSymbol": "",
                    "techniquePlacement": "outside"},
                 "inputs": {"midiNumbers": [38]},
                 "outputs": {"midiNumber": 38, "orkaSound": "snare.hit"}}]}]}])");
        _sets.parse(sets);
        install(this);
        zarn::InstrumentSetLibrary::install(&_sets);
    }
    ~Catalogue() override
    {
        install(nullptr);
        zarn::InstrumentSetLibrary::install(nullptr);
    }

    std::shared_ptr<zarn::Soundbank> soundbank(const std::string &id) const override
    {
        return id == "Bank" ? _bank : nullptr;
    }
    std::shared_ptr<zarn::SoundbankPatch> soundbankPatch(const std::string &id) const override
    {
        return id == "Guitar" ? _guitar : id == "Kit" ? _kit : nullptr;
    }

private:
    std::shared_ptr<zarn::SoundbankPatch> _guitar;
    std::shared_ptr<zarn::SoundbankPatch> _kit;
    std::shared_ptr<zarn::Soundbank> _bank;
    zarn::InstrumentSetLibrary _sets;
};

TEST_F(ScoreSounds, patchesNameTheBanksOfNotes)
{
    EXPECT_EQ(bankOfNote(*soundOfPatch("Guitar"), false, 60), "") << "no catalogue is installed";
    const Catalogue catalogue("/banks/x/bank.json");
    const auto guitar = soundOfPatch("Guitar");
    const auto kit = soundOfPatch("Kit");
    EXPECT_EQ(bankOfNote(*guitar, false, 60), "/banks/x/bank.json");
    EXPECT_EQ(bankOfNote(*guitar, true, 38), "") << "drums are not played by a guitar";
    EXPECT_EQ(bankOfNote(*kit, true, 38), "/banks/x/bank.json");
    EXPECT_EQ(bankOfNote(*kit, true, 36), "") << "its bank is not installed";
    EXPECT_EQ(bankOfNote(*kit, true, 50), "") << "no element of the set";
    EXPECT_EQ(bankOfNote(*kit, false, 60), "");
    EXPECT_EQ(bankOfNote(*soundOfPatch("Other"), false, 60), "");
    Sound midi = *guitar;
    midi.mutableOrkaSound().setSoundReproduction(zarn::OrkaSound::SoundReproduction::MIDI);
    EXPECT_EQ(bankOfNote(midi, false, 60), "");
}

TEST_F(ScoreSounds, recordingsPlayAlongAtTheirPlaceAndPitch)
{
    std::vector<float> sine;
    for (int i = 0; i < 96'000; ++i)
        sine.push_back(0.5F * static_cast<float>(std::sin(2 * M_PI * 1000 * i / 48'000)));
    AudioFormat wav = format(AudioFormat::File::Wav, AudioFormat::Encoding::Pcm24, 1);
    wav.rate = 48'000;
    put(_files, path("voice.wav"), encoded(sine, wav));
    auto track = std::make_shared<zarn::AudioTrack>("voice");
    track->setFilePath("voice.wav");
    track->setStartOffset(1250);
    track->setPan(-1);
    auto muted = std::make_shared<zarn::AudioTrack>("muted");
    muted->setFilePath("gone.wav");
    muted->setMuted(true);
    Recordings recordings;
    const auto placed = recordings.of({track, muted}, rate, 0, _folder.path().toStdString());
    ASSERT_EQ(placed.size(), 1u);
    EXPECT_TRUE(recordings.problems().empty());
    EXPECT_NEAR(double(placed[0].sound->frames()), 2 * rate, 2);
    ScoreRenderer::Settings settings;
    settings.bankOf = nullptr;
    const auto frames = rendered(*romance(), settings, placed);
    constexpr double usualGain = 0.501187; // 6 dB, which renderers give back
    EXPECT_NEAR(std::sqrt(power(frames, 1.5, 3, 1000)), 0.5 * usualGain, 0.003);
    EXPECT_LT(power(frames, 0, 1.24, 1000), 1e-9);
    EXPECT_LT(power(frames, 3.26, 4, 1000), 1e-9);
    float right = 0;
    for (std::size_t i = 1; i < frames.size(); i += 2)
        right = std::max(right, std::abs(frames[i]));
    EXPECT_EQ(right, 0.0F);

    // The same sound is not read again, and what is before the first frame is left out.
    QFile::remove(_folder.filePath(QStringLiteral("voice.wav")));
    const auto later = recordings.of({track}, rate, 2, _folder.path().toStdString());
    ASSERT_EQ(later.size(), 1u);
    EXPECT_EQ(later[0].sound, placed[0].sound);
    EXPECT_EQ(later[0].start, -std::llround(0.75 * rate));
    muted->setMuted(false);
    EXPECT_TRUE(recordings.of({muted}, rate, 0, "").empty());
    ASSERT_EQ(recordings.problems().size(), 1u);
    EXPECT_NE(recordings.problems()[0].find("gone.wav"), std::string::npos);
}

TEST_F(ScoreSounds, recordingsKeepTheirPitchAtOtherSpeeds)
{
    // A tone from 1 to 1.5 seconds, of two.
    std::vector<float> tone(2 * 2 * rate, 0.0F);
    for (int i = rate; i < rate * 3 / 2; ++i)
        tone[std::size_t(2 * i)] = tone[std::size_t(2 * i + 1)] =
            0.5F * static_cast<float>(std::sin(2 * M_PI * 1000 * i / rate));
    const Recording recording(tone);
    for (const double speed : {0.25, 0.5, 0.8, 1.5, 2.0}) {
        SCOPED_TRACE(speed);
        const auto other = recording.atSpeed(speed, rate);
        ASSERT_NE(other, nullptr);
        EXPECT_EQ(other->frames(), std::llround(2 * rate / speed));
        const std::vector<float> frames(other->data(), other->data() + 2 * other->frames());
        constexpr double blur = 0.05;
        EXPECT_NEAR(std::sqrt(power(frames, 1 / speed + blur, 1.5 / speed - blur, 1000)), 0.5,
                    0.05);
        EXPECT_LT(power(frames, 0, 1 / speed - blur, 1000), 1e-4);
        EXPECT_LT(power(frames, 1.5 / speed + blur, 2 / speed, 1000), 1e-4);
    }
    const Recording minutes(std::vector<float>(std::size_t(2) * 10 * 60 * rate));
    EXPECT_EQ(minutes.atSpeed(0.25, rate), nullptr) << "40 minutes";

    put(_files, path("tone.wav"),
        encoded(tone, format(AudioFormat::File::Wav, AudioFormat::Encoding::Pcm24)));
    auto track = std::make_shared<zarn::AudioTrack>("tone");
    track->setFilePath("tone.wav");
    track->setStartOffset(500);
    Recordings recordings;
    const auto placed = recordings.of({track}, rate, 0.25, _folder.path().toStdString(), 0.5);
    ASSERT_EQ(placed.size(), 1u);
    EXPECT_EQ(placed[0].start, rate / 2);
    EXPECT_EQ(placed[0].sound->frames(), 4 * rate);
}

TEST_F(ScoreSounds, recordingsThatCannotBePlayedSayWhy)
{
    AudioFormat slow = format(AudioFormat::File::Wav, AudioFormat::Encoding::Pcm16, 1);
    slow.rate = 10;
    std::string error;
    const auto crawling = decoder(encoded(std::vector<float>(100), slow));
    ASSERT_TRUE(crawling);
    EXPECT_EQ(Recording::load(*crawling, rate, &error), nullptr);
    EXPECT_NE(error.find("10 frames a second"), std::string::npos) << error;
    // Of a file that was cut off, what there is.
    const auto flac =
        encoded(tones(50'000, 2), format(AudioFormat::File::Flac, AudioFormat::Encoding::Pcm16));
    const auto cut = decoder(flac.substr(0, flac.size() / 2));
    ASSERT_TRUE(cut);
    const auto half = Recording::load(*cut, rate, &error);
    ASSERT_NE(half, nullptr);
    EXPECT_GT(half->frames(), 10'000);
    EXPECT_LT(half->frames(), 40'000);
    EXPECT_FALSE(error.empty());
}

TEST_F(ScoreSounds, theMasteringIsHeard)
{
    const auto usual = masterSoundOf(zarn::Mastering::makeDefault());
    EXPECT_EQ(usual, MasterSound());
    zarn::Mastering mastering;
    EXPECT_EQ(masterSoundOf(mastering).reverbLevel, 0);
    mastering.setVolumePan({0.5F, 0.5F});
    zarn::Effect reverb = zarn::Mastering::makeReverb();
    reverb.setParameter(0, 0.38F);
    reverb.setParameter(1, 1);
    mastering.mutableEffectChain().setEffect(1, reverb);
    const auto sound = masterSoundOf(mastering);
    EXPECT_FLOAT_EQ(sound.left, 0.25F);
    EXPECT_FLOAT_EQ(sound.right, 0.5F);
    EXPECT_NEAR(sound.reverbLevel, 0.45, 1e-6);
    EXPECT_NEAR(sound.roomSize, 0.4, 1e-6);
    mastering.mutableEffectChain().setBypassed(1, true);
    EXPECT_EQ(masterSoundOf(mastering).reverbLevel, 0);

    const std::string low = bank("low", 441, 0.2F);
    ScoreRenderer::Settings settings;
    settings.bankOf = [&](const Sound &, bool, int) { return low; };
    const auto plain = rendered(*romance(), settings);
    settings.master = sound;
    const auto mixed = rendered(*romance(), settings);
    ASSERT_EQ(plain.size(), mixed.size());
    for (std::size_t i = 0; i < plain.size(); i += 1000) {
        EXPECT_NEAR(mixed[i], 0.25F * plain[i], 1e-6F);
        EXPECT_NEAR(mixed[i + 1], 0.5F * plain[i + 1], 1e-6F);
    }
}

/// A note of two whole bars at one quarter a second, bent up by two semitones and back or straight.
std::shared_ptr<zarn::ScoreModel> longNote(bool isBent)
{
    filesystem::RAMFileSystem files;
    put(files, "x",
        std::string(R"(<score-partwise version="4.0"><part-list><score-part id="P1">
        <part-name>Guitar</part-name></score-part></part-list><part id="P1"><measure number="1">
        <attributes><divisions>1</divisions><time><beats>8</beats><beat-type>4</beat-type></time>
        <clef><sign>G</sign><line>2</line></clef></attributes>
        <direction><sound tempo="60"/></direction>
        <note><pitch><step>E</step><octave>4</octave></pitch><duration>8</duration>
        <type>breve</type><notations><technical><string>1</string><fret>0</fret>)")
            + (isBent ? R"(<bend><bend-alter>2</bend-alter></bend>
                <bend><bend-alter>0</bend-alter><release/></bend>)"
                      : "")
            + "</technical></notations></note></measure></part></score-partwise>");
    const auto handle = files.open("x", filesystem::OpenMode::Read);
    zarn::io::ImportReport report;
    return zarn::io::MusicXmlImporter().read(*handle, report);
}

TEST_F(ScoreSounds, bendsAndVibratosFollowTheirCurve)
{
    const auto bent = longNote(true);
    const auto wide = longNote(false);
    wide->track(0)->bar(0)->voice(0)->beat(0)->note(0)->setVibrato(zarn::Vibrato::Wide);
    const auto both = longNote(true);
    both->track(0)->bar(0)->voice(0)->beat(0)->note(0)->setVibrato(zarn::Vibrato::Slight);
    constexpr double frequency = 2000;
    constexpr int sampleSeconds = 9;
    const std::string sine = bank("sine", frequency, 0.5F, sampleSeconds * rate);
    ScoreRenderer::Settings settings;
    settings.bankOf = [&](const Sound &, bool, int) { return sine; };
    for (const auto &[model, reach] : {std::pair{bent, 2.0}, {wide, 0.5}, {both, 2.2}}) {
        SCOPED_TRACE(reach);
        const PlaybackPlan plan(*model);
        ASSERT_EQ(plan.notes().size(), 1u);
        const auto &note = plan.notes()[0];
        const auto *const motion = plan.motionOf(note);
        ASSERT_NE(motion, nullptr);
        EXPECT_NEAR(motion->reach(), reach, 0.05);
        const auto frames = rendered(*model, settings);
        std::vector<double> crossings;
        for (auto i = static_cast<std::size_t>(0.02 * rate);
             i < static_cast<std::size_t>((note.endSecond - 0.1) * rate); ++i) {
            const double a = frames[2 * i];
            const double b = frames[2 * i + 2];
            if (a < 0 && b >= 0)
                crossings.push_back((double(i) + a / (a - b)) / rate);
        }
        ASSERT_GT(crossings.size(), 10'000u);
        // Ten periods at a time: what the pitch does meanwhile is less than a cent.
        constexpr std::size_t periods = 10;
        double farthest = 0;
        for (std::size_t i = 0; i + periods < crossings.size(); i += periods) {
            const double heard = periods / (crossings[i + periods] - crossings[i]);
            const double middle = (crossings[i] + crossings[i + periods]) / 2;
            const double quarters = plan.tempo().quartersAt(middle);
            const double wanted =
                motion->semitonesAt({static_cast<std::int64_t>(quarters * 100'000), 100'000});
            const double cents = 1200 * std::log2(heard / frequency) - 100 * wanted;
            farthest = std::max(farthest, std::abs(cents));
        }
        EXPECT_LT(farthest, 2);
    }
}

TEST_F(ScoreSounds, whereRenderingStartsDoesNotMatter)
{
    const std::string sine = bank("sine", 441, 0.2F, 2000);
    const PlaybackPlan plan(*romance());
    Soundbanks banks;
    const PlanSound sound = banks.soundOf(plan, [&](const Sound &, bool, int) { return sine; });
    Synthesizer synthesizer({rate, Synthesizer::mostChannels, 256, false, false});
    ASSERT_TRUE(banks.load(synthesizer, sound));
    const EventSequence events(sound.events(rate), synthesizer);
    EventRenderer renderer(synthesizer);
    renderer.start(events, 0);
    constexpr std::int64_t count = 12 * rate;
    std::vector<float> whole(2 * count);
    renderer.render(whole.data(), count);
    // In the silence that a note leaves in front of the next one, and in the midst of blocks.
    std::size_t compared = 0;
    for (std::int64_t start = 5; start + rate < count; ++start) {
        const auto at = static_cast<std::size_t>(2 * start);
        const bool isSilent =
            std::all_of(&whole[at - 10], &whole[at + 2], [](float value) { return value == 0; });
        if (!isSilent || start % 50 != 7)
            continue;
        renderer.start(events, start);
        std::vector<float> part(2 * 3000);
        renderer.render(part.data(), 1000);
        renderer.render(&part[2000], 2000);
        ASSERT_TRUE(std::equal(part.begin(), part.end(), &whole[at])) << start;
        if (++compared == 20)
            break;
    }
    EXPECT_EQ(compared, 20u);
}

TEST_F(ScoreSounds, nothingDriftsInTenMinutes)
{
    std::vector<float> impulse(400, 0.0F);
    impulse[0] = 0.25F;
    put(_memory, "impulse.wav",
        encoded(impulse, format(AudioFormat::File::Wav, AudioFormat::Encoding::Pcm24, 1)));
    put(_memory, "bank.json",
        R"({"id": "x", "name": "x", "instrument": "snare",
            "regions": [{"sample": "impulse.wav"}]})");
    streams::MemoryHeap heap(16 << 20);
    SampleCache cache(heap);
    Synthesizer synthesizer({rate, 1, 64, false, false});
    std::string error;
    ASSERT_TRUE(synthesizer.loadBank(0, streams::BankArchive::open(_memory, "bank.json", nullptr),
                                     cache, &error))
        << error;
    constexpr double period = 0.437956; // seconds
    constexpr int count = 1370;         // ten minutes
    std::vector<TimedEvent> events;
    std::vector<std::int64_t> expected;
    for (int i = 0; i < count; ++i) {
        expected.push_back(std::llround((i + 1) * period * rate));
        events.push_back({expected.back(), TimedEvent::Kind::NoteOn, 0, 60, 100, 0});
    }
    EventRenderer renderer(synthesizer, events);
    std::vector<std::int64_t> heard;
    std::vector<float> frames(2 * 1000);
    while (renderer.position() < expected.back() + 2000) {
        const auto from = renderer.position();
        renderer.render(frames.data(), 1000);
        for (std::int64_t i = 0; i < 1000; ++i)
            if (frames[std::size_t(2 * i)] > 0.02F
                && (heard.empty() || from + i > heard.back() + 100))
                heard.push_back(from + i);
    }
    ASSERT_EQ(heard.size(), expected.size());
    for (std::size_t i = 0; i < heard.size(); ++i)
        ASSERT_LE(std::abs(heard[i] - expected[i]), 1) << i;
}

} // namespace
