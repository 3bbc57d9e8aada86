// SPDX-License-Identifier: MIT
#include <ZarnCore/io/instruments/StandardSound.h>

#include <algorithm>
#include <array>
#include <iterator>
#include <string>

namespace zarn::io {

namespace {

using Set = InstrumentSet;
using Range = NamedInstrument::Range;

struct SoundRow {
    std::string_view sound;
    Set::Type type;
    bool isOpen = false; ///< of several kinds
};

// A row is for all sounds that its text and a point begin; of several such rows the longest holds.
// The order is that of the texts, which the look-up needs.
// clang-format off
constexpr std::array sounds = {
    SoundRow{"brass", Set::trumpet},
    SoundRow{"brass.alphorn", Set::frenchHorn}, SoundRow{"brass.alto-horn", Set::frenchHorn},
    SoundRow{"brass.baritone-horn", Set::tuba}, SoundRow{"brass.bugle.baritone", Set::tuba},
    SoundRow{"brass.bugle.contrabass", Set::tuba}, SoundRow{"brass.bugle.euphonium-bugle", Set::tuba},
    SoundRow{"brass.bugle.mellophone-bugle", Set::frenchHorn}, SoundRow{"brass.cimbasso", Set::tuba},
    SoundRow{"brass.euphonium", Set::tuba}, SoundRow{"brass.fiscorn", Set::flugelHorn},
    SoundRow{"brass.flugelhorn", Set::flugelHorn}, SoundRow{"brass.french-horn", Set::frenchHorn},
    SoundRow{"brass.group.synth", Set::brassSynthesizer}, SoundRow{"brass.helicon", Set::tuba},
    SoundRow{"brass.kuhlohorn", Set::flugelHorn}, SoundRow{"brass.mellophone", Set::frenchHorn},
    SoundRow{"brass.natural-horn", Set::frenchHorn}, SoundRow{"brass.ophicleide", Set::tuba},
    SoundRow{"brass.posthorn", Set::frenchHorn}, SoundRow{"brass.sackbutt", Set::trombone},
    SoundRow{"brass.saxhorn", Set::frenchHorn}, SoundRow{"brass.serpent", Set::tuba},
    SoundRow{"brass.sousaphone", Set::tuba}, SoundRow{"brass.trombone", Set::trombone},
    SoundRow{"brass.tuba", Set::tuba}, SoundRow{"brass.vienna-horn", Set::frenchHorn},
    SoundRow{"brass.wagner-tuba", Set::tuba},
    SoundRow{"drum", Set::drumKit}, SoundRow{"drum.bass-drum", Set::grancassa},
    SoundRow{"drum.bongo", Set::bongos}, SoundRow{"drum.conga", Set::congas},
    SoundRow{"drum.cuica", Set::cuica}, SoundRow{"drum.djembe", Set::africaKit},
    SoundRow{"drum.kick-drum", Set::kickDrum}, SoundRow{"drum.snare-drum", Set::snare},
    SoundRow{"drum.surdo", Set::surdo}, SoundRow{"drum.taiko", Set::taikoDrum},
    SoundRow{"drum.tambourine", Set::tambourine}, SoundRow{"drum.timbale", Set::timbales},
    SoundRow{"drum.timpani", Set::timpani}, SoundRow{"drum.tom-tom", Set::tom},
    SoundRow{"effect.hand-clap", Set::handClap}, SoundRow{"effect.whistle", Set::whistles},
    SoundRow{"keyboard", Set::keySynthesizer, true}, SoundRow{"keyboard.accordion", Set::accordion},
    SoundRow{"keyboard.bandoneon", Set::bandoneon}, SoundRow{"keyboard.celesta", Set::celesta},
    SoundRow{"keyboard.clavichord", Set::harpsichord},
    SoundRow{"keyboard.clavichord.synth", Set::electricPiano},
    SoundRow{"keyboard.concertina", Set::accordion}, SoundRow{"keyboard.fortepiano", Set::acousticPiano},
    SoundRow{"keyboard.harmonium", Set::accordion}, SoundRow{"keyboard.harpsichord", Set::harpsichord},
    SoundRow{"keyboard.ondes-martenot", Set::leadSynthesizer},
    SoundRow{"keyboard.organ", Set::pipeOrgan, true}, SoundRow{"keyboard.organ.drawbar", Set::electricOrgan},
    SoundRow{"keyboard.organ.percussive", Set::electricOrgan}, SoundRow{"keyboard.organ.pipe", Set::pipeOrgan},
    SoundRow{"keyboard.organ.reed", Set::accordion}, SoundRow{"keyboard.organ.rotary", Set::electricOrgan},
    SoundRow{"keyboard.piano", Set::acousticPiano, true},
    SoundRow{"keyboard.piano.electric", Set::electricPiano}, SoundRow{"keyboard.piano.grand", Set::acousticPiano},
    SoundRow{"keyboard.piano.upright", Set::acousticPiano}, SoundRow{"keyboard.virginal", Set::harpsichord},
    SoundRow{"metal", Set::drumKit}, SoundRow{"metal.bells.agogo", Set::agogos},
    SoundRow{"metal.bells.bell-tree", Set::bellTree}, SoundRow{"metal.bells.carillon", Set::celesta},
    SoundRow{"metal.bells.chimes", Set::xylophone}, SoundRow{"metal.bells.church", Set::xylophone},
    SoundRow{"metal.bells.cowbell", Set::cowbell}, SoundRow{"metal.bells.jingle-bell", Set::jingleBell},
    SoundRow{"metal.bells.sleigh-bells", Set::jingleBell}, SoundRow{"metal.bells.tinklebell", Set::tinkleBell},
    SoundRow{"metal.crotales", Set::xylophone}, SoundRow{"metal.cymbal", Set::piatti},
    SoundRow{"metal.cymbal.chinese", Set::china}, SoundRow{"metal.cymbal.crash", Set::crash},
    SoundRow{"metal.cymbal.reverse", Set::reverseCymbal}, SoundRow{"metal.cymbal.ride", Set::ride},
    SoundRow{"metal.cymbal.splash", Set::splash}, SoundRow{"metal.hi-hat", Set::hiHat},
    SoundRow{"metal.steel-drums", Set::vibraphone}, SoundRow{"metal.triangle", Set::triangle},
    SoundRow{"pitched-percussion", Set::xylophone}, SoundRow{"pitched-percussion.cimbalom", Set::harp},
    SoundRow{"pitched-percussion.hammer-dulcimer", Set::harp},
    SoundRow{"pitched-percussion.handbells", Set::celesta},
    SoundRow{"pitched-percussion.metallophone", Set::vibraphone},
    SoundRow{"pitched-percussion.music-box", Set::celesta},
    SoundRow{"pitched-percussion.vibraphone", Set::vibraphone},
    SoundRow{"pluck.archlute", Set::nylonGuitar}, SoundRow{"pluck.autoharp", Set::harp},
    SoundRow{"pluck.balalaika", Set::mandolin}, SoundRow{"pluck.bandurria", Set::mandolin},
    SoundRow{"pluck.banjo", Set::banjo}, SoundRow{"pluck.banjolele", Set::banjo},
    SoundRow{"pluck.bass", Set::electricBass, true}, SoundRow{"pluck.bass.acoustic", Set::acousticBass},
    SoundRow{"pluck.bass.electric", Set::electricBass}, SoundRow{"pluck.bass.fretless", Set::fretlessBass},
    SoundRow{"pluck.bass.guitarron", Set::acousticBass}, SoundRow{"pluck.bass.synth", Set::synthBass},
    SoundRow{"pluck.bouzouki", Set::mandolin}, SoundRow{"pluck.cavaquinho", Set::ukulele},
    SoundRow{"pluck.celtic-harp", Set::harp}, SoundRow{"pluck.charango", Set::mandolin},
    SoundRow{"pluck.cittern", Set::mandolin}, SoundRow{"pluck.domra", Set::mandolin},
    SoundRow{"pluck.dulcimer", Set::harp}, SoundRow{"pluck.guitar", Set::steelGuitar, true},
    SoundRow{"pluck.guitar.acoustic", Set::steelGuitar, true},
    SoundRow{"pluck.guitar.electric", Set::electricGuitar}, SoundRow{"pluck.guitar.nylon-string", Set::nylonGuitar},
    SoundRow{"pluck.guitar.pedal-steel", Set::steelGuitar}, SoundRow{"pluck.guitar.requinto", Set::nylonGuitar},
    SoundRow{"pluck.guitar.resonator", Set::resonatorGuitar},
    SoundRow{"pluck.guitar.steel-string", Set::steelGuitar}, SoundRow{"pluck.harp", Set::harp},
    SoundRow{"pluck.kantele", Set::harp}, SoundRow{"pluck.kora", Set::harp}, SoundRow{"pluck.koto", Set::harp},
    SoundRow{"pluck.laud", Set::nylonGuitar}, SoundRow{"pluck.lute", Set::nylonGuitar},
    SoundRow{"pluck.lyre", Set::harp}, SoundRow{"pluck.mandobass", Set::acousticBass},
    SoundRow{"pluck.mandocello", Set::mandolin}, SoundRow{"pluck.mandola", Set::mandolin},
    SoundRow{"pluck.mandolin", Set::mandolin}, SoundRow{"pluck.oud", Set::nylonGuitar},
    SoundRow{"pluck.psaltery", Set::harp}, SoundRow{"pluck.shamisen", Set::banjo},
    SoundRow{"pluck.sitar", Set::electricSitar}, SoundRow{"pluck.theorbo", Set::nylonGuitar},
    SoundRow{"pluck.timple", Set::ukulele}, SoundRow{"pluck.ukulele", Set::ukulele},
    SoundRow{"pluck.vihuela", Set::nylonGuitar}, SoundRow{"pluck.zither", Set::harp},
    SoundRow{"rattle", Set::drumKit}, SoundRow{"rattle.cabasa", Set::cabasa},
    SoundRow{"rattle.maraca", Set::maracas}, SoundRow{"rattle.shaker", Set::shaker},
    SoundRow{"rattle.vibraslap", Set::vibraslap},
    SoundRow{"strings", Set::violin}, SoundRow{"strings.arpeggione", Set::cello},
    SoundRow{"strings.baryton", Set::cello}, SoundRow{"strings.cello", Set::cello},
    SoundRow{"strings.contrabass", Set::contrabass}, SoundRow{"strings.group.synth", Set::padSynthesizer},
    SoundRow{"strings.octobass", Set::contrabass}, SoundRow{"strings.viol", Set::cello},
    SoundRow{"strings.viol.violone", Set::contrabass}, SoundRow{"strings.viola", Set::viola},
    SoundRow{"strings.viola-damore", Set::viola}, SoundRow{"strings.violotta", Set::viola},
    SoundRow{"synth", Set::keySynthesizer, true}, SoundRow{"synth.effects", Set::padSynthesizer},
    SoundRow{"synth.pad", Set::padSynthesizer}, SoundRow{"synth.theremin", Set::leadSynthesizer},
    SoundRow{"synth.tone", Set::leadSynthesizer},
    SoundRow{"voice", Set::voice}, SoundRow{"voice.aa", Set::choir}, SoundRow{"voice.percussion", Set::drumKit},
    SoundRow{"voice.synth", Set::padSynthesizer},
    SoundRow{"wind.flutes", Set::flute}, SoundRow{"wind.flutes.blown-bottle", Set::bottleBow},
    SoundRow{"wind.flutes.flute.piccolo", Set::piccolo}, SoundRow{"wind.flutes.recorder", Set::recorder},
    SoundRow{"wind.pipes", Set::bagpipe}, SoundRow{"wind.reed", Set::oboe},
    SoundRow{"wind.reed.basset-horn", Set::clarinet}, SoundRow{"wind.reed.bassoon", Set::bassoon},
    SoundRow{"wind.reed.chalumeau", Set::clarinet}, SoundRow{"wind.reed.clarinet", Set::clarinet},
    SoundRow{"wind.reed.clarinette-damour", Set::clarinet}, SoundRow{"wind.reed.contrabass", Set::contrabassoon},
    SoundRow{"wind.reed.contrabassoon", Set::contrabassoon}, SoundRow{"wind.reed.dulcian", Set::bassoon},
    SoundRow{"wind.reed.english-horn", Set::englishHorn}, SoundRow{"wind.reed.harmonica", Set::harmonica},
    SoundRow{"wind.reed.melodica", Set::harmonica}, SoundRow{"wind.reed.rackett", Set::bassoon},
    SoundRow{"wind.reed.sarrusaphone", Set::contrabassoon}, SoundRow{"wind.reed.saxonette", Set::clarinet},
    SoundRow{"wind.reed.saxophone", Set::saxophone}, SoundRow{"wind.reed.tarogato", Set::saxophone},
    SoundRow{"wind.reed.tubax", Set::saxophone}, SoundRow{"wind.reed.xaphoon", Set::clarinet},
    SoundRow{"wood", Set::drumKit}, SoundRow{"wood.agogo-block", Set::agogos},
    SoundRow{"wood.castanets", Set::castanets}, SoundRow{"wood.claves", Set::claves},
    SoundRow{"wood.guiro", Set::guiro}, SoundRow{"wood.temple-block", Set::woodblocks},
    SoundRow{"wood.wood-block", Set::woodblocks},
};

struct ProgramRow {
    int last; ///< last program, counted from 0, of a run that starts behind the row before
    Set::Type type;
};

/// General MIDI level 1 programs.
constexpr ProgramRow programs[] = {
    {1, Set::acousticPiano}, {2, Set::electricPiano}, {3, Set::acousticPiano},
    {5, Set::electricPiano}, {6, Set::harpsichord}, {7, Set::electricPiano}, {8, Set::celesta},
    {9, Set::xylophone}, {10, Set::celesta}, {11, Set::vibraphone}, {14, Set::xylophone},
    {15, Set::harp}, {18, Set::electricOrgan}, {19, Set::pipeOrgan}, {21, Set::accordion},
    {22, Set::harmonica}, {23, Set::bandoneon}, {24, Set::nylonGuitar}, {25, Set::steelGuitar},
    {31, Set::electricGuitar}, {32, Set::acousticBass}, {34, Set::electricBass},
    {35, Set::fretlessBass}, {37, Set::electricBass}, {39, Set::synthBass}, {40, Set::violin},
    {41, Set::viola}, {42, Set::cello}, {43, Set::contrabass}, {45, Set::violin}, {46, Set::harp},
    {47, Set::timpani}, {49, Set::violin}, {51, Set::padSynthesizer}, {52, Set::choir},
    {53, Set::voice}, {54, Set::padSynthesizer}, {55, Set::keySynthesizer}, {56, Set::trumpet},
    {57, Set::trombone}, {58, Set::tuba}, {59, Set::trumpet}, {60, Set::frenchHorn},
    {61, Set::trumpet}, {63, Set::brassSynthesizer}, {67, Set::saxophone}, {68, Set::oboe},
    {69, Set::englishHorn}, {70, Set::bassoon}, {71, Set::clarinet}, {72, Set::piccolo},
    {73, Set::flute}, {74, Set::recorder}, {75, Set::flute}, {76, Set::bottleBow}, {79, Set::flute},
    {87, Set::leadSynthesizer}, {95, Set::padSynthesizer}, {96, Set::seqSynthesizer},
    {103, Set::padSynthesizer}, {104, Set::electricSitar}, {107, Set::banjo}, {108, Set::xylophone},
    {109, Set::bagpipe}, {110, Set::violin}, {111, Set::oboe}, {112, Set::tinkleBell},
    {113, Set::agogos}, {114, Set::vibraphone}, {115, Set::woodblocks}, {116, Set::taikoDrum},
    {117, Set::melodicTom}, {118, Set::synthDrum}, {119, Set::reverseCymbal},
    {120, Set::electricGuitar}, {127, Set::padSynthesizer},
};
// clang-format on

constexpr bool isSorted()
{
    for (std::size_t i = 1; i < sounds.size(); ++i)
        if (!(sounds[i - 1].sound < sounds[i].sound))
            return false;
    return true;
}
static_assert(isSorted());

} // namespace

NamedInstrument instrumentOfStandardSound(std::string_view sound)
{
    while (!sound.empty()) {
        const auto *const found = std::lower_bound(
            sounds.begin(), sounds.end(), sound,
            [](const SoundRow &row, std::string_view wanted) { return row.sound < wanted; });
        if (found != sounds.end() && found->sound == sound)
            return {found->type, Range::None, found->isOpen, true};
        const auto point = sound.rfind('.');
        sound = sound.substr(0, point == sound.npos ? 0 : point);
    }
    return {};
}

std::string_view standardSoundOf(Set::Type type)
{
    const std::string name = Set::typeToString(type);
    // The one that is called as the instrument is, such as "pluck.guitar.steel-string", else the
    // widest.
    const auto isNamed = [&name](std::string_view sound) {
        const auto last = sound.substr(sound.rfind('.') + 1);
        const auto word = last.substr(0, last.find('-'));
        return name.compare(0, word.size(), word) == 0;
    };
    std::string_view best;
    bool isBestNamed = false;
    for (const auto &row : sounds) {
        if (row.type != type)
            continue;
        const bool named = isNamed(row.sound);
        if (best.empty() || named > isBestNamed
            || (named == isBestNamed && row.sound.size() < best.size())) {
            best = row.sound;
            isBestNamed = named;
        }
    }
    return best;
}

InstrumentSet::Type instrumentOfProgram(int program)
{
    const auto *found = std::find_if(std::begin(programs), std::end(programs),
                                     [&](const ProgramRow &row) { return program <= row.last; });
    return found == std::end(programs) ? Set::unknown : found->type;
}

} // namespace zarn::io
